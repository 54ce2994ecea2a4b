#include "ui/frm_abt.h"

#include "forms/desktop.h"

namespace corvelle::ui {

namespace {

/// One a process, as a default instance is; it holds the box only as long as somebody uses it.
std::weak_ptr<frmAbt>& instance() {
    static std::weak_ptr<frmAbt> box;
    return box;
}

} // namespace

frmAbt::frmAbt(forms::Desktop& desktop) : Form(desktop, "frmAbt") {
    const auto clicked = [this] { Form_Click(); };
    for (forms::Control* control : controls()) control->onClick = clicked;
}

std::shared_ptr<frmAbt> frmAbt::defaultInstance(forms::Desktop& desktop) {
    auto box = instance().lock();
    if (!box || &box->desktop() != &desktop) {
        box = std::make_shared<frmAbt>(desktop);
        instance() = box;
    }
    return box;
}

void frmAbt::setTitle(const std::string& newTitle) {
    Label1[0].setCaption(newTitle);
    Label1[1].setCaption(newTitle);
}

void frmAbt::setVersion(const std::string& newVS) {
    Label2.setCaption(newVS);
}

void frmAbt::setWarning(const std::string& mWarn, forms::Colour BackCol, forms::Colour ForeCol) {
    if (mWarn.empty()) {
        LblWarn.setVisible(false);
        return;
    }
    LblWarn.setBackColor(BackCol);
    LblWarn.setForeColor(ForeCol);
    LblWarn.setCaption(mWarn);
    LblWarn.setVisible(true);
}

void frmAbt::setAboutPicture(const forms::Picture& mpic) {
    Img.setPicture(mpic);
}

void frmAbt::design() {
    setCaption("About");
    setSize({4800, 3435});
    setBorderStyle(forms::BorderStyle::FixedDialog);

    LblWarn.setBounds({240, 2310, 4320, 885}); // four lines
    LblWarn.setVisible(false);
    Label3.setBounds({1080, 1350, 3480, 690}); // three lines
    Img.setBounds({240, 300, 480, 480});
    Label2.setBounds({1080, 900, 3480, 225});
    Label2.setCaption("Version 1.1");

    // The shadow lies below the text and a little aside.
    Label1[0].setBounds({1080, 270, 3480, 405});
    Label1[0].setForeColor(0x800000);
    Label1[1].setBounds({1110, 300, 3480, 405});
    Label1[1].setForeColor(0xFFFFFF);
    for (forms::Label& label : Label1) {
        label.setCaption("Trellis");
        label.setFont({"Courier New", 15, true});
        label.setTransparent(true);
    }
}

void frmAbt::Form_Load() {
    const forms::Application& application = desktop().application;
    Label1[0].setCaption(application.productName);
    Label1[1].setCaption(Label1[0].caption());
    Label2.setCaption("Version " + std::to_string(application.major) + "." +
                      std::to_string(application.minor) + "." + std::to_string(application.revision));
    Label3.setCaption("The Corvelle project\r"
                      "Two add-ins for those who keep\r"
                      "Visual Basic 6 programs alive");
}

void frmAbt::Form_Click() {
    if (instance().lock().get() == this) instance().reset();
    unload();
}

} // namespace corvelle::ui
