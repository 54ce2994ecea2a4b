#include "ui/frm_abt.h"

#include "forms/desktop.h"

#include <algorithm>
#include <string>

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
    layOut(desktop().pictureSize(mpic));
}

void frmAbt::design() {
    setCaption("About");
    setBorderStyle(forms::BorderStyle::FixedDialog);
    LblWarn.setVisible(false);
    Label2.setCaption("Version 1.1");
    Label1[0].setForeColor(0x800000);
    Label1[1].setForeColor(0xFFFFFF);
    for (forms::Label& label : Label1) {
        label.setCaption("Trellis");
        label.setFont({"Courier New", 15, true});
        label.setTransparent(true);
    }
    layOut({480, 480});
}

// The text stands beside the picture, the strip below both.
void frmAbt::layOut(forms::Size picture) {
    constexpr int edge = 240;
    constexpr int pictureTop = 300;
    constexpr int textWidth = 3480;
    const int left = edge + picture.width + 360;
    const int width = left + textWidth + edge;
    // The shadow lies below the text and a little aside.
    Label1[0].setBounds({left, 270, textWidth, 405});
    Label1[1].setBounds({left + 30, pictureTop, textWidth, 405});
    Label2.setBounds({left, 900, textWidth, 225});
    Label3.setBounds({left, 1350, textWidth, 690}); // three lines
    Img.setBounds({edge, pictureTop, picture.width, picture.height});
    const int top = std::max(1350 + 690, pictureTop + picture.height) + 270;
    LblWarn.setBounds({edge, top, width - 2 * edge, 885}); // four lines
    setSize({width, top + 885 + edge});
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
