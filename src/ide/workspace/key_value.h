#pragma once

#include <functional>
#include <string_view>

namespace corvelle::workspace {

/// Calls `take` with key and value of each `key=value` line before the first `[section]`, without the blanks
/// around them. Lines of another form are passed over, a byte order mark too.
void readKeyValues(std::string_view bytes,
                   const std::function<void(std::string_view key, std::string_view value)>& take);

/// The value without the quotes around it, if it has them.
std::string_view withoutQuotes(std::string_view value);

} // namespace corvelle::workspace
