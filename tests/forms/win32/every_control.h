#pragma once

#include "forms/controls.h"
#include "forms/form.h"
#include "forms/list_controls.h"

#include <functional>
#include <string>
#include <vector>

namespace corvelle::forms::tests {

/// A window with one control of every kind, which writes down what happens to it.
class EveryControl : public Form {
  public:
    explicit EveryControl(Desktop& desktop, std::string name = "EveryControl");

    std::vector<std::string> log;
    /// What the events do besides being written down, by the words of the log.
    std::function<void(const std::string& event)> onEvent;
    bool cancelsUnload = false;
    bool wantsPreview = true;
    BorderStyle wantedStyle = BorderStyle::FixedDialog;
    Size wantedLeast;

    int count(const std::string& event) const;

    Label lblName{*this, "lblName"};
    TextBox txtName{*this, "txtName"};
    CommandButton cmdOk{*this, "cmdOk"};
    CommandButton cmdCancel{*this, "cmdCancel"};
    CheckBox chkOne{*this, "chkOne"};
    TextBox txtMemo{*this, "txtMemo"};
    ComboBox cboKind{*this, "cboKind"};
    ListBox lstRows{*this, "lstRows"};
    Frame fraOptions{*this, "fraOptions"};
    CheckBox chkInside{*this, "chkInside", &fraOptions};
    Label lblInside{*this, "lblInside", &fraOptions};
    Image imgPicture{*this, "imgPicture"};
    Slider sldTab{*this, "sldTab"};
    TabStrip tabMain{*this, "tabMain"};
    Surface srfDraw{*this, "srfDraw"};

  protected:
    void design() override;
    void Form_Load() override { happened("load"); }
    void Form_Activate() override { happened("activate"); }
    void Form_Resize() override { happened("resize"); }
    void Form_QueryUnload(bool& cancel, UnloadMode mode) override;
    void Form_Unload(bool&) override { happened("unload"); }
    void Form_Click() override { happened("form click"); }
    void Form_MouseMove() override { happened("form mouse"); }
    void Form_KeyUp(int keyCode) override { happened("key " + std::to_string(keyCode)); }

  private:
    void happened(const std::string& event);
    void listen(Control& control);
};

} // namespace corvelle::forms::tests
