#pragma once

#include "base/run_time_error.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace corvelle::base {

/// A file that could not be read or written. It has two texts: the description is that of a Visual Basic
/// program, which the windows show; the reason says more closely what was wrong, for the command line.
class FileError : public RunTimeError {
  public:
    /// The description is the number's own; so is the reason if none is given.
    explicit FileError(ErrorNumber number);
    FileError(ErrorNumber number, std::string reason);
    /// An error with a description of its own, which is the reason too.
    FileError(std::int32_t number, std::string description);

    const std::string& reason() const { return reason_; }

  private:
    std::string reason_;
};

/// The run-time error that stands for a failed operation on a file: 53 no such file, 76 no such folder, 75 a
/// folder where a file is meant, 70 no permission, 61 no room, 57 anything else.
FileError fileErrorOf(const std::error_code& code, const std::filesystem::path& path);

/// The same for the calling thread's `errno`.
FileError fileErrorOfErrno(const std::filesystem::path& path);

/// What the command line says of what was thrown: the reason of a file's error, the description of any other
/// run-time error, "Out of memory" for a lack of memory, else the exception's own words.
std::string reasonOf(const std::exception& error);

/// Whether that is a file that nobody may write, which the system would let root do: error 75 for who tries.
bool isReadOnly(const std::filesystem::file_status& status);

/// What stands at a path where a file is meant: "a folder", "a FIFO", "a socket", "a device"; empty for a
/// file, and for what is not there.
std::string_view whatInsteadOfFile(const std::filesystem::file_status& status);

/// Error 75 with words that say what is no file.
FileError notAFile(std::string_view what);

} // namespace corvelle::base
