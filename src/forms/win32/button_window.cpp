#include "forms/command_button.h"
#include "forms/win32/control_windows.h"
#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

#include <commctrl.h>
#include <string>

namespace corvelle::forms {

namespace {

class ButtonWindow : public ControlWindow {
  public:
    ButtonWindow(FormWindow& form, CommandButton& button) : ControlWindow(form, button), button_(button) {}

    void commanded(int code) override {
        if (code == BN_CLICKED && button_.reachable()) button_.userClicked();
    }

  protected:
    Native native() const override { return {"BUTTON", BS_PUSHBUTTON | BS_NOTIFY | BS_MULTILINE, 0}; }
    std::string text() const override { return button_.caption(); }

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        const bool mouse = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
        if (mouse && form_.form() != nullptr && !button_.toolTipText().empty()) {
            MSG relayed{window(), message, wParam, lParam, 0, {}};
            SendMessageA(toolTip(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
        }
        return ControlWindow::handle(message, wParam, lParam);
    }

  private:
    // The window of the tip, which goes with the form's.
    HWND toolTip() {
        if (toolTip_ != nullptr) return toolTip_;
        const HWND owner = GetAncestor(window(), GA_ROOT);
        toolTip_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_NOPREFIX,
                                   CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                                   form_.desktop().module(), nullptr);
        std::string text = button_.toolTipText();
        TOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V1_SIZE; // which every version knows
        tool.uFlags = TTF_IDISHWND;
        tool.hwnd = owner;
        tool.uId = reinterpret_cast<UINT_PTR>(window());
        tool.lpszText = text.data();
        SendMessageA(toolTip_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
        return toolTip_;
    }

    HWND toolTip_ = nullptr;
    CommandButton& button_;
};

} // namespace

std::unique_ptr<ControlWindow> makeButtonWindow(FormWindow& form, CommandButton& button) {
    return std::make_unique<ButtonWindow>(form, button);
}

} // namespace corvelle::forms
