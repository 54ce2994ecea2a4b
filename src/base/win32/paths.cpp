#include "base/win32/paths.h"

#include "base/file_error.h"
#include "base/paths.h"
#include "base/win32/code_page.h"

#include <algorithm>
#include <system_error>
#include <windows.h>

namespace corvelle::base {

namespace {

template <class Text>
const Text& inCodePage(const std::optional<Text>& text) {
    if (!text) throw FileError(ErrorNumber::BadFileNameOrNumber);
    return *text;
}

} // namespace

std::filesystem::path pathOf(std::string_view text) {
    return inCodePage(wideText(text.substr(0, text.find('\0'))));
}

std::string textOf(const std::filesystem::path& path) {
    return inCodePage(codePageText(path.native()));
}

bool isSameName(const std::filesystem::path& a, const std::filesystem::path& b) {
    return CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, a.c_str(), static_cast<int>(a.native().size()),
                          b.c_str(), static_cast<int>(b.native().size())) == CSTR_EQUAL;
}

namespace fs = std::filesystem;

std::vector<fs::path> namesIn(const fs::path& folder) {
    std::vector<fs::path> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        names.push_back(entry->path().filename());
    if (error && error != std::errc::permission_denied) throw fileErrorOf(error, folder);
    std::sort(names.begin(), names.end());
    return names;
}

void shortPathName(const char* path, char* buffer, std::uint32_t size) {
    GetShortPathNameA(path, buffer, size);
}

} // namespace corvelle::base
