#pragma once

namespace corvelle::forms {

/// Flags of a message box: the buttons plus an icon.
namespace box {
inline constexpr int okOnly = 0;
inline constexpr int yesNo = 4;
inline constexpr int critical = 16;
inline constexpr int question = 32;
inline constexpr int exclamation = 48;
inline constexpr int information = 64;
} // namespace box

/// Answers to a message box.
namespace answer {
inline constexpr int ok = 1;
inline constexpr int yes = 6;
inline constexpr int no = 7;
} // namespace answer

} // namespace corvelle::forms
