#include "base/path_text.h"

namespace corvelle::base {

std::filesystem::path pathOf(std::string_view text) {
    return text;
}

std::string textOf(const std::filesystem::path& path) {
    return path.native();
}

} // namespace corvelle::base
