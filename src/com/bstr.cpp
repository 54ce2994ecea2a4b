#include "com/bstr.h"

#include "base/run_time_error.h"

#include <algorithm>
#include <climits>
#include <new>
#include <windows.h>

namespace corvelle::com {

namespace {

using base::RunTimeError;

RunTimeError notInCodePage() {
    return RunTimeError(static_cast<std::int32_t>(base::ErrorNumber::TypeMismatch),
                        "The text has a character that is not in the system's code page");
}

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

std::string narrow(std::wstring_view text, DWORD flags, BOOL* lost) {
    constexpr std::size_t mostBytes = 4; // of a character
    std::string result(text.size() * mostBytes, '\0');
    const int size = WideCharToMultiByte(CP_ACP, flags, text.data(), sizeOf(text.size()), result.data(),
                                         sizeOf(result.size()), nullptr, lost);
    result.resize(static_cast<std::size_t>(size));
    return result;
}

} // namespace

Bstr::Bstr(std::string_view text) {
    std::wstring wide;
    if (isAscii(text)) {
        wide.assign(text.begin(), text.end());
    } else {
        wide = widen(text);
        if (textOf(std::wstring_view(wide)) != text) throw notInCodePage();
    }
    *this = Bstr(std::wstring_view(wide));
}

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (!text_) throw std::bad_alloc();
}

std::string textOf(BSTR text) {
    return textOf(std::wstring_view(text ? text : L"", SysStringLen(text)));
}

std::string textOf(std::wstring_view text) {
    if (isAscii(text)) return std::string(text.begin(), text.end());
    if (GetACP() == CP_UTF8) { // which knows neither of the two below
        auto result = narrow(text, 0, nullptr);
        if (widen(result) != text) throw notInCodePage();
        return result;
    }
    BOOL lost = FALSE;
    auto result = narrow(text, WC_NO_BEST_FIT_CHARS, &lost);
    if (lost || result.empty()) throw notInCodePage();
    return result;
}

std::string messageOf(std::wstring_view text) {
    return text.empty() ? std::string() : narrow(text, 0, nullptr);
}

} // namespace corvelle::com
