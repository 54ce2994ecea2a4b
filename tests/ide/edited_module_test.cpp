#include "ide/workspace/edited_module.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using ide::ComponentType;

EditedModule module(const std::string& bytes) {
    return EditedModule(ModuleFile(bytes, ComponentType::StdModule));
}

// Deletes every line and inserts the given ones.
std::string refilled(const std::string& bytes, const std::vector<std::string_view>& lines) {
    auto edited = module(bytes);
    edited.deleteLines(0, edited.lineCount());
    for (const auto line : lines) edited.insertLine(edited.lineCount(), line);
    return edited.bytes();
}

const std::string head = "Attribute VB_Name = \"M\"\r\n";

TEST(EditedModule, GivesAnUntouchedFileBack) {
    const std::string bytes = head + "a\n\rb\r\nAttribute x.VB_Y = 1\nc";
    auto untouched = module(bytes);
    EXPECT_EQ(untouched.bytes(), bytes);
    EXPECT_FALSE(untouched.isEdited());
    untouched.deleteLines(1, 0);
    EXPECT_FALSE(untouched.isEdited());
}

TEST(EditedModule, KeepsEveryByteOfUntouchedLines) {
    auto edited = module(head + "a\nb\r\nc\rd\ne");
    edited.deleteLines(1, 1);
    edited.insertLine(1, "B");
    EXPECT_EQ(edited.bytes(), head + "a\nB\r\nc\rd\ne");
    EXPECT_EQ(edited.line(1), "B");
    EXPECT_EQ(edited.lineCount(), 4U);
}

TEST(EditedModule, EndsNewLinesAsTheFileDoes) {
    EXPECT_EQ(refilled("a\nb\n", {"x", "y"}), "x\ny\n");
    EXPECT_EQ(refilled("a\nb\r\n", {"x", "y"}), "x\r\ny\r\n");
    EXPECT_EQ(refilled("a\nb", {"x", "y"}), "x\ny\n");
    EXPECT_EQ(refilled("", {"x"}), "x\r\n");
    EXPECT_EQ(refilled("a", {"x"}), "x\r\n");
}

TEST(EditedModule, EndsALineThatGetsAnotherBehindIt) {
    auto code = module("a\nb");
    code.insertLine(2, "c");
    EXPECT_EQ(code.bytes(), "a\nb\nc\n");
    auto header = module("Attribute VB_Name = \"M\"");
    header.insertLine(0, "a");
    EXPECT_EQ(header.bytes(), "Attribute VB_Name = \"M\"\r\na\r\n");
    auto mark = module("\xEF\xBB\xBF");
    mark.insertLine(0, "a");
    EXPECT_EQ(mark.bytes(), "\xEF\xBB\xBF"
                            "a\r\n");
    auto hidden = module("Dim a\nAttribute a.VB_X = 1");
    hidden.insertLine(1, "b");
    EXPECT_EQ(hidden.bytes(), "Dim a\nAttribute a.VB_X = 1\nb\n");
}

TEST(EditedModule, MayLoseEveryLine) {
    EXPECT_EQ(refilled(head + "a\r\nb\r\n", {}), head);
    EXPECT_EQ(refilled("a", {}), "");
}

TEST(EditedModule, KeepsHiddenLinesBehindLinesThatStay) {
    auto edited = module("Sub A()\r\nAttribute A.VB_X = 1\nx\r\nEnd Sub\r\nDim y\r\n");
    edited.deleteLines(1, 1);
    edited.insertLine(0, "' new");
    EXPECT_EQ(edited.bytes(), "' new\r\nSub A()\r\nAttribute A.VB_X = 1\nEnd Sub\r\nDim y\r\n");
}

TEST(EditedModule, PutsHiddenLinesBehindTheirMembersAgain) {
    const std::string bytes = head + "Option Explicit\r\n"
                                     "Private WithEvents t As Timer\r\n"
                                     "Attribute t.VB_VarHelpID = -1\r\n"
                                     "\r\n"
                                     "Public Function F( _\r\n"
                                     "    x, _\r\n"
                                     "    y)\r\n"
                                     "Attribute F.VB_Description = \"f\"\r\n"
                                     "Attribute f.VB_HelpID = 12\r\n"
                                     "End Function\r\n"
                                     "Public Sub S()\r\n"
                                     "Attribute S.VB_UserMemId = 0\n"
                                     "End Sub\r\n";
    EXPECT_EQ(refilled(bytes, {"Option Explicit", "Private WithEvents t As Timer", "Public Function F( _",
                               "  x, _", "  y)", "End Function", "Public Sub S()", "End Sub"}),
              head + "Option Explicit\r\n"
                     "Private WithEvents t As Timer\r\n"
                     "Attribute t.VB_VarHelpID = -1\r\n"
                     "Public Function F( _\r\n"
                     "  x, _\r\n"
                     "  y)\r\n"
                     "Attribute F.VB_Description = \"f\"\r\n"
                     "Attribute f.VB_HelpID = 12\r\n"
                     "End Function\r\n"
                     "Public Sub S()\r\n"
                     "Attribute S.VB_UserMemId = 0\n"
                     "End Sub\r\n");
}

TEST(EditedModule, PutsHiddenLinesBehindEventsVariablesAndConstantsAgain) {
    const std::string bytes = "Public Event Done( _\r\n  x)\r\nAttribute Done.VB_HelpID = 7\r\n"
                              "Public Total As Long\r\nAttribute Total.VB_VarDescription = \"t\"\r\n"
                              "Public Const Most = 9\r\nAttribute Most.VB_VarDescription = \"m\"\r\n";
    EXPECT_EQ(
        refilled(bytes, {"Public Event Done( _", "  x)", "Public Total As Long", "Public Const Most = 9"}),
        bytes);
}

TEST(EditedModule, FollowsMembersThatChangePlaces) {
    EXPECT_EQ(refilled("Sub A()\nAttribute A.VB_X = 1\nEnd Sub\nSub B()\nAttribute B.VB_X = 2\nEnd Sub\n",
                       {"Sub b()", "End Sub", "Sub a()", "End Sub"}),
              "Sub b()\nAttribute B.VB_X = 2\nEnd Sub\nSub a()\nAttribute A.VB_X = 1\nEnd Sub\n");
}

TEST(EditedModule, FollowsNeighboursThatChangePlaces) {
    EXPECT_EQ(refilled("Dim A\nAttribute A.VB_X = 1\nDim B\nAttribute B.VB_X = 2\n", {"Dim B", "Dim A"}),
              "Dim B\nAttribute B.VB_X = 2\nDim A\nAttribute A.VB_X = 1\n");
}

TEST(EditedModule, LeavesAMembersHiddenLinesThatStandElsewhereWhereTheyAre) {
    auto edited = module("Sub A()\nx\nAttribute A.VB_X = 1\nEnd Sub\n");
    edited.insertLine(0, "' new");
    EXPECT_EQ(edited.bytes(), "' new\nSub A()\nx\nAttribute A.VB_X = 1\nEnd Sub\n");
}

TEST(EditedModule, FollowsAMemberAwayFromALineThatIsNowAnothers) {
    auto edited = module("Sub A( _\n)\nAttribute A.VB_X = 1\nEnd Sub\n");
    edited.deleteLines(0, 1);
    edited.insertLine(0, "Sub B( _");
    edited.insertLine(3, "Sub A()");
    edited.insertLine(4, "End Sub");
    EXPECT_EQ(edited.bytes(), "Sub B( _\n)\nEnd Sub\nSub A()\nAttribute A.VB_X = 1\nEnd Sub\n");
}

TEST(EditedModule, TellsTheMemberByTheFirstPartOfTheName) {
    EXPECT_EQ(refilled("Sub A()\nAttribute A.VB_ProcData.VB_Invoke_Func = \" \\n14\"\nEnd Sub\n",
                       {"", "Sub A()", "End Sub"}),
              "\nSub A()\nAttribute A.VB_ProcData.VB_Invoke_Func = \" \\n14\"\nEnd Sub\n");
}

TEST(EditedModule, KeepsTheHiddenLinesOfAMemberInTheirOrder) {
    std::string attributes;
    for (int i = 0; i < 100; ++i) attributes += "Attribute A.VB_X = " + std::to_string(i) + "\n";
    EXPECT_EQ(refilled("Sub A()\n" + attributes + "End Sub\n", {"Sub A()", "End Sub"}),
              "Sub A()\n" + attributes + "End Sub\n");
}

TEST(EditedModule, DropsHiddenLinesWithTheirMember) {
    EXPECT_EQ(refilled("Sub A()\nAttribute A.VB_X = 1\nEnd Sub\n", {"Sub B()", "End Sub"}),
              "Sub B()\nEnd Sub\n");
    auto edited = module("Sub A( _\n)\nAttribute A.VB_X = 1\nEnd Sub\nDim c\n");
    edited.deleteLines(0, 1);
    edited.insertLine(0, "Sub B( _");
    EXPECT_EQ(edited.bytes(), "Sub B( _\n)\nEnd Sub\nDim c\n");
}

TEST(EditedModule, GivesAPropertysHiddenLinesToItsFirstAccessor) {
    const std::string bytes =
        "Property Get P()\nAttribute P.VB_X = 1\nEnd Property\nProperty Let P(x)\nEnd Property\n";
    EXPECT_EQ(refilled(bytes, {"Property Let P(x)", "End Property", "Property Get P()", "End Property"}),
              "Property Let P(x)\nAttribute P.VB_X = 1\nEnd Property\nProperty Get P()\nEnd Property\n");
    EXPECT_EQ(refilled(bytes, {"Property Let P(x)", "End Property"}),
              "Property Let P(x)\nAttribute P.VB_X = 1\nEnd Property\n");
}

TEST(EditedModule, KeepsHiddenLinesOfSeveralDeclarationsApart) {
    const std::string bytes =
        "#If X Then\nSub A(x)\nAttribute A.VB_X = 1\n#Else\nSub A()\nAttribute A.VB_X = 2\n"
        "#End If\nEnd Sub\n";
    EXPECT_EQ(
        refilled(bytes, {"#If X Then", "  Sub A(x)", "#Else", "  Sub A()", "#End If", "End Sub"}),
        "#If X Then\n  Sub A(x)\nAttribute A.VB_X = 1\n#Else\n  Sub A()\nAttribute A.VB_X = 2\n#End If\n"
        "End Sub\n");
}

TEST(EditedModule, KeepsHiddenLinesThatNameNoMemberWhereTheyWere) {
    const std::string bytes = "a\nb\nAttribute VB_X = 1\nc\nAttribute z.VB_Y = 1\n";
    EXPECT_EQ(refilled(bytes, {"A", "B", "C"}), "A\nB\nAttribute VB_X = 1\nC\nAttribute z.VB_Y = 1\n");
    EXPECT_EQ(refilled(bytes, {"A"}), "A\nAttribute VB_X = 1\nAttribute z.VB_Y = 1\n");
    EXPECT_EQ(refilled(bytes, {}), "Attribute VB_X = 1\nAttribute z.VB_Y = 1\n");
    auto edited = module(bytes + "d\n");
    edited.deleteLines(1, 1);
    EXPECT_EQ(edited.bytes(), "a\nAttribute VB_X = 1\nc\nAttribute z.VB_Y = 1\nd\n");
}

TEST(EditedModule, TakesLargeModulesInStride) {
    std::string bytes;
    for (int i = 0; i < 60000; ++i) bytes += "Dim a" + std::to_string(i) + "\nAttribute b.VB_X = 1\n";
    auto edited = module(bytes);
    edited.deleteLines(0, edited.lineCount());
    for (int i = 0; i < 60000; ++i) edited.insertLine(edited.lineCount(), "Dim a" + std::to_string(i));
    EXPECT_EQ(edited.bytes(), bytes);
}

} // namespace
} // namespace corvelle::workspace
