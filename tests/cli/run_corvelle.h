#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The program as its users start it: a process of its own. On Windows its streams cannot be closed or be a
// terminal, nor disks full, nor is there another user.
namespace corvelle::test {

/// How the program is started, where that is not the plain way.
struct Surroundings {
    std::filesystem::path folder = ".";         ///< the current folder
    std::string_view input;                     ///< what is on standard input
    std::filesystem::path inputFrom;            ///< opened as standard input in place of the text
    std::filesystem::path outputTo;             ///< opened as standard output in place of a file of ours
    bool outputHasReader = true;                ///< false: a pipe whose reader is gone
    bool errorsHaveReader = true;               ///< the same for standard error
    bool errorsAreTerminal = false;             ///< standard error is a terminal, which shows little text
    bool asNobody = false;                      ///< root starts it as a user without rights
    std::vector<int> closed;                    ///< standard streams that are not open at all
    std::optional<std::uint64_t> largestFile;   ///< bytes that it may write into a file, as on a full disk
    std::optional<std::uint64_t> largestMemory; ///< bytes of memory that it may have
    std::optional<std::chrono::microseconds> killedAfter; ///< it is killed so long after its start
};

struct Outcome {
    int status = 0; ///< the exit status; negative: the signal that ended it
    std::string out, err;
};

/// Runs `corvelle` with the arguments and waits for its end. Throws std::system_error when it cannot be
/// started.
Outcome runCorvelle(const std::vector<std::string>& arguments, const Surroundings& surroundings = {});

/// Runs any other program in the same way; it is looked for in the PATH.
Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Surroundings& surroundings = {});

} // namespace corvelle::test
