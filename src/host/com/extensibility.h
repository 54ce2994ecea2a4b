#pragma once

#include "com/dispatch_server.h"
#include "host/add_in.h"

#include <memory>
#include <span>
#include <vbide.h>

namespace corvelle::host {

/// The add-in connection interface of a COM object, whose references it shares. The IDE may call it by its
/// methods or late-bound. Arguments that the add-in has no use for may be anything.
class Extensibility : public com::DispatchServer<Extensibility, IDTExtensibility> {
  public:
    Extensibility(IUnknown& owner, std::shared_ptr<AddIn> addIn) : owner_(owner), addIn_(std::move(addIn)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        return owner_.QueryInterface(iid, result);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }

    HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* VBInst, vbext_ConnectMode ConnectMode,
                                           ::AddIn* AddInInst, SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnDisconnection(vbext_DisconnectMode RemoveMode, SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override;
    HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override;

    /// The methods for late-bound callers.
    static std::span<const com::Member<Extensibility>> members();

  private:
    void connect(IDispatch* VBInst, std::int32_t ConnectMode);

    IUnknown& owner_;
    std::shared_ptr<AddIn> addIn_;
};

} // namespace corvelle::host
