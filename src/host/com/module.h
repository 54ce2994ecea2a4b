#pragma once

#include "com/object.h"
#include "com/ptr.h"

#include <oaidl.h>
#include <string>

namespace corvelle::host {

/// The DLL, as Windows knows it.
HINSTANCE moduleInstance();
void setModuleInstance(HINSTANCE instance);
/// The full path of its file.
std::wstring modulePath();

/// The package's type library, which the DLL has as a resource. Throws HresultError.
com::Ptr<ITypeLib> typeLibrary();
/// What the library tells of an interface. Throws HresultError.
com::Ptr<ITypeInfo> typeInfo(REFGUID id);

/// Keeps the DLL loaded while it lives.
class ModuleLock {
  public:
    ModuleLock() { com::lockModule(); }
    ~ModuleLock() { com::unlockModule(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

} // namespace corvelle::host
