#pragma once

#include "com/dispatch.h"

#include <memory>

namespace corvelle::automation {

/// The adapter of the object in a call's result; a null pointer for Nothing.
template <class Adapter>
std::shared_ptr<Adapter> adapt(const com::Variant& value) {
    auto object = com::objectOf(value);
    return object ? std::make_shared<Adapter>(com::Dispatch(std::move(object))) : nullptr;
}

} // namespace corvelle::automation
