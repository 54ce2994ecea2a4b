#include "base/text.h"

#include <gtest/gtest.h>
#include <string>

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

using std::string_literals::operator""s;

TEST(BinaryCheck, TellsAFileOfNothingButNuls) {
    EXPECT_EQ(whatInsteadOfText("\0"s), "nothing but NUL bytes");
    EXPECT_EQ(whatInsteadOfText(std::string(100000, '\0') + "\r\n"), "nothing but NUL bytes");
    EXPECT_EQ(whatInsteadOfText("\r\n \r\n"), "");
}

TEST(BinaryCheck, TakesTextForText) {
    EXPECT_EQ(whatInsteadOfText(""), "");
    EXPECT_EQ(whatInsteadOfText("Sub a()\r\n\tb\fc\r\nEnd Sub\r\n"), "");
    EXPECT_EQ(whatInsteadOfText("\xEF\xBB\xBF' \x80\x9F\xFF\xFE\xC3\xA4\n"), "");
}

TEST(BinaryCheck, TakesAFewControlCharactersForText) {
    EXPECT_EQ(whatInsteadOfText("\1"), "");
    EXPECT_EQ(whatInsteadOfText(std::string(200, 'x') + "\1\2\3\4\5"), "");
}

TEST(BinaryCheck, TakesNulsAtTheEndForText) {
    EXPECT_EQ(whatInsteadOfText("Sub a()\r\nEnd Sub\r\n" + std::string(4096, '\0')), "");
    EXPECT_EQ(whatInsteadOfText("Sub a()\r\n  " + std::string(4096, '\0') + "\r\n"), "");
}

TEST(BinaryCheck, TellsManyControlCharacters) {
    EXPECT_EQ(whatInsteadOfText("MZ\x90\0\3\0\0\0\4\0\0\0\xFF"s), "a binary file");
    EXPECT_EQ(whatInsteadOfText(std::string(99, 'x') + std::string(6, '\2')), "a binary file");
}

TEST(BinaryCheck, CountsEveryControlCharacterWhereverItStands) {
    std::string bytes(1000, 'x');
    for (std::size_t i = 0; i < 50; ++i) bytes[i * 19] = static_cast<char>(i % 9);
    EXPECT_EQ(whatInsteadOfText(bytes), "");
    for (const std::size_t place : {126U, 127U, 128U, 895U, 896U, 999U}) {
        auto one = bytes;
        one[place] = '\x1F';
        EXPECT_EQ(whatInsteadOfText(one), "a binary file") << place;
    }
    EXPECT_EQ(whatInsteadOfText(std::string(1000, '\1')), "a binary file");
}

TEST(BinaryCheck, TellsUtf16OfEitherOrder) {
    EXPECT_EQ(whatInsteadOfText("\xFF\xFES\0u\0b\0 \0a\0\r\0\n\0"s), "UTF-16 text");
    EXPECT_EQ(whatInsteadOfText("\xFE\xFF\0S\0u\0b\0 \0a\0\r\0\n"s), "UTF-16 text");
}

TEST(BinaryCheck, LooksAtTheBeginningOnly) {
    EXPECT_EQ(whatInsteadOfText(std::string(1 << 16, 'x') + std::string(1 << 16, '\1')), "");
}

} // namespace
} // namespace corvelle::base
