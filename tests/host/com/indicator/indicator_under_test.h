#pragma once

#include "com/ptr.h"

#include <corvelle.h>
#include <ole2.h>

namespace corvelle::host {

/// A new control out of the DLL; part of an aggregate with an outer unknown.
com::Ptr<IUnknown> makeControl(IUnknown* outer = nullptr);
com::Ptr<_Indicator> makeIndicator();
/// The DLL's factory of controls.
com::Ptr<IClassFactory> controlFactory();
/// Calls DllRegisterServer or another function of the DLL without arguments.
HRESULT callModule(const char* function);

/// How many objects of the test live, and one more if the DLL has any.
long livingObjects();

/// Serves messages for that many milliseconds, or until there is no need to wait any longer.
void pump(unsigned milliseconds);
template <class Condition>
bool pumpUntil(Condition&& condition, unsigned milliseconds = 5000) {
    for (const DWORD start = GetTickCount(); !condition(); pump(5)) {
        if (GetTickCount() - start > milliseconds) return false;
    }
    return true;
}

} // namespace corvelle::host
