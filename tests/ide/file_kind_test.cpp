#include "base/path_text.h"
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
