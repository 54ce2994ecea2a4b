#pragma once

#include "com/bstr.h"
#include "com/ptr.h"

#include <ole2.h>
#include <string>

namespace corvelle::host::test {

extern const CLSID formatterClass, indexerClass;

/// The DLL as it is shipped, loaded by its path and asked through its exports.
class Dll {
  public:
    explicit Dll(const std::wstring& path = Dll::path());
    ~Dll() { FreeLibrary(module_); }
    Dll(const Dll&) = delete;
    Dll& operator=(const Dll&) = delete;

    /// The path of its file.
    static std::wstring path();
    HMODULE module() const { return module_; }

    HRESULT getClassObject(REFCLSID id, REFIID iid, void** result) const;
    HRESULT canUnloadNow() const { return call("DllCanUnloadNow"); }
    HRESULT registerServer() const { return call("DllRegisterServer"); }
    HRESULT unregisterServer() const { return call("DllUnregisterServer"); }
    /// What "regsvr32 /i" does beyond the registration, and takes back.
    HRESULT install(bool in) const;
    /// A new object of one of its classes; none if that fails.
    com::Ptr<IUnknown> make(REFCLSID id) const;

  private:
    HRESULT call(const char* name) const;

    HMODULE module_;
};

/// The thread's COM, which every test here needs.
class Apartment {
  public:
    Apartment() { OleInitialize(nullptr); }
    ~Apartment() { OleUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

} // namespace corvelle::host::test
