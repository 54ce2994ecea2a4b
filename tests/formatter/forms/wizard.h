#pragma once

#include "base/text.h"
#include "fakes/fake_ide.h"
#include "formatter/forms/frm_formatter.h"
#include "formatter/forms/frm_main.h"
#include "forms/headless/headless_desktop.h"
#include "forms/message_box.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvelle::formatter::test {

using Lines = std::vector<std::string>;

/// A desktop whose user may also do the same thing every time.
class ScriptedDesktop : public forms::HeadlessDesktop {
  public:
    bool alwaysYes = false; ///< yes to every question
    std::function<void(forms::Form&)> inEveryModal;
    std::optional<std::string> everyFile; ///< the choice in every file dialog
    std::function<void()> inFileDialog;   ///< runs while one is open
    std::string impossible;               ///< the class of windows that cannot be made

    std::unique_ptr<forms::FormPeer> makePeer(forms::Form& form) override;
    void runModal(forms::Form& form) override;
    std::optional<std::string> chooseFile(const forms::CommonDialog& dialog, bool save) override;

  protected:
    int showMessageBox(const std::string& text, int flags, const std::string& title) override;
};

/// A connect object that owns the page, as the real ones do.
class FakeManager : public ui::WindowOwner {
  public:
    std::shared_ptr<frmMain> page;
    int hides = 0;
    /// Whether the page could be seen in any call of Hide that was not the user's own.
    bool flashed = false;
    std::weak_ptr<frmMain> made; ///< the page made last

    void Hide() override;
    /// What a disconnection does.
    void disconnect();
};

/// The module selection page over a fake IDE, with a scripted user.
class Session {
  public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    using DialogAction = std::function<void(FrmFormatter&)>;

    /// A standard module with the lines, made the IDE's active one; the page, if there is one, is told.
    void openModule(const std::string& name, Lines lines);
    /// Gives the active module a file, and the folder of that the lines for an .editorconfig below a section
    /// for all files. A page shown later reads them.
    void followSettings(const std::string& lines);
    /// Makes and shows the page as the menu command does.
    void showPage();
    frmMain& page() const { return *manager->page; }
    Lines& code() const { return module->code->lines; }

    /// Shows the page if need be, presses Next and runs the action in the dialog, which is left through Back
    /// if the action has not closed it.
    void inDialog(const DialogAction& action);
    /// Formats the module; the pass must be without errors.
    void format(FrmFormatter& dialog);
    /// Answers "Sure you wish to exit ?" and leaves through Back.
    void leaveAnyway(FrmFormatter& dialog);
    void expectPassAtRest(FrmFormatter& dialog);

    static std::string status(FrmFormatter& dialog) { return dialog.txtInfo.text(); }
    static std::string process(FrmFormatter& dialog) { return dialog.Label1.caption(); }
    static std::string results(FrmFormatter& dialog) { return dialog.Label2.caption(); }
    /// Which result picture is shown; -1: none, -2: several.
    static int picture(FrmFormatter& dialog);
    static bool indicatorRuns(FrmFormatter& dialog);
    /// The last message box as "title|flags|text" with "/" for a carriage return; empty if none was shown.
    std::string lastBox() const;

    ScriptedDesktop desktop;
    std::shared_ptr<corvelle::test::FakeIde> ide = corvelle::test::FakeIde::make();
    corvelle::test::Calls& calls = *ide->calls;
    std::shared_ptr<corvelle::test::FakeComponent> module;
    std::shared_ptr<FakeManager> manager = std::make_shared<FakeManager>();

    static const base::RunTimeError disaster;

  private:
    settings::EditorConfig::Read readSettings_; ///< none: what the page has by itself
};

class Wizard : public testing::Test, protected Session {};

/// A file's bytes when it holds the lines.
std::string asFile(const Lines& lines);
/// A small module as people write it, and as a run with the dialog's own options leaves it.
Lines sample();
Lines formattedSample();
/// Settings by which the structured layout leaves the sample the same.
extern const char* const structuredSample;

} // namespace corvelle::formatter::test
