#pragma once

#include "com/ptr.h"
#include "com/variant.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace corvelle::com {

/// An object that is reached late-bound, by the names of its members. Each name is looked up once. Every call
/// throws the RunTimeError that the object raises; on Nothing it throws 91. Arguments are whatever a Variant
/// is made of.
class Dispatch {
  public:
    Dispatch() = default;
    explicit Dispatch(Ptr<IDispatch> object) : object_(std::move(object)) {}

    IDispatch* object() const { return object_.get(); }

    /// A property, a property with arguments, or a method with a result: collections differ in what `Item`
    /// is.
    template <class... Arguments>
    Variant get(const wchar_t* name, Arguments&&... arguments) {
        static_assert(sizeof...(arguments) <= mostArguments);
        std::array<Variant, sizeof...(arguments)> values{Variant(std::forward<Arguments>(arguments))...};
        Variant result;
        invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, values.data(), values.size(), &result);
        return result;
    }
    /// A method whose result, if any, is of no interest.
    template <class... Arguments>
    void call(const wchar_t* name, Arguments&&... arguments) {
        static_assert(sizeof...(arguments) <= mostArguments);
        std::array<Variant, sizeof...(arguments)> values{Variant(std::forward<Arguments>(arguments))...};
        invoke(name, DISPATCH_METHOD, values.data(), values.size(), nullptr);
    }
    void put(const wchar_t* name, Variant value) { invoke(name, DISPATCH_PROPERTYPUT, &value, 1, nullptr); }
    /// Sets a property to an object.
    void putRef(const wchar_t* name, Variant value) {
        invoke(name, DISPATCH_PROPERTYPUTREF, &value, 1, nullptr);
    }

  private:
    static constexpr std::size_t mostArguments = 8;

    DISPID idOf(const wchar_t* name);
    void invoke(const wchar_t* name, WORD kind, const Variant* arguments, std::size_t count, Variant* result);

    Ptr<IDispatch> object_;
    std::vector<std::pair<std::wstring_view, DISPID>> ids_; // names are literals
};

} // namespace corvelle::com
