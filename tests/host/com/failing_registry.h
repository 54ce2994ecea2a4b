#pragma once

#include <windows.h>

namespace corvelle::host::test {

/// Makes the n-th call of a module on the registry fail until the end of its life. One at a time.
class FailingRegistry {
  public:
    FailingRegistry(HMODULE module, int n);
    ~FailingRegistry();
    FailingRegistry(const FailingRegistry&) = delete;
    FailingRegistry& operator=(const FailingRegistry&) = delete;

    bool failed() const;

  private:
    HMODULE module_;
};

} // namespace corvelle::host::test
