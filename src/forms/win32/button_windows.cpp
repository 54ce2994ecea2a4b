#include "forms/controls.h"
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
        if (mouse && form_.form() && !button_.toolTipText().empty()) {
            MSG relayed{window(), message, wParam, lParam, 0, {}};
            SendMessageA(toolTip(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
        }
        return ControlWindow::handle(message, wParam, lParam);
    }

  private:
    // The window of the tip, which goes with the form's.
    HWND toolTip() {
        if (toolTip_) return toolTip_;
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

namespace {

/// A group box that is its controls' parent, so that hiding or disabling it takes them along.
class FrameWindow : public ControlWindow {
  public:
    FrameWindow(FormWindow& form, Frame& frame) : ControlWindow(form, frame), frame_(frame) {}

  protected:
    Native native() const override { return {"BUTTON", BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}; }
    std::string text() const override { return frame_.caption(); }
    bool isPartOfForm() const override { return true; }

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT result = 0;
        if (form_.form() && form_.reflect(message, wParam, lParam, result)) return result;
        if (message == WM_ERASEBKGND && form_.form()) {
            RECT inside{};
            GetClientRect(window(), &inside);
            const auto device = reinterpret_cast<HDC>(wParam);
            FillRect(device, &inside, colours(device));
            return 1;
        }
        return ControlWindow::handle(message, wParam, lParam);
    }

  private:
    Frame& frame_;
};

} // namespace

std::unique_ptr<ControlWindow> makeFrameWindow(FormWindow& form, Frame& frame) {
    return std::make_unique<FrameWindow>(form, frame);
}

} // namespace corvelle::forms
