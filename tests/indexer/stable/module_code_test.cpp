#include "indexer/stable/module_code.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::indexer::stable {
namespace {

using testing::Contains;
using testing::ElementsAre;

NumberedControl control(std::string name, std::string className, std::int32_t number,
                        std::optional<std::int32_t> index = {}, std::string library = "VB") {
    NumberedControl numbered;
    numbered.control = std::move(name);
    numbered.index = index;
    numbered.library = std::move(library);
    numbered.className = std::move(className);
    numbered.idhName = number == 1000 ? "IDH_AAAA" : "IDH_" + std::to_string(number);
    numbered.number = number;
    return numbered;
}

NumberedDesigner designer(std::string name, std::vector<NumberedControl> controls,
                          ide::ComponentType type = ide::ComponentType::VBForm) {
    return {std::move(name), {}, type, std::move(controls)};
}

std::string moduleOf(const ModuleCode& code) {
    std::string module = "Attribute VB_Name = \"modHelp\"\r\n";
    for (const auto& line : code.lines) module += line + "\r\n";
    return module;
}

TEST(ModuleCode, SetsWhatHasAHelpContextID) {
    auto hidden = control("dlg", "CommonDialog", 1005, {}, "MSComDlg");
    auto unseen = control("own", "Reader", 1006, {}, "Lib");
    unseen.hasWidth = false;
    const auto code =
        mappingCode({designer("frmA", {control("", "Form", 1001), control("cmd", "CommandButton", 1002, 0),
                                       control("lbl", "Label", 1003), control("txt", "TextBox", 1000), hidden,
                                       unseen, control("grd", "Grid", 1007, {}, "Lib")}),
                     designer("ctl", {control("txt", "TextBox", 1004)}, ide::ComponentType::UserControl)},
                    true, true);
    EXPECT_THAT(code.lines,
                ElementsAre("Public Const IDH_AAAA = 1000", "Public Const IDH_1001 = 1001",
                            "Public Const IDH_1002 = 1002", "Public Const IDH_1003 = 1003",
                            "Public Const IDH_1005 = 1005", "Public Const IDH_1006 = 1006",
                            "Public Const IDH_1007 = 1007", "Public Const IDH_1004 = 1004",
                            "Public Sub Load_HelpID_frmA(ByVal target As frmA)", "\tWith target",
                            "\t\t.HelpContextID = IDH_1001", "\t\t.cmd(0).HelpContextID = IDH_1002",
                            "\t\t.txt.HelpContextID = IDH_AAAA", "\t\t.grd.HelpContextID = IDH_1007",
                            "\tEnd With", "End Sub"));
    EXPECT_THAT(code.notReached, ElementsAre("ctl"));
    EXPECT_EQ(code.identifiers, 9U);
    EXPECT_TRUE(isMappingCodeOfOurs(moduleOf(code), "MODHELP"));
}

TEST(ModuleCode, DividesLongProcedures) {
    std::vector<NumberedControl> controls;
    for (int i = 0; i < 5000; ++i)
        controls.push_back(control("txtField" + std::to_string(i), "TextBox", 1001 + i));
    const auto code = mappingCode({designer("frmA", controls), designer("frmA_2", {})}, false, true);
    const auto module = moduleOf(code);
    EXPECT_EQ(longProcedure(module), "");
    EXPECT_THAT(code.lines, Contains("\tLoad_HelpID_frmA_3 target")); // frmA_2 is another form's
    EXPECT_THAT(code.lines, Contains("Private Sub Load_HelpID_frmA_3(ByVal target As frmA)"));
    EXPECT_EQ(std::count_if(code.lines.begin(), code.lines.end(),
                            [](const std::string& line) { return line.find(" = ") != std::string::npos; }),
              5000);
    EXPECT_TRUE(isMappingCodeOfOurs(module, "modHelp"));
    std::string one = "Public Sub Long()\r\n";
    while (one.size() <= largestProcedure) one += "\t\t.a.HelpContextID = IDH_AAAB\r\n";
    EXPECT_EQ(longProcedure(one + "End Sub\r\n"), "Long");
}

TEST(ModuleCode, IsNoneOfOursWithAnyOtherLine) {
    const std::string head = "Attribute VB_Name = \"modHelp\"\r\n";
    for (const auto* line :
         {"Public Sub Main()", "Kill \"a\"", "Public Const X = 1", "\t\t.a.Caption = IDH_AAAB",
          "Load_HelpID_frmA", "' a comment", "With a: Kill b"})
        EXPECT_FALSE(isMappingCodeOfOurs(head + line + "\r\n", "modHelp")) << line;
    EXPECT_FALSE(isMappingCodeOfOurs(head, "modOther"));
    EXPECT_TRUE(isMappingCodeOfOurs("", "modHelp"));
    EXPECT_TRUE(isMappingCodeOfOurs(head + "Option Explicit\r\n\r\n", "modHelp"));
}

} // namespace
} // namespace corvelle::indexer::stable
