#pragma once

#include "base/temporary_folder.h"
#include "fakes/fake_ide.h"
#include "forms/headless/headless_desktop.h"
#include "indexer/forms/frm_txt.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace corvelle::indexer::test {

/// A connect object that owns the editor, as the real one does.
class EditorManager : public ui::WindowOwner {
  public:
    std::shared_ptr<FrmTxt> editor;
    int hides = 0;

    void Hide() override;
};

/// The editor for an existing index, over files of its own, with a scripted user.
class TextEditorSession {
  public:
    TextEditorSession();
    ~TextEditorSession();
    TextEditorSession(const TextEditorSession&) = delete;
    TextEditorSession& operator=(const TextEditorSession&) = delete;

    FrmTxt& form() const { return *manager->editor; }
    /// Shows a new editor as the connect object does.
    FrmTxt& show();
    /// Chooses the project file in it.
    void openProject(const std::string& name = "p.icp");
    FrmTxt& showOpened();
    void writeProject(const std::string& name, const std::string& configuration,
                      const std::string& text) const;

    bool click(forms::Control& control) { return desktop.click(control); }
    /// Chooses the designer and its control by their rows.
    void choose(int designer, int control);
    bool type(const std::string& text) { return desktop.type(form().txtHelp, text); }
    /// Answers the next box.
    void answer(int with) { desktop.answerNextBox(with); }
    /// Presses Save, which succeeds.
    void save();

    /// The text of the control on display and the commands in reach, as "text|Delete|Default"; before a text
    /// that cannot be edited "disabled: ".
    std::string display() const;
    std::string status() const { return form().Lblstat.caption(); }
    bool indicatorRuns() const { return isAnimated(form()); }
    static bool isAnimated(FrmTxt& form);
    std::string pathOf(const std::string& name) const { return (folder.path() / name).string(); }
    /// The last message box as "title|flags|text" with "/" for a carriage return; empty if none was shown.
    std::string lastBox() const;

    corvelle::test::TemporaryFolder folder;
    forms::HeadlessDesktop desktop;
    std::shared_ptr<corvelle::test::FakeIde> ide = corvelle::test::FakeIde::make();
    std::shared_ptr<EditorManager> manager = std::make_shared<EditorManager>();
};

/// What the files hold: frmMain with cmdOK and txtName on texts of their own and lbl on the default, frmNone
/// without controls, frmPart with cmdOK.
extern const char* const editedMappings;
extern const char* const editedTexts;
/// The text file as it is when saved without a change.
extern const char* const savedTexts;

} // namespace corvelle::indexer::test
