#pragma once

#include "base/run_time_error.h"

#include <filesystem>
#include <system_error>

namespace corvelle::base {

/// A file that could not be read or written.
class FileError : public RunTimeError {
  public:
    using RunTimeError::RunTimeError;
};

/// The run-time error that stands for a failed operation on a file: 53 no such file, 76 no such folder, 75 a
/// folder where a file is meant, 70 no permission, 61 no room, 57 anything else.
FileError fileErrorOf(const std::error_code& code, const std::filesystem::path& path);

/// The same for the calling thread's `errno`.
FileError fileErrorOfErrno(const std::filesystem::path& path);

/// Whether that is a file that nobody may write, which the system would let root do: error 75 for who tries.
bool isReadOnly(const std::filesystem::file_status& status);

} // namespace corvelle::base
