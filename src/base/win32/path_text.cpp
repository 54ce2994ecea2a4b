#include "base/path_text.h"

#include "base/file_error.h"
#include "base/win32/code_page.h"

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

} // namespace corvelle::base
