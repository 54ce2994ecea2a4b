#include "forms/command_button.h"
#include "forms/win32/control_windows.h"

namespace corvelle::forms {

namespace {

class ButtonWindow : public ControlWindow {
  public:
    ButtonWindow(FormWindow& form, CommandButton& button) : ControlWindow(form, button), button_(button) {}

    bool takesFocus() const override { return true; }

    void commanded(int code) override {
        if (code == BN_CLICKED && button_.reachable()) button_.userClicked();
    }

  protected:
    Native native() const override { return {"BUTTON", BS_PUSHBUTTON | BS_NOTIFY | BS_MULTILINE, 0}; }
    std::string text() const override { return button_.caption(); }

  private:
    CommandButton& button_;
};

} // namespace

std::unique_ptr<ControlWindow> makeButtonWindow(FormWindow& form, CommandButton& button) {
    return std::make_unique<ButtonWindow>(form, button);
}

} // namespace corvelle::forms
