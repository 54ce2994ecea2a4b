#include "settings/editor_config.h"

#include <gtest/gtest.h>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using corvelle::settings::EditorConfig;
using corvelle::settings::SettingsError;

struct Files {
    std::map<std::string, std::string> bytes;
    std::vector<std::string> asked;

    EditorConfig config() {
        return EditorConfig([this](const std::string& path) -> std::optional<std::string> {
            asked.push_back(path);
            const auto found = bytes.find(path);
            if (found == bytes.end()) return std::nullopt;
            if (found->second == "unreadable") throw std::runtime_error("Permission denied");
            return found->second;
        });
    }
    std::string of(const std::string& path) {
        auto all = config();
        std::string text;
        for (const auto& [key, property] : all.propertiesOf(path)) {
            text += (text.empty() ? "" : " ") + key + "=" + property.value;
        }
        return text;
    }
};

// What a file with these bytes says of a.bas beside it.
std::string says(const std::string& bytes) {
    return Files{{{"/x/.editorconfig", bytes}}, {}}.of("/x/a.bas");
}

TEST(EditorConfig, TakesNearerFilesAndLaterSectionsBeforeOthers) {
    Files files{{{"/.editorconfig", "[*]\na=1\nb=1\nc=1\n"},
                 {"/x/y/.editorconfig", "[*]\nb=2\nc=2\n[*.bas]\nc=3\n[*.cls]\nc=4\n"}},
                {}};
    EXPECT_EQ(files.of("/x/y/a.bas"), "a=1 b=2 c=3");
    EXPECT_EQ(files.of("/x/a.bas"), "a=1 b=1 c=1");
    EXPECT_EQ(files.of("/x/y/z/a.cls"), "a=1 b=2 c=4");
}

TEST(EditorConfig, LooksNoFurtherUpThanARoot) {
    Files files{{{"/.editorconfig", "[*]\na=1\n"}, {"/x/.editorconfig", " Root = TRUE\n[*]\nb=2\n"}}, {}};
    EXPECT_EQ(files.of("/x/a.bas"), "b=2");
    EXPECT_EQ(files.asked, (std::vector<std::string>{"/x/.editorconfig"}));
    files.bytes["/x/.editorconfig"] = "[*]\nroot=true\n";
    EXPECT_EQ(files.of("/x/a.bas"), "a=1 root=true");
}

TEST(EditorConfig, KnowsWhereEachPropertyComesFrom) {
    Files files{{{"/.editorconfig", "[*]\na=1\n"}, {"/x/.editorconfig", "# x\n\n[*]\nb=2\n"}}, {}};
    auto config = files.config();
    const auto properties = config.propertiesOf("/x/a.bas");
    EXPECT_EQ(properties.at("a").path, "/.editorconfig");
    EXPECT_EQ(properties.at("a").line, 2U);
    EXPECT_EQ(properties.at("b").path, "/x/.editorconfig");
    EXPECT_EQ(properties.at("b").line, 4U);
}

TEST(EditorConfig, LooksIntoEachFolderOnce) {
    Files files{{{"/x/.editorconfig", "[*]\na=1\n"}}, {}};
    auto config = files.config();
    config.propertiesOf("/x/y/a.bas");
    config.propertiesOf("/x/y/b.bas");
    config.propertiesOf("/x/z/b.bas");
    config.propertiesOf("/x/b.bas");
    EXPECT_EQ(files.asked, (std::vector<std::string>{"/x/y/.editorconfig", "/x/.editorconfig",
                                                     "/.editorconfig", "/x/z/.editorconfig"}));
}

TEST(EditorConfig, TakesDrivesForTheTopOfTheirPaths) {
    Files files{{{"C:/.editorconfig", "[*]\na=1\n"}, {"C:/x/.editorconfig", "[/*]\nb=1\n"}}, {}};
    EXPECT_EQ(files.of("C:/x/a.bas"), "a=1 b=1");
}

TEST(EditorConfig, TakesPropertiesAwayWithUnset) {
    EXPECT_EQ(says("[*]\na=1\nb=2\n[*.bas]\na=UnSet\n"), "b=2");
}

TEST(EditorConfig, ReadsKeysAndItsOwnWordsInAnyCase) {
    EXPECT_EQ(says("[*]\nFoo=Bar\nINDENT_STYLE=Tab\nCharset=UTF-8\n"),
              "charset=utf-8 foo=Bar indent_size=tab indent_style=tab");
}

TEST(EditorConfig, AddsWhatFollows) {
    EXPECT_EQ(says("[*]\nindent_size=3\n"), "indent_size=3 tab_width=3");
    EXPECT_EQ(says("[*]\nindent_size=3\ntab_width=8\n"), "indent_size=3 tab_width=8");
    EXPECT_EQ(says("[*]\nindent_style=tab\ntab_width=7\n"), "indent_size=7 indent_style=tab tab_width=7");
    EXPECT_EQ(says("[*]\nindent_size=tab\n"), "indent_size=tab");
    EXPECT_EQ(says("[*]\nindent_size=tab\ntab_width=5\n"), "indent_size=5 tab_width=5");
}

TEST(EditorConfig, TakesCommentsAtLineStartsOnly) {
    EXPECT_EQ(says("; x\n  # y\n[*]\n # [a]\na = 1 # z ; w\nb=;\n"), "a=1 # z ; w b=;");
}

TEST(EditorConfig, ReadsAMarkCarriageReturnsBlanksAndAnUnendedLine) {
    EXPECT_EQ(says("\xEF\xBB\xBF[*]\r\n a\t=\t1 2 \r\nb=3"), "a=1 2 b=3");
    EXPECT_EQ(says("[*]\na=b=c\nd=\n"), "a=b=c d=");
}

TEST(EditorConfig, SkipsLinesThatAreNothing) {
    EXPECT_EQ(says("a=1\n[*]\nb\n=2\nc:3\nd=4\n"), "d=4");
}

TEST(EditorConfig, KeepsPairsFromTheSectionBeforeOneThatCannotBeRead) {
    EXPECT_EQ(says("[*]\na=1\n[*.bas\nb=2\n[*.bas]\nc=3\n"), "a=1 c=3");
}

TEST(EditorConfig, SkipsWhatIsTooLong) {
    const auto at = [](std::size_t length) { return std::string(length, 'k'); };
    EXPECT_EQ(says("[*]\n" + at(1024) + "=1\n"), at(1024) + "=1");
    EXPECT_EQ(says("[*]\n" + at(1025) + "=1\n"), "");
    EXPECT_EQ(says("[*]\na=" + at(4096) + "\n"), "a=" + at(4096));
    EXPECT_EQ(says("[*]\na=" + at(4097) + "\n"), "");
    EXPECT_EQ(says("[{" + at(4087) + ",*.bas}]\na=1\n"), "a=1");
    EXPECT_EQ(says("[{" + at(4089) + ",*.bas}]\na=1\n"), "");
}

TEST(EditorConfig, TellsOfAFileThatCannotBeReadOrIsNoText) {
    const auto told = [](const std::string& bytes) -> std::string {
        try {
            says(bytes);
        } catch (const SettingsError& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(told("unreadable"), "/x/.editorconfig: Permission denied");
    EXPECT_EQ(told(std::string("[*]\na=\0\n", 8)),
              "/x/.editorconfig: this is a binary file, not a settings file");
    EXPECT_EQ(told(std::string("\xFF\xFE[\0*\0]\0\n\0a\0=\0b\0", 16)),
              "/x/.editorconfig: this is UTF-16 text, not a settings file");
    EXPECT_EQ(told(std::string((1U << 20) + 1, '\n')),
              "/x/.editorconfig: this is more than a megabyte, not a settings file");
    EXPECT_EQ(told("[*]\n"), "");
}

TEST(EditorConfig, ForgetsAnUnreadableFileBeyondARoot) {
    Files files{{{"/.editorconfig", "unreadable"}, {"/x/.editorconfig", "root=true\n[*]\na=1\n"}}, {}};
    EXPECT_EQ(files.of("/x/a.bas"), "a=1");
}

} // namespace
