#include "formatter/win32/wizard_on_screen.h"

#include "places.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace corvelle::formatter::tests {

void Manager::Hide() {
    ++hides;
    if (const auto shown = std::exchange(page, nullptr)) shown->unload();
}

WizardOnScreen::WizardOnScreen() {
    std::filesystem::copy(std::filesystem::path(EXAMPLES_DIR) / "Stockroom", folder.path());
    ide = workspace::Workspace::open(folder.path() / "Stockroom.vbp");
    SetCursorPos(0, 0);
}

WizardOnScreen::~WizardOnScreen() {
    if (const auto page = std::exchange(manager->page, nullptr)) page->unload();
}

void WizardOnScreen::activate(const std::string& component) {
    const auto& all = ide->projects().front()->components();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&component](const auto& one) { return one->Name() == component; });
    ASSERT_NE(found, all.end()) << component;
    ide->setActiveCodePane(found->get());
}

void WizardOnScreen::openModule(const std::vector<std::string>& lines) {
    std::string text = "Attribute VB_Name = \"Large\"\r\n";
    for (const std::string& line : lines) text += line + "\r\n";
    ide = workspace::Workspace::open(folder.write("Large.bas", text));
    ide->setActiveCodePane(ide->projects().front()->components().front().get());
}

std::vector<std::string> WizardOnScreen::code() const {
    const auto module = ide->ActiveCodePane()->CodeModule();
    std::vector<std::string> lines;
    for (std::int32_t i = 1; i <= module->CountOfLines(); ++i) lines.push_back(module->Lines(i, 1));
    return lines;
}

std::vector<std::string> WizardOnScreen::formatted(const std::vector<std::string>& lines,
                                                   FormatOptions options) {
    const auto code = formatCode({.lines = {lines.begin(), lines.end()}}, options);
    EXPECT_TRUE(code.faults.empty());
    std::vector<std::string> result;
    for (std::int32_t i = 0; i <= code.lines.maxIndx(); ++i) result.push_back(code.lines.line(i));
    return result;
}

void WizardOnScreen::letUserWork(const std::function<void(const User&)>& user) {
    manager->page = std::make_shared<frmMain>(desktop);
    manager->page->VBInstance = ide;
    manager->page->ThisAddInMgr = manager;
    desktop.letUserWork([this] { manager->page->show(); }, user);
}

HWND WizardOnScreen::openDialog(const User& user) {
    user.click(user.windowWith("&Next   >>"), "&Next   >>");
    return user.windowWith("&Format Code");
}

} // namespace corvelle::formatter::tests
