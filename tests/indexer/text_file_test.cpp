#include "base/temporary_folder.h"
#include "indexer/text_file.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace corvelle::indexer {
namespace {

using Texts = std::vector<std::string>;
using test::TemporaryFolder;

HelpIndex indexOf(const std::vector<std::string>& names) {
    HelpIndex index;
    index.designers = {"frmMain"};
    for (const auto& name : names) index.entries.push_back({1, name, "ctl", "Class", "old"});
    index.entries.front().HelpText = "old";
    return index;
}

std::string saved(const HelpIndex& index) {
    const TemporaryFolder folder;
    EXPECT_TRUE(SaveTextFile((folder.path() / "a.txt").string(), index));
    return folder.read("a.txt");
}

// The texts of the entries 0, B, C after reading.
std::vector<std::string> textsAfter(std::string_view bytes) {
    auto index = indexOf({"IDH_AAAB", "IDH_AAAC"});
    readTextEntries(bytes, index);
    return {index.entries[0].HelpText, index.entries[1].HelpText, index.entries[2].HelpText};
}

TEST(LoadTextEntries, JoinsLinesBehindALeadingSpace) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.txt", ".topic  IDH_AAAB\r\nSaves the file.\r\nThen closes it.\r\n");
    auto index = indexOf({"IDH_AAAB"});
    LoadTextEntries(path.string(), index);
    EXPECT_EQ(index.entries[1].HelpText, " Saves the file. Then closes it.");
}

TEST(LoadTextEntries, LeavesTheDefaultTextAloneWhenItsTopicStandsLast) {
    EXPECT_EQ(textsAfter(".topic  IDH_AAAA\r\nText\r\n"), (Texts{"old", "old", "old"}));
    EXPECT_EQ(textsAfter(".topic IDH_AAAB\r\nb\r\n.topic  IDH_AAAA\r\nText\r\n"),
              (Texts{"old", " b", "old"}));
}

TEST(LoadTextEntries, StoresTheDefaultTextBeforeAnotherTopic) {
    EXPECT_EQ(textsAfter(".topic  IDH_AAAA\r\nText\r\n.topic  IDH_AAAB\r\n"), (Texts{" Text", "", "old"}));
}

TEST(LoadTextEntries, TakesTheKeyInAnyCaseAndTheNameBehindTheLastSpace) {
    EXPECT_EQ(textsAfter("  .Topic some words IDH_AAAB  \r\nb\r\n.TOPICS IDH_AAAC\r\nc"),
              (Texts{"old", " b", " c"}));
}

TEST(LoadTextEntries, ComparesNamesInTheirCase) {
    EXPECT_EQ(textsAfter(".topic  idh_aaab\r\nb\r\n"), (Texts{"old", "old", "old"}));
}

TEST(LoadTextEntries, LetsATopicWithoutASpaceEndTheCollection) {
    EXPECT_EQ(textsAfter(".topic  IDH_AAAB\r\nb\r\n.topic\r\nlost\r\n.topic  IDH_AAAC\r\nc\r\n"),
              (Texts{"old", " b", " c"}));
    EXPECT_EQ(textsAfter(".topicIDH_AAAB\r\nlost\r\n"), (Texts{"old", "old", "old"}));
}

TEST(LoadTextEntries, GivesLinesOfAnUnknownTopicToNone) {
    EXPECT_EQ(textsAfter(".topic  IDH_AAAB\r\nb\r\n.topic  IDH_ZZZZ\r\nlost\r\n.topic  IDH_AAAC\r\nc\r\n"),
              (Texts{"old", " b", " c"}));
}

TEST(LoadTextEntries, PassesOverLinesBeforeTheFirstTopic) {
    EXPECT_EQ(textsAfter("lost\r\n.topic  IDH_AAAB\r\nb"), (Texts{"old", " b", "old"}));
}

TEST(LoadTextEntries, LetsARepeatedTopicReplace) {
    EXPECT_EQ(textsAfter(".topic  IDH_AAAB\r\nfirst\r\n.topic  IDH_AAAB\r\nsecond\r\n"),
              (Texts{"old", " second", "old"}));
}

TEST(LoadTextEntries, GivesATopicWithoutLinesAnEmptyText) {
    EXPECT_EQ(textsAfter(".topic  IDH_AAAB\r\n.topic  IDH_AAAC\r\n"), (Texts{"old", "", ""}));
}

TEST(LoadTextEntries, GivesANameToItsFirstEntry) {
    auto index = indexOf({"IDH_X", "IDH_X", "IDH_AAAA", ""});
    readTextEntries(".topic  IDH_X\r\nx\r\n.topic  IDH_AAAA\r\nd\r\n.topic  IDH_X\r\ny\r\n", index);
    EXPECT_EQ(index.entries[0].HelpText, " d");
    EXPECT_EQ(index.entries[1].HelpText, " y");
    EXPECT_EQ(index.entries[2].HelpText, "old");
    EXPECT_EQ(index.entries[3].HelpText, "old");
    EXPECT_EQ(index.entries[4].HelpText, "old");
    readTextEntries(".topic  IDH_X\r\nx\r\n.topic  IDH_X\r\nz\r\n", index);
    EXPECT_EQ(index.entries[1].HelpText, " z");
    EXPECT_EQ(index.entries[2].HelpText, "old");
}

TEST(LoadTextEntries, FindsTopicsInAnyOrder) {
    auto index = indexOf({"IDH_C", "IDH_A", "IDH_B", "IDH_A"});
    readTextEntries(".topic IDH_B\r\nb\r\n.topic IDH_A\r\na\r\n.topic IDH_C\r\nc\r\n.topic IDH_A\r\nA\r\n",
                    index);
    EXPECT_EQ(index.entries[1].HelpText, " c");
    EXPECT_EQ(index.entries[2].HelpText, " A");
    EXPECT_EQ(index.entries[3].HelpText, " b");
    EXPECT_EQ(index.entries[4].HelpText, "old");
}

TEST(LoadTextEntries, JoinsPairsOfSpacesInOnePass) {
    EXPECT_EQ(textsAfter(".topic IDH_AAAB\r\na  b   c    d\r\n")[1], " a b  c  d");
    EXPECT_EQ(textsAfter(".topic IDH_AAAB\r\na\r\n\r\nb\r\n")[1], " a b");
    EXPECT_EQ(textsAfter(".topic IDH_AAAB\r\na\r\n\r\n\r\nb\r\n")[1], " a  b");
}

TEST(LoadTextEntries, TakesLinesAsEveryEditorEndsThem) {
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        EXPECT_EQ(
            textsAfter(".topic  IDH_AAAB" + end + "b" + end + "B" + end + ".topic  IDH_AAAC" + end + "c"),
            (Texts{"old", " b B", " c"}));
    }
}

TEST(LoadTextEntries, TrimsEachLineOfSpacesOnly) {
    EXPECT_EQ(textsAfter(".topic IDH_AAAB\r\n  a   \r\n\tb\t\r\n")[1], " a \tb\t");
}

TEST(TextFile, GivesATextWithLineBreaksBackAsOneLine) {
    auto index = indexOf({"IDH_AAAB"});
    index.entries[1].HelpText = "a\r\nb\nc";
    readTextEntries(saved(index), index);
    EXPECT_EQ(index.entries[1].HelpText, " a b c");
}

TEST(LoadTextEntries, ChangesNothingForAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    auto index = indexOf({"IDH_AAAB"});
    LoadTextEntries((folder.path() / "none").string(), index);
    LoadTextEntries(folder.path().string(), index);
    EXPECT_EQ(index.entries[1].HelpText, "old");
}

TEST(LoadTextEntries, ReadsALastDefaultTopicWhereItIsTheOnlySource) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.txt", ".topic  IDH_AAAA\r\nNothing is known.\r\n").string();
    auto index = indexOf({"IDH_AAAB"});
    LoadTextEntries(path, index);
    EXPECT_EQ(index.entries[0].HelpText, "old");
    LoadTextEntries(path, index, LastDefault::Read);
    EXPECT_EQ(index.entries[0].HelpText, " Nothing is known.");
    EXPECT_EQ(index.entries[1].HelpText, "old");
}

TEST(TextFile, KnowsWhatWouldBeginAnotherTopic) {
    for (const auto* text : {".topic", ".topic  IDH_AAAB", "a\r\n  .Topic x", "a\n.TOPICS", "a\r.topic"})
        EXPECT_TRUE(holdsTopicLine(text)) << text;
    for (const auto* text : {"", "a .topic", "topic", "\t.topic", "a\r\n\r\nb"})
        EXPECT_FALSE(holdsTopicLine(text)) << text;
}

TEST(SaveTextFile, WritesATopicForEveryEntryOfItsOwnName) {
    auto index = indexOf({"IDH_AAAB", "IDH_AAAA", "", "IDH_AAAC"});
    index.entries[0].HelpText = "No help.\r\n";
    index.entries[1].HelpText = " Saves.";
    EXPECT_EQ(saved(index), ".topic  IDH_AAAA\r\nNo help.\r\n\r\n.topic  IDH_AAAB\r\n Saves.\r\n"
                            ".topic  IDH_AAAC\r\nold\r\n");
}

TEST(SaveTextFile, WritesOnlyTheDefaultTopicWithoutControls) {
    EXPECT_EQ(saved(indexOf({})), ".topic  IDH_AAAA\r\nold\r\n");
}

TEST(SaveTextFile, LeavesTheOldTextsAloneWhenItFails) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.txt", "texts");
    std::filesystem::permissions(path, std::filesystem::perms(0444));
    EXPECT_FALSE(SaveTextFile(path.string(), indexOf({})));
    EXPECT_EQ(folder.read("a.txt"), "texts");
    EXPECT_FALSE(SaveTextFile(folder.path().string(), indexOf({})));
    EXPECT_FALSE(SaveTextFile((folder.path() / "none" / "a.txt").string(), indexOf({})));
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST(SaveTextFile, ReplacesNoFileThatCouldNotBeRead) {
    const TemporaryFolder folder;
    const std::string binary(100, '\1');
    const auto path = folder.write("a.txt", binary).string();
    const auto other = folder.write("b.txt", ".topic  IDH_AAAB\r\nSaves.\r\n").string();
    auto index = indexOf({"IDH_AAAB"});
    LoadTextEntries((folder.path() / "none").string(), index); // nothing can be lost
    LoadTextEntries(other, index);
    EXPECT_TRUE(SaveTextFile((folder.path() / "none").string(), index));
    LoadTextEntries(path, index);
    EXPECT_FALSE(SaveTextFile(path, index));
    EXPECT_FALSE(SaveTextFile((folder.path() / "." / "a.txt").string(), index));
    LoadTextEntries(other, index); // which does not change that
    EXPECT_FALSE(SaveTextFile(path, index));
    EXPECT_EQ(folder.read("a.txt"), binary);
    EXPECT_TRUE(SaveTextFile(other, index));
    folder.write("a.txt", "");
    LoadTextEntries(path, index);
    EXPECT_TRUE(SaveTextFile(path, index));
    index.unreadTextFiles.push_back(path);
    index.clear(); // another index
    EXPECT_TRUE(SaveTextFile(path, index));
}

// The search goes on where the last topic was found; of two entries with one name the first has it.
TEST(TextFile, FindsTheFirstOfEntriesWithOneNameWhereverTheSearchStands) {
    auto index = indexOf({"IDH_AAAB", "IDH_AAAC", "IDH_AAAC", "IDH_AAAD"});
    readTextEntries(".topic  IDH_AAAC\r\none\r\n.topic  IDH_AAAC\r\ntwo\r\n.topic  IDH_AAAD\r\nlast\r\n",
                    index);
    EXPECT_EQ(index.entries[2].HelpText, " two");
    EXPECT_EQ(index.entries[3].HelpText, "old");
    EXPECT_EQ(index.entries[4].HelpText, " last");
}

TEST(TextFile, IsTheSameWhenWrittenAgain) {
    std::mt19937 random(11);
    const std::string words[] = {"Saves", "the", "file.", ".", "\xE4", "topic", "  ", "IDH_AAAB", "\t"};
    for (int run = 0; run < 8; ++run) {
        auto index = indexOf({"IDH_AAAB", "IDH_AAAC", "IDH_AAAD"});
        for (auto& entry : index.entries) {
            entry.HelpText.clear();
            for (auto count = random() % 6; count > 0; --count) entry.HelpText += " " + words[random() % 9];
        }
        // What was read once is in the form that a file can hold, all but the last topic's blanks.
        for (int i = 0; i < 9; ++i) readTextEntries(saved(index), index); // runs of spaces get shorter
        const auto settled = saved(index);
        auto fresh = indexOf({"IDH_AAAB", "IDH_AAAC", "IDH_AAAD"});
        readTextEntries(settled, fresh);
        for (std::size_t i = 0; i < index.entries.size(); ++i)
            EXPECT_EQ(fresh.entries[i].HelpText, index.entries[i].HelpText) << i;
        EXPECT_EQ(saved(fresh), settled);
    }
}

const std::string file = "; made by hand\r\n.topic  IDH_AAAA\r\nNothing  is known. \r\n\r\n"
                         "  .TOPIC my IDH_AAAB\r\nCloses\r\nthe window.\r\n\r\n\r\n"
                         ".topic  Other.Help\r\n\tan other \r\n.topic\r\nlost\r\n";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

TEST(TopicEdit, ReplacesTheLinesOfOneTextAlone) {
    EXPECT_EQ(withTopicText(file, "IDH_AAAB", "new"), replaced(file, "Closes\r\nthe window.", "new"));
    EXPECT_EQ(withTopicText(file, "IDH_AAAA", "a\r\nb"), replaced(file, "Nothing  is known. ", "a\r\nb"));
    EXPECT_EQ(withTopicText(file, "Other.Help", " x "), replaced(file, "\tan other ", " x "));
}

TEST(TopicEdit, PutsATopicThatIsNotThereAtTheEnd) {
    EXPECT_EQ(withTopicText(file, "IDH_AAAC", "c"), file + ".topic  IDH_AAAC\r\nc\r\n");
    EXPECT_EQ(withTopicText(".topic  IDH_AAAA\na", "IDH_AAAB", "b\nc"),
              ".topic  IDH_AAAA\na\n.topic  IDH_AAAB\nb\nc\n");
    EXPECT_EQ(withTopicText(".topic  IDH_AAAA", "IDH_AAAB", "b"),
              ".topic  IDH_AAAA\r\n.topic  IDH_AAAB\r\nb\r\n");
    EXPECT_EQ(withTopicText(file, "IDH_aaab", "c"), file + ".topic  IDH_aaab\r\nc\r\n") << "another name";
}

TEST(TopicEdit, BeginsAFileWithTheDefaultTopic) {
    EXPECT_EQ(withTopicText("", "IDH_AAAB", "b"), ".topic  IDH_AAAA\r\n\r\n.topic  IDH_AAAB\r\nb\r\n");
    EXPECT_EQ(withTopicText("", "IDH_AAAA", "a"), ".topic  IDH_AAAA\r\na\r\n");
}

TEST(TopicEdit, EditsTheLastOfTwoTopicsOfOneName) {
    const std::string twice = ".topic  A\r\n1\r\n.topic  B\r\n2\r\n.topic  A\r\n3\r\n.topic  C\r\n4\r\n";
    EXPECT_EQ(withTopicText(twice, "A", "new"), replaced(twice, "3", "new"));
    EXPECT_EQ(withoutTopic(twice, "A"), ".topic  B\r\n2\r\n.topic  C\r\n4\r\n");
}

TEST(TopicEdit, RemovesATopicToTheNextOne) {
    EXPECT_EQ(withoutTopic(file, "IDH_AAAB"),
              replaced(file, "  .TOPIC my IDH_AAAB\r\nCloses\r\nthe window.\r\n\r\n\r\n", ""));
    EXPECT_EQ(withoutTopic(".topic  A\r\na\r\n.topic  B\r\nb", "B"), ".topic  A\r\na\r\n");
    EXPECT_EQ(withoutTopic(file, "IDH_AAAC"), file);
    EXPECT_EQ(withoutTopic("", "IDH_AAAC"), "");
}

TEST(TopicEdit, WritesTheLineEndsThatItFinds) {
    EXPECT_EQ(withTopicText(".topic  A\na\n.topic  B\r\nb\r\n", "A", "1\r\n2\n3\r4"),
              ".topic  A\n1\n2\n3\n4\n.topic  B\r\nb\r\n");
    EXPECT_EQ(withTopicText(".topic  A\ra\r.topic  B\rb\r", "A", "1\r\n2"),
              ".topic  A\r1\r2\r.topic  B\rb\r");
    EXPECT_EQ(withTopicText(".topic  A\r\nno end", "A", "new"), ".topic  A\r\nnew") << "nor has it one now";
    EXPECT_EQ(withTopicText(".topic  A", "A", "new"), ".topic  A\r\nnew\r\n");
}

TEST(TopicEdit, GivesATextToATopicWithoutALine) {
    EXPECT_EQ(withTopicText(".topic  A\r\n.topic  B\r\nb\r\n", "A", "a"),
              ".topic  A\r\na\r\n.topic  B\r\nb\r\n");
    EXPECT_EQ(withTopicText(".topic  A\r\n", "A", "a"), ".topic  A\r\na\r\n");
    EXPECT_EQ(withTopicText(".topic  A\r\n\r\n.topic  B\r\n", "A", "a"), ".topic  A\r\na\r\n.topic  B\r\n")
        << "an empty text has a line too";
    EXPECT_EQ(withTopicText(".topic  A\r\na\r\n.topic  B\r\n", "A", ""), ".topic  A\r\n\r\n.topic  B\r\n");
}

TEST(TopicEdit, DoesNotLetTheFileGrowByTheSameTextAgain) {
    for (const std::string text : {"", "a", "a\r\n", "a\r\n\r\n", "\r\n", "\r\n\r\na", "a\n \n", "a\n "}) {
        const auto once = withTopicText(file, "IDH_AAAB", text);
        EXPECT_EQ(withTopicText(once, "IDH_AAAB", text), once) << text;
        const auto atEnd = withTopicText(".topic  A\nno end", "A", text);
        EXPECT_EQ(withTopicText(atEnd, "A", text), atEnd) << text;
        const auto fresh = withTopicText(file, "IDH_AAAC", text);
        EXPECT_EQ(withTopicText(fresh, "IDH_AAAC", text), fresh) << text;
    }
}

} // namespace
} // namespace corvelle::indexer
