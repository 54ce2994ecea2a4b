#pragma once

#include <memory>

namespace corvelle::workspace {

/// A pointer to a part of the workspace; it keeps the whole workspace, and so the part, alive.
template <class Part>
std::shared_ptr<Part> partOf(const std::weak_ptr<void>& whole, Part& part) {
    return std::shared_ptr<Part>(whole.lock(), &part);
}

} // namespace corvelle::workspace
