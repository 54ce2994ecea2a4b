// The bytes of a file: what is kept as it is, and how lines end.

#include "cli/format_fixture.h"

namespace corvelle::test {
namespace {

class Bytes : public FormatTest {
  protected:
    std::string formatted(std::string_view module, const std::string& name = "a.bas",
                          std::vector<std::string> options = {}) {
        folder.write(name, module);
        options.push_back(name);
        const Outcome outcome = format(options);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        std::string result = folder.read(name);
        EXPECT_EQ(format(options).status, 0);
        EXPECT_EQ(folder.read(name), result) << "formatted again";
        return result;
    }
};

TEST_F(Bytes, OfAllLineEndsLfStayLf) {
    EXPECT_EQ(formatted("Sub a()\nb\nEnd Sub\n"), "Sub a()\n  b\nEnd Sub\n");
}

TEST_F(Bytes, OfMixedLineEndsBecomeCrLf) {
    EXPECT_EQ(formatted("Sub a()\r\nb\nEnd Sub\n"), "Sub a()\r\n  b\r\nEnd Sub\r\n");
    EXPECT_EQ(formatted("Sub a()\n  b\nEnd Sub\r\n"), "Sub a()\r\n  b\r\nEnd Sub\r\n");
}

TEST_F(Bytes, OfALastLineAreEnded) {
    EXPECT_EQ(formatted("Sub a()\r\nEnd Sub"), "Sub a()\r\nEnd Sub\r\n");
    EXPECT_EQ(formatted("Sub a()\nEnd Sub"), "Sub a()\nEnd Sub\n");
    EXPECT_EQ(formatted("a"), "a\r\n");
}

TEST_F(Bytes, OfALastLineThatIsHiddenAreEndedToo) {
    EXPECT_EQ(formatted("Dim a\nAttribute a.VB_VarHelpID = -1"), "Dim a\nAttribute a.VB_VarHelpID = -1\n");
    EXPECT_EQ(formatted("Dim a\r\nAttribute a.VB_VarHelpID = -1"),
              "Dim a\r\nAttribute a.VB_VarHelpID = -1\r\n");
}

TEST_F(Bytes, OfALoneCrAreOrdinaryOnes) {
    EXPECT_EQ(formatted("Sub a()\r\n' b\rc\r\nEnd Sub\r\n"), "Sub a()\r\n  ' b\rc\r\nEnd Sub\r\n");
    EXPECT_EQ(formatted("Sub a()\n' b\r\r\nEnd Sub\n"), "Sub a()\r\n  ' b\r\r\nEnd Sub\r\n");
    EXPECT_EQ(formatted("' a\r' b\r' c\n"), "' a\r' b\r' c\n");
}

TEST_F(Bytes, OfAByteOrderMarkStayInFront) {
    EXPECT_EQ(formatted("\xEF\xBB\xBFSub a()\r\nb\r\nEnd Sub\r\n"),
              "\xEF\xBB\xBFSub a()\r\n  b\r\nEnd Sub\r\n");
    EXPECT_EQ(formatted("\xEF\xBB\xBF"
                        "Attribute VB_Name = \"a\"\r\nSub a()\r\nb\r\nEnd Sub\r\n"),
              "\xEF\xBB\xBF"
              "Attribute VB_Name = \"a\"\r\nSub a()\r\n  b\r\nEnd Sub\r\n");
}

TEST_F(Bytes, OfAnyCodePagePassThrough) {
    std::string line = "' ";
    for (int byte = 128; byte < 256; ++byte) line += static_cast<char>(byte);
    EXPECT_EQ(formatted("Sub \xC4rger()\r\n" + line + "\r\nEnd Sub\r\n"),
              "Sub \xC4rger()\r\n  " + line + "\r\nEnd Sub\r\n");
    // In a double-byte page the second byte of a letter can be a bracket's or a backslash's.
    EXPECT_EQ(formatted("Sub a()\r\n\x83\x5B = \"\x83\x5C\"\r\nEnd Sub\r\n"),
              "Sub a()\r\n  \x83\x5B = \"\x83\x5C\"\r\nEnd Sub\r\n");
}

TEST_F(Bytes, OfNulsPassThrough) {
    using std::string_literals::operator""s;
    EXPECT_EQ(formatted("Sub a()\r\nb = \"\0\"\r\nEnd Sub\r\n"s), "Sub a()\r\n  b = \"\0\"\r\nEnd Sub\r\n"s);
    EXPECT_EQ(formatted("Sub a()\r\nb\r\nEnd Sub\r\n\0\0\0\0"s),
              "Sub a()\r\n  b\r\nEnd Sub\r\n\0\0\0\0\r\n"s);
}

TEST_F(Bytes, OfAFormsHeaderAreKept) {
    const std::string header = "VERSION 5.00\nObject = \"{0}#1.0#0\"; \"x.ocx\"\r\n"
                               "Begin VB.Form F \n\tCaption=\"Sub\" \r\n   Begin VB.Label L \r\n"
                               "      BeginProperty Font \r\n      EndProperty\r\n   End\r\nEnd\n"
                               "Attribute VB_Name = \"F\"\nAttribute VB_Exposed = False\r\n";
    EXPECT_EQ(formatted(header + "Sub a()\nb\r\nEnd Sub\n", "f.frm"),
              header + "Sub a()\r\n  b\r\nEnd Sub\r\n");
}

TEST_F(Bytes, OfHiddenLinesInsideTheCodeAreKeptInTheirPlaces) {
    EXPECT_EQ(
        formatted("Sub a()\r\nAttribute a.VB_Description = \"x\"\n\tattribute  A.vb_UserMemId=0\r\nb\r\n"
                  "Attribute VB_Odd = 1\r\nAttribute = 1\r\nAttribute x.y = 2\r\nEnd Sub\r\n"),
        "Sub a()\r\nAttribute a.VB_Description = \"x\"\n\tattribute  A.vb_UserMemId=0\r\n  b\r\n"
        "Attribute VB_Odd = 1\r\n  Attribute = 1\r\n  Attribute x.y = 2\r\nEnd Sub\r\n");
}

TEST_F(Bytes, OfAHiddenLineFollowTheLastKeptLineBeforeIt) {
    EXPECT_EQ(
        formatted("a\r\n\r\nAttribute b.VB_VarHelpID = -1\r\n\r\nc\r\n", "a.bas", {"--remove-empty-lines"}),
        "a\r\nAttribute b.VB_VarHelpID = -1\r\nc\r\n");
}

TEST_F(Bytes, OfEmptyLinesBecomeSpacesOfTheirLevel) {
    EXPECT_EQ(formatted("Sub a()\r\n\r\n\t\r\nEnd Sub\r\n"), "Sub a()\r\n  \r\n  \r\nEnd Sub\r\n");
}

TEST_F(Bytes, OfALongLineAndALongModulePassThrough) {
    const std::string literal = '"' + std::string(300'000, 'x') + '"';
    EXPECT_EQ(formatted("Sub a()\r\nb = " + literal + "\r\nEnd Sub\r\n", "a.bas", {"--tab-width", "0"}),
              "Sub a()\r\nb = " + literal + "\r\nEnd Sub\r\n");
    std::string before = "Sub a()\n", after = before;
    for (int i = 0; i < 100'000; ++i) {
        const std::string line = "b = " + std::to_string(i) + "\n";
        before += line;
        after += "  " + line;
    }
    EXPECT_EQ(formatted(before + "End Sub\n"), after + "End Sub\n");
}

TEST_F(Bytes, OfALineThatWasTooLongBeforeMayBeMore) {
    const std::string line = "b = \"" + std::string(1100, 'x') + "\"\r\n";
    EXPECT_EQ(formatted("Sub a()\r\n" + line + "End Sub\r\n"), "Sub a()\r\n  " + line + "End Sub\r\n");
}

} // namespace
} // namespace corvelle::test
