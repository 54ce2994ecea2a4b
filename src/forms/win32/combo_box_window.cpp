#include "forms/combo_box.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/list_window.h"

namespace corvelle::forms {

namespace {

class ComboBoxWindow : public ListWindow {
  public:
    ComboBoxWindow(FormWindow& form, ComboBox& box) : ListWindow(form, box, messages) {}

    bool wantsKey(int) const override { return send(CB_GETDROPPEDSTATE) != 0; } // to close its list

  protected:
    Native native() const override { return {"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL, 0}; }

    RECT place() const override {
        constexpr int rowsShown = 12; // its height is that of the dropped list; the font makes the rest
        RECT at = ControlWindow::place();
        at.bottom *= rowsShown;
        return at;
    }

  private:
    static constexpr Messages messages{CB_ADDSTRING, CB_RESETCONTENT, CB_GETCOUNT,
                                       CB_GETCURSEL, CB_SETCURSEL,    CBN_SELCHANGE};
};

} // namespace

std::unique_ptr<ControlWindow> makeComboBoxWindow(FormWindow& form, ComboBox& box) {
    return std::make_unique<ComboBoxWindow>(form, box);
}

} // namespace corvelle::forms
