#include "base/temporary_folder.h"
#include "fakes/fake_ide.h"
#include "indexer/index_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;

std::string checkedFor(int type) {
    const auto ide = test::FakeIde::make();
    ide->project->type = static_cast<ide::ProjectType>(type);
    IndexOptions options;
    SetDefOption(*ide->project, options);
    std::string boxes;
    if (options.ChkFrm == 1) boxes += "Frm ";
    if (options.ChkMDI == 1) boxes += "MDI ";
    if (options.ChkDsr == 1) boxes += "Dsr ";
    if (options.ChkDOB == 1) boxes += "DOB ";
    if (options.ChkPG == 1) boxes += "PG ";
    if (options.ChkActiveXCtl == 1) boxes += "ActiveXCtl ";
    return boxes;
}

TEST(SetDefOption, ChecksTheBoxesOfTheProjectsType) {
    EXPECT_EQ(checkedFor(0), "Frm MDI ");
    EXPECT_EQ(checkedFor(1), "Frm Dsr DOB ");
    EXPECT_EQ(checkedFor(2), "Frm Dsr DOB ");
    EXPECT_EQ(checkedFor(3), "Frm PG ActiveXCtl ");
    EXPECT_EQ(checkedFor(4), "");
}

TEST(SetDefOption, ReadsTheTypeAnewForEachTest) {
    for (int type = 0; type <= 4; ++type) {
        const auto ide = test::FakeIde::make();
        ide->project->type = static_cast<ide::ProjectType>(type);
        IndexOptions options;
        SetDefOption(*ide->project, options);
        EXPECT_EQ(ide->calls->count("VBProject.Type"), type == 2 ? 3 : 4) << type;
    }
}

TEST(SetDefOption, ClearsNoBox) {
    const auto ide = test::FakeIde::make();
    IndexOptions options;
    options.ChkPG = 1;
    options.ChkExclLbl = 2;
    SetDefOption(*ide->project, options);
    EXPECT_EQ(options.ChkPG, 1);
    EXPECT_EQ(options.ChkExclLbl, 2);
    EXPECT_EQ(options.ChkMDI, 1);
}

TEST(IsIndexable, ExcludesAClassByItsBox) {
    const std::pair<const char*, CheckValue IndexOptions::*> boxes[] = {
        {"Label", &IndexOptions::ChkExclLbl},  {"Frame", &IndexOptions::ChKExcFrame},
        {"Shape", &IndexOptions::ChkExcShape}, {"LINE", &IndexOptions::ChkExcLine},
        {"menu", &IndexOptions::ChkExcMenu},   {"Toolbar", &IndexOptions::ChkExcToolbar}};
    for (const auto& [name, box] : boxes) {
        for (const auto& [other, otherBox] : boxes) {
            IndexOptions options;
            EXPECT_TRUE(isIndexable(name, {}, options));
            options.*otherBox = 1;
            EXPECT_EQ(isIndexable(name, {}, options), box != otherBox) << name << ' ' << other;
            options.*otherBox = 2; // grey
            EXPECT_EQ(isIndexable(name, {}, options), box != otherBox) << name << ' ' << other;
        }
    }
}

TEST(IsIndexable, ExcludesListedClassesWhateverTheirBoxSays) {
    const ExcludeList list{"", "LABEL", "Timer"};
    EXPECT_FALSE(isIndexable("Label", list, {}));
    EXPECT_FALSE(isIndexable("", list, {}));
    EXPECT_TRUE(isIndexable("Timer", list, {})); // the list is compared in its case
    EXPECT_TRUE(isIndexable("Labels", list, {}));
    EXPECT_TRUE(isIndexable("", {}, {}));
}

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
