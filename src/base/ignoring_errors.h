#pragma once

#include "base/run_time_error.h"

#include <new>

namespace corvelle::base {

/// Runs one statement of a procedure that ignores errors. What the statement did before it failed stays;
/// false if it failed.
template <class Statement>
bool ignoringErrors(Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const RunTimeError&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace corvelle::base
