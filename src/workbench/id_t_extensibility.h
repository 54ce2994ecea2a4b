#pragma once

#include <ole2.h>

namespace corvelle::workbench {

/// The interface through which the IDE talks to an add-in; the order of its methods is the IDE's.
struct IDTExtensibility : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* VBInst, LONG ConnectMode, IDispatch* AddInInst,
                                                   SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDisconnection(LONG RemoveMode, SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
};

inline constexpr IID IID_IDTExtensibility = {0x0002E151, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// How an add-in comes (`vbext_ConnectMode`) and goes (`vbext_DisconnectMode`).
enum class ConnectMode { AfterStartup = 0, Startup = 1, External = 2 };
enum class DisconnectMode { HostShutdown = 0, UserClosed = 1 };

} // namespace corvelle::workbench
