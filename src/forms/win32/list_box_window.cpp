#include "forms/list_box.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/list_window.h"

#include <algorithm>

namespace corvelle::forms {

namespace {

class ListBoxWindow : public ListWindow {
  public:
    ListBoxWindow(FormWindow& form, ListBox& list) : ListWindow(form, list, messages) {}

    void update(Aspect aspect) override {
        ListWindow::update(aspect);
        if (aspect == Aspect::Items || aspect == Aspect::Font) fitRows();
    }

  protected:
    Native native() const override {
        return {"LISTBOX", WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE};
    }

  private:
    static constexpr Messages messages{LB_ADDSTRING, LB_RESETCONTENT, LB_GETCOUNT,
                                       LB_GETCURSEL, LB_SETCURSEL,    LBN_SELCHANGE};

    // The longest row can be scrolled into sight.
    void fitRows() {
        const auto& items = list().items();
        const auto longest =
            std::max_element(items.begin(), items.end(),
                             [](const std::string& a, const std::string& b) { return a.size() < b.size(); });
        SIZE size{};
        if (longest != items.end()) {
            const HDC device = GetDC(window());
            const HGDIOBJ before = SelectObject(device, reinterpret_cast<HFONT>(send(WM_GETFONT)));
            GetTextExtentPoint32A(device, longest->c_str(), static_cast<int>(longest->size()), &size);
            SelectObject(device, before);
            ReleaseDC(window(), device);
        }
        constexpr int margin = 6;
        send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(size.cx + margin));
    }
};

} // namespace

std::unique_ptr<ControlWindow> makeListBoxWindow(FormWindow& form, ListBox& list) {
    return std::make_unique<ListBoxWindow>(form, list);
}

} // namespace corvelle::forms
