#include "base/path_text.h"

#include "base/file_error.h"

#include <cstdlib>

namespace corvelle::base {

#ifdef _WIN32

std::filesystem::path pathOf(std::string_view text) {
    const std::string bytes(text.substr(0, text.find('\0')));
    std::wstring wide(bytes.size(), L'\0');
    const std::size_t size = std::mbstowcs(wide.data(), bytes.c_str(), wide.size());
    if (size != static_cast<std::size_t>(-1)) {
        wide.resize(size);
    } else {
        for (std::size_t i = 0; i < bytes.size(); ++i) wide[i] = static_cast<unsigned char>(bytes[i]);
    }
    return wide;
}

std::string textOf(const std::filesystem::path& path) {
    const std::wstring& wide = path.native();
    // A character takes two bytes at most in a Windows code page.
    std::string bytes(wide.size() * 2, '\0');
    const std::size_t size = std::wcstombs(bytes.data(), wide.c_str(), bytes.size());
    if (size == static_cast<std::size_t>(-1)) throw FileError(ErrorNumber::BadFileNameOrNumber);
    bytes.resize(size);
    return bytes;
}

#else

std::filesystem::path pathOf(std::string_view text) {
    return text;
}

std::string textOf(const std::filesystem::path& path) {
    return path.native();
}

#endif

} // namespace corvelle::base
