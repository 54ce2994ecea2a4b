#include "base/temporary_folder.h"
#include "settings/editor_config.h"
#include "settings/ide_layout.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::settings {
namespace {

using formatter::structured::Body;
using formatter::structured::StructuredOptions;

const std::string structured = "corvelle_layout = Structured\n";

// What holds in the IDE for a module beside an .editorconfig with these lines.
std::optional<StructuredOptions> inIde(const std::string& lines) {
    const corvelle::test::TemporaryFolder folder;
    folder.write(".editorconfig", "root = true\n[*.bas]\n" + lines);
    return structuredInIde((folder.path() / "a.bas").string(), readIfThere);
}

TEST(IdeLayout, IsStructuredOnlyWhereThatIsSaid) {
    EXPECT_TRUE(inIde(structured));
    EXPECT_FALSE(inIde(""));
    EXPECT_FALSE(inIde("indent_size = 4\ncorvelle_case = nonsense\n"));
    EXPECT_FALSE(inIde("corvelle_layout = CLASSIC\ncorvelle_case = nonsense\n"));
    EXPECT_FALSE(inIde("corvelle_layout = off\n"));
    EXPECT_FALSE(inIde(structured + "corvelle_layout = unset\n"));
}

TEST(IdeLayout, FollowsTheOtherSettings) {
    const auto options = inIde(structured + "corvelle_case = flush\ntrim_trailing_whitespace = true\n");
    ASSERT_TRUE(options);
    EXPECT_EQ(options->style.caseBody, Body::Flush);
    EXPECT_TRUE(options->trim);
    EXPECT_FALSE(options->style.unit);
}

TEST(IdeLayout, IsAlwaysOfBlanks) {
    const auto unit = [](const std::string& lines) {
        const auto options = inIde(structured + lines);
        EXPECT_EQ(options->style.tabs, false);
        return options->style.unit;
    };
    EXPECT_EQ(unit(""), std::nullopt);
    EXPECT_EQ(unit("indent_size = 3\n"), 3U);
    EXPECT_EQ(unit("indent_style = tab\n"), 4U);
    EXPECT_EQ(unit("indent_style = tab\ntab_width = 8\n"), 8U);
    EXPECT_EQ(unit("indent_style = tab\nindent_size = 8\ntab_width = 4\n"), 8U);
    EXPECT_EQ(unit("corvelle_unit = tab\n"), 4U);
}

TEST(IdeLayout, TellsOfSettingsThatCannotBeFollowedOrRead) {
    EXPECT_THROW(inIde(structured + "corvelle_case = nonsense\n"), SettingsError);
    EXPECT_THROW(inIde("corvelle_layout = nonsense\n"), SettingsError);
    EXPECT_THROW(inIde(std::string("corvelle_layout = structured\0", 29)), SettingsError);
}

TEST(IdeLayout, LooksAboveTheModulesFolderToo) {
    const corvelle::test::TemporaryFolder folder;
    folder.write(".editorconfig", "root = true\n[source/**.bas]\n" + structured);
    const auto source = folder.path() / "source" / "parts";
    EXPECT_TRUE(structuredInIde((source / ".." / "parts" / "a.bas").string(), readIfThere));
    EXPECT_FALSE(structuredInIde((folder.path() / "a.bas").string(), readIfThere));
}

} // namespace
} // namespace corvelle::settings
