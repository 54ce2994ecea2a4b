#include "forms/controls.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/form_window.h"

namespace corvelle::forms {

namespace {

class TextBoxWindow : public ControlWindow {
  public:
    TextBoxWindow(FormWindow& form, TextBox& box) : ControlWindow(form, box), box_(box) {}

    void update(Aspect aspect) override {
        if (aspect == Aspect::Text) {
            const std::string wanted = text(); // there may be no memory for it
            writing_ = true;
            setText(wanted);
            writing_ = false;
            return;
        }
        if (aspect == Aspect::Enabled) send(EM_SETREADONLY, box_.locked());
        ControlWindow::update(aspect);
    }

    void commanded(int code) override {
        if (code == EN_CHANGE) changed();
    }

  protected:
    Native native() const override {
        DWORD style = ES_AUTOHSCROLL;
        if (box_.multiLine()) style = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
        if (box_.locked()) style |= ES_READONLY;
        return {"EDIT", style, WS_EX_CLIENTEDGE};
    }

    std::string text() const override { return box_.text(); }

    void created() override {
        send(EM_SETLIMITTEXT, 0); // as much as it can hold
    }

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        // Tab, Enter and Esc are the form's; coming here by the keyboard selects nothing.
        if (message == WM_GETDLGCODE) return DLGC_WANTCHARS | DLGC_WANTARROWS;
        if (message == WM_CHAR && form_.form()) box_.userPressedKey();
        const LRESULT result = ControlWindow::handle(message, wParam, lParam);
        // A box of several lines tells nobody that another program wrote its text.
        if (message == WM_SETTEXT) changed();
        return result;
    }

  private:
    void changed() {
        if (!writing_ && form_.form()) box_.userTyped(windowText());
    }

    TextBox& box_;
    bool writing_ = false;
};

} // namespace

std::unique_ptr<ControlWindow> makeTextBoxWindow(FormWindow& form, TextBox& box) {
    return std::make_unique<TextBoxWindow>(form, box);
}

} // namespace corvelle::forms
