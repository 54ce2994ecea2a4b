#include "forms/win32/every_control.h"

#include <algorithm>
#include <utility>

namespace corvelle::forms::tests {

EveryControl::EveryControl(Desktop& desktop, std::string name) : Form(desktop, std::move(name)) {
    for (Control* control : controls()) listen(*control);
    txtName.onChange = [this] { happened("txtName change"); };
    txtMemo.onChange = [this] { happened("txtMemo change"); };
    sldTab.onChange = [this] { happened("sldTab change"); };
    sldTab.onScroll = [this] { happened("sldTab scroll"); };
    srfDraw.onResize = [this] { happened("srfDraw resize"); };
}

int EveryControl::count(const std::string& event) const {
    return static_cast<int>(std::count(log.begin(), log.end(), event));
}

void EveryControl::design() {
    setCaption("Every control");
    setBorderStyle(wantedStyle);
    setSize({6000, 4500});
    setKeyPreview(wantsPreview);
    setLeastSize(wantedLeast);
    setDefaultButton(cmdOk);
    setCancelButton(cmdCancel);

    lblName.setBounds({120, 120, 1200, 240});
    lblName.setCaption("&Name:");
    txtName.setBounds({1440, 120, 1800, 285});
    cmdOk.setBounds({4560, 120, 1320, 375});
    cmdOk.setCaption("&OK");
    cmdCancel.setBounds({4560, 600, 1320, 375});
    cmdCancel.setCaption("Cancel");
    chkOne.setBounds({120, 480, 1800, 255});
    chkOne.setCaption("&First");
    txtMemo.setBounds({120, 840, 1800, 600});
    txtMemo.setMultiLine(true);
    cboKind.setBounds({2040, 480, 1500, 315});
    for (const char* row : {"red", "green", "blue"}) cboKind.addItem(row);
    lstRows.setBounds({2040, 840, 1500, 600});
    for (const char* row : {"one", "two", "three"}) lstRows.addItem(row);
    fraOptions.setBounds({120, 1560, 3480, 840});
    fraOptions.setCaption("Options");
    chkInside.setBounds({120, 240, 1500, 255});
    chkInside.setCaption("&Inside");
    lblInside.setBounds({1800, 240, 1200, 240});
    lblInside.setCaption("inner");
    imgPicture.setBounds({3720, 1560, 480, 480});
    sldTab.setBounds({120, 2520, 1800, 420});
    sldTab.setRange({0, 10, 1, 2});
    tabMain.setBounds({120, 3000, 2400, 1200});
    tabMain.setTabs({"first", "second"});
    srfDraw.setBounds({2700, 3000, 1500, 300});
}

void EveryControl::Form_QueryUnload(bool& cancel, UnloadMode mode) {
    happened(mode == UnloadMode::CloseBox ? "query unload by the close box" : "query unload by code");
    cancel = cancelsUnload;
}

void EveryControl::happened(const std::string& event) {
    log.push_back(event);
    const auto also = onEvent; // which may set another one
    if (also) also(event);
}

void EveryControl::listen(Control& control) {
    const std::string name = control.name();
    control.onClick = [this, name] { happened(name + " click"); };
    control.onMouseMove = [this, name] { happened(name + " mouse"); };
    control.onGotFocus = [this, name] { happened(name + " focus"); };
    control.onLostFocus = [this, name] { happened(name + " left"); };
}

} // namespace corvelle::forms::tests
