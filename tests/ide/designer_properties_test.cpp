#include "ide/workspace/designer_properties.h"
#include "ide/workspace/designer_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using Fate = HelpPropertyFate;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr auto help = HelpProperty::HelpContextID;
constexpr auto whatsThis = HelpProperty::WhatsThisHelpID;

const std::string head =
    "VERSION 5.00\r\nObject = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\r\n";
const std::string tail =
    "Attribute VB_Name = \"frm\"\r\nPrivate Sub cmd_Click()\r\n  HelpContextID   =   3\r\nEnd Sub\r\n";

ModuleFile form(const std::string& section) {
    return {head + section + tail, ide::ComponentType::VBForm};
}

std::vector<Fate> fatesOf(const ChangedDesigner& changed) {
    std::vector<Fate> fates;
    for (const auto& outcome : changed.outcomes) fates.push_back(outcome.fate);
    return fates;
}

// Writes the properties into the section, and looks that their removal gives the old bytes again.
std::string written(const std::string& section, const std::vector<HelpPropertyWish>& wishes) {
    const auto file = form(section);
    const auto changed = withHelpProperties(file, wishes);
    for (const auto fate : fatesOf(changed)) EXPECT_EQ(fate, Fate::Done);
    const auto back = withoutHelpProperties(ModuleFile(changed.bytes, file.type()), wishes);
    EXPECT_EQ(back.bytes, file.bytes());
    EXPECT_EQ(changed.bytes.substr(0, head.size()), head);
    EXPECT_EQ(changed.bytes.substr(changed.bytes.size() - tail.size()), tail);
    return changed.bytes.substr(head.size(), changed.bytes.size() - head.size() - tail.size());
}

TEST(HelpProperties, StandInAlphabeticalOrderAmongTheOwnOfABuiltInClass) {
    EXPECT_EQ(written("Begin VB.Form frm \r\n"
                      "   BorderStyle     =   3  'Fixed Dialog\r\n"
                      "   BeginProperty Font \r\n"
                      "      Name            =   \"Arial = Begin\"\r\n"
                      "   EndProperty\r\n"
                      "   Icon            =   \"frm.frx\":0000\r\n"
                      "   Begin VB.CommandButton cmd \r\n"
                      "      Height          =   375\r\n"
                      "      Width           =   1200\r\n"
                      "   End\r\n"
                      "End\r\n",
                      {{"", {}, help, 7}, {"cmd", {}, whatsThis, 1001}, {"cmd", {}, help, 1002}}),
              "Begin VB.Form frm \r\n"
              "   BorderStyle     =   3  'Fixed Dialog\r\n"
              "   BeginProperty Font \r\n"
              "      Name            =   \"Arial = Begin\"\r\n"
              "   EndProperty\r\n"
              "   HelpContextID   =   7\r\n"
              "   Icon            =   \"frm.frx\":0000\r\n"
              "   Begin VB.CommandButton cmd \r\n"
              "      Height          =   375\r\n"
              "      HelpContextID   =   1002\r\n"
              "      WhatsThisHelpID =   1001\r\n"
              "      Width           =   1200\r\n"
              "   End\r\n"
              "End\r\n");
}

TEST(HelpProperties, OfAnotherMakersControlStandAmongThoseOfItsContainer) {
    EXPECT_EQ(written("Begin VB.Form frm \r\n"
                      "   Begin MSComctlLib.ListView lvw \r\n"
                      "      Height          =   375\r\n"
                      "      Left            =   0\r\n"
                      "      TabIndex        =   3\r\n"
                      "      Width           =   1200\r\n"
                      "      _ExtentX        =   2117\r\n"
                      "      Appearance      =   1\r\n"
                      "   End\r\n"
                      "End\r\n",
                      {{"LVW", {}, whatsThis, 5}, {"lvw", {}, help, 6}}),
              "Begin VB.Form frm \r\n"
              "   Begin MSComctlLib.ListView lvw \r\n"
              "      Height          =   375\r\n"
              "      HelpContextID   =   6\r\n"
              "      Left            =   0\r\n"
              "      TabIndex        =   3\r\n"
              "      WhatsThisHelpID =   5\r\n"
              "      Width           =   1200\r\n"
              "      _ExtentX        =   2117\r\n"
              "      Appearance      =   1\r\n"
              "   End\r\n"
              "End\r\n");
}

TEST(HelpProperties, AreNotWrittenIntoAControlThatIsInvisibleAtRunTime) {
    for (const std::string properties :
         {"      Left = 0\r\n      Top = 0\r\n      _ExtentX = 847\r\n", "",
          "      Left = 0\r\n      _ExtentX = 8\r\n      Height = 1\r\n      Width = 5\r\n"}) {
        const auto file = form("Begin VB.Form frm \r\n   Begin Lib.Clock clk \r\n" + properties +
                               "      HelpContextID = 0\r\n   End\r\nEnd\r\n");
        const auto changed = withHelpProperties(file, {{"clk", {}, help, 6, {}, true}});
        EXPECT_THAT(fatesOf(changed), ElementsAre(Fate::Invisible));
        EXPECT_EQ(changed.bytes, file.bytes());
    }
}

TEST(HelpProperties, FindTheElementsOfAnArrayByTheirIndex) {
    const std::string element = "   Begin VB.TextBox txt \r\n      Index           =   ";
    EXPECT_EQ(written("Begin VB.Form frm \r\n" + element + "2\r\n   End\r\n" + element +
                          "0\r\n      Left            =   1\r\n   End\r\nEnd\r\n",
                      {{"txt", 0, help, 10}, {"txt", 2, help, 12}}),
              "Begin VB.Form frm \r\n   Begin VB.TextBox txt \r\n      HelpContextID   =   12\r\n"
              "      Index           =   2\r\n   End\r\n"
              "   Begin VB.TextBox txt \r\n      HelpContextID   =   10\r\n      Index           =   0\r\n"
              "      Left            =   1\r\n   End\r\nEnd\r\n");
}

TEST(HelpProperties, StandBeforeTheBlocksInsideAndInTheBlocksOwnIndentation) {
    EXPECT_EQ(written("Begin VB.MDIForm frm \r\n"
                      "\tCaption = \"a\"\r\n"
                      "\tBegin VB.Menu mnuFile \r\n"
                      "\t\tCaption = \"File\"\r\n"
                      "\t\tBegin VB.Menu mnuOpen \r\n"
                      "\t\tEnd\r\n"
                      "\tEnd\r\n"
                      "End\r\n",
                      {{"mnuFile", {}, help, 1}, {"mnuOpen", {}, help, 2}, {"", {}, help, 3}}),
              "Begin VB.MDIForm frm \r\n"
              "\tCaption = \"a\"\r\n"
              "\tHelpContextID   =   3\r\n"
              "\tBegin VB.Menu mnuFile \r\n"
              "\t\tCaption = \"File\"\r\n"
              "\t\tHelpContextID   =   1\r\n"
              "\t\tBegin VB.Menu mnuOpen \r\n"
              "\t\t   HelpContextID   =   2\r\n"
              "\t\tEnd\r\n"
              "\tEnd\r\n"
              "End\r\n");
}

TEST(HelpProperties, EndTheirLinesAsTheBlockDoes) {
    EXPECT_EQ(written("Begin VB.Form frm \n   Begin VB.TextBox txt\r\n   End\nEnd\r\n",
                      {{"", {}, help, 1}, {"txt", {}, help, 2}}),
              "Begin VB.Form frm \n   HelpContextID   =   1\n   Begin VB.TextBox txt\r\n"
              "      HelpContextID   =   2\r\n   End\nEnd\r\n");
}

TEST(HelpProperties, KeepAByteOrderMark) {
    const ModuleFile file("\xEF\xBB\xBFVERSION 5.00\nBegin VB.Form f\nEnd\n", ide::ComponentType::VBForm);
    EXPECT_EQ(withHelpProperties(file, {{"", {}, help, 1}}).bytes,
              "\xEF\xBB\xBFVERSION 5.00\nBegin VB.Form f\n   HelpContextID   =   1\nEnd\n");
}

const std::string numbered = "Begin VB.Form frm \r\n   Begin VB.TextBox txt \r\n"
                             "      helpcontextid = 5\r\n   End\r\nEnd\r\n";

TEST(HelpProperties, LeaveANumberThatStandsThere) {
    const auto file = form(numbered);
    const auto changed = withHelpProperties(file, {{"txt", {}, help, 9}});
    EXPECT_THAT(fatesOf(changed), ElementsAre(Fate::Differs));
    EXPECT_EQ(changed.outcomes[0].found, "5");
    EXPECT_EQ(changed.outcomes[0].line, 5U);
    EXPECT_EQ(changed.bytes, file.bytes());
    EXPECT_THAT(fatesOf(withHelpProperties(file, {{"txt", {}, help, 5, {}, true}})),
                ElementsAre(Fate::Needless));
}

TEST(HelpProperties, LeaveWhatTheyCannotRead) {
    for (const auto* value : {"99999999999999", "\"abc\""}) {
        const auto file =
            form(std::string("Begin VB.Form frm \r\n   HelpContextID   =   ") + value + "\r\nEnd\r\n");
        const auto changed = withHelpProperties(file, {{"", {}, help, 9}});
        EXPECT_THAT(fatesOf(changed), ElementsAre(Fate::Differs)) << value;
        EXPECT_EQ(changed.bytes, file.bytes());
        EXPECT_THAT(fatesOf(withHelpProperties(file, {{"", {}, help, 9, {}, true}})),
                    ElementsAre(Fate::Replaced));
    }
}

TEST(HelpProperties, ReplaceANumberWhenToldTo) {
    const auto changed = withHelpProperties(form(numbered), {{"txt", {}, help, 9, {}, true}});
    EXPECT_THAT(fatesOf(changed), ElementsAre(Fate::Replaced));
    EXPECT_THAT(changed.bytes, HasSubstr("      helpcontextid = 9\r\n   End"));
}

TEST(HelpProperties, ReplaceANumberOfOurOwn) {
    EXPECT_THAT(fatesOf(withHelpProperties(form(numbered), {{"txt", {}, help, 9, 5}})),
                ElementsAre(Fate::Replaced));
    EXPECT_THAT(fatesOf(withHelpProperties(form(numbered), {{"txt", {}, help, 9, 4}})),
                ElementsAre(Fate::Differs));
}

TEST(HelpProperties, ReplaceAZero) {
    const auto file = form("Begin VB.Form frm \r\n   HelpContextID   =   0\r\nEnd\r\n");
    const auto changed = withHelpProperties(file, {{"", {}, help, 9}});
    EXPECT_THAT(fatesOf(changed), ElementsAre(Fate::Replaced));
    EXPECT_THAT(changed.bytes, HasSubstr("   HelpContextID   =   9\r\nEnd"));
}

TEST(HelpProperties, TellWhatTheyDoNotFind) {
    const auto file = form("Begin VB.Form frm \r\n   Begin VB.TextBox txt \r\n   End\r\n   Begin VB.TextBox "
                           "TXT \r\n   End\r\n   Begin VB.ListBox lst \r\n      Index = 1\r\n"
                           "      HelpContextID = 1\r\n      HelpContextID = 2\r\n   End\r\nEnd\r\n");
    const auto changed = withHelpProperties(file, {{"txt", {}, help, 1},
                                                   {"lst", {}, help, 1},
                                                   {"lst", 0, help, 1},
                                                   {"lst", 1, help, 9, {}, true},
                                                   {"x", {}, help, 1}});
    EXPECT_THAT(fatesOf(changed),
                ElementsAre(Fate::Ambiguous, Fate::Missing, Fate::Missing, Fate::Ambiguous, Fate::Missing));
    EXPECT_EQ(changed.bytes, file.bytes());
}

TEST(HelpProperties, GoOnlyWithTheValueThatWasWritten) {
    const auto file = form(numbered);
    const auto changed =
        withoutHelpProperties(file, {{"txt", {}, help, 6}, {"txt", {}, whatsThis, 1}, {"gone", {}, help, 5}});
    EXPECT_THAT(fatesOf(changed), ElementsAre(Fate::Differs, Fate::Needless, Fate::Missing));
    EXPECT_EQ(changed.bytes, file.bytes());
    EXPECT_THAT(withoutHelpProperties(file, {{"txt", {}, help, 5}}).bytes, Not(HasSubstr("helpcontextid")));
}

TEST(HelpProperties, SwitchWhatsThisHelpOn) {
    EXPECT_EQ(
        written("Begin VB.Form frm \r\n   BorderStyle     =   3  'Fixed Dialog\r\n   Begin VB.Label lbl "
                "\r\n   End\r\nEnd\r\n",
                {{"", {}, HelpProperty::WhatsThisHelp, -1}, {"", {}, HelpProperty::WhatsThisButton, -1}}),
        "Begin VB.Form frm \r\n   BorderStyle     =   3  'Fixed Dialog\r\n"
        "   WhatsThisButton =   -1  'True\r\n   WhatsThisHelp   =   -1  'True\r\n"
        "   Begin VB.Label lbl \r\n   End\r\nEnd\r\n");
}

TEST(HelpProperties, GiveAQuestionMarkOnlyToFormsThatHaveRoomForIt) {
    const auto fate = [](const std::string& properties, const std::string& kind = "Form") {
        const auto file = form("Begin VB." + kind + " frm \r\n" + properties + "End\r\n");
        return withHelpProperties(file, {{"", {}, HelpProperty::WhatsThisButton, -1}}).outcomes[0].fate;
    };
    const std::string noButtons = "   MaxButton = 0 'False\r\n   MinButton = 0\r\n";
    EXPECT_EQ(fate(""), Fate::Forbidden);
    EXPECT_EQ(fate(noButtons), Fate::Done);
    EXPECT_EQ(fate("   BorderStyle = 1 'Fixed Single\r\n" + noButtons), Fate::Done);
    EXPECT_EQ(fate("   BorderStyle = 1\r\n   MaxButton = 0\r\n"), Fate::Forbidden);
    EXPECT_EQ(fate("   BorderStyle = 3\r\n"), Fate::Done);
    EXPECT_EQ(fate("   BorderStyle = 3\r\n   ControlBox = 0 'False\r\n"), Fate::Forbidden);
    EXPECT_EQ(fate("   BorderStyle = 4\r\n" + noButtons), Fate::Forbidden);
    EXPECT_EQ(fate("   BorderStyle = 0\r\n" + noButtons), Fate::Forbidden);
    EXPECT_EQ(fate(noButtons, "MDIForm"), Fate::Forbidden);
}

TEST(HelpProperties, RefuseASectionThatNoIdeWrites) {
    const auto lineOf = [](const std::string& inside) {
        try {
            withHelpProperties(form("Begin VB.Form frm\r\n" + inside + "End\r\n"), {{"", {}, help, 1}});
        } catch (const StrangeDesigner& error) {
            return error.line();
        }
        return 0U;
    };
    EXPECT_EQ(lineOf("   Caption\r\n"), 4U);
    EXPECT_EQ(lineOf("   = 5\r\n"), 4U);
    EXPECT_EQ(lineOf("   EndProperty\r\n"), 4U);
    EXPECT_EQ(lineOf("   BeginProperty\r\n   EndProperty\r\n"), 4U);
    EXPECT_EQ(lineOf("   BeginProperty Font\r\n   Begin VB.Label l\r\n   End\r\n   EndProperty\r\n"), 5U);
    EXPECT_EQ(lineOf("   BeginProperty Font\r\n      BeginProperty A\r\n   EndProperty\r\n"), 7U);
    EXPECT_EQ(lineOf("   BeginProperty HelpContextID\r\n   EndProperty\r\n"), 4U);
    EXPECT_EQ(lineOf("   BeginProperty = 5\r\n   End = 1\r\n\r\n"), 0U);
}

TEST(NumberOf, ReadsWholeNumbersOfThirtyTwoBits) {
    EXPECT_EQ(numberOf("5"), 5);
    EXPECT_EQ(numberOf("-1  'True"), -1);
    EXPECT_EQ(numberOf("&H10&"), 16);
    EXPECT_EQ(numberOf("&HFFFFFFFF"), -1);
    EXPECT_EQ(numberOf("2147483648"), std::nullopt);
    EXPECT_EQ(numberOf("1.5"), std::nullopt);
    EXPECT_EQ(numberOf("\"5\""), std::nullopt);
    EXPECT_EQ(numberOf(""), std::nullopt);
    EXPECT_EQ(numberOf("&H"), std::nullopt);
    EXPECT_EQ(numberOf("&H-1"), std::nullopt);
}

} // namespace
} // namespace corvelle::workspace
