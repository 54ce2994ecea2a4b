#pragma once

#include "base/temporary_folder.h"

#include <cstdlib>
#include <string>
#include <sys/wait.h>

namespace corvelle::test {

/// What a program that has ended left behind.
struct ShellRun {
    int status = -1;
    std::string out, err;
};

/// Runs `corvelle` in a folder by way of the shell, as its users type it: the arguments are the shell's
/// words.
inline ShellRun runInShell(const TemporaryFolder& folder, const std::string& arguments,
                           const std::string& prefix = {}) {
    const TemporaryFolder streams;
    const auto quoted = [](const std::filesystem::path& path) {
        return std::string("'").append(path.string()).append("'");
    };
    const auto command = "cd " + quoted(folder.path()) + " && " + prefix + " '" CORVELLE_BINARY "' " +
                         arguments + " >" + quoted(streams.path() / "out") + " 2>" +
                         quoted(streams.path() / "err");
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, streams.read("out"), streams.read("err")};
}

} // namespace corvelle::test
