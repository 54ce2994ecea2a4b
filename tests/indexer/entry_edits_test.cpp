#include "indexer/entry_edits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace corvelle::indexer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

HelpIndex threeControls() {
    HelpIndex index;
    index.designers = {"frmA", "frmNone", "frmB"};
    index.entries.front().HelpText = "default";
    index.entries.push_back({1, "IDH_AAAB", "cmdOK", "CommandButton", "own"});
    index.entries.push_back({1, "IDH_AAAA", "lbl", "Label", "not its own"});
    index.entries.push_back({3, "", "txt", "TextBox", "gone"});
    return index;
}

TEST(EntryEdits, ShowTheTextOfEachState) {
    const auto index = threeControls();
    EXPECT_EQ(stateOf(index.entries[1]), EntryState::OwnText);
    EXPECT_EQ(shownText(index, 1), "own");
    EXPECT_EQ(stateOf(index.entries[2]), EntryState::DefaultText);
    EXPECT_EQ(shownText(index, 2), "default");
    EXPECT_EQ(stateOf(index.entries[3]), EntryState::Deleted);
    EXPECT_EQ(shownText(index, 3), "This control is deleted from Index..");
}

TEST(EntryEdits, FindTheControlsOfADesigner) {
    const auto index = threeControls();
    EXPECT_THAT(entriesOf(index, 1), ElementsAre(1U, 2U));
    EXPECT_THAT(entriesOf(index, 2), IsEmpty());
    EXPECT_THAT(entriesOf(index, 3), ElementsAre(3U));
}

TEST(EntryEdits, StoreTextsIntoControlsOnly) {
    auto index = threeControls();
    for (const std::int32_t id : {0, -1, 4, std::numeric_limits<std::int32_t>::min()})
        UpdateInfo(index, id, "new");
    EXPECT_EQ(index.entries[0].HelpText, "default");
    EXPECT_EQ(index.entries[3].HelpText, "gone");
    UpdateInfo(index, 3, "new");
    EXPECT_EQ(index.entries[3].HelpText, "new");
}

TEST(EntryEdits, PutAControlOnTheDefaultAndTakeItOut) {
    auto index = threeControls();
    deleteEntry(index, 1);
    EXPECT_EQ(stateOf(index.entries[1]), EntryState::Deleted);
    EXPECT_EQ(index.entries[1].HelpText, "");
    EXPECT_EQ(index.entries[1].CtlName, "cmdOK");
    setDefault(index, 1);
    EXPECT_EQ(index.entries[1].IDHName, "IDH_AAAA");
    EXPECT_EQ(index.entries[1].HelpText, "default");
}

TEST(EntryEdits, AskBeforeFilesAreMarkedForUpdate) {
    Message asked;
    const auto answer = [&asked](int with) {
        return getPromptRet({"a.hcnf", "", "a.txt"}, [&asked, with](const Message& message) {
            asked = message;
            return with;
        });
    };
    EXPECT_TRUE(answer(forms::answer::yes));
    EXPECT_EQ(asked.text, "This action requires following files to be updated :\ra.hcnf\r\ra.txt"
                          "\rDo you wish to continue ?");
    EXPECT_EQ(asked.title, "Update files..?");
    EXPECT_FALSE(answer(forms::answer::no));
}

} // namespace
} // namespace corvelle::indexer
