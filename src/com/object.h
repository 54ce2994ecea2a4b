#pragma once

#include "com/ptr.h"

#include <limits>
#include <memory>
#include <utility>

namespace corvelle::com {

/// How many of this module's objects live, locks included. A DLL can go when there are none.
long objectCount();
/// Keeps the module loaded as an object would.
void lockModule();
void unlockModule();

/// What every COM object of ours is made of: the count of its references and the interfaces that it answers.
/// Made by `make`; for one thread.
template <class First, class... Rest>
class Object : public First, public Rest... {
  public:
    Object() { lockModule(); }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() { unlockModule(); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        if (!result) return E_POINTER;
        *result = find(iid);
        if (!*result) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const auto left = --references_;
        if (left == 0) {
            references_ = std::numeric_limits<ULONG>::max() / 2; // its own end may use it
            const std::unique_ptr<Object> last(this);
        }
        return left;
    }

  protected:
    /// The interface of that IID, null if there is none; a derived class adds IIDs that are no C++ type's or
    /// a base's of several interfaces.
    virtual void* find(REFIID iid) {
        if (IsEqualIID(iid, IID_IUnknown)) return static_cast<First*>(this);
        void* found = nullptr;
        take<First>(iid, found);
        (take<Rest>(iid, found), ...);
        return found;
    }

  private:
    template <class Interface>
    void take(REFIID iid, void*& found) {
        if (!found && IsEqualIID(iid, __uuidof(Interface))) found = static_cast<Interface*>(this);
    }

    ULONG references_ = 1;
};

/// A new object with its first reference.
template <class Class, class... Arguments>
Ptr<Class> make(Arguments&&... arguments) {
    return Ptr<Class>::take(std::make_unique<Class>(std::forward<Arguments>(arguments)...).release());
}

} // namespace corvelle::com
