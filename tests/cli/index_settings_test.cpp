#include "cli/index_settings.h"

#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

TEST(CheckBoxes, ChecksTheBoxOfEachWord) {
    using Options = indexer::IndexOptions;
    struct Row {
        const std::array<OptionWord, 6>& words;
        const char* word;
        indexer::CheckValue Options::*box;
    };
    const Row rows[] = {
        {componentWords, "forms", &Options::ChkFrm},
        {componentWords, "mdi", &Options::ChkMDI},
        {componentWords, "designers", &Options::ChkDsr},
        {componentWords, "docs", &Options::ChkDOB},
        {componentWords, "pages", &Options::ChkPG},
        {componentWords, "controls", &Options::ChkActiveXCtl},
        {exclusionWords, "labels", &Options::ChkExclLbl},
        {exclusionWords, "frames", &Options::ChKExcFrame},
        {exclusionWords, "shapes", &Options::ChkExcShape},
        {exclusionWords, "menus", &Options::ChkExcMenu},
        {exclusionWords, "lines", &Options::ChkExcLine},
        {exclusionWords, "toolbars", &Options::ChkExcToolbar},
    };
    for (const auto& row : rows) {
        Options options;
        EXPECT_EQ(checkBoxes(row.word, row.words, options), std::nullopt) << row.word;
        for (const auto& other : rows)
            EXPECT_EQ(options.*other.box, row.box == other.box ? 1 : 0) << row.word << ' ' << other.word;
    }
    indexer::IndexOptions options;
    EXPECT_EQ(checkBoxes("forms,mdi,forms", componentWords, options), std::nullopt);
    EXPECT_EQ(options.ChkFrm + options.ChkMDI, 2);
    EXPECT_EQ(checkBoxes("", componentWords, options), std::nullopt);
}

TEST(CheckBoxes, TellsAWordThatIsNotInTheList) {
    indexer::IndexOptions options;
    EXPECT_EQ(checkBoxes("forms,labels", componentWords, options), "labels");
    EXPECT_EQ(checkBoxes("Forms", componentWords, options), "Forms");
    EXPECT_EQ(checkBoxes("forms,", componentWords, options), "");
    EXPECT_EQ(checkBoxes("forms, mdi", componentWords, options), " mdi");
}

} // namespace
} // namespace corvelle::cli
