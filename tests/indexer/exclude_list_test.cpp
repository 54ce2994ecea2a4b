#include "base/temporary_folder.h"
#include "indexer/exclude_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;

ExcludeList listOf(std::string_view bytes) {
    ExcludeList list{"", "OLD"};
    const auto bound = readExcludeList(bytes, list);
    EXPECT_EQ(bound + 1, list.size());
    return list;
}

TEST(ReadExcludeList, ReadsUpperCaseNamesBehindAnEmptyOne) {
    const TemporaryFolder folder;
    ExcludeList list;
    EXPECT_EQ(ReadExcludeList(folder.write("a", "Label Timer image\r\n").string(), list), 3U);
    EXPECT_THAT(list, ElementsAre("", "LABEL", "TIMER", "IMAGE"));
}

TEST(ReadExcludeList, ReadsTheFirstLineOnly) {
    EXPECT_THAT(listOf("  label  \r\ntimer\r\n"), ElementsAre("", "LABEL"));
    EXPECT_THAT(listOf("\r\ntimer\r\n"), ElementsAre("", ""));
    for (const auto* bytes : {"label\r\ntimer", "label\ntimer", "label\rtimer"})
        EXPECT_THAT(listOf(bytes), ElementsAre("", "LABEL"));
}

TEST(ReadExcludeList, LeavesAnEmptyNameBetweenThreeSpaces) {
    EXPECT_THAT(listOf("label   timer"), ElementsAre("", "LABEL", "", "TIMER"));
    EXPECT_THAT(listOf("label  timer"), ElementsAre("", "LABEL", "TIMER"));
    EXPECT_THAT(listOf("label    timer"), ElementsAre("", "LABEL", "", "TIMER"));
    EXPECT_THAT(listOf(" \tlabel\ttimer "), ElementsAre("", "\tLABEL\tTIMER")); // spaces alone count
}

TEST(ReadExcludeList, LeavesTheListAsItIsWhenNothingCanBeRead) {
    const TemporaryFolder folder;
    ExcludeList list{"", "LABEL"};
    EXPECT_EQ(ReadExcludeList((folder.path() / "none").string(), list), 1U);
    EXPECT_EQ(ReadExcludeList(folder.path().string(), list), 1U);
    EXPECT_EQ(ReadExcludeList(folder.write("empty", "").string(), list), 1U);
    EXPECT_THAT(list, ElementsAre("", "LABEL"));
    list.clear();
    EXPECT_EQ(ReadExcludeList((folder.path() / "none").string(), list), 0U);
}

TEST(IsInList, ComparesWholeElementsInTheirCase) {
    const ExcludeList list{"", "LABEL"};
    EXPECT_TRUE(isInList("LABEL", list));
    EXPECT_TRUE(isInList("", list));
    EXPECT_FALSE(isInList("Label", list));
    EXPECT_FALSE(isInList("LAB", list));
    EXPECT_FALSE(isInList("", {}));
}

} // namespace
} // namespace corvelle::indexer
