#include "formatter/forms/wizard.h"

#include <algorithm>
#include <utility>

namespace corvelle::formatter::test {

using forms::answer::yes;

const base::RunTimeError Session::disaster(-2147467259, "Method '~' of object '~' failed");

std::unique_ptr<forms::FormPeer> ScriptedDesktop::makePeer(forms::Form& form) {
    if (form.name() == impossible) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
    return HeadlessDesktop::makePeer(form);
}

void ScriptedDesktop::runModal(forms::Form& form) {
    if (inEveryModal) inNextModal(inEveryModal);
    HeadlessDesktop::runModal(form);
}

std::optional<std::string> ScriptedDesktop::chooseFile(const forms::CommonDialog& dialog, bool save) {
    if (everyFile) chooseNextFile(*everyFile);
    if (inFileDialog) inFileDialog();
    return HeadlessDesktop::chooseFile(dialog, save);
}

int ScriptedDesktop::showMessageBox(const std::string& text, int flags, const std::string& title) {
    if (alwaysYes) answerNextBox((flags & forms::box::yesNo) != 0 ? yes : forms::answer::ok);
    return HeadlessDesktop::showMessageBox(text, flags, title);
}

void FakeManager::Hide() {
    ++hides;
    const auto last = made.lock();
    if (last && last->visible()) flashed = true;
    if (const auto shown = std::exchange(page, nullptr)) shown->unload();
}

void FakeManager::disconnect() {
    if (const auto shown = std::exchange(page, nullptr)) shown->unload();
}

Session::Session() {
    desktop.onUnexpected = [](const std::string& what) { ADD_FAILURE() << what; };
    ide->project->name = "Stockroom";
    ide->project->fileName = "C:\\Projects\\Stock\\Stockroom.vbp";
    openModule("Account", sample());
}

Session::~Session() {
    EXPECT_TRUE(desktop.scriptIsDone());
}

void Session::openModule(const std::string& name, Lines lines) {
    module = ide->project->add(name, ide::ComponentType::StdModule, std::move(lines));
    ide->activate(module);
    if (manager->page) desktop.click(page());
}

void Session::followSettings(const std::string& lines) {
    module->fileName = "/projects/stock/Account.bas";
    readSettings_ = [lines](const std::string& path) -> std::optional<std::string> {
        const std::string wanted = "/projects/stock/.editorconfig"; // behind a drive, where there are some
        const bool found = path.size() >= wanted.size() &&
                           path.compare(path.size() - wanted.size(), wanted.size(), wanted) == 0;
        return found ? std::optional("root = true\n[*]\n" + lines) : std::nullopt;
    };
}

void Session::showPage() {
    if (!manager->page) {
        manager->page = std::make_shared<frmMain>(desktop);
        if (readSettings_) manager->page->ReadSettings = readSettings_;
        manager->page->VBInstance = ide;
        manager->page->ThisAddInMgr = manager;
        manager->made = manager->page;
    }
    manager->page->show();
}

void Session::inDialog(const DialogAction& action) {
    showPage();
    desktop.inNextModal([&](forms::Form& form) {
        auto& dialog = dynamic_cast<FrmFormatter&>(form);
        action(dialog);
        if (dialog.visible() && !desktop.isQuitting()) desktop.click(dialog.CmdBack);
    });
    EXPECT_TRUE(desktop.click(page().CmdNext));
}

void Session::format(FrmFormatter& dialog) {
    EXPECT_TRUE(desktop.click(dialog.CmdFmt));
    EXPECT_EQ(picture(dialog), 2);
}

void Session::leaveAnyway(FrmFormatter& dialog) {
    desktop.answerNextBox(yes);
    EXPECT_TRUE(desktop.click(dialog.CmdBack));
}

void Session::expectPassAtRest(FrmFormatter& dialog) {
    EXPECT_EQ(dialog.mousePointer(), forms::MousePointer::Default);
    EXPECT_TRUE(dialog.Frame1.enabled());
    EXPECT_FALSE(indicatorRuns(dialog));
}

int Session::picture(FrmFormatter& dialog) {
    int shown = -1;
    for (std::size_t i = 0; i < dialog.Image1.size(); ++i) {
        if (dialog.Image1[i].visible()) shown = shown == -1 ? static_cast<int>(i) : -2;
    }
    return shown;
}

bool Session::indicatorRuns(FrmFormatter& dialog) {
    const auto& pixels = dialog.IndicSurface.canvas().pixels();
    return std::any_of(pixels.begin(), pixels.end(), [&](forms::Colour pixel) { return pixel != pixels[0]; });
}

std::string Session::lastBox() const {
    if (desktop.boxes().empty()) return {};
    const auto& box = desktop.boxes().back();
    std::string text = box.text;
    std::replace(text.begin(), text.end(), '\r', '/');
    return box.title + "|" + std::to_string(box.flags) + "|" + text;
}

std::string asFile(const Lines& lines) {
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";
    return bytes;
}

Lines sample() {
    return {"Option Explicit",
            "",
            "Sub Main()",
            "Dim n As Long ' count",
            "      If n > 0 Then",
            "\tn = 1",
            "End If",
            "",
            "' done",
            "End Sub"};
}

const char* const structuredSample = "corvelle_layout = structured\nindent_size = 2\n"
                                     "corvelle_procedure = indent\ncorvelle_declarations = indent\n"
                                     "corvelle_margin_comments = follow\n";

Lines formattedSample() {
    return {"Option Explicit", "Sub Main()", "  Dim n As Long ' count",
            "  If n > 0 Then", "    n = 1",  "  End If",
            "  ' done",        "End Sub"};
}

} // namespace corvelle::formatter::test
