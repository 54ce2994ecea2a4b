#ifdef _WIN32

#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"
#include "places.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <process.h>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>

namespace corvelle::test {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

int opened(const fs::path& path, int mode) {
    const int file = _wopen(path.c_str(), mode | _O_BINARY, _S_IREAD | _S_IWRITE);
    if (file < 0) fail("stream");
    return file;
}

int pipeWithoutReader() {
    int ends[2];
    if (_pipe(ends, 4096, _O_BINARY) != 0) fail("pipe");
    _close(ends[0]);
    return ends[1];
}

// A standard stream is another one for as long as this lives; a program that is started then inherits it.
class Redirection {
  public:
    Redirection(int stream, int file) : stream_(stream), saved_(_dup(stream)) {
        if (saved_ < 0 || _dup2(file, stream) != 0) fail("stream");
        _close(file);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;
    ~Redirection() {
        _dup2(saved_, stream_);
        _close(saved_);
    }

  private:
    int stream_, saved_;
};

class CurrentFolder {
  public:
    explicit CurrentFolder(const fs::path& folder) : saved_(fs::current_path()) { fs::current_path(folder); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() {
        std::error_code ignored;
        fs::current_path(saved_, ignored);
    }

  private:
    fs::path saved_;
};

// A program gets one text on Windows and takes it apart itself: quotes hold a word together, a backslash
// before a quote keeps it, and backslashes before that must be doubled.
std::string quoted(const std::string& word) {
    std::string result = "\"";
    std::size_t backslashes = 0;
    for (const char c : word) {
        if (c == '"') result.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        result += c;
    }
    result.append(backslashes, '\\');
    return result + '"';
}

} // namespace

Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Surroundings& surroundings) {
    if (!surroundings.closed.empty() || surroundings.largestFile || surroundings.errorsAreTerminal ||
        surroundings.asNobody)
        throw std::invalid_argument("surroundings that Windows does not have");
    std::vector<std::string> words{quoted(program)};
    for (const std::string& argument : arguments) words.push_back(quoted(argument));
    std::vector<const char*> argv;
    for (const std::string& word : words) argv.push_back(word.c_str());
    argv.push_back(nullptr);

    const TemporaryFolder streams;
    const auto in = streams.write("in", surroundings.input);
    const auto out = streams.write("out", ""), err = streams.write("err", "");
    std::fflush(nullptr);
    std::intptr_t status = 0;
    {
        const CurrentFolder folder(surroundings.folder);
        const auto& from = surroundings.inputFrom;
        const Redirection input(0, opened(from.empty() ? in : from, _O_RDONLY));
        const auto& to = surroundings.outputTo;
        const Redirection output(1, surroundings.outputHasReader ? opened(to.empty() ? out : to, _O_WRONLY)
                                                                 : pipeWithoutReader());
        const Redirection errors(2, surroundings.errorsHaveReader ? opened(err, _O_WRONLY)
                                                                  : pipeWithoutReader());
        status = _spawnvp(_P_WAIT, program.c_str(), argv.data());
    }
    if (status < 0) fail(program.c_str());
    return {static_cast<int>(status), streams.read("out"), streams.read("err")};
}

Outcome runCorvelle(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    return runProgram(CORVELLE_BINARY, arguments, surroundings);
}

} // namespace corvelle::test

#endif
