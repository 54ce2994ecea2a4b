#pragma once

#include <windows.h>

namespace corvelle::host::test {

/// What a module asks of the system.
enum class Imports { Registry, Files };

/// Makes the n-th call of that kind that a module makes fail, until the end of its life. One at a time.
class FailingImports {
  public:
    FailingImports(HMODULE module, Imports kind, int n);
    ~FailingImports();
    FailingImports(const FailingImports&) = delete;
    FailingImports& operator=(const FailingImports&) = delete;

    bool failed() const;

  private:
    HMODULE module_;
    Imports kind_;
};

} // namespace corvelle::host::test
