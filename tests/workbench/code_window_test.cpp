#include "base/temporary_folder.h"
#include "ide/workspace/workspace.h"
#include "workbench/code_window.h"

#include <gtest/gtest.h>

namespace corvelle::workbench::tests {

namespace {

const std::string header = "Attribute VB_Name = \"Module1\"\r\n";

struct Module {
    explicit Module(const std::string& code) {
        ide = workspace::Workspace::open(folder.write("Module1.bas", header + code));
        component = ide->projects().front()->components().front().get();
    }
    std::string saved() {
        component->Save();
        return folder.read("Module1.bas").substr(header.size());
    }
    ide::CodeModule& code() { return *component->CodeModule(); }

    corvelle::test::TemporaryFolder folder;
    std::shared_ptr<workspace::Workspace> ide;
    workspace::Component* component;
};

TEST(ModuleText, IsTheLinesWithBreaksBetween) {
    EXPECT_EQ("", textOf(Module("").code()));
    EXPECT_EQ("a", textOf(Module("a\r\n").code()));
    EXPECT_EQ("a\r\n\r\nb", textOf(Module("a\r\n\r\nb\r\n").code()));
}

TEST(ModuleText, ChangesIntoAnyOther) {
    const std::vector<std::string> texts{
        "",           "a",           "b",      "a\r\n",  "\r\n",       "\r\na",    "a\r\nb",
        "b\r\na",     "a\r\nb\r\nc", "a\r\nc", "a\r\na", "a\r\n\r\na", "\r\n\r\n", "a\r\nb\r\na\r\nb",
        "b\r\na\r\nb"};
    for (const auto& before : texts) {
        for (const auto& after : texts) {
            Module module(before + "\r\n");
            const auto held = textOf(module.code());
            changeText(module.code(), held, after);
            EXPECT_EQ(after, textOf(module.code())) << "from " << before;
        }
    }
}

TEST(ModuleText, LeavesHiddenLinesWithTheLinesThatStay) {
    Module module("Sub A()\r\nAttribute A.VB_Description = \"first\"\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\n");
    const auto before = textOf(module.code());
    EXPECT_EQ("Sub A()\r\nEnd Sub\r\nSub B()\r\nEnd Sub", before);
    changeText(module.code(), before, "Sub A()\r\nx = 1\r\nEnd Sub\r\nSub B()\r\nEnd Sub");
    EXPECT_EQ(
        "Sub A()\r\nAttribute A.VB_Description = \"first\"\r\nx = 1\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\n",
        module.saved());
}

TEST(ModuleText, StaysCleanWhereNothingChanges) {
    Module module("a\r\nb\r\n");
    changeText(module.code(), "a\r\nb", "a\r\nb");
    EXPECT_FALSE(module.component->IsDirty());
}

} // namespace

} // namespace corvelle::workbench::tests
