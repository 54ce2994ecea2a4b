#include "forms/win32/list_windows.h"

#include "forms/list_controls.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/form_window.h"

#include <algorithm>

namespace corvelle::forms {

void ListWindow::update(Aspect aspect) {
    switch (aspect) {
    case Aspect::Items: {
        // Rows are only ever appended, or all taken away.
        const int count = list_.listCount();
        int shown = static_cast<int>(send(messages_.count));
        if (shown > count || count == 0) {
            send(messages_.reset);
            shown = 0;
        }
        for (; shown < count; ++shown) {
            send(messages_.add, 0,
                 reinterpret_cast<LPARAM>(list_.items()[static_cast<std::size_t>(shown)].c_str()));
        }
        break;
    }
    case Aspect::Value:
        send(messages_.setChosen, static_cast<WPARAM>(list_.listIndex()));
        break;
    default:
        ControlWindow::update(aspect);
    }
}

void ListWindow::created() {
    update(Aspect::Items);
    update(Aspect::Value);
}

LRESULT ListWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN && form_.form()) list_.userPressedKey(static_cast<int>(wParam));
    return ControlWindow::handle(message, wParam, lParam);
}

void ListWindow::commanded(int code) {
    if (code == messages_.chosen) list_.setListIndex(static_cast<int>(send(messages_.getChosen)));
}

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
