// Signals as POSIX systems have them.
#ifndef _WIN32

#include "base/pending_file.h"
#include "base/temporary_folder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvelle::base {
namespace {

// How a process ends that has files pending while the signal comes.
int statusAfter(int signal, const std::filesystem::path& folder) {
    const pid_t child = fork();
    if (child == 0) {
        ::signal(signal, SIG_DFL);
        removeTemporaryFilesAtSignals();
        PendingFile first(folder / "a.bas"), second(folder / "b.bas");
        first.writer().write("new");
        first.finish();
        raise(signal);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(TemporaryFiles, GoAtASignalThatEndsTheProcess) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const test::TemporaryFolder folder;
        folder.write("a.bas", "old");
        const int status = statusAfter(signal, folder.path());
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
        EXPECT_EQ(folder.names(), std::vector<std::string>{"a.bas"});
        EXPECT_EQ(folder.read("a.bas"), "old");
    }
}

TEST(TemporaryFiles, DoNotBringBackASignalThatIsToBeIgnored) {
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGHUP, SIG_IGN);
        removeTemporaryFilesAtSignals();
        raise(SIGHUP);
        _exit(7);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7);
}

} // namespace
} // namespace corvelle::base

#endif
