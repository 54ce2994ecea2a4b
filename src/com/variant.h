#pragma once

#include "com/bstr.h"
#include "com/ptr.h"

#include <cstdint>
#include <ole2.h>
#include <string>
#include <string_view>

namespace corvelle::com {

/// Stands for an optional argument that is left out.
struct Missing {};
constexpr Missing missing;

/// A VARIANT of our own.
class Variant {
  public:
    /// Empty.
    Variant() { VariantInit(&value_); }
    Variant(Missing);
    Variant(bool value);
    Variant(std::int32_t value);
    /// Text in the ANSI code page. Throws RunTimeError 13 if it has no Unicode form.
    Variant(std::string_view text) : Variant(Bstr(text)) {}
    Variant(const std::string& text) : Variant(std::string_view(text)) {}
    Variant(const char* text) : Variant(std::string_view(text)) {}
    Variant(Bstr text);
    /// An object, or Nothing.
    Variant(IDispatch* object);
    /// An object that need not be one for Automation.
    Variant(IUnknown* object);
    template <class Interface>
    Variant(const Ptr<Interface>& object) : Variant(object.get()) {}
    Variant(const void*) = delete; // would become a Boolean
    /// What the value refers to is copied.
    explicit Variant(const VARIANT& value);
    Variant(const Variant& other) : Variant(other.value_) {}
    Variant(Variant&& other) noexcept;
    Variant& operator=(Variant other) noexcept;
    ~Variant() { VariantClear(&value_); }

    const VARIANT& get() const { return value_; }
    VARTYPE type() const { return V_VT(&value_); }
    /// Where a call may put a value for us.
    VARIANT* receive();
    /// Gives the value to the caller.
    VARIANT release();

  private:
    VARIANT value_;
};

/// The value as text, as VB6 converts it: a Boolean is True or False, Empty is "", an object has its default
/// value. Throws RunTimeError 13 for Null and everything else that has none.
std::string textOf(const VARIANT& value);
/// The value as a number or a Boolean. Throws RunTimeError 6 or 13.
std::int32_t longOf(const VARIANT& value);
bool booleanOf(const VARIANT& value);
/// The object; none for Nothing, Empty and Null. Throws RunTimeError 424 for another value, 13 for an object
/// that is not for Automation.
Ptr<IDispatch> objectOf(const VARIANT& value);
/// The object, one for Automation or not. Throws RunTimeError 424.
Ptr<IUnknown> unknownOf(const VARIANT& value);
/// Whether it is an optional argument that was left out.
bool isMissing(const VARIANT& value);

inline std::string textOf(const Variant& value) {
    return textOf(value.get());
}
inline std::int32_t longOf(const Variant& value) {
    return longOf(value.get());
}
inline bool booleanOf(const Variant& value) {
    return booleanOf(value.get());
}
inline Ptr<IUnknown> unknownOf(const Variant& value) {
    return unknownOf(value.get());
}
inline Ptr<IDispatch> objectOf(const Variant& value) {
    return objectOf(value.get());
}

} // namespace corvelle::com
