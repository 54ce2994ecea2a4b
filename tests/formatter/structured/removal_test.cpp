#include "formatter/structured/lay_out.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::formatter::structured {
namespace {

using test::layOut;

TEST(RemovalTest, BlanksAtTheEndsStayUnlessTrimmed) {
    const std::string text =
        "Sub S()   \n    \n    x = 1  \n    y = \"a  \n    z = 1 + _  \n        2\t\nEnd Sub\n";
    EXPECT_EQ(layOut(text), text);
    StructuredOptions options;
    options.trim = true;
    EXPECT_EQ(layOut(text, options),
              "Sub S()\n\n    x = 1\n    y = \"a  \n    z = 1 + _  \n        2\nEnd Sub\n");
}

TEST(RemovalTest, EmptyLinesAreFolded) {
    const std::string text = "a\n\n  \n\nb _\n\n\n\nc\n";
    StructuredOptions options;
    options.maxEmptyLines = 1;
    EXPECT_EQ(layOut(text, options), "a\n\nb _\n\n\nc\n");
    options.maxEmptyLines = 0;
    EXPECT_EQ(layOut(text, options), "a\nb _\n\nc\n");
}

TEST(RemovalTest, EmptyLinesGoButNotTheEndOfAStatement) {
    StructuredOptions options;
    options.removeEmptyLines = true;
    EXPECT_EQ(layOut("a\n\t\nb _\n\nc\n\n", options), "a\nb _\n\nc\n");
}

TEST(RemovalTest, CommentLinesGoWhole) {
    StructuredOptions options;
    options.removeCommentLines = true;
    EXPECT_EQ(layOut("'a\n  Rem b\nc 'd\n'e _\n f _\n\ng = _\n'h\nRemark\n", options),
              "c 'd\ng = _\n'h\nRemark\n");
}

TEST(RemovalTest, TrailingCommentsGoAndNothingElse) {
    StructuredOptions options;
    options.removeTrailingComments = true;
    EXPECT_EQ(
        layOut(
            "a = \"it's\" 'b\n'c\nd = [e'f] ' g\nh: Rem i\nj 'k _\n l\nm = 1 _ 'n\n#If o Then 'p\n#End If\n"
            "q = _\n'r\ns\n",
            options),
        "a = \"it's\"\n'c\nd = [e'f]\nh:\nj\nm = 1 _ 'n\n#If o Then\n#End If\nq = _\n\ns\n");
}

TEST(RemovalTest, ACommentGoesWithAllItsLinesOrNotAtAll) {
    StructuredOptions options;
    options.removeCommentLines = options.removeTrailingComments = true;
    EXPECT_EQ(layOut("'a _\n b\r _\n c\nd 'e _\n f\rg\nh 'i _\n j _\n k\n'l _", options),
              "'a _\n b\r _\n c\nd 'e _\n f\rg\nh\n");
}

} // namespace
} // namespace corvelle::formatter::structured
