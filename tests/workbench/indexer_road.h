#pragma once

#include "workbench/workbench_test.h"

#include <string>
#include <string_view>

namespace corvelle::workbench::tests {

/// The indexer's windows in the running program, worked by a user, with no list of what is not indexed set.
class IndexerRoad : public WithAddIns {
  protected:
    IndexerRoad();
    ~IndexerRoad() override;

    /// Starts the program with the project and the indexer alone.
    void startIndexer(const std::string& file = "Stockroom.vbp");
    /// Chooses the menu's command.
    HWND openStartMenu() const;
    /// Chooses the wizard in the start menu and answers its question, whose text is given back.
    std::string askForExcludeList(HWND startMenu, int answer) const;
    /// Goes on from the start menu to the wizard, without a list of what is not indexed.
    HWND openWizard(HWND startMenu) const;
    /// Goes on from the start menu to the editor of text entries.
    HWND openEditor(HWND startMenu) const;
    /// Presses a button of the wizard or the editor once it takes input. No command of theirs is lost, so
    /// that once is enough, and twice would be too much.
    static void click(HWND form, const std::string& button);
    static void tick(HWND wizard, const std::string& option);
    static void analyse(HWND wizard);
    static void goToSecondStage(HWND wizard);
    /// Chooses a file, new or not, in the file dialog of that title.
    /// The same in the dialog that the button brings up.
    void chooseFile(HWND form, const std::string& button, const std::string& title,
                    const std::string& file) const;
    /// Presses a button and answers the box that it brings up, whose text is given back.
    std::string clickAndAnswer(HWND form, const std::string& button, const std::string& title,
                               int answer) const;
    /// Chooses the next row of the list and waits for what the window then shows as the control's help name.
    static void chooseNext(HWND form, HWND list, const std::string& idhName);
    static void close(HWND form);
    /// The file's path in the project's folder.
    std::string path(std::string_view name) const { return (folder.path() / name).string(); }
    /// Takes a picture of the window beside the main one's tree.
    static void takePictureOf(HWND form, const std::string& name);

  private:
    std::string excludeListBefore_;
};

} // namespace corvelle::workbench::tests
