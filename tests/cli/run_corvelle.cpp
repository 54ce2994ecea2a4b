#ifndef _WIN32

#include "cli/run_corvelle.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
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
void enter(const Surroundings& surroundings, const Stream& in, const Stream& out, const Stream& err) {
    if (chdir(surroundings.folder.c_str()) != 0) giveUp("folder");
    const auto& from = surroundings.inputFrom;
    put(from.empty() ? in.number() : open(from.c_str(), O_RDONLY), 0);
    const auto& to = surroundings.outputTo;
    put(!surroundings.outputHasReader ? pipeWithoutReader()
        : to.empty()                  ? out.number()
                                      : open(to.c_str(), O_WRONLY),
        1);
    put(surroundings.errorsHaveReader ? err.number() : pipeWithoutReader(), 2);
    for (const int stream : surroundings.closed) close(stream);
    std::signal(SIGPIPE, SIG_DFL);
    if (surroundings.largestFile) {
        const rlimit limit{*surroundings.largestFile, RLIM_INFINITY};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) giveUp("limit");
    }
}

} // namespace

Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Surroundings& surroundings) {
    const Stream in(surroundings.input), out, err;
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    const pid_t child = fork();
    if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) {
        enter(surroundings, in, out, err);
        execvp(argv[0], argv.data());
        giveUp(argv[0]);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "waitpid");
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), out.content(), err.content()};
}

Outcome runCorvelle(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    return runProgram(CORVELLE_BINARY, arguments, surroundings);
}

} // namespace corvelle::test

#endif
