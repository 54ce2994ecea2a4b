#pragma once

#include "ide/vb_controls.h"

#include <memory>

namespace corvelle::ide {

/// The designer of a form, user control, property page or document.
class VBForm {
  public:
    virtual ~VBForm() = default;

    virtual std::shared_ptr<ide::VBControls> VBControls() = 0;
};

} // namespace corvelle::ide
