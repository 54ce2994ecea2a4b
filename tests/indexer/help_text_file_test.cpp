#include "indexer/help_text_file.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace corvelle::test {
namespace {

TEST(HelpTexts, AreReadByTopic) {
    const auto texts = readHelpTexts(".topic  IDH_A\r\nA\r\nb\r\n.topic IDH_B\r\n\r\n");
    EXPECT_EQ(texts.at("IDH_A"), "A\nb\n");
    EXPECT_EQ(texts.at("IDH_B"), "\n");
    EXPECT_EQ(texts.size(), 2U);
}

TEST(HelpTexts, RefuseWhatTheCompilerWould) {
    for (const char* bytes :
         {"text\r\n", ".topic\r\n", ".topic A B\r\n", ".TOPIC A\r\n", ".topic 1A\r\n", ".x A\r\n",
          ".topic A\r\n.topic A\r\n", ".topic A", ".topic A\nx\r\n", ".topic A\r\nx\ry\r\n"})
        EXPECT_THROW(readHelpTexts(bytes), std::runtime_error) << bytes;
}

TEST(HelpMap, IsReadByName) {
    const auto map = readHelpMap("#define IDH_A  1000\r\n#define IDH_B  1001\r\n");
    EXPECT_EQ(map.at("IDH_A"), 1000);
    EXPECT_EQ(map.at("IDH_B"), 1001);
}

TEST(HelpMap, RefusesWhatTheCompilerWould) {
    for (const char* bytes :
         {"#define A 1", "#define A\r\n", "#define   1000\r\n", "#define A 1x\r\n", "define A 1\r\n",
          "#define A 1\r\n#define A 2\r\n", "#define A 1\r\n#define B 1\r\n", "\r\n"})
        EXPECT_ANY_THROW(readHelpMap(bytes)) << bytes;
}

} // namespace
} // namespace corvelle::test
