#include "base/text.h"

#include <gtest/gtest.h>

namespace corvelle::base {
namespace {

TEST(Text, FoldsAsciiLettersOnly) {
    EXPECT_EQ(upper("aZ09_\xE9\xFF"), "AZ09_\xE9\xFF");
    EXPECT_EQ(lower('Q'), 'q');
    EXPECT_EQ(lower('['), '[');
    EXPECT_EQ(lower('\xC9'), '\xC9');
    EXPECT_TRUE(equalIgnoringCase("Module1", "mODULE1"));
    EXPECT_FALSE(equalIgnoringCase("\xC9", "\xE9"));
    EXPECT_FALSE(equalIgnoringCase("a", "ab"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
}

TEST(Text, FindsPrefixes) {
    EXPECT_TRUE(startsWithIgnoringCase("VERSION 5", "version"));
    EXPECT_TRUE(startsWithIgnoringCase("x", ""));
    EXPECT_FALSE(startsWithIgnoringCase("vers", "version"));
}

TEST(Text, FindsTheFirstAndTheLastOccurrence) {
    EXPECT_EQ(findIgnoringCase("a END b end", "End"), 2U);
    EXPECT_EQ(findLastIgnoringCase("a END b end", "End"), 8U);
    EXPECT_EQ(findIgnoringCase("abc", "d"), std::string_view::npos);
    EXPECT_EQ(findLastIgnoringCase("abc", "abcd"), std::string_view::npos);
    EXPECT_EQ(findIgnoringCase("abc", ""), 0U);
    EXPECT_EQ(findLastIgnoringCase("abc", ""), 3U);
}

TEST(Text, TrimsSpacesAndNothingElse) {
    EXPECT_EQ(trimSpaces("  a b  "), "a b");
    EXPECT_EQ(trimSpaces("\ta "), "\ta");
    EXPECT_EQ(trimSpaces("   "), "");
    EXPECT_EQ(trimSpaces(""), "");
}

} // namespace
} // namespace corvelle::base
