#include "formatter/win32/wizard_on_screen.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <thread>
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
    MSG message; // the user has left word to quit
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message != WM_QUIT) DispatchMessageA(&message);
    }
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
    PassObserver observer;
    Engine engine(observer);
    engine.options = options;
    engine.ResetAll();
    engine.beginCleaning(lines.size());
    for (const std::string& line : lines) engine.cleanLine(line);
    EXPECT_EQ(0, engine.VB_Format(engine.lineBuffer().maxIndx()));
    std::vector<std::string> result;
    for (std::int32_t i = 0; i <= engine.lineBuffer().maxIndx(); ++i)
        result.push_back(engine.lineBuffer().line(i));
    return result;
}

void WizardOnScreen::letUserWork(const std::function<void(const User&)>& user) {
    manager->page = std::make_shared<frmMain>(desktop);
    manager->page->VBInstance = ide;
    manager->page->ThisAddInMgr = manager;
    manager->page->show();
    const DWORD thread = GetCurrentThreadId();
    std::thread works([&] {
        try {
            user(User(thread));
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        PostThreadMessageA(thread, WM_QUIT, 0, 0); // closes what a failure has left open
    });
    while (desktop.waitForEvents()) {
    }
    works.join();
}

HWND WizardOnScreen::openDialog(const User& user) {
    User::click(user.windowWith("&Next   >>"), "&Next   >>");
    return user.windowWith("&Format Code");
}

} // namespace corvelle::formatter::tests
