#include "base/full_disk.h"
#include "base/temporary_folder.h"
#include "indexer/existing_index.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;
using testing::ElementsAre;

const std::string oldTexts = ".topic  IDH_AAAA\r\ndefault\r\n.topic  IDH_AAAB\r\nold\r\n";

class ExistingIndex : public testing::Test {
  protected:
    ExistingIndex() {
        folder.write("a.h", "header");
        info[slot::header] = path("a.h");
        info[slot::configuration] = folder.write("a.hcnf", "mappings").string();
        info[slot::text] = folder.write("a.txt", oldTexts).string();
        index.designers = {"frmA"};
        index.entries.front().HelpText = "default";
        index.entries.push_back({1, "IDH_AAAB", "cmdOK", "CommandButton", "new"});
        index.entries.push_back({1, "IDH_AAAA", "lbl", "Label", ""});
    }
    std::string path(const std::string& name) const { return (folder.path() / name).string(); }
    SavedIndex save(bool bFilesPrompted) {
        return saveExistingIndex(info, index, bFilesPrompted, [this](std::string_view status) {
            statuses.emplace_back(status);
            textFiles.push_back(folder.read("a.txt"));
        });
    }
    static void lock(const std::string& path) { fs::permissions(path, fs::perms(0444)); }

    TemporaryFolder folder;
    ProjectInfo info;
    HelpIndex index;
    std::vector<std::string> statuses;
    std::vector<std::string> textFiles; // what the text file held at each status
};

const std::string newTexts = ".topic  IDH_AAAA\r\ndefault\r\n.topic  IDH_AAAB\r\nnew\r\n";

TEST_F(ExistingIndex, SavesTheTextsAlone) {
    const auto saved = save(false);
    EXPECT_TRUE(saved.texts);
    EXPECT_EQ(saved.message.text, "File was saved successfully.");
    EXPECT_EQ(saved.message.flags, forms::box::information);
    EXPECT_EQ(saved.status, "Status: Text file saved..");
    EXPECT_THAT(statuses, ElementsAre("Status: Saving Text file.."));
    EXPECT_EQ(folder.read("a.txt"), newTexts);
    EXPECT_EQ(folder.read("a.hcnf"), "mappings");
    EXPECT_EQ(folder.read("a.h"), "header");
}

TEST_F(ExistingIndex, SavesTheMappingsWithTheTextsButNoHeader) {
    const auto saved = save(true);
    EXPECT_TRUE(saved.indexFiles);
    EXPECT_TRUE(saved.texts);
    EXPECT_THAT(statuses,
                ElementsAre("Status: Saving Configuration and Index file..",
                            "Status: Configuration and Index files saved..", "Status: Saving Text file.."));
    // No header line comes in place of the texts, not even for a moment.
    EXPECT_THAT(textFiles, testing::Each(oldTexts));
    EXPECT_EQ(folder.read("a.txt"), newTexts);
    EXPECT_EQ(folder.read("a.hcnf"),
              "<P>frmA</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n<C>lbl Label IDH_AAAA</C>\r\n");
    EXPECT_EQ(folder.read("a.h"), "header");
}

TEST_F(ExistingIndex, WritesNoMappingsWhereTheTextsGo) {
    info[slot::configuration] = path("sub/../a.txt");
    folder.write("sub/b", "");
    const auto saved = save(true);
    EXPECT_FALSE(saved.indexFiles);
    EXPECT_TRUE(saved.texts);
    EXPECT_EQ(folder.read("a.txt"), newTexts);
}

TEST_F(ExistingIndex, SavesTheTextsWhenTheMappingsCannotBe) {
    lock(info[slot::configuration]);
    const auto saved = save(true);
    EXPECT_FALSE(saved.indexFiles);
    EXPECT_TRUE(saved.texts);
    EXPECT_EQ(saved.status, "Status: Text file saved..");
    EXPECT_THAT(statuses, ElementsAre("Status: Saving Configuration and Index file..",
                                      "Status: Error while saving header or configuration file..",
                                      "Status: Saving Text file.."));
    EXPECT_EQ(folder.read("a.txt"), newTexts);
    EXPECT_EQ(folder.read("a.hcnf"), "mappings");
}

TEST_F(ExistingIndex, LosesNothingWhenTheTextsCannotBeSaved) {
    lock(info[slot::text]);
    for (const bool bFilesPrompted : {false, true}) {
        const auto saved = save(bFilesPrompted);
        EXPECT_FALSE(saved.texts);
        EXPECT_EQ(saved.indexFiles, !bFilesPrompted);
        EXPECT_EQ(saved.message.text, "Errors occured while saving file ..");
        EXPECT_EQ(saved.message.flags, forms::box::exclamation);
        EXPECT_EQ(saved.status, "Status: Error while saving text file..");
        EXPECT_EQ(folder.read("a.txt"), oldTexts);
        EXPECT_EQ(folder.read("a.hcnf"), "mappings");
    }
}

#ifndef _WIN32
TEST_F(ExistingIndex, SavesNothingAtAllWhenTheNewTextsFindNoRoom) {
    index.entries[1].HelpText = std::string(1000, 'x');
    {
        const test::FullDisk full(500);
        const auto saved = save(true);
        EXPECT_FALSE(saved.indexFiles);
        EXPECT_FALSE(saved.texts);
    }
    EXPECT_THAT(textFiles, testing::Each(oldTexts)); // not even for a moment were they gone
    EXPECT_EQ(folder.read("a.txt"), oldTexts);
    EXPECT_EQ(folder.read("a.hcnf"), "mappings");
}
#endif

TEST_F(ExistingIndex, WritesNoLineOverTextsThatCouldNotBeRead) {
    index.unreadTextFiles = {info[slot::text]};
    for (const bool bFilesPrompted : {false, true}) {
        const auto saved = save(bFilesPrompted);
        EXPECT_FALSE(saved.texts);
        EXPECT_EQ(saved.indexFiles, !bFilesPrompted);
        EXPECT_EQ(saved.status, "Status: Error while saving text file..");
        EXPECT_EQ(folder.read("a.txt"), oldTexts);
        EXPECT_EQ(folder.read("a.hcnf"), "mappings");
    }
}

TEST_F(ExistingIndex, NeedsTheMappingsAndTheTexts) {
    EXPECT_TRUE(indexFilesExist(info));
    for (const auto which : {slot::configuration, slot::text}) {
        for (const auto& missing : {std::string(), path("none")}) {
            auto other = info;
            other[which] = missing;
            EXPECT_FALSE(indexFilesExist(other));
        }
    }
    auto other = info;
    other[slot::header] = path("none");
    EXPECT_TRUE(indexFilesExist(other));
    EXPECT_EQ(indexFilesMissing().text,
              "Either Text  file or configuration file is invalid.You need to re generate them ");
    EXPECT_EQ(indexFilesMissing().flags, forms::box::critical);
}

TEST_F(ExistingIndex, FindsFilesNamedRelativeToTheProjectFile) {
    folder.write("sub/b.txt", "");
    info[slot::text] = "sub/b.txt";
    info[slot::header] = "corvelle-no-such-file.h";
    const auto found = withPathsFound(info, path("p.icp"));
    EXPECT_EQ(fs::path(found[slot::text]), folder.path() / "sub" / "b.txt");
    EXPECT_EQ(found[slot::header], "corvelle-no-such-file.h");
    EXPECT_EQ(found[slot::configuration], info[slot::configuration]);
}

TEST_F(ExistingIndex, PrefersTheCurrentFolder) {
    const auto name = "corvelle-" + folder.path().filename().string() + ".txt";
    const struct Current {
        fs::path before = fs::current_path();
        ~Current() { fs::current_path(before); }
    } current;
    folder.write("here/" + name, "");
    folder.write(name, "");
    fs::current_path(folder.path() / "here");
    info[slot::text] = name;
    EXPECT_EQ(withPathsFound(info, path("p.icp"))[slot::text], name);
}

} // namespace
} // namespace corvelle::indexer
