#pragma once

#include "com/ptr.h"

#include <oleauto.h>
#include <vector>

namespace corvelle::host::test {

/// The type libraries of the IDE and of the command bars, to which the package's refers and without which
/// late-bound callers cannot pass objects of them. An IDE brings and registers them; where there is none this
/// registers those that the package's library was made with, as long as it lives.
class OutsideLibraries {
  public:
    OutsideLibraries();
    ~OutsideLibraries();
    OutsideLibraries(const OutsideLibraries&) = delete;
    OutsideLibraries& operator=(const OutsideLibraries&) = delete;

  private:
    void provide(const char* file);

    std::vector<TLIBATTR> registered_;
};

} // namespace corvelle::host::test
