#include "formatter/structured/lay_out.h"

#include <gtest/gtest.h>

namespace corvelle::formatter::structured {
namespace {

using test::layOut;

StructuredOptions indented() {
    StructuredOptions options;
    options.style.procedure = Body::Indent;
    options.style.unit = 4;
    return options;
}

TEST(CommentsTest, ARunGoesWithTheLineInWhoseColumnItStands) {
    EXPECT_EQ(
        layOut("Sub S()\n  'a\n    'b\n  x\n    If c Then\n  'd\n  y\n    End If\nEnd Sub\n", indented()),
        "Sub S()\n    'a\n      'b\n    x\n    If c Then\n        'd\n        y\n    End If\nEnd Sub\n");
    EXPECT_EQ(layOut("Sub S()\n  x\n  'a\n\n      y\nEnd Sub\n", indented()),
              "Sub S()\n    x\n    'a\n\n    y\nEnd Sub\n");
}

TEST(CommentsTest, OneUnderATrailingCommentMovesWithItsLine) {
    EXPECT_EQ(layOut("Sub S()\n  x 'a\n    'b\n  y\nEnd Sub\n", indented()),
              "Sub S()\n    x 'a\n      'b\n    y\nEnd Sub\n");
}

TEST(CommentsTest, OneInColumn1AmongIndentedCodeStays) {
    const char* const text = "Sub S()\n    x\n'    y\n    z\nEnd Sub\n";
    EXPECT_EQ(layOut(text, indented()), text);
    StructuredOptions follow = indented();
    follow.style.marginComments = MarginComments::Follow;
    EXPECT_EQ(layOut(text, follow), "Sub S()\n    x\n    '    y\n    z\nEnd Sub\n");
}

TEST(CommentsTest, OnesInColumn1BehindOthersOfTheirRunStay) {
    EXPECT_EQ(layOut("Sub S()\n  x\n  'a\n'    y\n'    z\n  'b\n  w\nEnd Sub\n", indented()),
              "Sub S()\n    x\n    'a\n'    y\n'    z\n    'b\n    w\nEnd Sub\n");
    EXPECT_EQ(layOut("Sub S()\nx\n'a\n'b\ny\nEnd Sub\n", indented()),
              "Sub S()\n    x\n    'a\n    'b\n    y\nEnd Sub\n");
}

TEST(CommentsTest, AnyOtherStandsWithTheNextStatementOrTheBody) {
    EXPECT_EQ(
        layOut(
            "Sub S()\n    If a Then\n        x\n      'b\n    Else\n     'c\n        y\n    End If\nEnd Sub\n",
            indented()),
        "Sub S()\n    If a Then\n        x\n        'b\n    Else\n        'c\n        y\n    End If\nEnd Sub\n");
}

TEST(CommentsTest, OneLeftOfTheDividerBelowStandsWithThat) {
    EXPECT_EQ(
        layOut("Sub S()\n    If a Then\n        x\n  'b\n    ElseIf c Then\n        y\n 'd\n    End If\n"
               "    Select Case a\n        Case 1\n      'e\n        Case 2\n    End Select\nEnd Sub\n",
               indented()),
        "Sub S()\n    If a Then\n        x\n    'b\n    ElseIf c Then\n        y\n    'd\n    End If\n"
        "    Select Case a\n        Case 1\n        'e\n        Case 2\n    End Select\nEnd Sub\n");
}

TEST(CommentsTest, AnEmptyLineEndsARun) {
    EXPECT_EQ(layOut("Sub S()\n  x\n  'a\n\n 'b\n  y\nEnd Sub\n", indented()),
              "Sub S()\n    x\n    'a\n\n    'b\n    y\nEnd Sub\n");
}

TEST(CommentsTest, AContinuedCommentMovesAsOne) {
    EXPECT_EQ(layOut("Sub S()\n  'a _\n   b\n  x\nEnd Sub\n", indented()),
              "Sub S()\n    'a _\n     b\n    x\nEnd Sub\n");
}

TEST(CommentsTest, WhatIsSwitchedOffStays) {
    const char* const text =
        "Sub S()\n  'corvelle:off\n  x   \n\n\n      y 'c\n 'd\n 'Corvelle:On\n    z\nEnd Sub\n";
    StructuredOptions options = indented();
    options.trim = options.removeCommentLines = options.removeTrailingComments = options.removeEmptyLines =
        true;
    EXPECT_EQ(layOut(text, options), text);
}

} // namespace
} // namespace corvelle::formatter::structured
