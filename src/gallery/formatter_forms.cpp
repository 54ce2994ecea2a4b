#include "formatter/forms/frm_error.h"
#include "formatter/forms/frm_formatter.h"
#include "formatter/forms/frm_main.h"
#include "gallery/gallery.h"

namespace corvelle::gallery {

namespace {

/// The page's owner, which closes nothing here.
class Owner : public ui::WindowOwner {
  public:
    void Hide() override {}
};

void showDialog(forms::Desktop& desktop, const std::shared_ptr<formatter::frmMain>& page, const Look& look) {
    const auto dialog = std::make_shared<formatter::FrmFormatter>(desktop);
    dialog->FrmCalled = page;
    dialog->FmtCodePane = page->VBInstance->ActiveCodePane();
    dialog->FmtCodeModule = dialog->FmtCodePane->CodeModule();
    dialog->setIcon(page->icon());
    dialog->lblModule.setCaption(dialog->FmtCodeModule->Name());
    dialog->show();
    look("FrmFormatter", *dialog);
    dialog->CmdFmt.userClicked();
    look("FrmFormatter-formatted", *dialog);
    for (int mode = 0; mode < 4; ++mode) {
        dialog->setImage(mode);
        look("FrmFormatter-result" + std::to_string(mode), *dialog);
    }
    // The longest hint.
    dialog->CmdFmt.userMovedMouse();
    dialog->setSize({7800, 6795});
    look("FrmFormatter-narrow", *dialog);
    dialog->setSize({11400, 7500});
    look("FrmFormatter-wide", *dialog);
    dialog->InitBtns(); // so that it asks nothing
    dialog->unload();
}

} // namespace

void showFormatter(forms::Desktop& desktop, const std::shared_ptr<workspace::Workspace>& ide,
                   const Look& look) {
    const auto owner = std::make_shared<Owner>();
    const auto page = std::make_shared<formatter::frmMain>(desktop);
    page->VBInstance = ide;
    page->ThisAddInMgr = owner;
    page->show();
    look("frmMain", *page);
    page->hide();
    showDialog(desktop, page, look);
    page->unload();

    const auto errors = std::make_shared<formatter::FrmError>(desktop);
    errors->lblCaption.setCaption("Total 40 errors detected..");
    for (int line = 0; line < 40; ++line) {
        errors->List1.addItem((line % 2 == 0 ? "Tab On Line: " : "Error On Line: ") +
                              std::to_string(line * 17));
    }
    errors->show();
    look("FrmError", *errors);
    errors->unload();
}

} // namespace corvelle::gallery
