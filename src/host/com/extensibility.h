#pragma once

#include "com/arguments.h"
#include "host/add_in.h"

#include <memory>
#include <vbide.h>

namespace corvelle::host {

/// The add-in connection interface of a COM object, whose references it shares. The IDE may call it by its
/// methods or late-bound. Arguments that the add-in has no use for may be anything.
class Extensibility : public IDTExtensibility {
  public:
    Extensibility(IUnknown& owner, std::shared_ptr<AddIn> addIn) : owner_(owner), addIn_(std::move(addIn)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        return owner_.QueryInterface(iid, result);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* information, UINT* wrong) override;

    HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* VBInst, vbext_ConnectMode ConnectMode,
                                           ::AddIn* AddInInst, SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnDisconnection(vbext_DisconnectMode RemoveMode, SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override;

  private:
    void connect(IDispatch* VBInst, std::int32_t ConnectMode);

    IUnknown& owner_;
    std::shared_ptr<AddIn> addIn_;
};

} // namespace corvelle::host
