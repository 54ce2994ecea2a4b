#include "cli/unified_diff.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace corvelle::cli {
namespace {

// Each step is one line: " x" stays, "-x" goes, "x" becomes "X".
std::string diffOf(const std::vector<std::string>& steps) {
    std::string result;
    UnifiedDiff diff("f", [&](std::string_view text) { result += text; });
    for (const std::string& step : steps) {
        if (step[0] == ' ') {
            diff.same(step);
        } else if (step[0] == '-') {
            diff.removed(step);
        } else {
            std::string changed(step);
            changed[0] = 'X';
            diff.replaced(step, changed);
        }
    }
    diff.finish();
    return result;
}

const std::string head = "--- f\n+++ f\n";

TEST(UnifiedDiff, OfEqualFilesIsEmpty) {
    EXPECT_EQ(diffOf({}), "");
    EXPECT_EQ(diffOf({" 1\n", " 2\n", " 3\n", " 4\n", " 5\n"}), "");
}

TEST(UnifiedDiff, ShowsThreeLinesAround) {
    EXPECT_EQ(diffOf({" 1\n", " 2\n", " 3\n", " 4\n", "x\n", " 6\n", " 7\n", " 8\n", " 9\n"}),
              head + "@@ -2,7 +2,7 @@\n  2\n  3\n  4\n-x\n+X\n  6\n  7\n  8\n");
}

TEST(UnifiedDiff, PutsAllOldLinesOfARunBeforeTheNewOnes) {
    EXPECT_EQ(diffOf({"x1\n", "-2\n", "x3\n"}), head + "@@ -1,3 +1,2 @@\n-x1\n--2\n-x3\n+X1\n+X3\n");
}

TEST(UnifiedDiff, JoinsChangesThatSixLinesPart) {
    const std::string diff = diffOf({"x1\n", " 2\n", " 3\n", " 4\n", " 5\n", " 6\n", " 7\n", "x8\n", " 9\n"});
    EXPECT_EQ(diff, head + "@@ -1,9 +1,9 @@\n-x1\n+X1\n  2\n  3\n  4\n  5\n  6\n  7\n-x8\n+X8\n  9\n");
}

TEST(UnifiedDiff, PartsChangesThatSevenLinesPart) {
    EXPECT_EQ(diffOf({"x1\n", " 2\n", " 3\n", " 4\n", " 5\n", " 6\n", " 7\n", " 8\n", "x9\n"}),
              head + "@@ -1,4 +1,4 @@\n-x1\n+X1\n  2\n  3\n  4\n@@ -6,4 +6,4 @@\n  6\n  7\n  8\n-x9\n+X9\n");
}

TEST(UnifiedDiff, CountsTheNewLinesWithoutTheRemovedOnes) {
    EXPECT_EQ(diffOf({"-1\n", "-2\n", " 3\n", " 4\n", " 5\n", " 6\n", " 7\n", " 8\n", " 9\n", "x0\n"}),
              head + "@@ -1,5 +1,3 @@\n--1\n--2\n  3\n  4\n  5\n@@ -7,4 +5,4 @@\n  7\n  8\n  9\n-x0\n+X0\n");
}

TEST(UnifiedDiff, NamesASideWithoutLinesByTheLineBefore) {
    EXPECT_EQ(diffOf({"-1\n"}), head + "@@ -1 +0,0 @@\n--1\n");
}

TEST(UnifiedDiff, MarksALastLineWithoutAnEnd) {
    std::string result;
    UnifiedDiff diff("f", [&](std::string_view text) { result += text; });
    diff.same("a\n");
    diff.replaced("b", "b\n");
    diff.finish();
    EXPECT_EQ(result, head + "@@ -1,2 +1,2 @@\n a\n-b\n\\ No newline at end of file\n+b\n");
}

TEST(UnifiedDiff, MarksARemovedLastLineWithoutAnEnd) {
    EXPECT_EQ(diffOf({" 1\n", "-2"}), head + "@@ -1,2 +1 @@\n  1\n--2\n\\ No newline at end of file\n");
}

std::string diffOfTexts(std::string_view before, std::string_view after) {
    std::string result;
    writeDiff("f", before, after, [&](std::string_view text) { result += text; });
    return result;
}

TEST(UnifiedDiff, FindsTheLinesThatCameAndWent) {
    EXPECT_EQ(diffOfTexts("1\n2\n", "1\n2\n"), "");
    EXPECT_EQ(diffOfTexts("", "1\n"), head + "@@ -0,0 +1 @@\n+1\n");
    EXPECT_EQ(diffOfTexts("1\n", "0\n1\n2\n"), head + "@@ -1 +1,3 @@\n+0\n 1\n+2\n");
    EXPECT_EQ(diffOfTexts("0\n1\n2\n", "1\n"), head + "@@ -1,3 +1 @@\n-0\n 1\n-2\n");
    EXPECT_EQ(diffOfTexts("1\n2\n3", "1\n9\n3"),
              head + "@@ -1,3 +1,3 @@\n 1\n-2\n+9\n 3\n\\ No newline at end of file\n");
}

TEST(UnifiedDiff, JoinsLinesThatCameNearOneAnother) {
    EXPECT_EQ(diffOfTexts("1\n2\n3\n4\n5\n6\n7\n8\n", "a\n1\n2\n3\n4\n5\n6\nb\n7\n8\n"),
              head + "@@ -1,8 +1,10 @@\n+a\n 1\n 2\n 3\n 4\n 5\n 6\n+b\n 7\n 8\n");
}

TEST(UnifiedDiff, EndsANameWithBlanksAndQuotesAStrangeOne) {
    const auto headOf = [](const std::string& path) {
        std::string result;
        UnifiedDiff diff(path, [&](std::string_view text) { result += text; });
        diff.removed("x\n");
        diff.finish();
        return result.substr(0, result.find("@@"));
    };
    EXPECT_EQ(headOf("a b"), "--- a b\t\n+++ a b\t\n");
    EXPECT_EQ(headOf("a\tb"), "--- \"a\\011b\"\n+++ \"a\\011b\"\n");
    EXPECT_EQ(headOf("a\n\"b\\"), "--- \"a\\012\\\"b\\\\\"\n+++ \"a\\012\\\"b\\\\\"\n");
}

} // namespace
} // namespace corvelle::cli
