#include "base/temporary_folder.h"
#include "indexer/entry_edits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;
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

TEST(ConfirmUpdate, AsksWithThePathsInOrder) {
    Message shown;
    const auto answer = [&](int given) {
        return [&shown, given](const Message& message) {
            shown = message;
            return given;
        };
    };
    EXPECT_TRUE(ConfirmUpdate("These files:", {"a.h", "", "b.txt"}, answer(6)));
    EXPECT_EQ(shown.text, "These files:\ra.h\r\rb.txt\rDo you wish to continue ?");
    EXPECT_EQ(shown.flags, 36);
    EXPECT_EQ(shown.title, "Update files..?");
    EXPECT_FALSE(ConfirmUpdate("x", {}, answer(7)));
    EXPECT_EQ(shown.text, "x\rDo you wish to continue ?");
}

class TextEntries : public testing::Test {
  protected:
    PreparedEntries prepare(const std::string& text) {
        return prepareTextEntries(header, configuration, text);
    }

    TemporaryFolder folder;
    std::string header = folder.write("a.h", "").string();
    std::string configuration = folder.write("a.hcnf", "<P>f</P>\r\n<C>a A IDH_AAAB</C>\r\n").string();
    std::string text = (folder.path() / "a.txt").string();
};

TEST_F(TextEntries, AreReadFromTheConfigurationAndTheTextFile) {
    folder.write("a.txt", ".topic  IDH_AAAB\r\nSaves.\r\n");
    const auto prepared = prepare(text);
    ASSERT_TRUE(prepared.mappings);
    EXPECT_FALSE(prepared.message);
    EXPECT_EQ(prepared.mappings->index.entries[1].HelpText, " Saves.");
}

TEST_F(TextEntries, BeginEmptyWithoutATextFile) {
    const auto unnamed = prepare("");
    ASSERT_TRUE(unnamed.mappings);
    ASSERT_TRUE(unnamed.message);
    EXPECT_EQ(unnamed.message->text, "You have to create new Text file for Text entries..");
    EXPECT_EQ(unnamed.message->flags, 64);
    const auto missing = prepare(text);
    ASSERT_TRUE(missing.mappings);
    EXPECT_FALSE(missing.message);
    EXPECT_EQ(missing.mappings->index.entries[1].HelpText, "");
}

TEST_F(TextEntries, NeedTheHeaderAndTheConfiguration) {
    for (const auto& path : {header, configuration}) {
        std::filesystem::rename(path, path + "x");
        const auto prepared = prepare(text);
        EXPECT_FALSE(prepared.mappings);
        ASSERT_TRUE(prepared.message);
        EXPECT_EQ(prepared.message->text,
                  "Either header  file or configuration file is invalid.You need to re generate them ");
        EXPECT_EQ(prepared.message->flags, 16);
        std::filesystem::rename(path + "x", path);
    }
}

TEST_F(TextEntries, AreSavedWithTheDefaultText) {
    auto index = prepare("").mappings->index;
    index.entries[0].IDHName = "";
    index.entries[1].HelpText = " Saves.";
    const auto saved = saveTextEntries(text, initialDefaultText, index);
    EXPECT_TRUE(saved.saved);
    EXPECT_EQ(saved.message.text, "File was saved successfully.");
    EXPECT_EQ(saved.message.flags, 64);
    EXPECT_EQ(saved.reportLine, "Created Text file: " + text);
    EXPECT_EQ(folder.read("a.txt"),
              ".topic  IDH_AAAA\r\nNo help information is available for this control.\r\n\r\n"
              ".topic  IDH_AAAB\r\n Saves.\r\n");
}

TEST_F(TextEntries, TellThatTheyCannotBeSaved) {
    auto index = prepare("").mappings->index;
    const auto saved = saveTextEntries(folder.path().string(), "", index);
    EXPECT_FALSE(saved.saved);
    EXPECT_EQ(saved.message.text, "Errors occured while saving file. ");
    EXPECT_EQ(saved.message.flags, 48);
    EXPECT_EQ(saved.reportLine, "");
}

} // namespace
} // namespace corvelle::indexer
