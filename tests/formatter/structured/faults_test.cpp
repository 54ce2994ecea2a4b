#include "formatter/structured/lay_out.h"

#include <gmock/gmock.h>

namespace corvelle::formatter::structured {
namespace {

using test::faultsOf;
using test::layOut;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FaultsTest, ACloserWithoutItsOpener) {
    EXPECT_THAT(faultsOf("Sub S()\nEnd If\nNext\nEnd Sub\n"),
                ElementsAre("2: CV201 End If without If", "3: CV201 Next without For"));
    EXPECT_THAT(faultsOf("Sub S()\nElse\nCase 1\nEnd Sub\nEnd Sub\n"),
                ElementsAre("2: CV201 Else without If", "3: CV201 Case without Select",
                            "5: CV201 End Sub without Sub"));
    EXPECT_THAT(faultsOf("#End If\n#Else\n"),
                ElementsAre("1: CV201 #End If without #If", "2: CV201 #Else without #If"));
}

TEST(FaultsTest, ALineThatGoesOnIsNoDirective) {
    EXPECT_THAT(faultsOf("Type T\n _\n#If x Then\n#End If\nEnd Type\n"),
                ElementsAre("4: CV201 #End If without #If"));
    // What stands there moves with its statement, so it says nothing of how directives stand.
    StructuredOptions options;
    options.force = true;
    const std::string once = layOut("Type T\n _\n#If x Then\n#End If\nEnd Type\n", options);
    EXPECT_EQ(layOut(once, options), once);
}

TEST(FaultsTest, AnOpenerWithoutItsCloser) {
    EXPECT_THAT(faultsOf("Sub S()\n    If a Then\n        x\nEnd Sub\n"),
                ElementsAre("2: CV202 the If that begins here is not closed before End Sub in line 4"));
    EXPECT_THAT(faultsOf("Sub S()\n    x\nSub T()\nEnd Sub\n"),
                ElementsAre("1: CV202 the Sub that begins here is not closed before the Sub in line 3"));
    EXPECT_THAT(faultsOf("Type T\n    a As Long\nSub T()\nEnd Sub\n"),
                ElementsAre("1: CV202 the Type that begins here is not closed before the Sub in line 3"));
    EXPECT_THAT(faultsOf("Function F()\nDo\n"),
                ElementsAre("1: CV202 the Function that begins here is not closed before the module's end",
                            "2: CV202 the Do that begins here is not closed before the module's end"));
    EXPECT_THAT(faultsOf("#If A Then\n"),
                ElementsAre("1: CV202 the #If that begins here is not closed before the module's end"));
}

TEST(FaultsTest, BlocksThatCrossAreOneFault) {
    EXPECT_THAT(faultsOf("Sub S()\nFor i = 1 To 2\nIf a Then\nNext\nEnd If\nEnd Sub\n"),
                ElementsAre("3: CV202 the If that begins here is not closed before Next in line 4"));
}

TEST(FaultsTest, AProcedureClosedByAnothersEnd) {
    EXPECT_THAT(faultsOf("Sub S()\nEnd Function\nSub T()\nEnd Sub\n"),
                ElementsAre("1: CV203 the Sub that begins here is closed by End Function in line 2"));
}

TEST(FaultsTest, WhatOnlyTheIdeCanTell) {
    EXPECT_THAT(
        faultsOf("Sub S()\nIf a Then:\nx\nEnd If\nEnd Sub\n"),
        ElementsAre("2: CV204 Then with a colon at the line's end: only the IDE can tell whether this If "
                    "opens a block"));
    EXPECT_THAT(faultsOf("Sub S()\nIf a Then Rem why\nEnd Sub\n"),
                ElementsAre("2: CV204 Then Rem: only the IDE can tell whether this If opens a block"));
}

TEST(FaultsTest, TheFaultysProcedureStaysAndTheRestIsLaidOut) {
    const char* const text = "Sub S()\n  x\n If a Then\nEnd Sub\nSub T()\n      y  \nEnd Sub\n";
    StructuredOptions options;
    options.style.unit = 4;
    options.trim = true;
    EXPECT_EQ(layOut(text, options), "Sub S()\n  x\n If a Then\nEnd Sub\nSub T()\n    y\nEnd Sub\n");
    options.force = true;
    EXPECT_EQ(layOut(text, options), "Sub S()\n    x\n    If a Then\nEnd Sub\nSub T()\n    y\nEnd Sub\n");
}

TEST(FaultsTest, OutsideOfProceduresTheLinesOfAFaultStay) {
    EXPECT_EQ(layOut("  Dim a\n  Next\n  Dim b\n  #End If\n  Dim c\n  #Else\n"),
              "Dim a\n  Next\nDim b\n  #End If\nDim c\n  #Else\n");
    // The If is told, its End If stays without another word.
    EXPECT_EQ(layOut("  For i = 1 To 2\n If a Then\n  Next\n  End If\n  Dim b\n"),
              "For i = 1 To 2\n If a Then\n  Next\n  End If\nDim b\n");
}

TEST(FaultsTest, AFaultAboveAProcedureLeavesThatAlone) {
    EXPECT_EQ(layOut("  Do\n  x\nSub S()\n      y\nEnd Sub\n"), "  Do\n  x\nSub S()\n      y\nEnd Sub\n");
    EXPECT_EQ(layOut("  Do\n  x\nSub S()\n    If a Then\n      y\n    End If\nEnd Sub\n",
                     [] {
                         StructuredOptions options;
                         options.style.unit = 4;
                         return options;
                     }()),
              "  Do\n  x\nSub S()\n    If a Then\n        y\n    End If\nEnd Sub\n");
}

TEST(FaultsTest, ABranchThatIsNeverCompiledStaysAndNothingElseDoes) {
    EXPECT_EQ(
        layOut("  Dim a\n#If B Then\n  Dim b\n#ElseIf False Then\n  For i\n   x\n#Else\n  Dim c\n#End If\n"
               "  Dim d\n",
               [] {
                   StructuredOptions options;
                   options.style.directiveBody = Body::Flush;
                   return options;
               }()),
        "Dim a\n#If B Then\nDim b\n#ElseIf False Then\n  For i\n   x\n#Else\nDim c\n#End If\nDim d\n");
    EXPECT_EQ(layOut("  Dim a\n#If False Then\n  For i\n#End If\n"),
              "Dim a\n#If False Then\n  For i\n#End If\n");
    EXPECT_THAT(faultsOf("#If Fixed Then\nEnd If\n#End If\n"), ElementsAre("2: CV201 End If without If"));
}

TEST(FaultsTest, ABranchThatIsNeverCompiledNeedNotBeCode) {
    EXPECT_THAT(faultsOf("#If 0 Then\nEnd If\nElse\n#End If\n"), IsEmpty());
}

} // namespace
} // namespace corvelle::formatter::structured
