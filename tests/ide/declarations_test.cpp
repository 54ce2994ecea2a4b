#include "ide/workspace/declarations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Declarations read(const std::vector<std::string_view>& lines) {
    Declarations declarations;
    for (const auto line : lines) declarations.read(line);
    return declarations;
}

bool declares(std::string_view line, std::string_view name) {
    return read({line}).endsOf(name) == std::vector<std::uint32_t>{0};
}

TEST(Declarations, FindsProcedures) {
    EXPECT_TRUE(declares("Sub A()", "A"));
    EXPECT_TRUE(declares("  public SUB A()", "a"));
    EXPECT_TRUE(declares("Private Static Function A$(x)", "A"));
    EXPECT_TRUE(declares("Friend Property Get A() As Long", "A"));
    EXPECT_TRUE(declares("Property Let A(x)", "A"));
    EXPECT_TRUE(declares("Public Property Set A(x)", "A"));
    EXPECT_TRUE(declares("Function [_NewEnum]() As IUnknown", "_newenum"));
    EXPECT_TRUE(declares("Sub \xC4rger()", "\xC4rger"));
    EXPECT_TRUE(declares("Sub A(): End Sub", "A"));
}

TEST(Declarations, FindsWhatElseAModuleDeclares) {
    EXPECT_TRUE(declares("Event A(x As Long)", "A"));
    EXPECT_TRUE(declares("Public Event A()", "A"));
    EXPECT_TRUE(declares("Private Declare Sub A Lib \"x\" ()", "A"));
    EXPECT_TRUE(declares("Declare Function A Lib \"x\" () As Long", "A"));
    EXPECT_TRUE(declares("Private Type A", "A"));
    EXPECT_TRUE(declares("Enum A", "A"));
    EXPECT_TRUE(declares("Const A = 1", "A"));
    EXPECT_TRUE(declares("Public Const A As Long = 1", "A"));
    EXPECT_TRUE(declares("Global A", "A"));
    EXPECT_TRUE(declares("Dim A As New Collection", "A"));
    EXPECT_TRUE(declares("Private WithEvents A As B", "A"));
    EXPECT_TRUE(declares("Dim\tA%", "A"));
    EXPECT_FALSE(declares("Option Explicit", "Option"));
    EXPECT_FALSE(declares("DefInt A", "DefInt"));
}

TEST(Declarations, FindsEveryNameOfAList) {
    const auto list = read({"Private A(1 To 2, 3) As Long, WithEvents B As X.Y, [C] , D$"});
    for (const char* name : {"a", "b", "c", "d"}) EXPECT_THAT(list.endsOf(name), ElementsAre(0)) << name;
    EXPECT_THAT(list.endsOf("X"), IsEmpty());
    EXPECT_THAT(list.endsOf("Long"), IsEmpty());
    const auto constants = read({"Const A = \"x, Z = 1\", B = F(1, C), D = 2 ' , E = 3"});
    EXPECT_THAT(constants.endsOf("B"), ElementsAre(0));
    EXPECT_THAT(constants.endsOf("D"), ElementsAre(0));
    for (const char* name : {"Z", "C", "E"}) EXPECT_THAT(constants.endsOf(name), IsEmpty()) << name;
    EXPECT_THAT(read({"Const A = \"\", B = \"x\""}).endsOf("B"), ElementsAre(0));
}

TEST(Declarations, FindsEveryStatementOfALine) {
    const auto line = read({"Dim A: Dim B As String: Const C = \":\": Dim D ' : Dim E"});
    for (const char* name : {"A", "B", "C", "D"}) EXPECT_THAT(line.endsOf(name), ElementsAre(0)) << name;
    EXPECT_THAT(line.endsOf("E"), IsEmpty());
}

TEST(Declarations, EndWithTheirLastContinuation) {
    EXPECT_THAT(read({"Sub A( _", "  x, _\t", "  y)", "End Sub"}).endsOf("A"), ElementsAre(2));
    const auto split = read({"Public _", "Sub _", "A()"});
    EXPECT_THAT(split.endsOf("A"), ElementsAre(2));
    EXPECT_THAT(read({"Private A, _", "B"}).endsOf("A"), ElementsAre(1));
    EXPECT_THAT(read({"Sub A_", "End Sub"}).endsOf("A_"), ElementsAre(0));
}

TEST(Declarations, AreNotFoundInComments) {
    EXPECT_THAT(read({"' x _", "Sub A()"}).endsOf("A"), IsEmpty());
    EXPECT_THAT(read({"Rem x: Private A"}).endsOf("A"), IsEmpty());
    EXPECT_THAT(read({"'Sub A()", "Sub B() ' Sub A()"}).endsOf("A"), IsEmpty());
    EXPECT_THAT(read({"Remark = 1", "Dim A"}).endsOf("A"), ElementsAre(1));
}

TEST(Declarations, AreNotFoundInsideOtherBlocks) {
    EXPECT_THAT(read({"Sub A()", "Dim B", "Static C", "Const D = 1", "End Sub", "Dim E"}).endsOf("B"),
                IsEmpty());
    EXPECT_THAT(read({"Property Get A()", "Dim B", "End Property"}).endsOf("B"), IsEmpty());
    const auto module =
        read({"Type T", "Private As Long", "Sub As Long", "End Type", "Enum E", "F", "Private I", "End Enum",
              "Sub A()", "Dim B: Static C", "Const D = 1", "End", "End If", "Dim G", "End Sub", "Dim H"});
    for (const char* name : {"As", "Long", "F", "I", "B", "C", "D", "G"})
        EXPECT_THAT(module.endsOf(name), IsEmpty()) << name;
    EXPECT_THAT(module.endsOf("H"), ElementsAre(15));
}

TEST(Declarations, FindEveryAccessorOfAProperty) {
    EXPECT_THAT(read({"Property Get A()", "End Property", "Property Let A(x)", "End Property"}).endsOf("a"),
                ElementsAre(0, 2));
}

TEST(Declarations, FindBothHeadsThatConditionalCompilationGives) {
    EXPECT_THAT(
        read({"#If X Then", "Sub A(x)", "#Else", "Sub A()", "#End If", "End Sub", "Dim B"}).endsOf("A"),
        ElementsAre(1, 3));
}

TEST(Declarations, TolerateAnything) {
    for (const char* line :
         {"", " ", "_", " _", "\"", "[", "Sub", "Sub [", "Private", "Dim ,,", "Const", "Dim (", "Dim a)),b",
          ":::", "Declare", "Property", "Property Get", "Dim \"x", "#Const A = 1"}) {
        EXPECT_THAT(read({line}).endsOf("none"), IsEmpty()) << line;
        EXPECT_THAT(read({line}).endsOf(""), IsEmpty()) << line;
    }
}

} // namespace
} // namespace corvelle::workspace
