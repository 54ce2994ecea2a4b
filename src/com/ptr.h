#pragma once

#include <cstddef>
#include <ole2.h>
#include <utility>

namespace corvelle::com {

/// A reference to a COM object, or none.
template <class Interface>
class Ptr {
  public:
    Ptr() = default;
    Ptr(std::nullptr_t) {}
    /// Adds a reference of its own.
    explicit Ptr(Interface* object) : object_(object) {
        if (object_) object_->AddRef();
    }
    Ptr(const Ptr& other) : Ptr(other.object_) {}
    Ptr(Ptr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    /// From a derived interface.
    template <class Derived>
    Ptr(const Ptr<Derived>& other) : Ptr(static_cast<Interface*>(other.get())) {}
    ~Ptr() { reset(); }

    Ptr& operator=(Ptr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    /// Takes over a reference that the caller holds.
    static Ptr take(Interface* object) {
        Ptr result;
        result.object_ = object;
        return result;
    }
    /// Where a call may put an object with a reference for us.
    Interface** receive() {
        reset();
        return &object_;
    }
    /// Gives the reference to the caller.
    Interface* release() { return std::exchange(object_, nullptr); }
    void reset() {
        if (auto* object = release()) object->Release();
    }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    Interface& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Another interface of the object; none if it has no such one or there is no object.
    template <class Other>
    Ptr<Other> query() const {
        return queryAs<Other>(__uuidof(Other));
    }
    /// The same by an IID that stands for the interface, such as an event interface's.
    template <class Other>
    Ptr<Other> queryAs(REFIID iid) const {
        void* found = nullptr;
        if (!object_ || FAILED(object_->QueryInterface(iid, &found))) return {};
        return Ptr<Other>::take(static_cast<Other*>(found));
    }

  private:
    Interface* object_ = nullptr;
};

/// Whether both are the same COM object.
template <class A, class B>
bool isSameObject(const Ptr<A>& a, const Ptr<B>& b) {
    return a.template query<IUnknown>().get() == b.template query<IUnknown>().get();
}

} // namespace corvelle::com
