#include "ide/put_together.h"
#include "ide/workspace/module_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {
namespace {

using ide::ComponentType;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> codeOf(const ModuleFile& file) {
    std::vector<std::string> lines;
    for (std::uint32_t i = 0; i < file.codeLineCount(); ++i) lines.emplace_back(file.codeLine(i));
    return lines;
}

std::vector<std::string> codeOf(const std::string& bytes, ComponentType type) {
    const ModuleFile file(bytes, type);
    EXPECT_EQ(test::putTogether(file), bytes);
    return codeOf(file);
}

std::vector<std::string> standardCode(const std::string& bytes) {
    return codeOf(bytes, ComponentType::StdModule);
}

const std::string form = "VERSION 5.00\r\n"
                         "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\r\n"
                         "Begin VB.Form frmMain \r\n"
                         "   Caption         =   \"End\"\r\n"
                         "   BeginProperty Font \r\n"
                         "      Name            =   \"Tahoma\"\r\n"
                         "   EndProperty\r\n"
                         "   Begin VB.CommandButton cmdOK \r\n"
                         "      Index           =   0\r\n"
                         "   End\r\n"
                         "End\r\n"
                         "Attribute VB_Name = \"frmMain\"\r\n"
                         "Attribute VB_GlobalNameSpace = False\r\n"
                         "Attribute VB_Ext_KEY = \"a\" ,\"b\"\r\n"
                         "Option Explicit\r\n"
                         "\r\n"
                         "Private Sub Form_Load()\r\n"
                         "End Sub\r\n";

TEST(ModuleFile, ShowsTheCodeOfAForm) {
    const ModuleFile file(form, ComponentType::VBForm);
    EXPECT_THAT(codeOf(file), ElementsAre("Option Explicit", "", "Private Sub Form_Load()", "End Sub"));
    EXPECT_EQ(file.type(), ComponentType::VBForm);
    EXPECT_EQ(file.name(), "frmMain");
    EXPECT_EQ(file.headerLines(), 14U);
    EXPECT_EQ(file.fileLine(0), 15U);
    EXPECT_EQ(file.fileLine(3), 18U);
    EXPECT_EQ(file.newLine(), "\r\n");
    EXPECT_EQ(file.bytes(), form);
    EXPECT_EQ(test::putTogether(file), form);
}

TEST(ModuleFile, ShowsTheCodeOfAClass) {
    const std::string bytes = "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
                              "Attribute VB_Name = \"Account\"\r\nOption Explicit\r\n";
    EXPECT_THAT(codeOf(bytes, ComponentType::ClassModule), ElementsAre("Option Explicit"));
    EXPECT_EQ(ModuleFile(bytes, ComponentType::ClassModule).name(), "Account");
}

TEST(ModuleFile, ShowsTheCodeOfADesignerWithAClassId) {
    const std::string bytes = "VERSION 5.00\r\nBegin {17016CEE-E118-11D0-94B8-00A0C91110ED} WebClass1 \r\n"
                              "   ClientHeight = 1\r\nEnd\r\nOption Explicit\r\n";
    EXPECT_THAT(codeOf(bytes, ComponentType::ActiveXDesigner), ElementsAre("Option Explicit"));
    EXPECT_EQ(ModuleFile(bytes, ComponentType::ActiveXDesigner).name(), "WebClass1");
}

TEST(ModuleFile, ShowsTheCodeOfAStandardModule) {
    const std::string bytes = "Attribute VB_Name = \"Module1\"\r\nSub Main()\r\nEnd Sub\r\n";
    EXPECT_THAT(standardCode(bytes), ElementsAre("Sub Main()", "End Sub"));
    const ModuleFile file(bytes, ComponentType::StdModule);
    EXPECT_EQ(file.name(), "Module1");
    EXPECT_EQ(file.type(), ComponentType::StdModule);
    EXPECT_EQ(file.fileLine(0), 2U);
}

TEST(ModuleFile, MakesAFormWithAnMdiFormInsideAnMdiForm) {
    const ModuleFile file("VERSION 5.00\r\nBegin vb.mdiform Main\r\nEnd\r\n", ComponentType::VBForm);
    EXPECT_EQ(file.type(), ComponentType::VBMDIForm);
    EXPECT_EQ(static_cast<int>(file.type()), 6); // the IDE's
    const ModuleFile nested("VERSION 5.00\r\nBegin VB.Form Main\r\nBegin VB.MDIForm x\r\nEnd\r\nEnd\r\n",
                            ComponentType::VBForm);
    EXPECT_EQ(nested.type(), ComponentType::VBForm);
}

TEST(ModuleFile, PrefersTheNameAttributeToTheBlockName) {
    const std::string block = "VERSION 5.00\nBegin VB.Form Block\nEnd\n";
    EXPECT_EQ(ModuleFile(block, ComponentType::VBForm).name(), "Block");
    EXPECT_FALSE(ModuleFile(block, ComponentType::VBForm).hasNameAttribute());
    const ModuleFile file(block + "attribute\tvb_NAME=\"Attr\"\n", ComponentType::VBForm);
    EXPECT_EQ(file.name(), "Attr");
    EXPECT_TRUE(file.hasNameAttribute());
}

TEST(ModuleFile, ReadsDoubledQuotesInTheName) {
    const auto name = [](const std::string& value) {
        return ModuleFile("Attribute VB_Name = " + value + "\n", ComponentType::StdModule).name();
    };
    EXPECT_EQ(name("\"a\"\"b\""), "a\"b");
    EXPECT_EQ(name("\"a\" ' comment \"b\""), "a");
    EXPECT_EQ(name("\"open"), "open");
    EXPECT_EQ(name("unquoted"), "");
    EXPECT_EQ(name("\"\""), "");
    EXPECT_EQ(name("\"\"\"\""), "\"");
}

TEST(ModuleFile, IsEmptyForAnEmptyFile) {
    const ModuleFile file("", ComponentType::StdModule);
    EXPECT_EQ(file.codeLineCount(), 0U);
    EXPECT_EQ(file.headerLines(), 0U);
    EXPECT_EQ(file.newLine(), "\r\n");
    EXPECT_EQ(file.name(), "");
    EXPECT_THAT(codeOf("", ComponentType::VBForm), IsEmpty());
}

TEST(ModuleFile, MayConsistOfAHeaderAlone) {
    const std::string header = form.substr(0, form.find("Option"));
    const ModuleFile file(header, ComponentType::VBForm);
    EXPECT_EQ(file.codeLineCount(), 0U);
    EXPECT_EQ(file.header(), header);
    EXPECT_THAT(standardCode("Attribute VB_Name = \"x\""), IsEmpty());
}

TEST(ModuleFile, CountsALineAfterTheLastLineEnd) {
    EXPECT_THAT(standardCode("a\r\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(standardCode("a\r\n"), ElementsAre("a"));
    EXPECT_THAT(standardCode("\n"), ElementsAre(""));
    EXPECT_THAT(standardCode("\n\n"), ElementsAre("", ""));
}

TEST(ModuleFile, GivesEachLineItsOwnEnd) {
    const ModuleFile file("a\r\nb\nc\r", ComponentType::StdModule);
    EXPECT_EQ(file.codeLineEnd(0), "\r\n");
    EXPECT_EQ(file.codeLineEnd(1), "\n");
    EXPECT_EQ(file.codeLineEnd(2), "");
    EXPECT_EQ(file.codeLine(2), "c\r");
}

TEST(ModuleFile, TakesALoneCarriageReturnForACharacter) {
    EXPECT_THAT(standardCode("a\rb\r\r\n\rc\n"), ElementsAre("a\rb\r", "\rc"));
    EXPECT_THAT(standardCode("\r\n\r"), ElementsAre("", "\r"));
}

TEST(ModuleFile, TakesNulsForCharacters) {
    EXPECT_THAT(standardCode("a\0b\r\n\0\0"s), ElementsAre("a\0b"s, "\0\0"s));
    EXPECT_THAT(standardCode("Attribute\0VB_Name = 1\n"s), ElementsAre("Attribute\0VB_Name = 1"s));
}

TEST(ModuleFile, PassesBytesOfAnyCodePage) {
    std::string bytes;
    for (int c = 128; c < 256; ++c) bytes += static_cast<char>(c);
    EXPECT_THAT(standardCode(bytes + "\r\n"), ElementsAre(bytes));
}

TEST(ModuleFile, KeepsAByteOrderMarkOutOfTheFirstLine) {
    const ModuleFile file("\xEF\xBB\xBFSub A()\n", ComponentType::StdModule);
    EXPECT_EQ(file.header(), "\xEF\xBB\xBF");
    EXPECT_EQ(file.headerLines(), 0U);
    EXPECT_EQ(file.codeLine(0), "Sub A()");
    EXPECT_THAT(standardCode("\xEF\xBB\xBF"), IsEmpty());
    EXPECT_THAT(standardCode("\xEF\xBB\xBF"
                             "Attribute VB_Name = \"x\"\na\n"),
                ElementsAre("a"));
    EXPECT_THAT(codeOf("\xEF\xBB\xBF" + form, ComponentType::VBForm).size(), 4U);
    EXPECT_THAT(standardCode("a\n\xEF\xBB\xBF"
                             "b\n"),
                ElementsAre("a", "\xEF\xBB\xBF"
                                 "b"));
}

TEST(ModuleFile, WritesLineFeedsOnlyWhereEveryLineEndsInOne) {
    const auto newLine = [](const std::string& bytes, ComponentType type = ComponentType::StdModule) {
        return std::string(ModuleFile(bytes, type).newLine());
    };
    EXPECT_EQ(newLine("a\nb\n"), "\n");
    EXPECT_EQ(newLine("a\nb"), "\n");
    EXPECT_EQ(newLine("a"), "\r\n");
    EXPECT_EQ(newLine("a\r"), "\r\n");
    EXPECT_EQ(newLine("a\nb\r\nc\n"), "\r\n");
    EXPECT_EQ(newLine("Attribute VB_Name = \"x\"\n"), "\n");
    EXPECT_EQ(newLine("Attribute VB_Name = \"x\"\r\na\n"), "\r\n");
    EXPECT_EQ(newLine("a\nAttribute a.VB_HelpID = 1\r\nb\n"), "\r\n");
    EXPECT_EQ(newLine("VERSION 5.00\r\nBegin VB.Form f\nEnd\nx\n", ComponentType::VBForm), "\r\n");
}

TEST(ModuleFile, HidesMemberAttributesInsideTheCode) {
    const std::string bytes = "Attribute VB_Name = \"M\"\r\n"
                              "Public Sub A()\r\n"
                              "Attribute A.VB_Description = \"x\"\r\n"
                              "  attribute a.vb_helpid=12\n"
                              "End Sub\r\n"
                              "Private WithEvents b As C\r\n"
                              "Attribute b.VB_VarHelpID = -1";
    const ModuleFile file(bytes, ComponentType::StdModule);
    EXPECT_THAT(codeOf(file), ElementsAre("Public Sub A()", "End Sub", "Private WithEvents b As C"));
    ASSERT_EQ(file.hiddenRuns().size(), 2U);
    EXPECT_EQ(file.hiddenRuns()[0].codeLinesBefore, 1U);
    EXPECT_EQ(file.hiddenRuns()[0].lines, 2U);
    EXPECT_EQ(file.hidden(file.hiddenRuns()[0]),
              "Attribute A.VB_Description = \"x\"\r\n  attribute a.vb_helpid=12\n");
    EXPECT_EQ(file.hiddenRuns()[1].codeLinesBefore, 3U);
    EXPECT_EQ(file.hidden(file.hiddenRuns()[1]), "Attribute b.VB_VarHelpID = -1");
    EXPECT_EQ(file.fileLine(0), 2U);
    EXPECT_EQ(file.fileLine(1), 5U);
    EXPECT_EQ(file.fileLine(2), 6U);
    EXPECT_EQ(test::putTogether(file), bytes);
}

TEST(ModuleFile, HidesLinesThatBeginLikeAnAttribute) {
    for (const char* line :
         {"Attribute A.VB_Description = \"x\"", "ATTRIBUTE\ta.vb_x\t=", " \t Attribute A.VB_X=1",
          "Attribute [_NewEnum].VB_UserMemId = -4", "Attribute A.VB_ProcData.VB_Invoke_Func = \" \\n14\"",
          "Attribute [a b].VB_X = 1", "Attribute VB_X = 1", "Attribute \xE4rger.VB_HelpID = 1",
          "Attribute A.[VB_X] = 1", "Attribute A_1.VB_ = 1"}) {
        EXPECT_THAT(standardCode("x\n"s + line + "\n"), ElementsAre("x")) << line;
        EXPECT_THAT(standardCode(std::string(line)), IsEmpty()) << line;
    }
}

TEST(ModuleFile, ShowsLinesThatOnlyLookLikeAnAttribute) {
    for (const char* line :
         {"Attribute", "Attribute ", "AttributeVB_Name = 1", "Attribute A.B = 1", "Attribute VB_Name",
          "Attribute A.VB_X", "Attribute A.VB_X 1", "Attribute A.VB_X.y = 1", "Attribute VBX = 1",
          "Attribute .VB_X = 1", "Attribute A..VB_X = 1", "Attribute A. VB_X = 1", "'Attribute A.VB_X = 1",
          "x = 1: Attribute A.VB_X = 1", "Attribute = 1", "Attribute [A.VB_X = 1", "Attribute A$.VB_X = 1",
          "Attributes A.VB_X = 1"}) {
        EXPECT_THAT(standardCode("x\n"s + line + "\n"), ElementsAre("x", line)) << line;
    }
}

TEST(ModuleFile, EndsTheHeadAtTheFirstLineThatIsShown) {
    const ModuleFile file("Attribute VB_Name = \"x\"\r\n\r\nAttribute VB_HelpID = 1\r\n",
                          ComponentType::StdModule);
    EXPECT_EQ(file.headerLines(), 1U);
    EXPECT_THAT(codeOf(file), ElementsAre(""));
    EXPECT_EQ(file.hiddenRuns().size(), 1U);
}

TEST(ModuleFile, KeepsBlankLinesInsideTheHeader) {
    EXPECT_THAT(
        codeOf(
            "VERSION 5.00\r\n\r\nObject = \"a\"\r\n \t\r\nObject=\"b\"\r\n\r\nBegin VB.Form f\r\n\r\nEnd\r\nx\r\n",
            ComponentType::VBForm),
        ElementsAre("x"));
    // Without a block behind them they are code.
    EXPECT_THAT(codeOf("VERSION 5.00\r\n\r\nx\r\n", ComponentType::ClassModule), ElementsAre("", "x"));
    EXPECT_THAT(codeOf("VERSION 5.00\r\nBegin VB.Form f\r\nEnd\r\n\r\nx\r\n", ComponentType::VBForm),
                ElementsAre("", "x"));
}

TEST(ModuleFile, AllowsAHeaderWithoutAVersion) {
    EXPECT_THAT(codeOf("Begin VB.Form f\r\nEnd\r\nx\r\n", ComponentType::VBForm), ElementsAre("x"));
    EXPECT_THAT(codeOf("Object = \"a\"\r\nBegin VB.Form f\r\nEnd\r\nx\r\n", ComponentType::VBForm),
                ElementsAre("x"));
    EXPECT_THAT(codeOf("Object = \"a\"\r\n\r\nBegin VB.Form f\r\nEnd\r\nx\r\n", ComponentType::VBForm),
                ElementsAre("x"));
    EXPECT_THAT(codeOf("Attribute VB_Name = \"C\"\r\nx\r\n", ComponentType::ClassModule), ElementsAre("x"));
    EXPECT_THAT(codeOf("x\r\nBegin\r\nEnd\r\n", ComponentType::ClassModule),
                ElementsAre("x", "Begin", "End"));
    EXPECT_THAT(codeOf("\r\nBegin\r\nEnd\r\n", ComponentType::ClassModule), ElementsAre("", "Begin", "End"));
}

TEST(ModuleFile, HidesObjectLinesWithoutADesigner) {
    EXPECT_THAT(codeOf("VERSION 5.00\r\nObject = \"a\"\r\nObject = \"b\"\r\nx\r\n", ComponentType::VBForm),
                ElementsAre("x"));
}

TEST(ModuleFile, SeesADesignerInAStandardModuleOnlyBehindAVersion) {
    EXPECT_THAT(standardCode("Begin VB.Form f\nEnd\n"), ElementsAre("Begin VB.Form f", "End"));
    EXPECT_THAT(standardCode("VERSION x\n"), ElementsAre("VERSION x"));
    EXPECT_THAT(standardCode("VERSION5\n"), ElementsAre("VERSION5"));
    EXPECT_THAT(standardCode("VERSION\n"), ElementsAre("VERSION"));
    EXPECT_THAT(standardCode("version\t1.0 CLASS\nBEGIN\nEND\nAttribute VB_Name = \"x\"\na\n"),
                ElementsAre("a"));
    EXPECT_THAT(standardCode("a\nVERSION 1.0\n"), ElementsAre("a", "VERSION 1.0"));
}

TEST(ModuleFile, TakesBlocksInAnyCaseAndIndentation) {
    EXPECT_THAT(codeOf("version 5.00\n\t BEGIN vb.form f\t\n\tbegin VB.Label l\nend \t\n END\t\nx\n",
                       ComponentType::VBForm),
                ElementsAre("x"));
}

TEST(ModuleFile, TakesPropertiesCalledBeginOrEndForProperties) {
    EXPECT_THAT(codeOf("VERSION 5.00\nBegin VB.Form f\n Begin = 1\n Begin   =2\n End = 3\n End=4\n Begin=5\n"
                       " Ending\n Beginning\n End Sub\n BeginProperty Font\n EndProperty\nEnd\nx\n",
                       ComponentType::VBForm),
                ElementsAre("x"));
}

TEST(ModuleFile, PassesOverValuesOfEveryForm) {
    const std::string bytes = "VERSION 5.00\r\n"
                              "Begin VB.Form f \r\n"
                              "   BackColor       =   &H80000005&\r\n"
                              "   BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851} \r\n"
                              "      BeginProperty Inner \r\n"
                              "         Weight          =   400\r\n"
                              "      EndProperty\r\n"
                              "   EndProperty\r\n"
                              "   ControlBox      =   0   'False\r\n"
                              "   Icon            =   \"f.frx\":0000\r\n"
                              "   Tag             =   $\"f.frx\":044A\r\n"
                              "   ToolTipText     =   \"say \"\"End\"\"\"\r\n"
                              "   Begin VB.Menu mnuNew \r\n"
                              "      Shortcut        =   ^N\r\n"
                              "   End\r\n"
                              "End\r\n"
                              "Attribute VB_Name = \"f\"\r\n"
                              "Attribute VB_HelpID = 12\r\n"
                              "x\r\n";
    EXPECT_THAT(codeOf(bytes, ComponentType::VBForm), ElementsAre("x"));
    EXPECT_EQ(ModuleFile(bytes, ComponentType::VBForm).controlCount(), 1U);
}

TEST(ModuleFile, TakesOneOutermostBlockOnly) {
    EXPECT_THAT(codeOf("VERSION 5.00\nBegin A a\nEnd\nBegin B b\nEnd\n", ComponentType::VBForm),
                ElementsAre("Begin B b", "End"));
}

TEST(ModuleFile, RefusesAHeaderThatNeverEnds) {
    const auto lineOf = [](const std::string& bytes, ComponentType type) {
        try {
            const ModuleFile file(bytes, type);
        } catch (const HeaderNeverEnds& error) {
            return error.line();
        }
        return std::uint32_t{0};
    };
    EXPECT_EQ(lineOf("VERSION 5.00\r\nBegin VB.Form f\r\n", ComponentType::VBForm), 2U);
    EXPECT_EQ(lineOf("VERSION 5.00\r\n\r\nBegin VB.Form f\r\nBegin x\r\nEnd\r\n", ComponentType::VBForm), 3U);
    EXPECT_EQ(lineOf("VERSION 1.0 CLASS\r\nBEGIN\r\nEND IF\r\n", ComponentType::ClassModule), 2U);
    EXPECT_EQ(lineOf("VERSION 1.0 CLASS\r\nBEGIN\r\nEND", ComponentType::ClassModule), 0U);
    EXPECT_EQ(lineOf("\xEF\xBB\xBF"
                     "Begin",
                     ComponentType::UserControl),
              1U);
    EXPECT_EQ(lineOf("Begin", ComponentType::StdModule), 0U);
}

TEST(ModuleFile, NumbersTheLinesOfAFileWithManyHiddenRuns) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i) bytes += "x\nAttribute x.VB_A = 1\nAttribute x.VB_B = 1\n";
    const ModuleFile file(bytes, ComponentType::StdModule);
    ASSERT_EQ(file.codeLineCount(), 1000U);
    for (std::uint32_t i = 0; i < 1000; ++i) ASSERT_EQ(file.fileLine(i), 3 * i + 1);
}

TEST(ModuleFile, StaysWholeWhenItMoves) {
    ModuleFile file("a\nb\n", ComponentType::StdModule); // short enough to stand inside the string
    const ModuleFile moved = std::move(file);
    EXPECT_THAT(codeOf(moved), ElementsAre("a", "b"));
    EXPECT_EQ(moved.newLine(), "\n");
}

} // namespace
} // namespace corvelle::workspace
