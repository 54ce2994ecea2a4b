#include "base/line_buffer.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::base {
namespace {

TEST(LineBuffer, holdsASingleEmptyLineAtFirst) {
    const LineBuffer buffer;
    EXPECT_EQ(buffer.maxIndx(), 0);
    EXPECT_EQ(buffer.text(0), "");
    EXPECT_EQ(buffer.spaces(0), 0);
    EXPECT_EQ(buffer.line(0), "");
}

TEST(LineBuffer, holdsNoLineWhenLoadingBegins) {
    LineBuffer buffer;
    buffer.beginLoading(10);
    EXPECT_EQ(buffer.maxIndx(), -1);
}

TEST(LineBuffer, keepsTheLinesInTheirOrder) {
    LineBuffer buffer;
    buffer.beginLoading(3);
    buffer.append("Sub A()");
    buffer.append("");
    buffer.append("End Sub");
    EXPECT_EQ(buffer.maxIndx(), 2);
    EXPECT_EQ(buffer.text(0), "Sub A()");
    EXPECT_EQ(buffer.text(1), "");
    EXPECT_EQ(buffer.text(2), "End Sub");
}

TEST(LineBuffer, growsBeyondTheSizeThatWasGivenToIt) {
    LineBuffer buffer;
    buffer.beginLoading(1);
    for (int i = 0; i < 1000; ++i) buffer.append(std::to_string(i));
    EXPECT_EQ(buffer.maxIndx(), 999);
    EXPECT_EQ(buffer.text(0), "0");
    EXPECT_EQ(buffer.text(999), "999");
}

TEST(LineBuffer, writesTheSpacesBeforeTheText) {
    LineBuffer buffer;
    buffer.beginLoading(2);
    buffer.append("a = 1 ");
    buffer.append("b");
    buffer.setSpaces(0, 4);
    EXPECT_EQ(buffer.line(0), "    a = 1 ");
    EXPECT_EQ(buffer.text(0), "a = 1 ");
    EXPECT_EQ(buffer.spaces(0), 4);
    EXPECT_EQ(buffer.line(1), "b");
}

TEST(LineBuffer, refersToALineThatOutlivesIt) {
    const std::string line = "  a = 1";
    LineBuffer buffer;
    buffer.beginLoading(2);
    buffer.refer(std::string_view(line).substr(2), 4);
    buffer.append(line);
    EXPECT_EQ(buffer.text(0).data(), line.data() + 2);
    EXPECT_EQ(buffer.line(0), "    a = 1");
    EXPECT_NE(buffer.text(1).data(), line.data());
    EXPECT_EQ(buffer.line(1), line);
}

TEST(LineBuffer, keepsItsLinesWhenItIsMoved) {
    LineBuffer buffer;
    buffer.beginLoading(2);
    buffer.append("short");
    buffer.append(std::string(100000, 'x'));
    const LineBuffer moved = std::move(buffer);
    EXPECT_EQ(moved.text(0), "short");
    EXPECT_EQ(moved.text(1), std::string(100000, 'x'));
}

TEST(LineBuffer, setsTheSpacesAnewEachTime) {
    LineBuffer buffer;
    buffer.setSpaces(0, 4);
    buffer.setSpaces(0, 1);
    EXPECT_EQ(buffer.line(0), " ");
}

TEST(LineBuffer, takesTheLargestNumberOfSpaces) {
    LineBuffer buffer;
    buffer.setSpaces(0, 32767);
    EXPECT_EQ(buffer.line(0), std::string(32767, ' '));
}

TEST(LineBuffer, keepsNulsAndBytesAbove127) {
    const std::string text("a\0\xFF", 3);
    LineBuffer buffer;
    buffer.beginLoading(1);
    buffer.append(text);
    EXPECT_EQ(buffer.text(0), text);
}

TEST(LineBuffer, resetLeavesASingleEmptyLineWithoutSpaces) {
    LineBuffer buffer;
    buffer.beginLoading(2);
    buffer.append("a");
    buffer.append("b");
    buffer.setSpaces(0, 4);
    buffer.reset();
    EXPECT_EQ(buffer.maxIndx(), 0);
    EXPECT_EQ(buffer.line(0), "");
}

TEST(LineBuffer, aNewLoadForgetsTheOldLines) {
    LineBuffer buffer;
    buffer.beginLoading(1);
    buffer.append("old");
    buffer.setSpaces(0, 4);
    buffer.beginLoading(1);
    buffer.append("new");
    EXPECT_EQ(buffer.maxIndx(), 0);
    EXPECT_EQ(buffer.line(0), "new");
}

} // namespace
} // namespace corvelle::base
