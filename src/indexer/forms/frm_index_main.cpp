#include "indexer/forms/frm_index_main.h"

#include "base/run_time_error.h"
#include "forms/desktop.h"
#include "ui/frm_abt.h"

namespace corvelle::indexer {

FrmIndex_Main::FrmIndex_Main(forms::Desktop& desktop) : Form(desktop, "FrmIndex_Main") {
    Command1.onClick = [this] { Command1_Click(); };
    Command2.onClick = [this] { Command2_Click(); };
    Command3.onClick = [this] { Command3_Click(); };
    CmdAbt.onClick = [this] { CmdAbt_Click(); };

    Shape1.onMouseMove = [this] { Form_MouseMove(); }; // to the mouse a decoration is the background
    Command1.onMouseMove = [this] {
        showHint("1",
                 "If you have not created a Index for the current project then you must start from here.. "
                 "You may re -Index a project which was earlier  Indexed but you have made some changes..");
    };
    Command2.onMouseMove = [this] {
        showHint("2",
                 "If you have already indexed the a project and  you have not modified the index files and "
                 "the project then you can start from here. you won't need to open that project just the "
                 "index files are needed..");
    };
    Command3.onMouseMove = [this] { showHint("3", "What else .. Just close the Add-In."); };
}

void FrmIndex_Main::design() {
    setCaption("Help ID Indexer");
    setSize({5640, 4140});
    setBorderStyle(forms::BorderStyle::FixedWithoutCloseBox);

    Label1.setBounds({240, 180, 5160, 195});
    Label1.setCaption("What you wish to do..?");
    Command1.setBounds({600, 480, 4440, 420});
    Command1.setCaption("&Create a New Index");
    Command2.setBounds({600, 1020, 4440, 420});
    Command2.setCaption("&Add Entry to previously created Index");
    Command3.setBounds({600, 1560, 4440, 420});
    Command3.setCaption("&Nothing .. Just Exit");
    Shape1.setBounds({240, 2100, 5160, 1260});
    lblInfo.setBounds({120, 240, 4920, 900}); // four lines
    CmdAbt.setBounds({4185, 3570, 1215, 375});
    CmdAbt.setCaption("&About..?");
}

void FrmIndex_Main::Form_Load() {
    setIcon(forms::Picture("icon102"));
}

void FrmIndex_Main::choose(Choice choice) {
    myMode = choice;
    hide();
    base::ignoringErrors([this] {
        if (const auto manager = ThisMgr.lock()) manager->setbOK(true);
    });
}

void FrmIndex_Main::CmdAbt_Click() {
    const auto box = ui::frmAbt::defaultInstance(desktop());
    box->setTitle("Help ID Indexer");
    box->setWarning(ui::codeLossWarning, ui::warningColour, forms::colours::white);
    box->setAboutPicture(icon());
    box->showModal();
}

// Hints

void FrmIndex_Main::Form_MouseMove() {
    showHint("0", "Move the mouse pointer over a button to know what it does..");
}

void FrmIndex_Main::showHint(const std::string& number, const std::string& text) {
    if (lblInfo.tag() == number) return;
    lblInfo.setTag(number);
    lblInfo.setCaption(text);
}

} // namespace corvelle::indexer
