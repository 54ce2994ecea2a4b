#include "indexer/general_date.h"

#ifdef _WIN32
#include "base/win32/system_date.h"
#endif

#include <array>
#include <cstdio>

namespace corvelle::indexer {

namespace {

std::tm localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return local;
}

} // namespace

std::string generalDate(const std::tm& time) {
    std::array<char, 80> text{};
    constexpr int noon = 12, firstYear = 1900;
    const int hour = time.tm_hour % noon == 0 ? noon : time.tm_hour % noon;
    std::snprintf(text.data(), text.size(), "%d/%d/%d", time.tm_mon + 1, time.tm_mday,
                  time.tm_year + firstYear);
    const std::string date = text.data();
    if (time.tm_hour == 0 && time.tm_min == 0 && time.tm_sec == 0) return date;
    std::snprintf(text.data(), text.size(), " %d:%02d:%02d %s", hour, time.tm_min, time.tm_sec,
                  time.tm_hour < noon ? "AM" : "PM");
    return date + text.data();
}

std::string currentDateAndTime() {
    return generalDate(localTime());
}

std::string systemDateAndTime() {
#ifdef _WIN32
    return base::systemDate(localTime());
#else
    return currentDateAndTime();
#endif
}

} // namespace corvelle::indexer
