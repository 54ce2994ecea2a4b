#include "base/full_disk.h"
#include "base/temporary_folder.h"
#include "indexer/index_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

std::string textOf(const IndexEntry& entry) {
    return std::to_string(entry.DsrIndex) + "|" + entry.CtlName + "|" + entry.CtlClass + "|" + entry.IDHName +
           "|" + entry.HelpText;
}

std::vector<std::string> entriesOf(const Mappings& mappings) {
    std::vector<std::string> result;
    for (const auto& entry : mappings.index.entries) result.push_back(textOf(entry));
    return result;
}

struct Saved {
    std::string configuration, header;
};

Saved save(const HelpIndex& index) {
    const TemporaryFolder folder;
    EXPECT_TRUE(SaveIndexFiles((folder.path() / "a.hcnf").string(), (folder.path() / "a.h").string(), index));
    return {folder.read("a.hcnf"), folder.read("a.h")};
}

TEST(LoadMappings, ReadsDesignersAndTheirControls) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.hcnf", "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                                             "<C>txtName TextBox IDH_AAAA</C>\r\n<P>frmNone</P>\r\n"
                                             "<P>frmLast</P>\r\n<C>lst ListBox IDH_AAAC</C>\r\n");
    const auto mappings = LoadMappings(path.string());
    EXPECT_THAT(mappings.index.designers, ElementsAre("frmMain", "frmNone", "frmLast"));
    EXPECT_THAT(mappings.rows, ElementsAre("frmMain", "frmNone", "frmLast"));
    EXPECT_THAT(entriesOf(mappings), ElementsAre("0|||IDH_AAAA|", "1|cmdOK|CommandButton|IDH_AAAB|",
                                                 "1|txtName|TextBox|IDH_AAAA|", "3|lst|ListBox|IDH_AAAC|"));
    EXPECT_EQ(mappings.index.count(), 3U);
}

TEST(LoadMappings, ComparesMarksWithoutRegardToCase) {
    EXPECT_THAT(entriesOf(readMappings("<p>f</P>\r\n<c>a B IDH_X</c>\r\n")),
                ElementsAre("0|||IDH_AAAA|", "1|a|B|IDH_X|"));
}

TEST(LoadMappings, TrimsLinesOfSpacesOnly) {
    const auto mappings = readMappings("   <P>f</P>  \r\n\t<P>g</P>\r\n");
    EXPECT_THAT(mappings.index.designers, ElementsAre("f"));
}

TEST(LoadMappings, CountsADesignerWithoutEndMarkButDoesNotListIt) {
    const auto mappings = readMappings("<P>f\r\n<C>a B IDH_X</C>\r\n<P>g</P>\r\n");
    EXPECT_THAT(mappings.index.designers, ElementsAre("", "g"));
    EXPECT_THAT(mappings.rows, ElementsAre("g"));
    EXPECT_EQ(mappings.index.entries[1].DsrIndex, 1);
}

TEST(LoadMappings, KeepsAnEmptyEntryForAControlWithoutEndMark) {
    EXPECT_THAT(entriesOf(readMappings("<P>f</P>\r\n<C>a B IDH_X\r\n<C>c D IDH_Y</C>\r\n")),
                ElementsAre("0|||IDH_AAAA|", "0||||", "1|c|D|IDH_Y|"));
}

TEST(LoadMappings, EndsAValueAtTheLastMark) {
    EXPECT_THAT(readMappings("<P>a</P>b</p>\r\n").index.designers, ElementsAre("a</P>b"));
    EXPECT_THAT(entriesOf(readMappings("<C>a B X</C>Y</c>Z\r\n")),
                ElementsAre("0|||IDH_AAAA|", "0|a|B|X</C>Y|"));
}

TEST(LoadMappings, TakesADesignersNameAsItStandsBetweenTheMarks) {
    EXPECT_THAT(readMappings("<P></P>\r\n<P> a  b </P>\r\n").rows, ElementsAre("", " a  b "));
}

TEST(LoadMappings, TakesTwoSpacesForAnEmptyClass) {
    EXPECT_THAT(entriesOf(readMappings("<C>cmdOK  CommandButton IDH_AAAB</C>\r\n")),
                ElementsAre("0|||IDH_AAAA|", "0|cmdOK||CommandButton|"));
}

TEST(LoadMappings, LeavesMissingPartsEmpty) {
    EXPECT_THAT(entriesOf(readMappings("<C></C>\r\n<C>a</C>\r\n<C>a B</C>\r\n<C>a B C D</C>\r\n")),
                ElementsAre("0|||IDH_AAAA|", "0||||", "0|a|||", "0|a|B||", "0|a|B|C|"));
}

TEST(LoadMappings, TakesLinesAsEveryEditorEndsThem) {
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        const auto mappings = readMappings("<P>f</P>" + end + "<P>g</P>" + end + "<C>a B IDH_X</C>");
        EXPECT_THAT(mappings.rows, ElementsAre("f", "g"));
        EXPECT_THAT(entriesOf(mappings), ElementsAre("0|||IDH_AAAA|", "2|a|B|IDH_X|"));
    }
}

TEST(LoadMappings, PassesOverOtherLines) {
    const auto mappings = readMappings("\r\n<P\r\n<X>a</X>\r\n<CC>\r\nP>\r\n");
    EXPECT_THAT(mappings.index.designers, IsEmpty());
    EXPECT_EQ(mappings.index.count(), 0U);
}

TEST(LoadMappings, GivesNothingForAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    for (const auto& path : {folder.path() / "none", folder.path()}) {
        const auto mappings = LoadMappings(path.string());
        EXPECT_THAT(mappings.rows, IsEmpty());
        EXPECT_EQ(mappings.index.count(), 0U);
        EXPECT_EQ(mappings.index.entries.front().IDHName, "IDH_AAAA");
    }
}

TEST(SaveIndexFiles, NumbersTheControlsOfTheSecondDesignerFromTheFirstNumber) {
    HelpIndex index;
    index.designers = {"frmEmpty", "frmMain"};
    index.entries.push_back({2, "IDH_AAAB", "cmdOK", "CommandButton", ""});
    index.entries.push_back({2, "IDH_AAAC", "txtName", "TextBox", ""});
    const auto saved = save(index);
    EXPECT_EQ(saved.header, "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n#define IDH_AAAC  1002\r\n");
    EXPECT_EQ(saved.configuration,
              "<P>frmEmpty</P>\r\n<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
              "<C>txtName TextBox IDH_AAAC</C>\r\n");
}

TEST(SaveIndexFiles, GivesDeletedEntriesNoLineAndDefaultOnesNoNumber) {
    HelpIndex index;
    index.designers = {"f"};
    index.entries.push_back({1, "IDH_AAAB", "a", "A", ""});
    index.entries.push_back({1, "", "b", "B", ""});
    index.entries.push_back({1, "IDH_AAAA", "c", "C", ""});
    index.entries.push_back({1, "IDH_AAAE", "d", "D", ""});
    const auto saved = save(index);
    EXPECT_EQ(saved.header, "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n#define IDH_AAAE  1002\r\n");
    EXPECT_EQ(saved.configuration,
              "<P>f</P>\r\n<C>a A IDH_AAAB</C>\r\n<C>c C IDH_AAAA</C>\r\n<C>d D IDH_AAAE</C>\r\n");
}

TEST(SaveIndexFiles, WalksDesignersThenEntries) {
    HelpIndex index;
    index.designers = {"f", "g"};
    index.entries.push_back({2, "IDH_2", "b", "B", ""});
    index.entries.push_back({1, "IDH_1", "a", "A", ""});
    index.entries.push_back({3, "IDH_3", "c", "C", ""}); // of no designer
    index.entries.push_back({-1, "IDH_4", "c", "C", ""});
    index.entries.push_back({0, "IDH_5", "c", "C", ""});
    const auto saved = save(index);
    EXPECT_EQ(saved.configuration, "<P>f</P>\r\n<C>a A IDH_1</C>\r\n<P>g</P>\r\n<C>b B IDH_2</C>\r\n");
    EXPECT_EQ(saved.header, "#define IDH_AAAA  1000\r\n#define IDH_1  1001\r\n#define IDH_2  1002\r\n");
    index.entries.front() = {2, "IDH_AAAA", "d", "D", ""}; // the walk begins at the default entry
    EXPECT_EQ(save(index).configuration, "<P>f</P>\r\n<C>a A IDH_1</C>\r\n<P>g</P>\r\n"
                                         "<C>d D IDH_AAAA</C>\r\n<C>b B IDH_2</C>\r\n");
    EXPECT_EQ(save(index).header, saved.header);
}

TEST(SaveIndexFiles, WritesValuesAsTheyAre) {
    HelpIndex index;
    index.designers = {"frm\xC4\"<P>"};
    index.entries.push_back({1, "IDH_\xFF", "a\"&", "\\<\x80>", ""});
    const auto saved = save(index);
    EXPECT_EQ(saved.configuration, "<P>frm\xC4\"<P></P>\r\n<C>a\"& \\<\x80> IDH_\xFF</C>\r\n");
    EXPECT_EQ(saved.header, "#define IDH_AAAA  1000\r\n#define IDH_\xFF  1001\r\n");
    const auto read = readMappings(saved.configuration);
    EXPECT_EQ(read.index.designers, index.designers);
    EXPECT_EQ(textOf(read.index.entries[1]), textOf(index.entries[1]));
}

TEST(SaveIndexFiles, WritesTheDefaultTopicOfAnEmptyIndex) {
    const auto saved = save(HelpIndex());
    EXPECT_EQ(saved.configuration, "");
    EXPECT_EQ(saved.header, "#define IDH_AAAA  1000\r\n");
}

TEST(SaveIndexFiles, ReplacesOldFiles) {
    const TemporaryFolder folder;
    const auto configuration = folder.write("a.hcnf", std::string(1000, 'x'));
    const auto header = folder.write("a.h", std::string(1000, 'x'));
    ASSERT_TRUE(SaveIndexFiles(configuration.string(), header.string(), HelpIndex()));
    EXPECT_EQ(folder.read("a.hcnf"), "");
    EXPECT_EQ(folder.read("a.h"), "#define IDH_AAAA  1000\r\n");
}

TEST(SaveIndexFiles, TellsThatAFileCannotBeWritten) {
    const TemporaryFolder folder;
    const auto good = (folder.path() / "good").string();
    const auto noFolder = (folder.path() / "none" / "a").string();
    const auto readOnly = folder.write("ro", "x");
    std::filesystem::permissions(readOnly, std::filesystem::perms(0444));
    for (const auto& bad : {noFolder, folder.path().string(), readOnly.string()}) {
        EXPECT_FALSE(SaveIndexFiles(bad, good, HelpIndex())) << bad;
        EXPECT_FALSE(SaveIndexFiles(good, bad, HelpIndex())) << bad;
    }
    EXPECT_EQ(folder.read("ro"), "x");
#ifdef __linux__
    EXPECT_FALSE(SaveIndexFiles(good, "/dev/full", HelpIndex()));
#endif
}

TEST(SaveIndexFiles, RefusesOneFileForBoth) {
    const TemporaryFolder folder;
    const auto path = folder.write("a", "old").string();
    const auto other = (folder.path() / "." / "a").string();
    const auto none = (folder.path() / "none").string();
    EXPECT_FALSE(SaveIndexFiles(path, other, HelpIndex()));
    EXPECT_EQ(folder.read("a"), "old");
    EXPECT_FALSE(SaveIndexFiles(none, none, HelpIndex()));
    EXPECT_EQ(folder.names().size(), 1U);
}

#ifndef _WIN32
TEST(SaveIndexFiles, LeavesTheOldFilesAloneWhenTheDiskIsFull) {
    const TemporaryFolder folder;
    folder.write("a.h", "header");
    const auto configuration = folder.write("a.hcnf", "<P>frmMain</P>\r\n").string();
    HelpIndex index;
    index.designers.assign(2000, "frmAnother"); // the header needs less room
    {
        const test::FullDisk disk(1000);
        EXPECT_FALSE(SaveIndexFiles(configuration, (folder.path() / "a.h").string(), index));
    }
    EXPECT_EQ(folder.read("a.hcnf"), "<P>frmMain</P>\r\n");
    EXPECT_EQ(folder.read("a.h"), "header");
    EXPECT_EQ(folder.names().size(), 2U);
}
#endif

TEST(SaveIndexFiles, LeavesTheOldConfigurationAloneWhenTheHeaderFails) {
    const TemporaryFolder folder;
    const auto configuration = folder.write("a.hcnf", "<P>frmMain</P>\r\n");
    EXPECT_FALSE(SaveIndexFiles(configuration.string(), folder.path().string(), HelpIndex()));
    EXPECT_EQ(folder.read("a.hcnf"), "<P>frmMain</P>\r\n");
}

TEST(IndexFiles, AreTheSameWhenWrittenAgain) {
    std::mt19937 random(7);
    for (int run = 0; run < 200; ++run) {
        HelpIndex index;
        const auto pick = [&](std::uint32_t limit) { return random() % limit; };
        const auto designers = pick(5);
        for (std::uint32_t d = 1; d <= designers; ++d) {
            index.designers.push_back("frm" + std::string(pick(3), '<') + std::to_string(pick(3)));
            for (auto controls = pick(6); controls > 0; --controls) {
                const std::string names[] = {"", "IDH_AAAA", "IDH_" + std::to_string(pick(9))};
                index.entries.push_back({static_cast<std::int32_t>(d), names[pick(3)],
                                         "ctl" + std::to_string(pick(4)), pick(4) == 0 ? "" : "Class", ""});
            }
        }
        const auto first = save(index);
        const auto read = readMappings(first.configuration);
        EXPECT_EQ(read.index.designers, index.designers);
        const auto second = save(read.index);
        EXPECT_EQ(second.configuration, first.configuration);
        EXPECT_EQ(second.header, first.header);
    }
}

const std::string file =
    "\n  <p>frm a</P> \r\n <c>cmdOK  CommandButton IDH_AAAB</C>\r\n<C>broken Label IDH_X\n"
    "<C>lbl Label IDH_AAAC more</c> \r<C>last VB.Label IDH_AAAD</C>";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

TEST(MappingEdit, NamesOneControlAnew) {
    EXPECT_EQ(withControlNamed(file, 3, "IDH_AAAA"), replaced(file, "IDH_AAAC", "IDH_AAAA"));
    EXPECT_EQ(withControlNamed(file, 4, "IDH_AAAA"), replaced(file, "IDH_AAAD", "IDH_AAAA"));
    // Two blanks in a row leave the class empty: what stands third is the name.
    EXPECT_EQ(withControlNamed(file, 1, "IDH_AAAA"), replaced(file, "CommandButton", "IDH_AAAA"));
}

TEST(MappingEdit, NamesAControlThatHadNoName) {
    EXPECT_EQ(withControlNamed("<C>gone Label</C>\n", 1, "IDH_AAAA"), "<C>gone Label IDH_AAAA</C>\n");
    EXPECT_EQ(withControlNamed("<C>gone Label </C>\n", 1, "IDH_AAAA"), "<C>gone Label IDH_AAAA</C>\n");
    EXPECT_EQ(withControlNamed("<C>gone</C>", 1, "IDH_AAAA"), "<C>gone  IDH_AAAA</C>");
    EXPECT_EQ(withControlNamed("<C></C>", 1, "IDH_AAAA"), "<C>  IDH_AAAA</C>");
}

TEST(MappingEdit, IsReadAsItWasMeant) {
    for (std::size_t entry = 1; entry <= 4; ++entry) {
        if (entry == 2) continue; // no control: its line is not complete
        auto wanted = readMappings(file).index.entries;
        wanted[entry].IDHName = "IDH_AAAA";
        const auto now = readMappings(withControlNamed(file, entry, "IDH_AAAA")).index.entries;
        ASSERT_EQ(now.size(), wanted.size());
        for (std::size_t i = 0; i < now.size(); ++i) {
            EXPECT_EQ(now[i].CtlName, wanted[i].CtlName);
            EXPECT_EQ(now[i].CtlClass, wanted[i].CtlClass);
            EXPECT_EQ(now[i].IDHName, wanted[i].IDHName);
        }
    }
}

TEST(MappingEdit, TakesAControlsLineAway) {
    EXPECT_EQ(withoutControl(file, 1), replaced(file, " <c>cmdOK  CommandButton IDH_AAAB</C>\r\n", ""));
    EXPECT_EQ(withoutControl(file, 4), replaced(file, "<C>last VB.Label IDH_AAAD</C>", ""));
}

TEST(MappingEdit, LeavesAFileAloneThatHasNoSuchControl) {
    for (const std::size_t entry : {0, 5}) {
        EXPECT_EQ(withControlNamed(file, entry, "IDH_AAAA"), file);
        EXPECT_EQ(withoutControl(file, entry), file);
    }
    EXPECT_EQ(withControlNamed(file, 2, "IDH_AAAA"), file) << "the line is not complete";
}

} // namespace
} // namespace corvelle::indexer
