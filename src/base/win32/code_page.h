#pragma once

#include <optional>
#include <string>
#include <string_view>

// The machine's ANSI code page, whatever the locale of the C library: in a DLL, that is its host's and mostly
// knows no letters but ASCII's. All throw std::bad_alloc for a text that is too long.
namespace corvelle::base {

/// The text that the bytes stand for; none if the code page does not know them.
std::optional<std::wstring> wideText(std::string_view text);

/// The bytes that stand for the text; none if it has a character that the code page lacks.
std::optional<std::string> codePageText(std::wstring_view text);

/// The same for a message to be shown: what the code page lacks becomes something like it.
std::string messageText(std::wstring_view text);

} // namespace corvelle::base
