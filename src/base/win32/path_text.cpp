#include "base/path_text.h"

#include "base/file_error.h"

#include <windows.h>

// Not by the C library's locale: in a library, that is the host program's and mostly knows no letters but
// ASCII's.
namespace corvelle::base {

namespace {

FileError notInCodePage() {
    return FileError(ErrorNumber::BadFileNameOrNumber);
}

std::wstring wideOf(std::string_view text) {
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // no code page makes more characters of the bytes
    const int length =
        MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), size);
    if (length == 0 && size > 0) throw notInCodePage();
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

} // namespace

std::filesystem::path pathOf(std::string_view text) {
    return wideOf(text.substr(0, text.find('\0')));
}

std::string textOf(const std::filesystem::path& path) {
    const std::wstring& wide = path.native();
    const auto length = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(), size, nullptr, nullptr);
    // What the code page lacks became a question mark or something alike: another file's name.
    if (wideOf(text) != wide) throw notInCodePage();
    return text;
}

} // namespace corvelle::base
