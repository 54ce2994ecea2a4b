#ifdef _WIN32

#include "base/run_time_error.h"
#include "base/win32/system_date.h"

#include <gtest/gtest.h>

namespace corvelle::base {
namespace {

constexpr std::uint32_t unitedStates = 0x0409, unitedKingdom = 0x0809, germany = 0x0407;

std::tm at(int hour, int minute, int second) {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 10;
    time.tm_mday = 21;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

TEST(SystemDate, IsWrittenByTheLocale) {
    EXPECT_EQ(systemDate(at(14, 3, 10), unitedStates), "11/21/2026 2:03:10 PM");
    EXPECT_EQ(systemDate(at(14, 3, 10), unitedKingdom), "21/11/2026 14:03:10");
    EXPECT_EQ(systemDate(at(14, 3, 10), germany), "21.11.2026 14:03:10");
}

TEST(SystemDate, HasNoTimeAtMidnight) {
    EXPECT_EQ(systemDate(at(0, 0, 0), unitedStates), "11/21/2026");
    EXPECT_EQ(systemDate(at(0, 0, 1), germany), "21.11.2026 00:00:01");
}

TEST(SystemDate, RefusesADateThatThereIsNot) {
    auto time = at(1, 2, 3);
    time.tm_mon = 12;
    EXPECT_THROW(systemDate(time), RunTimeError);
}

} // namespace
} // namespace corvelle::base

#endif
