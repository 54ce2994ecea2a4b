#pragma once

#include "ide/code.h"
#include "ide/component_type.h"
#include "ide/designer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvelle::ide {

/// A form, module, class or designer of a project.
class VBComponent {
  public:
    virtual ~VBComponent() = default;

    virtual std::string Name() = 0;
    virtual void setName(std::string_view name) = 0;
    virtual ComponentType Type() = 0;
    /// Whether it has changes that are not saved.
    virtual bool IsDirty() = 0;
    virtual std::shared_ptr<ide::CodeModule> CodeModule() = 0;
    /// Nothing for a module or class.
    virtual std::shared_ptr<VBForm> Designer() = 0;
    virtual std::shared_ptr<Window> DesignerWindow() = 0;
    /// Opens its designer, or its code window where it has none.
    virtual void Activate() = 0;
    /// The path of one of its files, 1 being the module's; empty before the first saving.
    virtual std::string FileNames(std::int32_t index) = 0;
    /// Saves it into the file of that name.
    virtual void SaveAs(std::string_view fileName) = 0;
};

/// The components of a project.
class VBComponents {
  public:
    virtual ~VBComponents() = default;

    virtual std::int32_t Count() = 0;
    /// The component of that number, from 1. Throws RunTimeError 9 outside the range.
    virtual std::shared_ptr<VBComponent> Item(std::int32_t index) = 0;
    /// The component of that name, letter case aside. Throws RunTimeError 9 if there is none.
    virtual std::shared_ptr<VBComponent> Item(std::string_view name) = 0;
    virtual std::shared_ptr<VBComponent> Add(ComponentType type) = 0;
};

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
