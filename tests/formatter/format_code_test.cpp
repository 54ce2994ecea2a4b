#include "formatter/format_code.h"
#include "formatter/run_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvelle::formatter {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> linesOf(const FormattedCode& code) {
    std::vector<std::string> lines;
    for (std::int32_t i = 0; i <= code.lines.maxIndx(); ++i) lines.push_back(code.lines.line(i));
    return lines;
}

// "line: text" of each.
std::vector<std::string> told(const std::vector<Finding>& findings) {
    std::vector<std::string> result;
    for (const auto& finding : findings) result.push_back(std::to_string(finding.line) + ": " + finding.text);
    return result;
}

FormatOptions removingAll() {
    FormatOptions options;
    options.bNoEmpty = options.bNoCmntLn = options.bNoAllCmnt = 1;
    return options;
}

TEST(FormatCode, GivesTheLinesThatAreKeptAndTellsWhichTheyAre) {
    const auto code =
        formatCode({.lines = {"\tDim x", "", "' note", "Sub a()", "b ' c", "End Sub"}}, removingAll());
    EXPECT_THAT(linesOf(code), ElementsAre("Dim x", "Sub a()", "  b ", "End Sub"));
    EXPECT_THAT(code.kept, ElementsAre(true, false, false, true, true, true));
    EXPECT_THAT(code.faults, IsEmpty());
    EXPECT_THAT(code.unsafe, IsEmpty());
    EXPECT_EQ(code.level, 0);
    EXPECT_FALSE(code.error);
}

TEST(FormatCode, TellsFaultsByTheLinesOfTheCodeAndByTheirPlacesAmongTheKeptOnes) {
    FormatOptions options;
    options.bNoEmpty = 1;
    const auto code = formatCode({.lines = {"", "Next", "", "", "x", "End If"}}, options);
    EXPECT_THAT(told(code.faults), ElementsAre("1: Tab On Line: 0", "5: Tab On Line: 2"));
}

TEST(FormatCode, TellsWhatTheLayoutWouldHarm) {
    const auto code = formatCode({.lines = {"x", "a = \"1\t2\"", "y"}}, FormatOptions());
    EXPECT_THAT(told(code.unsafe), ElementsAre("1: a tab in the literal \"1?2\""));
    FormatOptions options;
    options.bNoCmntLn = 1;
    EXPECT_THAT(told(formatCode({.lines = {"Dim x", "Rem a _", "b", "c"}}, options).unsafe),
                ElementsAre("2: the comment b would become code"));
}

TEST(FormatCode, TellsOfAReturnThatWouldBecomePartOfALineEnd) {
    EXPECT_THAT(formatCode({.lines = {"a\r"}}, FormatOptions()).unsafe, IsEmpty());
    EXPECT_THAT(told(formatCode({.lines = {"a\r"}, .lineEnd = "\n"}, FormatOptions()).unsafe),
                ElementsAre("0: the carriage return in front of the line's end"));
}

TEST(FormatCode, EndsWithTheRunTimeErrorAndItsLine) {
    std::vector<std::string_view> lines(4001, "Do");
    lines.front() = "";
    FormatOptions options;
    options.bNoEmpty = 1;
    options.mTab = 10;
    const auto formatted = formatCode({.lines = std::move(lines)}, options);
    ASSERT_TRUE(formatted.error);
    EXPECT_EQ(formatted.error->description(), "Overflow");
    EXPECT_EQ(formatted.position, 3278U);
    EXPECT_THAT(formatted.unsafe, IsEmpty());
}

TEST(FormatCode, LaysOutALineWithMoreSpacesThanABufferMakes) {
    const std::string line = std::string(40000, ' ') + "x";
    std::vector<std::string_view> lines(9000, "Do");
    lines.push_back(line);
    structured::StructuredOptions options;
    options.force = true;
    const auto formatted = formatCode({.lines = std::move(lines)}, options);
    EXPECT_TRUE(formatted.lines.line(9000) == std::string(36000, ' ') + "x");
    EXPECT_THAT(formatted.unsafe, IsEmpty());
}

TEST(FormatCode, OfNoLineLooksForNothing) {
    EXPECT_FALSE(formatCode({}, FormatOptions()).holdsLines());
    const auto code = formatCode({.lines = {"", "' note"}}, removingAll());
    EXPECT_FALSE(code.holdsLines());
    EXPECT_THAT(code.kept, ElementsAre(false, false));
}

TEST(FormatCode, TellsAnObserverWhatThePassesTell) {
    test::RecordingObserver observer;
    formatCode({.lines = {"End Sub"}}, {}, &observer);
    EXPECT_THAT(observer.told, ElementsAre("proc: No Process", "proc: LN: 1", "events", "start", "clear",
                                           "info: Formating...", "events", "error: Tab On Line: 0",
                                           "proc: In Line: 0 of 0", "info: Formating Done...", "stop"));
}

} // namespace
} // namespace corvelle::formatter
