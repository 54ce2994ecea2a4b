#include "com/bstr.h"

#include "base/run_time_error.h"
#include "base/win32/code_page.h"

#include <new>
#include <utility>

namespace corvelle::com {

namespace {

template <class Text>
Text inCodePage(std::optional<Text> text) {
    if (text) return std::move(*text);
    throw base::RunTimeError(static_cast<std::int32_t>(base::ErrorNumber::TypeMismatch),
                             "The text has a character that is not in the system's code page");
}

} // namespace

Bstr::Bstr(std::string_view text) : Bstr(std::wstring_view(inCodePage(base::wideText(text)))) {}

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (!text_) throw std::bad_alloc();
}

std::string textOf(BSTR text) {
    return textOf(std::wstring_view(text ? text : L"", SysStringLen(text)));
}

std::string textOf(std::wstring_view text) {
    return inCodePage(base::codePageText(text));
}

std::string messageOf(std::wstring_view text) {
    return base::messageText(text);
}

} // namespace corvelle::com
