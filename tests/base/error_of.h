#pragma once

#include "base/run_time_error.h"

#include <ostream>
#include <string>

namespace corvelle::test {

/// The run-time error of a statement; number 0 if it raises none.
struct ErrorSeen {
    std::int32_t number = 0;
    std::string description;
    bool operator==(const ErrorSeen& other) const {
        return number == other.number && description == other.description;
    }
};

inline std::ostream& operator<<(std::ostream& out, const ErrorSeen& error) {
    return out << error.number << ' ' << error.description;
}

template <class Statement>
ErrorSeen errorOf(Statement&& statement) {
    try {
        statement();
    } catch (const base::RunTimeError& error) {
        return {error.number(), error.description()};
    }
    return {};
}

/// The number alone.
template <class Statement>
std::int32_t errorNumberOf(Statement&& statement) {
    return errorOf(statement).number;
}

/// VB6's own error of that number.
inline ErrorSeen error(base::ErrorNumber number) {
    const auto value = static_cast<std::int32_t>(number);
    return {value, base::describeError(value)};
}

} // namespace corvelle::test
