// The manual's pages, contents, keywords and context numbers, held against one another and against the
// windows.

#include "base/file.h"
#include "formatter/forms/frm_error.h"
#include "formatter/forms/frm_formatter.h"
#include "formatter/forms/frm_main.h"
#include "forms/headless/headless_desktop.h"
#include "indexer/forms/frm_index_main.h"
#include "indexer/forms/frm_indexer.h"
#include "indexer/forms/frm_txt.h"
#include "places.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace corvelle::help {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::UnorderedElementsAreArray;

const std::filesystem::path folder = HELP_DIR;

std::string read(const std::string& name) {
    return base::readFile(folder / name);
}

/// The first group of every match.
std::vector<std::string> found(const std::string& text, const std::string& pattern) {
    std::vector<std::string> result;
    const std::regex expression(pattern, std::regex::icase);
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
        result.push_back((*match)[1]);
    return result;
}

std::set<std::string> pages() {
    std::set<std::string> result;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".html") result.insert(entry.path().filename().string());
    return result;
}

/// "page.html#anchor" as page and anchor; a page alone has none.
std::pair<std::string, std::string> splitLink(const std::string& link) {
    const auto sign = link.find('#');
    if (sign == std::string::npos) return {link, ""};
    return {link.substr(0, sign), link.substr(sign + 1)};
}

void expectResolves(const std::string& link, const std::string& from) {
    const auto [page, anchor] = splitLink(link);
    const std::string& target = page.empty() ? from : page;
    ASSERT_THAT(pages(), Contains(target)) << link << " in " << from;
    if (anchor.empty()) return;
    EXPECT_THAT(found(read(target), "<a name=\"([^\"]*)\""), Contains(anchor)) << link << " in " << from;
}

/// The pages that a contents or keyword file leads to.
std::vector<std::string> targets(const std::string& file) {
    return found(read(file), "name=\"Local\" value=\"([^\"]*)\"");
}

std::string section(const std::string& name) {
    const std::string project = read("FormatterHelp.hhp");
    const auto start = project.find("[" + name + "]\n");
    if (start == std::string::npos) return {};
    return project.substr(start, project.find("\n[", start) - start + 1);
}

/// What a reader sees of a page, in one line.
std::string visibleText(const std::string& page) {
    std::string text = std::regex_replace(read(page), std::regex("<[^>]*>"), "");
    const std::pair<const char*, const char*> entities[] = {{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}};
    for (const auto& [entity, character] : entities)
        text = std::regex_replace(text, std::regex(entity), character);
    return std::regex_replace(text, std::regex("\\s+"), " ");
}

TEST(Manual, EveryLinkAndAnchorResolves) {
    for (const std::string& page : pages()) {
        const auto links = found(read(page), "<a href=\"([^\"]*)\"");
        EXPECT_FALSE(links.empty()) << page;
        for (const std::string& link : links) expectResolves(link, page);
    }
}

TEST(Manual, EveryPictureAndStyleSheetIsThere) {
    for (const std::string& page : pages()) {
        const std::string text = read(page);
        for (const std::string& picture : found(text, "<img src=\"([^\"]*)\""))
            EXPECT_TRUE(std::filesystem::is_regular_file(folder / picture)) << picture << " in " << page;
        EXPECT_EQ(found(text, "<link rel=\"stylesheet\" type=\"text/css\" href=\"([^\"]*)\""),
                  std::vector<std::string>{"style.css"})
            << page;
    }
}

TEST(Manual, EveryPageHasItsTitleAsItsHeading) {
    for (const std::string& page : pages())
        EXPECT_EQ(found(read(page), "<title>([^<]*)</title>"), found(read(page), "<h1>([^<]*)</h1>")) << page;
}

TEST(Manual, TheContentsLeadToEveryPageOnceUnderItsTitle) {
    EXPECT_THAT(targets("contents.hhc"), UnorderedElementsAreArray(pages()));
    const std::string contents = read("contents.hhc");
    for (const std::string& page : pages()) {
        const auto title = found(read(page), "<title>([^<]*)</title>").at(0);
        EXPECT_THAT(contents,
                    HasSubstr("name=\"Name\" value=\"" + title + "\"><param name=\"Local\" value=\"" + page));
    }
}

TEST(Manual, TheFirstPageLeadsToEveryOther) {
    std::set<std::string> others = pages();
    others.erase("index.html");
    EXPECT_THAT(found(read("index.html"), "<a href=\"([^\"#]*)"), IsSupersetOf(others));
}

TEST(Manual, EveryKeywordResolves) {
    const auto keywords = targets("keywords.hhk");
    EXPECT_GT(keywords.size(), 20U);
    for (const std::string& keyword : keywords) expectResolves(keyword, "keywords.hhk");
}

TEST(Manual, TheHelpProjectHasEveryPage) {
    std::set<std::string> files = pages();
    files.insert("style.css");
    EXPECT_THAT(found(section("FILES"), "\n([^\\[\n]+)"), UnorderedElementsAreArray(files));
}

/// A window of the add-ins, loaded, and the pages that tell about it.
struct Window {
    std::shared_ptr<forms::Form> form;
    std::vector<std::string> pages;
};

class ManualOfWindows : public testing::Test {
  protected:
    ManualOfWindows() { // so that no window asks for the file
        desktop.settings().save(desktop.application.productName, "Indexer", "ExcludeList_Path",
                                "exclude.lst");
    }

    template <class T>
    Window window(std::vector<std::string> pages) {
        auto form = std::make_shared<T>(desktop);
        form->load();
        return {form, std::move(pages)};
    }
    std::vector<Window> windows() {
        return {
            window<formatter::frmMain>({"module_page.html"}),
            window<formatter::FrmFormatter>({"formatter_dialog.html"}),
            window<formatter::FrmError>({"error_list.html"}),
            window<indexer::FrmIndex_Main>({"start_menu.html"}),
            window<indexer::FrmIndexer>({"stage1.html", "stage2.html", "stage3.html", "stage4.html"}),
            window<indexer::FrmTxt>({"editor.html", "stage3.html"}),
        };
    }

    forms::HeadlessDesktop desktop;
};

TEST_F(ManualOfWindows, EveryContextNumberLeadsToAPage) {
    std::map<std::string, std::string> targetOf;
    for (const std::string& line : found(section("ALIAS"), "\n([A-Z_]+=.*)"))
        targetOf[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
    std::map<int, std::string> pageOf;
    for (const std::string& line : found(section("MAP"), "#define ([A-Z_]+ [0-9]+)"))
        pageOf[std::stoi(line.substr(line.find(' ')))] = targetOf[line.substr(0, line.find(' '))];

    std::set<int> used;
    for (const Window& window : windows()) {
        for (const forms::Control* control : window.form->controls()) {
            used.insert(control->helpContextID());
            used.insert(control->whatsThisHelpID());
        }
    }
    used.erase(0); // none
    EXPECT_FALSE(used.empty());
    for (const int number : used) EXPECT_THAT(pages(), Contains(pageOf[number])) << number;
    EXPECT_EQ(pageOf[1000], "backup.html");
}

TEST_F(ManualOfWindows, EveryCommandAndOptionIsExplained) {
    for (const Window& window : windows()) {
        std::string text;
        for (const std::string& page : window.pages) text += visibleText(page);
        for (const forms::Control* control : window.form->controls()) {
            const auto* const captioned = dynamic_cast<const forms::Captioned*>(control);
            const bool isCommand = control->kind() == forms::ControlKind::CommandButton ||
                                   control->kind() == forms::ControlKind::CheckBox;
            if (!isCommand || !captioned) continue;
            std::string caption = std::regex_replace(captioned->caption(), std::regex("&"), "");
            caption = std::regex_replace(caption, std::regex("\\s+"), " ");
            EXPECT_THAT(text, HasSubstr(caption)) << window.form->name() << '.' << control->name();
        }
    }
}

} // namespace
} // namespace corvelle::help
