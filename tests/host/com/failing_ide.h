#pragma once

#include "com/object.h"
#include "com/ptr.h"

#include <map>
#include <memory>
#include <ole2.h>

namespace corvelle::host::test {

/// The calls on all objects that are reached from one.
struct IdeCalls {
    int untilFailure = 0; ///< the n-th call from now on fails; 0: none
    bool failed = false;
    std::map<IDispatch*, IDispatch*> originals; ///< by the objects that stand before them
};

/// An Automation object that passes every call on to another one, but for the n-th, which raises an error.
/// What the other one gives is an object of this kind too.
class FailingObject : public com::Object<IDispatch> {
  public:
    FailingObject(com::Ptr<IDispatch> original, std::shared_ptr<IdeCalls> calls);
    ~FailingObject() override;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* information, UINT* argument) override;

  private:
    com::Ptr<IDispatch> original_;
    std::shared_ptr<IdeCalls> calls_;
};

} // namespace corvelle::host::test
