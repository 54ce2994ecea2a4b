#ifndef _WIN32

#include "cli/run_corvelle.h"

#include "places.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <memory>
#include <optional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace corvelle::test {

namespace {

// Files, not pipes: nobody has to read while the program runs.
class Stream {
  public:
    explicit Stream(std::string_view content = {}) : file_(std::tmpfile(), std::fclose) {
        if (!file_) throw std::system_error(errno, std::generic_category(), "temporary file");
        if (!content.empty()) std::fwrite(content.data(), 1, content.size(), file_.get());
        std::rewind(file_.get());
    }

    int number() const { return fileno(file_.get()); }

    std::string content() const {
        std::rewind(file_.get());
        std::string result;
        char part[4096];
        while (const std::size_t size = std::fread(part, 1, sizeof part, file_.get())) {
            result.append(part, size);
        }
        return result;
    }

  private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

// A terminal that passes everything on as it is.
class Terminal {
  public:
    Terminal() : shown_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        if (shown_ < 0 || grantpt(shown_) != 0 || unlockpt(shown_) != 0) fail();
        written_ = open(ptsname(shown_), O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios mode{};
        if (written_ < 0 || tcgetattr(written_, &mode) != 0) fail();
        cfmakeraw(&mode);
        if (tcsetattr(written_, TCSANOW, &mode) != 0) fail();
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        close(shown_);
        if (written_ >= 0) close(written_);
    }

    int number() const { return written_; }

    // Once nobody writes any more.
    std::string content() {
        close(written_);
        written_ = -1;
        std::string result;
        char part[4096];
        for (ssize_t size = 0; (size = read(shown_, part, sizeof part)) > 0;) {
            result.append(part, static_cast<std::size_t>(size));
        }
        return result;
    }

  private:
    [[noreturn]] static void fail() { throw std::system_error(errno, std::generic_category(), "terminal"); }

    int shown_, written_ = -1;
};

[[noreturn]] void giveUp(const char* what) {
    std::perror(what);
    _exit(127);
}

void put(int file, int stream) {
    if (file < 0 || dup2(file, stream) < 0) giveUp("stream");
}

int pipeWithoutReader() {
    int ends[2];
    if (pipe(ends) != 0) giveUp("pipe");
    close(ends[0]);
    return ends[1];
}

// In the child, between fork and exec.
void enter(const Surroundings& surroundings, const Stream& in, const Stream& out, int err) {
    if (chdir(surroundings.folder.c_str()) != 0) giveUp("folder");
    const auto& from = surroundings.inputFrom;
    put(from.empty() ? in.number() : open(from.c_str(), O_RDONLY), 0);
    const auto& to = surroundings.outputTo;
    put(!surroundings.outputHasReader ? pipeWithoutReader()
        : to.empty()                  ? out.number()
                                      : open(to.c_str(), O_WRONLY),
        1);
    put(surroundings.errorsHaveReader ? err : pipeWithoutReader(), 2);
    for (const int stream : surroundings.closed) close(stream);
    std::signal(SIGPIPE, SIG_DFL);
    const auto limit = [](auto resource, const std::optional<std::uint64_t>& most) {
        const rlimit value{most.value_or(0), RLIM_INFINITY};
        if (most && setrlimit(resource, &value) != 0) giveUp("limit");
    };
    limit(RLIMIT_FSIZE, surroundings.largestFile);
    limit(RLIMIT_AS, surroundings.largestMemory);
}

// The program may stand in a folder that is root's alone: it is opened before.
[[noreturn]] void executeAsNobody(char* const* argv) {
    constexpr uid_t nobody = 65534;
    const int program = open(argv[0], O_PATH | O_CLOEXEC);
    if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setuid(nobody) != 0)) giveUp("user");
    fexecve(program, argv, environ);
    giveUp(argv[0]);
}

} // namespace

Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Surroundings& surroundings) {
    const Stream in(surroundings.input), out, err;
    std::optional<Terminal> terminal;
    if (surroundings.errorsAreTerminal) terminal.emplace();
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    const pid_t child = fork();
    if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) {
        enter(surroundings, in, out, terminal ? terminal->number() : err.number());
        if (surroundings.asNobody) executeAsNobody(argv.data());
        execvp(argv[0], argv.data());
        giveUp(argv[0]);
    }
    if (surroundings.killedAfter) {
        std::this_thread::sleep_for(*surroundings.killedAfter);
        kill(child, SIGKILL);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "waitpid");
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), out.content(),
            terminal ? terminal->content() : err.content()};
}

Outcome runCorvelle(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    return runProgram(CORVELLE_BINARY, arguments, surroundings);
}

} // namespace corvelle::test

#endif
