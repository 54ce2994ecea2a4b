#include "base/run_time_error.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvelle::base {

namespace {

struct Description {
    ErrorNumber number;
    const char* text;
};

constexpr std::array descriptions{
    Description{ErrorNumber::InvalidProcedureCall, "Invalid procedure call or argument"},
    Description{ErrorNumber::Overflow, "Overflow"},
    Description{ErrorNumber::OutOfMemory, "Out of memory"},
    Description{ErrorNumber::SubscriptOutOfRange, "Subscript out of range"},
    Description{ErrorNumber::TypeMismatch, "Type mismatch"},
    Description{ErrorNumber::BadFileNameOrNumber, "Bad file name or number"},
    Description{ErrorNumber::FileNotFound, "File not found"},
    Description{ErrorNumber::FileAlreadyOpen, "File already open"},
    Description{ErrorNumber::DeviceIOError, "Device I/O error"},
    Description{ErrorNumber::FileAlreadyExists, "File already exists"},
    Description{ErrorNumber::DiskFull, "Disk full"},
    Description{ErrorNumber::InputPastEndOfFile, "Input past end of file"},
    Description{ErrorNumber::PermissionDenied, "Permission denied"},
    Description{ErrorNumber::DiskNotReady, "Disk not ready"},
    Description{ErrorNumber::PathFileAccessError, "Path/File access error"},
    Description{ErrorNumber::PathNotFound, "Path not found"},
    Description{ErrorNumber::ObjectVariableNotSet, "Object variable or With block variable not set"},
    Description{ErrorNumber::InvalidPropertyValue, "Invalid property value"},
    Description{ErrorNumber::ObjectRequired, "Object required"},
    Description{ErrorNumber::CannotCreateObject, "ActiveX component can't create object"},
    Description{ErrorNumber::MemberNotSupported, "Object doesn't support this property or method"},
    Description{ErrorNumber::CancelWasSelected, "Cancel was selected."},
};

} // namespace

RunTimeError::RunTimeError(ErrorNumber number)
    : RunTimeError(static_cast<std::int32_t>(number), describeError(static_cast<std::int32_t>(number))) {}

RunTimeError::RunTimeError(std::int32_t number, std::string description)
    : number_(number), description_(std::move(description)) {}

std::string describeError(std::int32_t number) {
    const auto* found =
        std::find_if(descriptions.begin(), descriptions.end(), [number](const Description& d) {
            return static_cast<std::int32_t>(d.number) == number;
        });
    return found != descriptions.end() ? found->text : "Application-defined or object-defined error";
}

} // namespace corvelle::base
