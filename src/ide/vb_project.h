#pragma once

#include "ide/vb_components.h"

#include <memory>
#include <string>

namespace corvelle::ide {

/// A project that is open in the IDE.
class VBProject {
  public:
    virtual ~VBProject() = default;

    virtual std::string Name() = 0;
    /// The path of its file; empty for a project that was never saved.
    virtual std::string FileName() = 0;
    virtual ProjectType Type() = 0;
    /// Whether it has changes that are not saved.
    virtual bool IsDirty() = 0;
    virtual std::shared_ptr<ide::VBComponents> VBComponents() = 0;
};

} // namespace corvelle::ide
