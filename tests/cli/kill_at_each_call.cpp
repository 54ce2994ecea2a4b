#ifndef _WIN32

#include "cli/kill_at_each_call.h"

#include "places.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace corvelle::test {

namespace {

struct Call {
    long number;
    const char* name;
    int file = -1;  // which argument is an open file that must not be a standard stream
    int flags = -1; // which argument tells whether the call changes anything
};

constexpr std::array calls{
    Call{SYS_openat, "openat", -1, 2},
    Call{SYS_write, "write", 0},
    Call{SYS_pwrite64, "pwrite64", 0},
    Call{SYS_writev, "writev", 0},
    Call{SYS_copy_file_range, "copy_file_range"},
    Call{SYS_sendfile, "sendfile"},
    Call{SYS_truncate, "truncate"},
    Call{SYS_ftruncate, "ftruncate"},
    Call{SYS_fallocate, "fallocate"},
    Call{SYS_fsync, "fsync"},
    Call{SYS_fdatasync, "fdatasync"},
    Call{SYS_renameat2, "renameat2"},
    Call{SYS_unlinkat, "unlinkat"},
    Call{SYS_linkat, "linkat"},
    Call{SYS_symlinkat, "symlinkat"},
    Call{SYS_mkdirat, "mkdirat"},
    Call{SYS_fchmod, "fchmod"},
    Call{SYS_fchmodat, "fchmodat"},
    Call{SYS_fchown, "fchown"},
    Call{SYS_fchownat, "fchownat"},
    Call{SYS_setxattr, "setxattr"},
    Call{SYS_lsetxattr, "lsetxattr"},
    Call{SYS_fsetxattr, "fsetxattr"},
    Call{SYS_removexattr, "removexattr"},
    Call{SYS_fremovexattr, "fremovexattr"},
    Call{SYS_utimensat, "utimensat"},
#ifdef SYS_renameat
    Call{SYS_renameat, "renameat"},
#endif
#ifdef SYS_open // the older calls of the older processors
    Call{SYS_open, "open", -1, 1},
    Call{SYS_creat, "creat"},
    Call{SYS_rename, "rename"},
    Call{SYS_unlink, "unlink"},
    Call{SYS_rmdir, "rmdir"},
    Call{SYS_link, "link"},
    Call{SYS_symlink, "symlink"},
    Call{SYS_mkdir, "mkdir"},
    Call{SYS_chmod, "chmod"},
    Call{SYS_chown, "chown"},
    Call{SYS_lchown, "lchown"},
#endif
};

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

// The name of the call that the process is about to make, if that changes files.
const char* changingCall(const __ptrace_syscall_info& info) {
    const auto* const call = std::find_if(calls.begin(), calls.end(), [&](const Call& known) {
        return known.number == static_cast<long>(info.entry.nr);
    });
    if (call == calls.end()) return nullptr;
    if (call->file >= 0 && info.entry.args[call->file] <= STDERR_FILENO) return nullptr;
    constexpr unsigned changing = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;
    if (call->flags >= 0 && (info.entry.args[call->flags] & changing) == 0) return nullptr;
    return call->name;
}

// In the child: everything up to exec is not looked at yet.
[[noreturn]] void become(const std::filesystem::path& folder, const std::vector<char*>& argv,
                         bool isFollowed) {
    const int nowhere = open("/dev/null", O_RDWR);
    for (int stream = 0; stream <= STDERR_FILENO; ++stream) dup2(nowhere, stream);
    if (chdir(folder.c_str()) != 0) _exit(127);
    // The search for leaks stops the program itself, which cannot be done twice.
    const char* const options = getenv("ASAN_OPTIONS");
    setenv("ASAN_OPTIONS", (std::string(options ? options : "") + ":detect_leaks=0").c_str(), 1);
    if (isFollowed) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(126);
        raise(SIGSTOP);
    }
    execv(argv[0], argv.data());
    _exit(127);
}

// Follows the program and its threads.
class Tracer {
  public:
    explicit Tracer(pid_t child) : child_(child) {
        int status = 0;
        if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) fail("cannot follow the program");
        const long options =
            PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL | PTRACE_O_TRACEEXEC;
        if (ptrace(PTRACE_SETOPTIONS, child, nullptr, options) != 0) fail("ptrace");
        goOn(child, 0);
    }

    // A kill is what is done at the call if there is nothing else to be done.
    KilledRun killAtCall(int n, const std::function<void()>& meanwhile = nullptr) {
        KilledRun result;
        while (true) {
            int status = 0;
            const pid_t thread = waitpid(-1, &status, __WALL);
            if (thread < 0 && errno == EINTR) continue;
            if (thread < 0) return result; // none is left
            if (!WIFSTOPPED(status)) {
                if (thread == child_)
                    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
                continue;
            }
            const char* const call = result.call.empty() ? aboutToMake(thread, status) : nullptr;
            if (call && --n == 0) {
                result.call = call;
                if (!meanwhile) {
                    kill(child_, SIGKILL);
                    continue;
                }
                meanwhile();
            }
            goOn(thread, signalFor(status));
        }
    }

  private:
    static constexpr int callStop = SIGTRAP | 0x80;

    static void goOn(pid_t thread, int signal) {
        // It may have been killed meanwhile.
        ptrace(PTRACE_SYSCALL, thread, nullptr, static_cast<long>(signal));
    }

    // A signal of the program's own is passed on; the stops of following it are not.
    int signalFor(int status) const {
        const int signal = WSTOPSIG(status);
        return signal == callStop || signal == SIGTRAP || signal == SIGSTOP ? 0 : signal;
    }

    const char* aboutToMake(pid_t thread, int status) {
        if (status >> 8 == (SIGTRAP | (PTRACE_EVENT_EXEC << 8))) running_ = true;
        if (WSTOPSIG(status) != callStop || !running_) return nullptr;
        __ptrace_syscall_info info{};
        if (ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof info, &info) <= 0) fail("ptrace");
        return info.op == PTRACE_SYSCALL_INFO_ENTRY ? changingCall(info) : nullptr;
    }

    pid_t child_;
    bool running_ = false;
};

} // namespace

namespace {

pid_t start(const std::filesystem::path& folder, const std::vector<std::string>& arguments, bool isFollowed) {
    std::vector<std::string> words{CORVELLE_BINARY};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child < 0) fail("fork");
    if (child == 0) become(folder, argv, isFollowed);
    return child;
}

} // namespace

KilledRun runAndKill(int n, const std::filesystem::path& folder, const std::vector<std::string>& arguments) {
    return Tracer(start(folder, arguments, true)).killAtCall(n);
}

KilledRun runAndInterfere(int n, const std::filesystem::path& folder,
                          const std::vector<std::string>& arguments, const std::function<void()>& meanwhile) {
    return Tracer(start(folder, arguments, true)).killAtCall(n, meanwhile);
}

int runAndKillAfter(std::chrono::microseconds time, const std::filesystem::path& folder,
                    const std::vector<std::string>& arguments) {
    const pid_t child = start(folder, arguments, false);
    std::this_thread::sleep_for(time);
    kill(child, SIGKILL);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void killAtEachCall(int least, const std::filesystem::path& folder, const std::vector<std::string>& arguments,
                    const std::function<void()>& before,
                    const std::function<void(const std::string& call)>& check) {
    constexpr int most = 10000;
    for (int n = 1; n < most; ++n) {
        before();
        const auto run = runAndKill(n, folder, arguments);
        SCOPED_TRACE("killed at call " + std::to_string(n) + ", " +
                     (run.call.empty() ? "the end" : run.call));
        check(run.call);
        if (run.call.empty()) {
            EXPECT_EQ(run.status, 0);
            EXPECT_GT(n, least); // the way is as long as it was meant to be
            return;
        }
        EXPECT_EQ(run.status, -SIGKILL);
        if (testing::Test::HasFailure()) return;
    }
    FAIL() << "the program does not end";
}

} // namespace corvelle::test

#endif
