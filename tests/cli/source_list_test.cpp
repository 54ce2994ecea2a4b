#include "base/paths.h"
#include "base/temporary_folder.h"
#include "cli/source_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

using ide::ComponentType;
using test::TemporaryFolder;
using testing::ElementsAre;

std::vector<std::string> shownPathsOf(const SourceList& list) {
    std::vector<std::string> result;
    for (const ModuleSource& source : list.sources) result.push_back(source.shownPath);
    return result;
}

TEST(SourceList, TellsModulesWithTheirKinds) {
    const TemporaryFolder folder;
    const std::string path = base::textOf(folder.write("f.frm", "x"));
    const SourceList list = listSources({path}, "");
    ASSERT_EQ(list.sources.size(), 1U);
    EXPECT_EQ(list.sources[0].shownPath, path);
    EXPECT_EQ(list.sources[0].type, ComponentType::VBForm);
    EXPECT_TRUE(list.sources[0].isModule());
    EXPECT_FALSE(list.sources[0].isStandardInput());
    EXPECT_EQ(list.moduleCount(), 1U);
    EXPECT_EQ(list.realPaths.size(), 1U);
}

TEST(SourceList, TakesNameAndKindFromTheProjectsLine) {
    const TemporaryFolder folder;
    folder.write("module.bas", "x");
    const std::string project = base::textOf(folder.write("a.vbp", "Class=Account; module.bas\r\n"));
    const SourceList list = listSources({project}, "");
    ASSERT_EQ(list.sources.size(), 1U);
    EXPECT_EQ(list.sources[0].projectName, "Account");
    EXPECT_EQ(list.sources[0].type, ComponentType::ClassModule);
}

TEST(SourceList, NamesStandardInput) {
    SourceList list = listSources({"-"}, "");
    ASSERT_EQ(list.sources.size(), 1U);
    EXPECT_TRUE(list.sources[0].isStandardInput());
    EXPECT_EQ(list.sources[0].shownPath, "<stdin>");
    EXPECT_EQ(list.sources[0].type, ComponentType{});

    list = listSources({"-"}, "x.Ctl");
    EXPECT_EQ(list.sources[0].shownPath, "x.Ctl");
    EXPECT_EQ(list.sources[0].type, ComponentType::UserControl);
    EXPECT_EQ(listSources({"-"}, "x.txt").sources[0].type, ComponentType{});
}

TEST(SourceList, KeepsProblemsAndNotesInTheirPlaces) {
    const TemporaryFolder folder;
    const std::string module = base::textOf(folder.write("m.bas", "x"));
    const std::string project = base::textOf(folder.write("a.vbp", "Type=Exe\r\n"));
    const std::string text = base::textOf(folder.write("a.txt", "x"));
    const SourceList list = listSources({text, project, module}, "");
    ASSERT_THAT(shownPathsOf(list), ElementsAre(text, project, module));
    EXPECT_NE(list.sources[0].problem, "");
    EXPECT_EQ(list.sources[0].note, "");
    EXPECT_NE(list.sources[1].note, "");
    EXPECT_EQ(list.sources[1].problem, "");
    EXPECT_TRUE(list.sources[2].isModule());
    EXPECT_EQ(list.moduleCount(), 1U);
}

TEST(SourceList, CountsEachFileOnce) {
    const TemporaryFolder folder;
    const std::string module = base::textOf(folder.write("m.bas", "x"));
    EXPECT_EQ(listSources({module, module, base::textOf(folder.path()), "-", "-"}, "").moduleCount(), 2U);
}

} // namespace
} // namespace corvelle::cli
