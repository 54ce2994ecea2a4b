#pragma once

#include "ide/code_module.h"

#include <memory>

namespace corvelle::ide {

/// A code window.
class CodePane {
  public:
    virtual ~CodePane() = default;

    virtual std::shared_ptr<ide::CodeModule> CodeModule() = 0;
};

} // namespace corvelle::ide
