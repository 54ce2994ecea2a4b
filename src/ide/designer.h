#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvelle::ide {

/// One property of a control on a designer.
class Property {
  public:
    virtual ~Property() = default;

    /// The value as text. Throws RunTimeError 13 for a value that has none.
    virtual std::string Value() = 0;
};

/// The properties of a control on a designer.
class Properties {
  public:
    virtual ~Properties() = default;

    /// The property of that name, letter case aside. Throws RunTimeError if there is none.
    virtual std::shared_ptr<Property> Item(std::string_view name) = 0;
};

/// A control on a designer.
class VBControl {
  public:
    virtual ~VBControl() = default;

    /// The control's class without its library: "CommandButton".
    virtual std::string ClassName() = 0;
    virtual std::shared_ptr<ide::Properties> Properties() = 0;
};

/// All controls of a designer, the ones inside others included.
class VBControls {
  public:
    virtual ~VBControls() = default;

    virtual std::int32_t Count() = 0;
    /// The control of that number, from 1. Throws RunTimeError 9 outside the range.
    virtual std::shared_ptr<VBControl> Item(std::int32_t index) = 0;
};

/// The designer of a form, user control, property page or document.
class VBForm {
  public:
    virtual ~VBForm() = default;

    virtual std::shared_ptr<ide::VBControls> VBControls() = 0;
};

/// A window of the IDE.
class Window {
  public:
    virtual ~Window() = default;

    virtual void SetFocus() = 0;
    virtual void Close() = 0;
};

} // namespace corvelle::ide
