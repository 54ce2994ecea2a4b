#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace corvelle::base {

/// The user's own settings.
inline constexpr std::uint32_t usersLocale = 0x0400;

/// The short date and the long time as the system writes them in that locale (a Windows LCID); at midnight
/// the date alone. Error 5 if there is no such date or locale.
std::string systemDate(const std::tm& time, std::uint32_t locale = usersLocale);

} // namespace corvelle::base
