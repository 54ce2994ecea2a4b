#include "cli/terminal.h"

#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

using namespace std::string_literals;

TEST(ShownText, IsTheTextWhereNothingInItIsObeyed) {
    EXPECT_EQ(shown(""), "");
    EXPECT_EQ(shown("a b\\c \x80\x9B\xE9\xFF"), "a b\\c \x80\x9B\xE9\xFF");
    EXPECT_EQ(shown("\xC3\x9C \xC2\xA0\xC2"), "\xC3\x9C \xC2\xA0\xC2");
}

TEST(ShownText, StandsOnOneLineAndInOneColumn) {
    EXPECT_EQ(shown("a\r\nb\tc\x0B\x0C"), "a\\x0D\\x0Ab\\x09c\\x0B\\x0C");
}

TEST(ShownText, HoldsNothingThatATerminalObeys) {
    EXPECT_EQ(shown("\x1B]0;x\x07\x7F\0"s), "\\x1B]0;x\\x07\\x7F\\x00");
#ifndef _WIN32
    EXPECT_EQ(shown("\xC2\x9B"
                    "2J"),
              "\\xC2\\x9B2J");
#endif
}

} // namespace
} // namespace corvelle::cli
