#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// Linux alone lets one program stop another at its calls. In a .cpp file that is not compiled for Windows.
namespace corvelle::test {

/// How a run ended that was to be killed just before it makes its n-th call that changes files.
struct KilledRun {
    std::string call; ///< the call that it did not come to make; empty if it ended before its n-th
    int status = 0;   ///< as Outcome has it
};

/// Runs `corvelle` with the arguments in the folder, up to its n-th call that creates, writes, renames or
/// removes a file, changes what belongs to one, or flushes it; what goes to the standard streams is no file.
/// What it prints goes nowhere. Throws std::system_error when the program cannot be started or stopped.
KilledRun runAndKill(int n, const std::filesystem::path& folder, const std::vector<std::string>& arguments);

/// The same, but in place of the kill something else is done while the program stands still; then it goes on
/// to its end.
KilledRun runAndInterfere(int n, const std::filesystem::path& folder,
                          const std::vector<std::string>& arguments, const std::function<void()>& meanwhile);

/// Runs `corvelle` in the folder and kills it after that time, unless it has ended by then; its exit status
/// as Outcome has it.
int runAndKillAfter(std::chrono::microseconds time, const std::filesystem::path& folder,
                    const std::vector<std::string>& arguments);

/// Does what `runAndKill` does for n from 1 on until a run comes to its end, which must be status 0: `before`
/// puts the files there, `check` looks at what the run has left, and is told the call. Stops at the first n
/// that a check fails for. At least so many calls are expected.
void killAtEachCall(int least, const std::filesystem::path& folder, const std::vector<std::string>& arguments,
                    const std::function<void()>& before,
                    const std::function<void(const std::string& call)>& check);

} // namespace corvelle::test
