#pragma once

#include "forms/drawing.h"

#include <functional>
#include <string>

namespace corvelle::forms {

class Form;

/// What kind of control it is, which tells its class: a Label is a forms::Label.
enum class ControlKind {
    Label,
    CommandButton,
    CheckBox,
    TextBox,
    ComboBox,
    ListBox,
    Frame,
    Image,
    Slider,
    TabStrip,
    Surface,
};

/// What changed about a control, for the window that shows it.
enum class Aspect { Text, Enabled, Visible, Bounds, Colours, Font, Picture, Value, Items, Drawing };

/// A control on a form. Any use of it loads the form first. Writing a value raises the event that the user's
/// doing raises, but while the form is being designed. Events are functions that the form's class sets; an
/// error that leaves one is shown in a message box.
class Control {
  public:
    /// Registers with the form; the order of creation is the tab order. The container is a Frame of the same
    /// form, or null for the form itself.
    Control(Form& form, ControlKind kind, std::string name, Control* container = nullptr);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Form& form() const { return form_; }
    ControlKind kind() const { return kind_; }
    /// The name it has in its form's class.
    const std::string& name() const { return name_; }
    Control* container() const { return container_; }

    const Bounds& bounds() const { return used().base_.bounds; }
    void setBounds(const Bounds& bounds) { change(base_.bounds, bounds, Aspect::Bounds); }
    bool enabled() const { return used().base_.enabled; }
    void setEnabled(bool enabled) { change(base_.enabled, enabled, Aspect::Enabled); }
    /// The property; whether the control can be seen depends on its containers too.
    bool visible() const { return used().base_.visible; }
    void setVisible(bool visible) { change(base_.visible, visible, Aspect::Visible); }
    const std::string& tag() const { return used().base_.tag; }
    void setTag(std::string tag) { touch(), base_.tag = std::move(tag); }
    int helpContextID() const { return used().base_.helpContextID; }
    void setHelpContextID(int number) { touch(), base_.helpContextID = number; }
    int whatsThisHelpID() const { return used().base_.whatsThisHelpID; }
    void setWhatsThisHelpID(int number) { touch(), base_.whatsThisHelpID = number; }
    Colour backColor() const { return used().base_.backColor; }
    void setBackColor(Colour colour) { change(base_.backColor, colour, Aspect::Colours); }
    Colour foreColor() const { return used().base_.foreColor; }
    void setForeColor(Colour colour) { change(base_.foreColor, colour, Aspect::Colours); }
    const Font& font() const { return used().base_.font; }
    void setFont(const Font& font) { change(base_.font, font, Aspect::Font); }
    void setFocus();

    std::function<void()> onClick;
    std::function<void()> onMouseMove;
    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;

    /// Whether the keyboard can be in a control of its kind.
    bool takesFocus() const;
    /// Whether the control itself has a use for Enter, which then presses no button.
    virtual bool takesEnter() const { return false; }

    /// Whether the user can reach the control when its form takes input: it and its containers are visible
    /// and enabled.
    bool reachable() const;

    // What the user did; called by the window that shows the control.
    virtual void userClicked() { raise(onClick); }
    void userMovedMouse();
    void userFocused() { raise(onGotFocus); }
    void userLeft() { raise(onLostFocus); }

    /// Back to the values before any design; called as the form loads and when it has unloaded.
    virtual void reset();

  protected:
    /// Loads the form if need be.
    void touch() const;
    /// Runs an event handler, if one is set and the form raises events.
    void raise(const std::function<void()>& handler);
    /// Tells the window.
    void changed(Aspect aspect);

    template <class T>
    bool change(T& property, const T& value, Aspect aspect) {
        touch();
        if (property == value) return false;
        property = value;
        changed(aspect);
        return true;
    }

    const Control& used() const { return touch(), *this; }

    /// The colours before any design: the button face for most, the window's for boxes with text.
    virtual Colour plainBackColor() const { return colours::buttonFace; }
    virtual Colour plainForeColor() const { return colours::buttonText; }

  private:
    struct Properties {
        Bounds bounds;
        bool enabled = true;
        bool visible = true;
        std::string tag;
        int helpContextID = 0;
        int whatsThisHelpID = 0;
        Colour backColor = colours::buttonFace;
        Colour foreColor = colours::buttonText;
        Font font;
    };

    Form& form_;
    ControlKind kind_;
    std::string name_;
    Control* container_;
    Properties base_;
};

} // namespace corvelle::forms
