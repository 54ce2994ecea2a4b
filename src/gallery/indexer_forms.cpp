#include "base/paths.h"
#include "gallery/gallery.h"
#include "indexer/forms/frm_index_main.h"
#include "indexer/forms/frm_indexer.h"
#include "indexer/forms/frm_txt.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace corvelle::gallery {

namespace {

/// Lets the wizard ask for no exclusion list, and leaves the user's setting as it was.
class WithoutQuestion {
  public:
    explicit WithoutQuestion(forms::Desktop& desktop)
        : desktop_(desktop), before_(desktop.settings().get(product(), "Indexer", key, "")) {
        if (before_.empty()) desktop.settings().save(product(), "Indexer", key, "exclude.lst");
    }
    ~WithoutQuestion() {
        if (before_.empty()) desktop_.settings().save(product(), "Indexer", key, "");
    }
    WithoutQuestion(const WithoutQuestion&) = delete;
    WithoutQuestion& operator=(const WithoutQuestion&) = delete;

  private:
    static constexpr const char* key = "ExcludeList_Path";
    const std::string& product() const { return desktop_.application.productName; }

    forms::Desktop& desktop_;
    std::string before_;
};

/// A folder for the index files.
class Folder {
  public:
    Folder() : path_(std::filesystem::temp_directory_path() / "corvelle-gallery") {
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string file(const char* name) const { return base::textOf(path_ / name); }

  private:
    std::filesystem::path path_;
};

void showWizard(forms::Desktop& desktop, const std::shared_ptr<workspace::Workspace>& ide, const Look& look) {
    const WithoutQuestion quiet(desktop);
    const Folder folder;
    const auto wizard = std::make_shared<indexer::FrmIndexer>(desktop);
    wizard->ShowIndexer(ide);
    look("FrmIndexer-1", *wizard);
    wizard->CmdProc.userClicked();
    look("FrmIndexer-1-analysed", *wizard);
    wizard->TBS.select(2);
    look("FrmIndexer-1-options", *wizard);
    wizard->CmdNext.userClicked();
    wizard->Text1(0).setText(folder.file("Stockroom.h"));
    wizard->Text1(1).setText(folder.file("Stockroom.hcnf"));
    wizard->Text1(3).setText("C:\\Projects\\Stockroom\\modHelpIDs.bas");
    wizard->txtModule.setText("modHelpIDs");
    look("FrmIndexer-2", *wizard);
    wizard->CmdProc.userClicked();
    wizard->LblProc.setCaption("creating files Please wait..");
    wizard->LblProcModule.setCaption("Processing module: frmOrder");
    wizard->Indic.StartNow();
    look("FrmIndexer-2-working", *wizard);
    wizard->Indic.stopNow();
    wizard->Text1(2).setText(folder.file("Stockroom.txt"));
    wizard->CmdNext.userClicked();
    look("FrmIndexer-3", *wizard);
    wizard->CmdNext.userClicked();
    look("FrmIndexer-4", *wizard);
    wizard->unload();
}

} // namespace

void showIndexer(forms::Desktop& desktop, const std::shared_ptr<workspace::Workspace>& ide,
                 const Look& look) {
    const auto menu = std::make_shared<indexer::FrmIndex_Main>(desktop);
    menu->show();
    menu->Command2.userMovedMouse(); // the longest hint
    look("FrmIndex_Main", *menu);
    menu->unload();

    showWizard(desktop, ide, look);

    const auto editor = std::make_shared<indexer::FrmTxt>(desktop);
    editor->ShowTextEdit(ide, nullptr);
    look("FrmTxt", *editor);
    editor->Text1.setText("C:\\Projects\\Stockroom\\Help\\Stockroom.icp");
    editor->txtPrj.setText(
        "\r\nStockroom\r\nC:\\Projects\\Stockroom\\Stockroom.vbp\r\nC:\\Projects\\Stockroom\\Help\\"
        "Stockroom.h\r\nC:\\Projects\\Stockroom\\Help\\Stockroom.hcnf\r\n"
        "C:\\Projects\\Stockroom\\Help\\Stockroom.txt\r\nProject file loades successfully.");
    editor->LblType.setCaption("CommandButton");
    editor->LblID.setCaption("IDH_AAAB");
    editor->CmdProc.setEnabled(true);
    editor->Lblstat.setCaption("Status: Error while saving header or configuration file.."); // the longest
    editor->Indic.StartNow();
    look("FrmTxt-working", *editor);
    editor->Indic.stopNow();
    editor->unload();
}

} // namespace corvelle::gallery
