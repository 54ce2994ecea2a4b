#pragma once

#include "host/com/dll.h"

#include <string>
#include <vector>

namespace corvelle::host::test {

/// The DLL, registered as long as this lives.
class Registered {
  public:
    Registered();
    ~Registered();
    Registered(const Registered&) = delete;
    Registered& operator=(const Registered&) = delete;

    const Dll& dll() const { return dll_; }

    /// Every key of the classes' part of the registry that names the package in one way or another.
    static std::vector<std::wstring> traces();

  private:
    Dll dll_;
};

} // namespace corvelle::host::test
