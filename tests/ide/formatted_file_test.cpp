#include "ide/workspace/formatted_file.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::workspace {
namespace {

struct Text {
    std::string bytes;
    void write(std::string_view more) { bytes += more; }
};

// A file of which the code lines become what `lines` has at their places; nothing for a dropped one.
struct Composed {
    struct Line {
        int spaces;
        std::string_view text;
        bool kept = true;
    };

    Composed(std::string bytes, const std::vector<Line>& lines)
        : file(std::move(bytes), ide::ComponentType::StdModule) {
        buffer.beginLoading(lines.size());
        for (const Line& line : lines) {
            kept.push_back(line.kept);
            if (!line.kept) continue;
            buffer.append(line.text);
            buffer.setSpaces(buffer.maxIndx(), static_cast<std::int16_t>(line.spaces));
        }
    }

    FormattedFile formatted() const { return FormattedFile(file, buffer, kept); }
    std::string bytes() const {
        Text text;
        formatted().write(text);
        return text.bytes;
    }

    ModuleFile file;
    base::LineBuffer buffer;
    std::vector<bool> kept;
};

TEST(FormattedFile, ThatIsTheSameIsNotChanged) {
    const Composed same("a\r\n  b\r\n", {{0, "a"}, {2, "b"}});
    EXPECT_FALSE(same.formatted().changed());
    EXPECT_EQ(same.bytes(), "a\r\n  b\r\n");
}

TEST(FormattedFile, IsChangedByALineEndAnIndentationABlankOrARemovedLine) {
    EXPECT_TRUE(Composed("a\n", {{1, "a"}}).formatted().changed());
    EXPECT_TRUE(Composed(" a\n", {{0, "a"}}).formatted().changed());
    EXPECT_TRUE(Composed("\ta\n", {{1, "a"}}).formatted().changed());
    EXPECT_TRUE(Composed("a \n", {{0, "a"}}).formatted().changed());
    EXPECT_TRUE(Composed("a", {{0, "a"}}).formatted().changed());
    EXPECT_TRUE(Composed("a\nb\r\n", {{0, "a"}, {0, "b"}}).formatted().changed());
    EXPECT_TRUE(Composed("a\n\n", {{0, "a"}, {0, "", false}}).formatted().changed());
}

TEST(FormattedFile, KeepsHiddenLinesBehindTheLastKeptLineBeforeThem) {
    const Composed composed("Attribute VB_Name = \"x\"\na\n\nAttribute b.VB_VarHelpID = -1\n\nc\n",
                            {{0, "a"}, {0, "", false}, {0, "", false}, {3, "c"}});
    EXPECT_EQ(composed.bytes(), "Attribute VB_Name = \"x\"\na\nAttribute b.VB_VarHelpID = -1\n   c\n");
}

TEST(FormattedFile, KeepsHiddenLinesOfWhichNoLineBeforeIsKept) {
    const Composed composed("\nAttribute b.VB_VarHelpID = -1\r\nc\n", {{0, "", false}, {0, "c"}});
    EXPECT_EQ(composed.bytes(), "Attribute b.VB_VarHelpID = -1\r\nc\r\n");
}

TEST(FormattedFile, EndsItsLastLine) {
    EXPECT_EQ(Composed("a\nb", {{0, "a"}, {0, "b"}}).bytes(), "a\nb\n");
    EXPECT_EQ(Composed("a", {{0, "a"}}).bytes(), "a\r\n");
    const Composed hidden("a\nAttribute b.VB_VarHelpID = -1", {{0, "a"}});
    EXPECT_TRUE(hidden.formatted().changed());
    EXPECT_EQ(hidden.formatted().missingLineEnd(), "\n");
    EXPECT_EQ(hidden.bytes(), "a\nAttribute b.VB_VarHelpID = -1\n");
}

TEST(FormattedFile, EndsAHiddenLineThatBecomesTheLastOne) {
    const Composed composed("a\nAttribute b.VB_VarHelpID = -1\n\n", {{0, "a"}, {0, "", false}});
    EXPECT_EQ(composed.bytes(), "a\nAttribute b.VB_VarHelpID = -1\n");
}

TEST(FormattedFile, WritesAsManySpacesAsALineCanHave) {
    EXPECT_EQ(Composed("a\n", {{32767, "a"}}).bytes(), std::string(32767, ' ') + "a\n");
    EXPECT_EQ(Composed("a\n", {{64, "a"}}).bytes(), std::string(64, ' ') + "a\n");
}

} // namespace
} // namespace corvelle::workspace
