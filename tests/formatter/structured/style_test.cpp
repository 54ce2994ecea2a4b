#include "formatter/structured/lay_out.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::formatter::structured {
namespace {

using test::layOut;
using test::linesOf;

Style styleOf(const std::string& text, const StyleOptions& options = {}) {
    StructuredOptions all;
    all.style = options;
    return formatStructured(linesOf(text), all).style;
}

std::string blocksOf(const std::string& blanks) {
    return "Sub S()\n" + blanks + "x\nEnd Sub\n";
}

TEST(StyleTest, TheUnitIsWhatMostBlocksSay) {
    EXPECT_EQ(styleOf(blocksOf("  ") + blocksOf("  ") + blocksOf("    ")).unit.count, 2u);
    const Style tabs = styleOf(blocksOf("\t") + blocksOf("\t") + blocksOf("  "));
    EXPECT_TRUE(tabs.unit.tabs);
    EXPECT_EQ(tabs.unit.count, 1u);
    EXPECT_EQ(tabs.unitBy.votes, 2u);
    EXPECT_EQ(tabs.unitBy.of, 3u);
}

TEST(StyleTest, ATieGoesToTheDefaultThenToBlanksThenToTheSmaller) {
    EXPECT_EQ(styleOf(blocksOf("  ") + blocksOf("  ") + blocksOf("    ") + blocksOf("    ")).unit.count, 4u);
    EXPECT_FALSE(styleOf(blocksOf("\t") + blocksOf("\t") + blocksOf("  ") + blocksOf("  ")).unit.tabs);
    EXPECT_EQ(styleOf(blocksOf("   ") + blocksOf("   ") + blocksOf("  ") + blocksOf("  ")).unit.count, 2u);
}

TEST(StyleTest, TwoVotesThatDifferAreNone) {
    EXPECT_EQ(styleOf(blocksOf("  ") + blocksOf("   ")).unit.count, 4u);
    EXPECT_EQ(styleOf(blocksOf("  ")).unit.count, 2u);
}

TEST(StyleTest, AUnitThatMostDoNotShareIsNone) {
    const std::string text = blocksOf(" ") + blocksOf(" ") + blocksOf(" ") + blocksOf("  ") +
                             blocksOf("   ") + blocksOf("     ") + blocksOf("       ");
    EXPECT_EQ(styleOf(text).unit.count, 4u);
    EXPECT_EQ(styleOf(layOut(text)).unitBy.votes, 7u);
    const std::string flush = "Sub S()\nWith a\n.b\nEnd With\nEnd Sub\n";
    EXPECT_EQ(styleOf(text + flush).withBody, Body::Indent);
    EXPECT_EQ(styleOf(blocksOf("  ") + blocksOf("  ") + blocksOf("  ") + flush).withBody, Body::Flush);
}

TEST(StyleTest, WhatIsSaidHolds) {
    StyleOptions options;
    options.tabs = true;
    StructuredOptions all;
    all.style = options;
    EXPECT_EQ(layOut("Sub S()\n  If a Then\n    x _\n      + 1\n  End If\nEnd Sub\n", all),
              "Sub S()\n\tIf a Then\n\t\tx _\n\t\t  + 1\n\tEnd If\nEnd Sub\n");
}

TEST(StyleTest, BodiesThatStandFlushStaySo) {
    const std::string text =
        "Sub S()\nIf a Then\n    With b\n    .c\n    End With\n    Select Case d\n    Case 1\n"
        "        e\n    End Select\nEnd If\nEnd Sub\nType T\na As Long\nEnd Type\n";
    EXPECT_EQ(layOut(text), text);
    StructuredOptions said;
    said.style.procedure = said.style.withBody = said.style.caseBody = said.style.type = Body::Indent;
    EXPECT_EQ(
        layOut(text, said),
        "Sub S()\n    If a Then\n        With b\n            .c\n        End With\n        Select Case d\n"
        "            Case 1\n                e\n        End Select\n    End If\nEnd Sub\nType T\n"
        "    a As Long\nEnd Type\n");
}

TEST(StyleTest, DeclarationsInTheHeadersColumnStay) {
    const std::string text = "Sub S()\nDim a\nOn Error GoTo E\n    b\nEnd Sub\n";
    EXPECT_EQ(layOut(text), text);
    StructuredOptions said;
    said.style.declarations = said.style.onError = Body::Indent;
    EXPECT_EQ(layOut(text, said), "Sub S()\n    Dim a\n    On Error GoTo E\n    b\nEnd Sub\n");
}

TEST(StyleTest, InFlushBodiesDeclarationsAndOnErrorAreFlushWhateverTheyVoteFor) {
    const std::string text = "Sub S()\nx\n    Dim a\n    On Error GoTo E\nEnd Sub\n";
    for (const Style& style : {styleOf(text), styleOf(layOut(text))}) {
        EXPECT_EQ(style.procedure, Body::Flush);
        EXPECT_EQ(style.declarations, Body::Flush);
        EXPECT_EQ(style.onError, Body::Flush);
    }
    EXPECT_EQ(styleOf(text).declarationsBy.votes, 0u);
    EXPECT_EQ(styleOf(text).declarationsBy.of, 1u);
    StyleOptions said;
    said.declarations = Body::Indent;
    EXPECT_EQ(styleOf(text, said).declarations, Body::Indent);
    EXPECT_EQ(styleOf(text, said).declarationsBy.source, Source::Said);
}

TEST(StyleTest, ADirectiveThatBeginsWithACaseStandsWhereThatDoes) {
    const std::string text = "Sub S()\nSelect Case a\n    Case 1\n        b\n    #If C Then\n    Case 2\n"
                             "        d\n    #End If\nEnd Select\nEnd Sub\n";
    EXPECT_EQ(layOut(text), text);
    const std::string both = "Sub S()\nSelect Case a\n    Case 1\n        b\n    #If C Then\n    #If D Then\n"
                             "    Case 2\n        e\n    #End If\n    #End If\nEnd Select\nEnd Sub\n";
    EXPECT_EQ(layOut(both), both);
}

TEST(StyleTest, EachDirectiveKeepsItsWays) {
    const std::string text =
        "#If A Then\n    Const b = 1\n#Else\n    Const b = 2\n#End If\n#If C Then\nConst d = 1\n"
        "#End If\nSub S()\n    x\n    #If A Then\n        y\n    #End If\n#If A Then\n    z\n"
        "#End If\nEnd Sub\n";
    EXPECT_EQ(layOut(text), text);
    StructuredOptions said;
    said.style.directive = Place::Margin;
    said.style.directiveBody = Body::Flush;
    EXPECT_EQ(
        layOut(text, said),
        "#If A Then\nConst b = 1\n#Else\nConst b = 2\n#End If\n#If C Then\nConst d = 1\n#End If\nSub S()\n"
        "    x\n#If A Then\n    y\n#End If\n#If A Then\n    z\n#End If\nEnd Sub\n");
}

TEST(StyleTest, WhatNobodyVotedForIsTheDefault) {
    const auto style = formatStructured(test::linesOf("Dim a\n"), {}).style;
    for (const Decision& by :
         {style.unitBy, style.procedureBy, style.typeBy, style.caseBy, style.withBy, style.declarationsBy,
          style.onErrorBy, style.directiveBy, style.directiveBodyBy}) {
        EXPECT_EQ(by.source, Source::Default);
        EXPECT_EQ(by.of, 0u);
    }
}

TEST(StyleTest, DirectivesThatCannotBeSeenFollowTheOthers) {
    // The last one stands nowhere: as most do its body is deeper, and it stands as code.
    EXPECT_EQ(
        layOut(
            "Sub S()\n    x\n    #If A Then\n        y\n    #End If\n    #If A Then\n        y\n"
            "        #If B Then\n            y\n        #End If\n    #End If\n  #If A Then\n y\n  #End If\n"
            "End Sub\n"),
        "Sub S()\n    x\n    #If A Then\n        y\n    #End If\n    #If A Then\n        y\n"
        "        #If B Then\n            y\n        #End If\n    #End If\n    #If A Then\n        y\n    #End If\n"
        "End Sub\n");
}

TEST(StyleTest, ADirectiveInAnIndentedOneKeepsItsWaysToo) {
    const std::string text =
        "Sub S()\n    x\n    #If A Then\n        y\n        #If B Then\n        z\n        #End If\n"
        "    #End If\n    #If C Then\n        y\n    #End If\nEnd Sub\n";
    EXPECT_EQ(layOut(text), text);
}

TEST(StyleTest, ADirectiveUnderALineThatStaysOffItsColumnFollowsTheModule) {
    EXPECT_EQ(layOut("Sub S()\n    a\n'corvelle:off\nDo\n'corvelle:on\n#If B Then\n        c\n#End If\n"
                     "    #If B Then\n    d\n    #End If\n    Loop\nEnd Sub\n"),
              "Sub S()\n    a\n'corvelle:off\nDo\n'corvelle:on\n#If B Then\n        c\n#End If\n"
              "#If B Then\n        d\n#End If\n    Loop\nEnd Sub\n");
}

TEST(StyleTest, WhatStandsBetweenPairedCallsMayStandDeeper) {
    const std::string text =
        "Sub S()\n    WriteStart a\n        b\n        o.BeginX\n            'c\n        o.EndX\n"
        "    WriteEnd a\n    d\nEnd Sub\n";
    EXPECT_EQ(layOut(text), text);
    const std::string tags = "Sub S()\n    With a\n        .WriteTag \"b\"\n            .WriteTag \"c\", 1\n"
                             "        .CloseTag \"b\"\n    End With\nEnd Sub\n";
    EXPECT_EQ(layOut(tags), tags);
    EXPECT_EQ(layOut("Sub S()\n    Write a\n        b\n    Wrote a\nEnd Sub\n"),
              "Sub S()\n    Write a\n    b\n    Wrote a\nEnd Sub\n");
}

TEST(StyleTest, ALineInTheRightColumnWithOtherBlanksIsWrittenAnew) {
    StructuredOptions said;
    said.style.tabs = false;
    said.style.unit = 4;
    EXPECT_EQ(layOut("Sub S()\n\tx\nEnd Sub\n", said), "Sub S()\n    x\nEnd Sub\n");
}

} // namespace
} // namespace corvelle::formatter::structured
