#pragma once

#include "forms/control.h"
#include "forms/drawing.h"
#include "forms/form_peer.h"
#include "forms/keyboard.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvelle::forms {

class Desktop;

enum class MousePointer { Default = 0, Hourglass = 11 };

/// Who asks for an unload: the close box, or code.
enum class UnloadMode { CloseBox = 0, Code = 1 };

namespace keys {
inline constexpr int F1 = 112;
}

/// How a window is framed; fixed when the form is designed.
enum class BorderStyle { FixedDialog, Sizable, FixedWithoutCloseBox };

/// A window's class derives from this, has its controls as members, gives them their design-time values in
/// design() and one handler for each event. The object exists before the window: the first use of a control
/// or a window property loads it, public variables of the class do not. After an unload the window and the
/// controls' values are gone, the object and its variables stay. Make forms with std::make_shared.
class Form : public std::enable_shared_from_this<Form> {
  public:
    /// The desktop must outlive the form.
    Form(Desktop& desktop, std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    Desktop& desktop() const { return desktop_; }
    /// The name of its class.
    const std::string& name() const { return name_; }

    /// Loads the form if it is not loaded: design(), the window, Form_Load.
    void load();
    bool isLoaded() const { return state_ != State::NotLoaded; }
    /// Whether what happens to it and its controls raises events: from the design's end to the unload's.
    bool raisesEvents() const { return state_ == State::Loaded || state_ == State::Unloading; }
    /// Loads, shows and activates the window; one that is visible comes to the front. Nothing happens if the
    /// form unloads itself as it loads.
    void show();
    /// The same; returns when the form is hidden or unloaded, or the program quits.
    void showModal();
    void hide();
    /// Asks Form_QueryUnload and Form_Unload, then takes the window away. False if the unload was cancelled;
    /// an error in one of the two cancels it too. Nothing happens to a form that is not loaded or is inside
    /// its own unload.
    bool unload(UnloadMode mode = UnloadMode::Code);

    const std::string& caption() const { return used().window_.caption; }
    void setCaption(const std::string& caption);
    const Picture& icon() const { return used().window_.icon; }
    void setIcon(const Picture& icon);
    MousePointer mousePointer() const { return used().window_.mousePointer; }
    void setMousePointer(MousePointer pointer);
    /// The client area's size.
    Size size() const { return used().window_.size; }
    void setSize(Size size);
    /// Looking at this or the next does not load the form.
    bool visible() const { return isLoaded() && window_.visible; }
    /// Whether the window takes input: false while a modal window is above it.
    bool enabled() const { return isLoaded() && window_.enabled; }
    /// The user makes the window no smaller; on a screen with less room its inside scrolls.
    Size leastSize() const { return used().window_.leastSize; }
    BorderStyle borderStyle() const { return used().window_.borderStyle; }
    /// Whether Form_KeyUp sees the keys of the controls.
    bool keyPreview() const { return used().window_.keyPreview; }
    /// The command button that Enter and Esc press; null if none.
    Control* defaultButton() const { return used().window_.defaultButton; }
    Control* cancelButton() const { return used().window_.cancelButton; }
    /// The control with the keyboard focus; null if none has it.
    Control* activeControl();

    /// In the order of their creation, which is the tab order.
    const std::vector<Control*>& controls() const { return controls_; }
    Keyboard& keyboard() { return keyboard_; }
    FormPeer* peer() { return peer_.get(); }

    /// Runs a handler: keeps the form alive meanwhile, and shows an error that leaves it in a message box.
    /// False if one did.
    bool run(const std::function<void()>& handler);

    // What the user did, or the window system; called by the window behind the form.
    void userClosed();
    /// The host destroys the window, for one with the window that owns it: unloads the form, which asks as
    /// ever. One that does not agree keeps its values but is on the screen no more.
    void hostClosed();
    void userActivated();
    void userClicked();
    void userMovedMouse();
    void userReleasedKey(int keyCode);
    void userResized(Size clientArea);

    // For the controls and the desktop.
    void add(Control& control) { controls_.push_back(&control); }
    void controlChanged(Control& control, Aspect aspect);
    void focus(Control& control);
    void setEnabled(bool enabled);

  protected:
    /// Gives the window and the controls their design-time values; raises no event.
    virtual void design() = 0;
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Resize() {}
    virtual void Form_QueryUnload(bool& /*cancel*/, UnloadMode /*mode*/) {}
    virtual void Form_Unload(bool& /*cancel*/) {}
    virtual void Form_Click() {}
    virtual void Form_MouseMove() {}
    virtual void Form_KeyUp(int /*keyCode*/) {}

    // Fixed while the form is being designed.
    void setBorderStyle(BorderStyle style) { window_.borderStyle = style; }
    void setLeastSize(Size size) { window_.leastSize = size; }
    void setKeyPreview(bool preview) { window_.keyPreview = preview; }
    void setDefaultButton(Control& button) { window_.defaultButton = &button; }
    void setCancelButton(Control& button) { window_.cancelButton = &button; }

  private:
    enum class State { NotLoaded, Designing, Loaded, Unloading, Closing };

    struct Window {
        std::string caption;
        Picture icon;
        MousePointer mousePointer = MousePointer::Default;
        Size size{4800, 3600};
        Size leastSize;
        BorderStyle borderStyle = BorderStyle::FixedDialog;
        bool visible = false;
        bool enabled = true;
        bool keyPreview = false;
        Control* defaultButton = nullptr;
        Control* cancelButton = nullptr;
    };

    const Form& used() const { return const_cast<Form*>(this)->load(), *this; }
    void resetControls();
    void makeWindow();
    bool agreesToUnload(UnloadMode mode);
    void close();

    Desktop& desktop_;
    std::string name_;
    std::vector<Control*> controls_;
    State state_ = State::NotLoaded;
    Window window_;
    Keyboard keyboard_{*this};
    std::unique_ptr<FormPeer> peer_;
};

} // namespace corvelle::forms
