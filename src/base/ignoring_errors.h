#pragma once

#include <exception>

namespace corvelle::base {

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
