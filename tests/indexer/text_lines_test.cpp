#include "indexer/text_lines.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace corvelle::indexer {
namespace {

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> result;
    TextLines lines(text);
    while (lines.next()) {
        result.emplace_back(lines.line());
        EXPECT_EQ(lines.number(), result.size());
    }
    EXPECT_FALSE(lines.next());
    return result;
}

using Lines = std::vector<std::string>;

TEST(TextLines, EndAtCrLfCrOrLf) {
    EXPECT_EQ(linesOf("a\r\nb\rc\nd\r\n"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(linesOf("a\n\rb\r\r\nc"), (Lines{"a", "", "b", "", "c"}));
    for (const auto* ends : {"\r\n", "\r", "\n"}) EXPECT_EQ(linesOf(ends), Lines{""});
    EXPECT_EQ(linesOf(""), Lines{});
}

} // namespace
} // namespace corvelle::indexer
