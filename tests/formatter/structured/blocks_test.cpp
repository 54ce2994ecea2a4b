#include "formatter/structured/lay_out.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

// Each case is a module as it should be. With all its indentation gone it must come out so again, and as it
// is it must stay.
namespace corvelle::formatter::structured {
namespace {

using test::layOut;
using test::linesOf;

struct Case {
    const char* name;
    const char* text;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

std::string flattened(std::string_view text) {
    std::string out;
    for (const auto line : linesOf(text)) out.append(line.substr(pastBlanks(line, 0))) += '\n';
    return out;
}

class BlocksTest : public testing::TestWithParam<Case> {};

TEST_P(BlocksTest, StandsAsItShould) {
    const std::string text = GetParam().text;
    EXPECT_EQ(layOut(text), text);
    EXPECT_TRUE(test::faultsOf(text).empty());
    // Said, since flat code votes for flat code.
    StructuredOptions options;
    options.style.procedure = options.style.type = options.style.caseBody = options.style.withBody =
        Body::Indent;
    options.style.declarations = options.style.onError = Body::Indent;
    options.style.directiveBody = Body::Flush;
    options.style.directive = Place::Margin;
    EXPECT_EQ(layOut(flattened(text), options), text);
}

const Case cases[] = {
    {"Procedures", "Public Static Function F() As Long\n    x\nEnd Function\n"
                   "Private Property Get P()\n    x\nEnd Property\n"
                   "Static Friend Sub S()\n    x\nEnd Sub\n"
                   "Global Sub G()\n    x\nEnd Sub\n"},
    {"NoProcedures", "Declare Sub A Lib \"a\" ()\nPublic Event Function1()\nImplements Sub1\n"
                     "Private Declare Function B Lib \"b\" () As Long\nDim x\n"},
    {"OneLineProcedure", "Sub A(): x: End Sub\nSub B()\n    y\nEnd Sub\n"},
    {"Members", "Private Type T\n    If As Long\n    End As Long\n    Sub As Integer\n    Select As Long\n"
                "    Property As Long\n    Type As Long\n    Next As Byte\nEnd Type\n"
                "Enum E\n    Loop = 1\n    [End]\n    Wend\nEnd Enum\nSub S()\n    x\nEnd Sub\n"},
    {"BlockIf",
     "Sub S()\n    If a Then 'why\n        x\n    ElseIf b Then y\n        z\n    Else: w\n        v\n"
     "    End If\nEnd Sub\n"},
    {"OneLineIf",
     "Sub S()\n    If a Then x Else y: z\n    If a Then For i = 1 To 3: x: Next\n    If a GoTo 10\n"
     "    If a Then: x\n    If a Then _\n    x\n    y\nEnd Sub\n"},
    {"NestedElse",
     "Sub S()\n    If a Then\n        x\n    Else If b Then\n        y\n    End If\n    End If\nEnd Sub\n"},
    {"ThenInNames", "Sub S()\n    If a.Then = [Then] Then\n        x\n    End If\n    If a! Then\n        x\n"
                    "    End If\n    If Then_ = \" Then '\" Then x\n    y\nEnd Sub\n"},
    {"SqlEndingInThen", "Sub S()\n    x = \"If a Then '\"\n    y\nEnd Sub\n"},
    {"Select", "Sub S()\n    Select Case a\n        Case 1: x\n        Case 2\n            Select Case b\n"
               "                Case Else\n                    y\n            End Select\n        Case Else\n"
               "            z\n    End Select\nEnd Sub\n"},
    {"Loops", "Sub S()\n    For Each v In c\n        Do While a\n            While b\n                x\n"
              "            Wend\n        Loop Until d\n    Next v\n    Do: x: Loop\n    y\nEnd Sub\n"},
    {"NextOfTwo",
     "Sub S()\n    For i = 1 To 2\n        For j = 1 To 2\n            x\n    Next j, i\n    y\nEnd Sub\n"},
    {"TwoOnALine",
     "Sub S()\n    For i = 1 To 2: For j = 1 To 2\n        x\n    Next: Next\n    With a: If b Then\n"
     "        y\n    End If: End With\n    z\nEnd Sub\n"},
    {"With",
     "Sub S()\n    With a\n        .End = 1\n        !Next = 2\n        .Loop\n    End With\nEnd Sub\n"},
    {"Dates",
     "Sub S()\n    x = #1/2/2000 3:04:05 PM#: If a Then\n        y\n    End If\n"
     "    Print #1, a: While b\n        Print #2\n    Wend\n    d# = 1: Do\n        e# = 2\n    Loop\nEnd Sub\n"},
    {"DatesInConditions", "Sub S()\n    If d > #3:04:05 PM# Then\n        x\n    End If\n"
                          "    If d = #Sept 3, 1999 1:02 am# Or e = #2:03 AM# Then\n        y\n    End If\n"
                          "    If Eof(#1) And f# = 1 Or #2 Then\n        z\n    End If\nEnd Sub\n"},
    {"NoDateFromFileNumberToFileNumber",
     "Sub S()\n    Print #1, a: While b: Print #2\n        x\n    Wend\nEnd Sub\n"},
    {"WordsThatEndInAComment",
     "Sub S()\n    If a Then\n        End 'If\n    End If\n    Select 'Case\n    Public 'Sub\n    x\nEnd Sub\n"},
    {"LabelOnlyFirst", "Sub S()\n    : Here: x\n    .a: There: y\nEnd Sub\n"},
    {"Remarks", "Sub S()\n    Rem If a Then\n    x = 1: Rem: Do\n    ' Do _\n    While\n    y\nEnd Sub\n"},
    {"EndAlone", "Sub S()\n    If a Then End\n    End\n    x\nEnd Sub\n"},
    {"ReservedBeforeColon", "Sub S()\n    If a Then\n        x\n    Else:\n        y\n    End If\n    Do:\n"
                            "        z\n    Loop:\n    Stop: Return: End:\nEnd Sub\n"},
    {"NamedArgument", "Sub S()\n    F a:=1, b:=2: Do\n        x\n    Loop\nEnd Sub\n"},
    {"DirectiveBranches",
     "Sub S()\n#If A Then\n    If b Then\n#ElseIf C Then\n    If c Then\n#Else\n    If d Then\n"
     "#End If\n        x\n    End If\nEnd Sub\n"},
    {"HeaderInEachBranch", "#If A Then\nPrivate Sub S(a)\n#Else\nPublic Function S()\n#End If\n    x\n"
                           "#If A Then\nEnd Sub\n#Else\nEnd Function\n#End If\nSub T()\n    y\nEnd Sub\n"},
    {"OpenedInOneBranch",
     "Sub S()\n#If A Then\n    If b Then\n#End If\n        x\n#If A Then\n    End If\n#End If\n"
     "    y\nEnd Sub\n"},
    {"NeverCompiled", "#If False Then\nEnd If\n#End If\nSub S()\n    x\nEnd Sub\n"},
    {"ColonInADirective", "Sub S()\n#If A Then: Do\n    x\n#End If: Loop\n    y\nEnd Sub\n"},
    {"DoubleByteBracket", "Sub S()\n    \x83[ = 1: Do\n        x\n    Loop ' ]\nEnd Sub\n"},
    {"HardBlankIsNoBlank", "Sub S()\n    \xA0If = 1\n    x\nEnd Sub\n"},
};

INSTANTIATE_TEST_SUITE_P(All, BlocksTest, testing::ValuesIn(cases),
                         [](const auto& info) { return info.param.name; });

TEST(BlocksTest, LabelsAndNumbersStandInColumn1AndKeepWhatFollows) {
    EXPECT_EQ(
        layOut("Sub S()\n    x\n      4f = 1\n  10\n  20Do\n    y\n  30:  Do\n      40 Loop\nEnd Sub\n"),
        "Sub S()\n    x\n    4f = 1\n10\n    20Do\n    y\n30:  Do\n40 Loop\nEnd Sub\n");
    EXPECT_EQ(
        layOut("Sub S()\n    x\n  Here:  y\n   10    If a Then\n20 z\n    End If\n    Foo:=1\nEnd Sub\n"),
        "Sub S()\n    x\nHere:  y\n10    If a Then\n20 z\n    End If\n    Foo:=1\nEnd Sub\n");
}

TEST(BlocksTest, ContinuedLinesMoveWithTheirFirst) {
    EXPECT_EQ(layOut("Sub S()\n    y\n        x = a + _\n            b + _\n _\n    c\nEnd Sub\n"),
              "Sub S()\n    y\n    x = a + _\n        b + _\n _\nc\nEnd Sub\n");
}

TEST(BlocksTest, BlanksAloneInAContinuedStatementStay) {
    EXPECT_EQ(layOut("Sub S()\n    y\n        x = a + _\n            \n    z\nEnd Sub\n"),
              "Sub S()\n    y\n    x = a + _\n            \n    z\nEnd Sub\n");
}

TEST(BlocksTest, WhatADirectiveIndentsIsIndentedOnce) {
    StructuredOptions options;
    options.style.unit = 4;
    options.style.procedure = options.style.directiveBody = Body::Indent;
    options.style.directive = Place::Code;
    EXPECT_EQ(
        layOut("Sub S()\n#If A Then\nIf b Then\n#If C Then\nDo\nx\nLoop\n#End If\n"
               "End If\n#End If\ny\nEnd Sub\n",
               options),
        "Sub S()\n    #If A Then\n        If b Then\n            #If C Then\n                Do\n"
        "                    x\n                Loop\n            #End If\n        End If\n    #End If\n"
        "    y\nEnd Sub\n");
}

TEST(BlocksTest, ADirectiveThatBeginsWithADividerStandsByTheBlock) {
    StructuredOptions options;
    options.style.unit = 4;
    options.style.procedure = options.style.directiveBody = Body::Indent;
    options.style.directive = Place::Code;
    EXPECT_EQ(
        layOut("Sub S()\nIf a Then\nx\n#If B Then\nElse\ny\n#End If\nEnd If\nEnd Sub\n", options),
        "Sub S()\n    If a Then\n        x\n    #If B Then\n    Else\n        y\n    #End If\n    End If\n"
        "End Sub\n");
    // Behind a statement it begins with that.
    options.style.directiveBody = Body::Flush;
    EXPECT_EQ(
        layOut("Sub S()\nIf a Then\n#If B Then\nx\nElse\ny\n#End If\nEnd If\nEnd Sub\n", options),
        "Sub S()\n    If a Then\n        #If B Then\n        x\n    Else\n        y\n        #End If\n    End If\n"
        "End Sub\n");
}

TEST(BlocksTest, ALineThatWouldBecomeTooLongStaysAndIsTold) {
    const std::string longLine = "x = \"" + std::string(1015, 'a') + "\"";
    const std::string text = "Sub S()\n    y\n" + longLine + "\nEnd Sub\n";
    EXPECT_EQ(layOut(text), text);
    const auto notices = formatStructured(test::linesOf(text), {}).notices;
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_EQ(notices[0].line, 2u);
    EXPECT_EQ(notices[0].text(0),
              "CV302 the line would have 1025 bytes, the IDE takes 1023; it stays where it is");
}

} // namespace
} // namespace corvelle::formatter::structured
