#include "base/win32/system_date.h"

#include "base/run_time_error.h"
#include "base/win32/code_page.h"

#include <array>
#include <windows.h>

namespace corvelle::base {

std::string systemDate(const std::tm& time, std::uint32_t locale) {
    constexpr int firstYear = 1900;
    SYSTEMTIME when{};
    when.wYear = static_cast<WORD>(time.tm_year + firstYear);
    when.wMonth = static_cast<WORD>(time.tm_mon + 1);
    when.wDay = static_cast<WORD>(time.tm_mday);
    when.wHour = static_cast<WORD>(time.tm_hour);
    when.wMinute = static_cast<WORD>(time.tm_min);
    when.wSecond = static_cast<WORD>(time.tm_sec);

    std::array<wchar_t, 256> text{};
    const auto check = [](int written) {
        if (written == 0) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    };
    check(GetDateFormatW(locale, DATE_SHORTDATE, &when, nullptr, text.data(), text.size()));
    auto result = messageText(text.data());
    if (time.tm_hour == 0 && time.tm_min == 0 && time.tm_sec == 0) return result;
    check(GetTimeFormatW(locale, 0, &when, nullptr, text.data(), text.size()));
    return result + ' ' + messageText(text.data());
}

} // namespace corvelle::base
