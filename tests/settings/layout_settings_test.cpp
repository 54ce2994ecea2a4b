#include "settings/layout_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace corvelle::settings {
namespace {

using formatter::structured::Body;
using formatter::structured::MarginComments;
using formatter::structured::Place;
using formatter::structured::Style;
using testing::HasSubstr;
using testing::Not;

// Properties as a file /x/.editorconfig with these lines below [*] gives them.
Properties properties(const std::string& lines) {
    EditorConfig config([&](const std::string& path) -> std::optional<std::string> {
        if (path != "/x/.editorconfig") return std::nullopt;
        return "[*]\n" + lines;
    });
    return config.propertiesOf("/x/a.bas");
}

LayoutSettings resolve(const std::string& lines, const LayoutOptions& options = {}) {
    return resolveLayout(options, properties(lines));
}

std::string refused(const std::string& lines) {
    try {
        resolve(lines);
    } catch (const SettingsError& error) {
        return error.what();
    }
    return "";
}

TEST(LayoutSettings, LeaveEverythingToTheModuleWhereNothingIsSaid) {
    const auto settings = resolve("");
    EXPECT_EQ(settings.layout, Layout::Structured);
    EXPECT_FALSE(settings.structured.style.unit);
    EXPECT_FALSE(settings.structured.style.tabs);
    EXPECT_FALSE(settings.structured.style.caseBody);
    EXPECT_FALSE(settings.structured.trim);
    EXPECT_FALSE(settings.structured.maxEmptyLines);
    EXPECT_FALSE(settings.classicTab);
    EXPECT_EQ(resolveLayout({}, {}, Layout::Classic).layout, Layout::Classic);
}

TEST(LayoutSettings, TakeTheLayoutFromTheFileAndBeforeItFromTheOption) {
    EXPECT_EQ(resolve("corvelle_layout = Classic\n").layout, Layout::Classic);
    EXPECT_EQ(resolve("corvelle_layout = off\n").layout, Layout::Off);
    LayoutOptions options;
    options.layout = Layout::Structured;
    const auto settings = resolve("corvelle_layout = off\n", options);
    EXPECT_EQ(settings.layout, Layout::Structured);
    EXPECT_EQ(settings.from.at("layout"), "option --layout");
}

TEST(LayoutSettings, TakeEachKeyOfTheStyle) {
    const auto settings =
        resolve("corvelle_procedure = flush\ncorvelle_type = INDENT\ncorvelle_case = flush\n"
                "corvelle_with = flush\ncorvelle_directive_body = indent\n"
                "corvelle_directive = code\ncorvelle_margin_comments = follow\n");
    const auto& style = settings.structured.style;
    EXPECT_EQ(style.procedure, Body::Flush);
    EXPECT_EQ(style.type, Body::Indent);
    EXPECT_EQ(style.caseBody, Body::Flush);
    EXPECT_EQ(style.withBody, Body::Flush);
    EXPECT_EQ(style.directiveBody, Body::Indent);
    EXPECT_EQ(style.directive, Place::Code);
    EXPECT_EQ(style.marginComments, MarginComments::Follow);
    EXPECT_EQ(settings.from.at("directive"), "/x/.editorconfig:7");
    EXPECT_EQ(resolve("corvelle_declarations = flush\n").structured.style.declarations, Body::Flush);
    EXPECT_EQ(resolve("corvelle_on_error = flush\n").structured.style.onError, Body::Flush);
    EXPECT_FALSE(resolve("corvelle_case = auto\n").structured.style.caseBody);
}

TEST(LayoutSettings, TakeALevelFromTheFormatsOwnProperties) {
    const auto style = [](const std::string& lines) { return resolve(lines).structured.style; };
    EXPECT_EQ(style("indent_size = 3\n").unit, 3U);
    EXPECT_EQ(style("indent_size = 3\n").tabs, false);
    EXPECT_EQ(style("indent_style = tab\ntab_width = 8\n").tabs, true);
    EXPECT_EQ(style("indent_style = tab\ntab_width = 8\n").unit, 1U);
    EXPECT_EQ(style("indent_style = tab\ntab_width = 8\n").tabWidth, 8U);
    EXPECT_EQ(style("indent_style = tab\nindent_size = 8\ntab_width = 4\n").unit, 2U);
    EXPECT_EQ(style("indent_style = tab\n").unit, 1U);
    EXPECT_EQ(style("indent_style = space\n").tabs, false);
    EXPECT_FALSE(style("indent_style = space\n").unit);
    EXPECT_EQ(resolve("indent_size = 3\n").classicTab, 3);
    EXPECT_FALSE(style("indent_size = 17\n").unit);
    EXPECT_FALSE(style("indent_size = some\n").unit);
}

TEST(LayoutSettings, SayWhereEachValueComesFrom) {
    LayoutOptions options;
    options.maxEmptyLines = 1;
    const auto from =
        resolve("indent_style = tab\ntab_width = 8\ntrim_trailing_whitespace = true\n", options).from;
    EXPECT_EQ(from.at("unit"), "/x/.editorconfig:2");
    EXPECT_EQ(from.at("tab_width"), "/x/.editorconfig:3");
    EXPECT_EQ(from.at("trim_trailing_whitespace"), "/x/.editorconfig:4");
    EXPECT_EQ(from.at("max_empty_lines"), "option --max-empty-lines");
    EXPECT_EQ(resolve("indent_style = space\n").from.at("unit"), "/x/.editorconfig:2");
    EXPECT_EQ(resolve("trim_trailing_whitespace = yes\n").from.count("trim_trailing_whitespace"), 0U);
    options.tabWidth = 3;
    EXPECT_EQ(resolve("indent_size = 2\n", options).from.at("unit"), "option --tab-width");
    EXPECT_EQ(resolve("indent_size = 2\n", options).from.at("tab-width"), "option --tab-width");
}

TEST(LayoutSettings, LetTheirOwnUnitWinOverTheFormats) {
    const auto style = [](const std::string& lines) {
        return resolve("indent_size = 3\n" + lines).structured.style;
    };
    EXPECT_EQ(style("corvelle_unit = 2\n").unit, 2U);
    EXPECT_EQ(style("corvelle_unit = tab\n").tabs, true);
    EXPECT_FALSE(style("corvelle_unit = auto\n").unit);
}

TEST(LayoutSettings, LetOptionsWin) {
    LayoutOptions options;
    options.tabWidth = 2;
    options.trim = true;
    options.maxEmptyLines = 1;
    options.style = {{"case", "flush"}, {"type", "auto"}};
    const auto settings = resolve("indent_style = tab\nindent_size = 8\ntrim_trailing_whitespace = false\n"
                                  "corvelle_case = indent\ncorvelle_type = flush\n",
                                  options);
    EXPECT_EQ(settings.structured.style.unit, 2U);
    EXPECT_EQ(settings.structured.style.tabs, false);
    EXPECT_EQ(settings.classicTab, 2);
    EXPECT_TRUE(settings.structured.trim);
    EXPECT_EQ(settings.structured.maxEmptyLines, 1U);
    EXPECT_EQ(settings.structured.style.caseBody, Body::Flush);
    EXPECT_FALSE(settings.structured.style.type);
    EXPECT_EQ(settings.from.at("case"), "option --style");
    EXPECT_EQ(settings.from.count("type"), 0U);
}

TEST(LayoutSettings, RefuseWrongValuesAndUnknownKeysOfTheirOwn) {
    EXPECT_EQ(
        refused("corvelle_layout = best\n"),
        "/x/.editorconfig:2: corvelle_layout = best: the value must be one of structured, classic, off");
    EXPECT_EQ(refused("\ncorvelle_case = left\n"),
              "/x/.editorconfig:3: corvelle_case = left: the value must be one of auto, indent, flush");
    EXPECT_EQ(
        refused("corvelle_unit = 0\n"),
        "/x/.editorconfig:2: corvelle_unit = 0: the value must be one of auto, tab, a number of blanks from 1 to 16");
    EXPECT_EQ(refused("corvelle_cases = flush\n"),
              "/x/.editorconfig:2: corvelle_cases: there is no such setting");
    EXPECT_EQ(refused("indent_size = left\nother = 1\n"), "");
    EXPECT_EQ(refused("corvelle_case = left\ncorvelle_case = unset\n"), "");
}

TEST(LayoutSettings, SayWhyAnOptionOfTheStyleIsWrong) {
    EXPECT_EQ(wrongStyle("case", "flush"), "");
    EXPECT_EQ(wrongStyle("case", "left"), "\"left\" is none of auto, indent, flush");
    EXPECT_THAT(wrongStyle("cases", "flush"), HasSubstr("\"cases\" is none of unit, procedure"));
}

TEST(LayoutSettings, AreShownWithWhereTheyComeFrom) {
    LayoutOptions options;
    options.trim = true;
    const auto settings = resolve("corvelle_case = flush\nend_of_line = lf\n", options);
    Style style;
    style.unit.count = 2;
    style.unitBy = {formatter::structured::Source::Voted, 12, 14};
    style.caseBody = Body::Flush;
    const std::string shown = shownSettings(settings, style);
    EXPECT_THAT(shown, HasSubstr("  layout = structured               default\n"));
    EXPECT_THAT(shown, HasSubstr("  unit = 2                          the module, 12 of 14\n"));
    EXPECT_THAT(shown, HasSubstr("  case = flush                      /x/.editorconfig:2\n"));
    EXPECT_THAT(shown, HasSubstr("  procedure = indent                default\n"));
    EXPECT_THAT(shown, HasSubstr("  trim_trailing_whitespace = true   option --trim\n"));
    EXPECT_THAT(shown, HasSubstr("  max_empty_lines = any             default\n"));
    EXPECT_THAT(shown, HasSubstr("  not followed: end_of_line = lf (/x/.editorconfig:3)\n"));
}

TEST(LayoutSettings, ShowOfTheClassicLayoutItsWidthAlone) {
    const std::string shown = shownSettings(resolve("corvelle_layout = classic\nindent_size = 3\n"), {});
    EXPECT_THAT(shown, HasSubstr("  layout = classic                  /x/.editorconfig:2\n"));
    EXPECT_THAT(shown, HasSubstr("  tab-width = 3                     /x/.editorconfig:3\n"));
    EXPECT_THAT(shown, Not(HasSubstr("procedure")));
}

} // namespace
} // namespace corvelle::settings
