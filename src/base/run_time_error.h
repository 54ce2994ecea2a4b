#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace corvelle::base {

/// Numbers of the run-time errors that the system raises or meets (Visual Basic 6's own numbering).
enum class ErrorNumber : std::int32_t {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIOError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectVariableNotSet = 91,
    InvalidPropertyValue = 380,
    ObjectRequired = 424,
    CannotCreateObject = 429,
    MemberNotSupported = 438,
    CancelWasSelected = 32755,
};

/// A Visual Basic run-time error: a number and a description, worded as VB6 words it.
class RunTimeError : public std::exception {
  public:
    /// The error with VB6's own description of its number.
    explicit RunTimeError(ErrorNumber number);
    /// An error whose raiser brings the description (an IDE call that failed).
    RunTimeError(std::int32_t number, std::string description);

    std::int32_t number() const { return number_; }
    const std::string& description() const { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

  private:
    std::int32_t number_;
    std::string description_;
};

/// VB6's text for an error number; "Application-defined or object-defined error" for one it does not know.
std::string describeError(std::int32_t number);

/// Runs one statement of a procedure that ignores errors: run-time errors and whatever else the libraries
/// throw. What the statement did before it failed stays; false if it failed.
template <class Statement>
bool ignoringErrors(Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace corvelle::base
