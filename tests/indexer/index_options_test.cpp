#include "fakes/fake_ide.h"
#include "indexer/index_options.h"
#include "indexer/is_indexable.h"

#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

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

} // namespace
} // namespace corvelle::indexer
