#include "base/temporary_folder.h"
#include "indexer/text_entries.h"

#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;

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
