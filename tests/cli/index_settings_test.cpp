#include "cli/index_settings.h"

#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

TEST(CheckBoxes, ChecksTheBoxOfEachWord) {
    for (const auto& words : {componentWords, exclusionWords}) {
        for (const auto& word : words) {
            indexer::IndexOptions options;
            EXPECT_EQ(checkBoxes(word.word, words, options), std::nullopt);
            for (const auto& other : words) EXPECT_EQ(options.*other.box, word.word == other.word ? 1 : 0);
        }
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
