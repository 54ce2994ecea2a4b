#pragma once

#include <ctime>
#include <string>

namespace corvelle::indexer {

/// "11/21/2026 2:43:10 AM"; at midnight the date alone.
std::string generalDate(const std::tm& time);

/// The current local time so written.
std::string currentDateAndTime();

/// The current local time as the system writes it: on Windows by the user's own settings, elsewhere as above.
std::string systemDateAndTime();

} // namespace corvelle::indexer
