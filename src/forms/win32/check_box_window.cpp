#include "forms/check_box.h"
#include "forms/win32/control_windows.h"

namespace corvelle::forms {

namespace {

class CheckBoxWindow : public ControlWindow {
  public:
    CheckBoxWindow(FormWindow& form, CheckBox& box) : ControlWindow(form, box), box_(box) {}

    void update(Aspect aspect) override {
        if (aspect == Aspect::Value) {
            send(BM_SETCHECK, box_.value() == 0 ? BST_UNCHECKED : BST_CHECKED);
            return;
        }
        ControlWindow::update(aspect);
    }

    void commanded(int code) override {
        if (code == BN_CLICKED && box_.reachable())
            box_.userClicked(); // the new value comes back as an update
    }

  protected:
    Native native() const override { return {"BUTTON", BS_CHECKBOX | BS_NOTIFY | BS_MULTILINE, 0}; }
    std::string text() const override { return box_.caption(); }
    void created() override { update(Aspect::Value); }

  private:
    CheckBox& box_;
};

} // namespace

std::unique_ptr<ControlWindow> makeCheckBoxWindow(FormWindow& form, CheckBox& box) {
    return std::make_unique<CheckBoxWindow>(form, box);
}

} // namespace corvelle::forms
