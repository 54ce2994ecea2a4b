#include "indexer/topic_edit.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::indexer {
namespace {

const std::string file = "; made by hand\r\n.topic  IDH_AAAA\r\nNothing  is known. \r\n\r\n"
                         "  .TOPIC my IDH_AAAB\r\nCloses\r\nthe window.\r\n\r\n\r\n"
                         ".topic  Other.Help\r\n\tan other \r\n.topic\r\nlost\r\n";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

TEST(TopicEdit, ReplacesTheLinesOfOneTextAlone) {
    EXPECT_EQ(withTopicText(file, "IDH_AAAB", "new"), replaced(file, "Closes\r\nthe window.", "new"));
    EXPECT_EQ(withTopicText(file, "IDH_AAAA", "a\r\nb"), replaced(file, "Nothing  is known. ", "a\r\nb"));
    EXPECT_EQ(withTopicText(file, "Other.Help", " x "), replaced(file, "\tan other ", " x "));
}

TEST(TopicEdit, PutsATopicThatIsNotThereAtTheEnd) {
    EXPECT_EQ(withTopicText(file, "IDH_AAAC", "c"), file + ".topic  IDH_AAAC\r\nc\r\n");
    EXPECT_EQ(withTopicText(".topic  IDH_AAAA\na", "IDH_AAAB", "b\nc"),
              ".topic  IDH_AAAA\na\n.topic  IDH_AAAB\nb\nc\n");
    EXPECT_EQ(withTopicText(".topic  IDH_AAAA", "IDH_AAAB", "b"),
              ".topic  IDH_AAAA\r\n.topic  IDH_AAAB\r\nb\r\n");
    EXPECT_EQ(withTopicText(file, "IDH_aaab", "c"), file + ".topic  IDH_aaab\r\nc\r\n") << "another name";
}

TEST(TopicEdit, BeginsAFileWithTheDefaultTopic) {
    EXPECT_EQ(withTopicText("", "IDH_AAAB", "b"), ".topic  IDH_AAAA\r\n\r\n.topic  IDH_AAAB\r\nb\r\n");
    EXPECT_EQ(withTopicText("", "IDH_AAAA", "a"), ".topic  IDH_AAAA\r\na\r\n");
}

TEST(TopicEdit, EditsTheLastOfTwoTopicsOfOneName) {
    const std::string twice = ".topic  A\r\n1\r\n.topic  B\r\n2\r\n.topic  A\r\n3\r\n.topic  C\r\n4\r\n";
    EXPECT_EQ(withTopicText(twice, "A", "new"), replaced(twice, "3", "new"));
    EXPECT_EQ(withoutTopic(twice, "A"), ".topic  B\r\n2\r\n.topic  C\r\n4\r\n");
}

TEST(TopicEdit, RemovesATopicToTheNextOne) {
    EXPECT_EQ(withoutTopic(file, "IDH_AAAB"),
              replaced(file, "  .TOPIC my IDH_AAAB\r\nCloses\r\nthe window.\r\n\r\n\r\n", ""));
    EXPECT_EQ(withoutTopic(".topic  A\r\na\r\n.topic  B\r\nb", "B"), ".topic  A\r\na\r\n");
    EXPECT_EQ(withoutTopic(file, "IDH_AAAC"), file);
    EXPECT_EQ(withoutTopic("", "IDH_AAAC"), "");
}

TEST(TopicEdit, WritesTheLineEndsThatItFinds) {
    EXPECT_EQ(withTopicText(".topic  A\na\n.topic  B\r\nb\r\n", "A", "1\r\n2\n3\r4"),
              ".topic  A\n1\n2\n3\n4\n.topic  B\r\nb\r\n");
    EXPECT_EQ(withTopicText(".topic  A\ra\r.topic  B\rb\r", "A", "1\r\n2"),
              ".topic  A\r1\r2\r.topic  B\rb\r");
    EXPECT_EQ(withTopicText(".topic  A\r\nno end", "A", "new"), ".topic  A\r\nnew") << "nor has it one now";
    EXPECT_EQ(withTopicText(".topic  A", "A", "new"), ".topic  A\r\nnew\r\n");
}

TEST(TopicEdit, GivesATextToATopicWithoutALine) {
    EXPECT_EQ(withTopicText(".topic  A\r\n.topic  B\r\nb\r\n", "A", "a"),
              ".topic  A\r\na\r\n.topic  B\r\nb\r\n");
    EXPECT_EQ(withTopicText(".topic  A\r\n", "A", "a"), ".topic  A\r\na\r\n");
    EXPECT_EQ(withTopicText(".topic  A\r\n\r\n.topic  B\r\n", "A", "a"), ".topic  A\r\na\r\n.topic  B\r\n")
        << "an empty text has a line too";
    EXPECT_EQ(withTopicText(".topic  A\r\na\r\n.topic  B\r\n", "A", ""), ".topic  A\r\n\r\n.topic  B\r\n");
}

TEST(TopicEdit, DoesNotLetTheFileGrowByTheSameTextAgain) {
    for (const std::string text : {"", "a", "a\r\n", "a\r\n\r\n", "\r\n", "\r\n\r\na", "a\n \n", "a\n "}) {
        const auto once = withTopicText(file, "IDH_AAAB", text);
        EXPECT_EQ(withTopicText(once, "IDH_AAAB", text), once) << text;
        const auto atEnd = withTopicText(".topic  A\nno end", "A", text);
        EXPECT_EQ(withTopicText(atEnd, "A", text), atEnd) << text;
        const auto fresh = withTopicText(file, "IDH_AAAC", text);
        EXPECT_EQ(withTopicText(fresh, "IDH_AAAC", text), fresh) << text;
    }
}

} // namespace
} // namespace corvelle::indexer
