#pragma once

#include "base/run_time_error.h"

#include <memory>

namespace corvelle::ide {

/// The object that a call is made on. Raises "Object variable or With block variable not set" for Nothing.
template <class Object>
Object& required(const std::shared_ptr<Object>& object) {
    if (!object) throw base::RunTimeError(base::ErrorNumber::ObjectVariableNotSet);
    return *object;
}

} // namespace corvelle::ide
