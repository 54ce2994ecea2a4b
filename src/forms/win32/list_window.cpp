#include "forms/win32/list_window.h"

#include "forms/win32/form_window.h"

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
    if (message == WM_KEYDOWN && form_.form() != nullptr) list_.userPressedKey(static_cast<int>(wParam));
    return ControlWindow::handle(message, wParam, lParam);
}

void ListWindow::commanded(int code) {
    if (code == messages_.chosen) list_.setListIndex(static_cast<int>(send(messages_.getChosen)));
}

} // namespace corvelle::forms
