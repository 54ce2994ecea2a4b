#pragma once

#include <cstddef>
#include <string_view>

namespace corvelle::formatter::structured {

/// The position behind the date that begins with the `#` at `at`; `at` if there is none.
std::size_t pastDate(std::string_view line, std::size_t at);

} // namespace corvelle::formatter::structured
