#include "base/win32/code_page.h"

#include <algorithm>
#include <climits>
#include <new>
#include <windows.h>

namespace corvelle::base {

namespace {

// The characters below 128 are the same in every ANSI code page.
template <class Text>
bool isAscii(const Text& text) {
    return std::all_of(text.begin(), text.end(), [](auto c) { return c >= 0 && c < 128; });
}

int sizeOf(std::size_t size) {
    if (size > INT_MAX) throw std::bad_alloc();
    return static_cast<int>(size);
}

std::wstring widen(std::string_view text) {
    std::wstring result(text.size(), L'\0'); // a character takes at least one byte
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), sizeOf(text.size()), result.data(),
                                         sizeOf(result.size()));
    result.resize(static_cast<std::size_t>(size));
    return result;
}

std::string narrow(std::wstring_view text) {
    constexpr std::size_t mostBytes = 4; // of a character
    std::string result(text.size() * mostBytes, '\0');
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), sizeOf(text.size()), result.data(),
                                         sizeOf(result.size()), nullptr, nullptr);
    result.resize(static_cast<std::size_t>(size));
    return result;
}

} // namespace

// What the code page lacks becomes a question mark or something alike, and that does not come back as it was.

std::optional<std::wstring> wideText(std::string_view text) {
    if (isAscii(text)) return std::wstring(text.begin(), text.end());
    auto wide = widen(text);
    if (narrow(wide) != text) return std::nullopt;
    return wide;
}

std::optional<std::string> codePageText(std::wstring_view text) {
    if (isAscii(text)) return std::string(text.begin(), text.end());
    auto bytes = narrow(text);
    if (widen(bytes) != text) return std::nullopt;
    return bytes;
}

std::string messageText(std::wstring_view text) {
    return narrow(text);
}

} // namespace corvelle::base
