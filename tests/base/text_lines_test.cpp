#include "base/text_lines.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::base {
namespace {

TEST(TextLines, AreTextsFromAnywhere) {
    const TextLines lines{"a", "", "bc"};
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "bc");
    EXPECT_EQ(TextLines().size(), 0u);
}

TEST(TextLines, OrPlacesInOneText) {
    const std::string text = "ab\ncd\r\n\n";
    const std::vector<TextLines::Place> places{{0, 2}, {3, 5}, {7, 7}};
    const TextLines lines(text.data(), places);
    const TextLines copy = lines;
    ASSERT_EQ(copy.size(), 3u);
    EXPECT_EQ(copy[0], "ab");
    EXPECT_EQ(copy[1], "cd");
    EXPECT_EQ(copy[1].data(), text.data() + 3);
    EXPECT_EQ(copy[2], "");
}

TEST(TextLines, OfNoPlaceAreNone) {
    const std::vector<TextLines::Place> none;
    EXPECT_EQ(TextLines("", none).size(), 0u);
}

} // namespace
} // namespace corvelle::base
