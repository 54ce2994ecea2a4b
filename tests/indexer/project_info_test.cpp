#include "base/temporary_folder.h"
#include "indexer/project_info.h"
#include "indexer/text_lines.h"

#include <gtest/gtest.h>
#include <utility>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;

const ProjectInfo whole{"Proj", "C:\\p\\Proj.vbp", "a.h", "a.hcnf", "a.txt", "modHelp", "modHelp.bas"};

std::string joined(const std::vector<std::string>& lines, std::size_t count = 8) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += lines[i] + "\r\n";
    return text;
}

std::vector<std::string> wholeLines() {
    return projectFileLines("11/21/2026 2:43:10 AM", whole);
}

bool valid(const std::vector<std::string>& lines) {
    ProjectInfo info;
    return readProjectInfo(joined(lines, lines.size()), info);
}

TEST(ProjectFile, HasEightLinesInTheirOrder) {
    EXPECT_EQ(joined(wholeLines()),
              "Indexer project file :11/21/2026 2:43:10 AM\r\nVB Project Name= Proj\r\n"
              "Project File= C:\\p\\Proj.vbp\r\nHeader file= a.h\r\n"
              "Configuration File= a.hcnf\r\nText File= a.txt\r\nModule Name= modHelp\r\n"
              "Module File= modHelp.bas\r\n");
}

TEST(ReadProjectFile, GivesTheValuesAndTheModulesWithTheSpaceOfTheirKeys) {
    const TemporaryFolder folder;
    const auto path = (folder.path() / "a.icp").string();
    ASSERT_TRUE(WriteLines(path, wholeLines()));
    ProjectInfo info;
    ASSERT_TRUE(ReadProjectFile(path, info));
    EXPECT_EQ(info,
              (ProjectInfo{"Proj", "C:\\p\\Proj.vbp", "a.h", "a.hcnf", "a.txt", " modHelp", " modHelp.bas"}));
}

TEST(ReadProjectFile, ComparesKeysInTheirCase) {
    for (std::size_t i = 0; i < 6; ++i) {
        auto lines = wholeLines();
        lines[i].replace(0, 4, i == 1 ? "Vb P" : "xxxx");
        EXPECT_FALSE(valid(lines)) << lines[i];
    }
    auto lines = wholeLines();
    lines[1] = "VB Project name= Proj";
    EXPECT_FALSE(valid(lines));
    lines = wholeLines();
    lines[0] = "Indexer Project file :now";
    EXPECT_FALSE(valid(lines));
}

TEST(ReadProjectFile, WantsEachKeyAtTheBeginningOfItsOwnLine) {
    for (std::size_t i = 0; i < 6; ++i) {
        for (const char* before : {"x", "x ", "\t"}) { // only spaces are trimmed
            auto lines = wholeLines();
            lines[i].insert(0, before);
            EXPECT_FALSE(valid(lines)) << lines[i];
        }
        auto lines = wholeLines();
        std::swap(lines[i], lines[i + 1]);
        EXPECT_FALSE(valid(lines)) << i;
    }
}

TEST(ReadProjectFile, RefusesAnEmptyValueOnLinesTwoToSix) {
    for (std::size_t i = 1; i < 6; ++i) {
        auto lines = wholeLines();
        lines[i].erase(lines[i].find('=') + 1);
        EXPECT_FALSE(valid(lines)) << lines[i];
        lines[i] += "   ";
        EXPECT_FALSE(valid(lines)) << lines[i];
    }
}

TEST(ReadProjectFile, AcceptsAnythingOnTheModulesLines) {
    auto lines = wholeLines();
    lines[6] = "Anything";
    lines[7] = "";
    ProjectInfo info;
    ASSERT_TRUE(readProjectInfo(joined(lines), info));
    EXPECT_EQ(info[slot::moduleName], "");
    EXPECT_EQ(info[slot::moduleFile], "");
    lines[6] = "0123456789abcdef";
    lines[7] = "ABCDEFGHIJKLM"; // thirteen characters: one is the value
    ASSERT_TRUE(readProjectInfo(joined(lines), info));
    EXPECT_EQ(info[slot::moduleName], "cdef");
    EXPECT_EQ(info[slot::moduleFile], "M");
}

TEST(ReadProjectFile, AcceptsEmptyModuleValues) {
    auto info = whole;
    info[slot::moduleName] = info[slot::moduleFile] = "";
    ProjectInfo read;
    read.fill("old");
    ASSERT_TRUE(readProjectInfo(joined(projectFileLines("", info)), read));
    EXPECT_EQ(read[slot::moduleName], "");
    EXPECT_EQ(read[slot::moduleFile], "");
}

TEST(ReadProjectFile, ForgetsTheValuesOfTheFileBefore) {
    ProjectInfo info;
    info.fill("old");
    EXPECT_TRUE(readProjectInfo(joined(wholeLines(), 2), info));
    EXPECT_EQ(info[slot::projectName], "Proj");
    EXPECT_EQ(info[slot::header] + info[slot::text], "");
    info.fill("old");
    EXPECT_FALSE(ReadProjectFile("/none/none.icp", info));
    EXPECT_EQ(info, ProjectInfo());
}

TEST(ReadProjectFile, TakesLinesAsEveryEditorEndsThem) {
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        std::string bytes;
        for (const auto& line : wholeLines()) bytes += (bytes.empty() ? "" : end) + line;
        ProjectInfo info;
        EXPECT_TRUE(readProjectInfo(bytes, info));
        EXPECT_EQ(info[slot::projectName], "Proj");
        EXPECT_EQ(info[slot::moduleFile], " modHelp.bas"); // of a last line without an end
    }
}

TEST(ReadProjectFile, TrimsLines) {
    auto lines = wholeLines();
    for (auto& line : lines) line = "  " + line + "  ";
    ProjectInfo info;
    ASSERT_TRUE(readProjectInfo(joined(lines), info));
    EXPECT_EQ(info[slot::projectName], "Proj");
    EXPECT_EQ(info[slot::moduleFile], " modHelp.bas");
}

TEST(ReadProjectFile, IsContentWithFewerAndWithMoreLines) {
    for (std::size_t count = 0; count <= 8; ++count) {
        ProjectInfo info;
        EXPECT_TRUE(readProjectInfo(joined(wholeLines(), count), info));
        EXPECT_EQ(info[slot::text], count < 6 ? "" : "a.txt");
    }
    auto lines = wholeLines();
    lines.emplace_back("Module File= other");
    lines.emplace_back("Text File= other");
    ProjectInfo info;
    EXPECT_TRUE(readProjectInfo(joined(lines, lines.size()), info));
    EXPECT_EQ(info,
              (ProjectInfo{"Proj", "C:\\p\\Proj.vbp", "a.h", "a.hcnf", "a.txt", " modHelp", " modHelp.bas"}));
}

TEST(ReadProjectFile, KeepsTheValuesBeforeAnInvalidLine) {
    auto lines = wholeLines();
    lines[3] = "";
    ProjectInfo info;
    EXPECT_FALSE(readProjectInfo(joined(lines), info));
    EXPECT_EQ(info[slot::projectFile], "C:\\p\\Proj.vbp");
    EXPECT_EQ(info[slot::header], "");
}

TEST(ReadProjectFile, RefusesAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    ProjectInfo info = whole;
    EXPECT_FALSE(ReadProjectFile((folder.path() / "none").string(), info));
    EXPECT_EQ(info, ProjectInfo());
    EXPECT_FALSE(ReadProjectFile(folder.path().string(), info));
}

TEST(ProjectFile, WithoutATextFileHasEightLinesAndIsInvalid) {
    auto info = whole;
    info[slot::text] = "";
    const auto lines = projectFileLines("now", info);
    ASSERT_EQ(lines.size(), 8U);
    EXPECT_EQ(lines[5], "Text File= ");
    EXPECT_FALSE(valid(lines));
}

} // namespace
} // namespace corvelle::indexer
