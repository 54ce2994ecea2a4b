#include "base/paths.h"
#include "ide/workspace/file_kind.h"

#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using ide::ComponentType;

TEST(FileKind, TellsModulesByTheirEnding) {
    EXPECT_EQ(moduleTypeOfPath("a.bas"), ComponentType::StdModule);
    EXPECT_EQ(moduleTypeOfPath("a.CLS"), ComponentType::ClassModule);
    EXPECT_EQ(moduleTypeOfPath("dir.bas/a.Frm"), ComponentType::VBForm);
    EXPECT_EQ(moduleTypeOfPath("a.ctl"), ComponentType::UserControl);
    EXPECT_EQ(moduleTypeOfPath("a.pag"), ComponentType::PropPage);
    EXPECT_EQ(moduleTypeOfPath("a.dob"), ComponentType::DocObject);
    EXPECT_EQ(moduleTypeOfPath("a.Dsr"), ComponentType::ActiveXDesigner);
    EXPECT_EQ(moduleTypeOfPath(base::pathOf("a\xE4.b.frm")), ComponentType::VBForm);
}

// The IDE's numbers, which its objects are asked with.
TEST(FileKind, HasTheNumberOfItsComponentType) {
    const std::pair<const char*, int> numbers[] = {{"a.bas", 1}, {"a.cls", 2}, {"a.frm", 5}, {"a.pag", 7},
                                                   {"a.ctl", 8}, {"a.dob", 9}, {"a.dsr", 11}};
    for (const auto& [path, number] : numbers)
        EXPECT_EQ(static_cast<int>(*moduleTypeOfPath(path)), number) << path;
}

TEST(FileKind, KnowsWhatIsNoModule) {
    for (const char* path : {"a.frx", "a.bas ", "a.ba", "abas", "bas", "", "a.bas/b", "a.vbp", "a.basx"}) {
        EXPECT_EQ(moduleTypeOfPath(path), std::nullopt) << path;
        EXPECT_FALSE(isModulePath(path)) << path;
    }
    EXPECT_TRUE(isModulePath("a.bAs"));
}

TEST(FileKind, TellsProjectsAndGroups) {
    EXPECT_TRUE(isProjectPath("a.VBP"));
    EXPECT_FALSE(isProjectPath("a.vbg"));
    EXPECT_TRUE(isGroupPath("x/a.vbg"));
    EXPECT_FALSE(isGroupPath("a.vbp"));
}

} // namespace
} // namespace corvelle::workspace
