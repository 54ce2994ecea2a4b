#pragma once

#include "com/dispatch.h"
#include "ide/vb_project.h"

#include <utility>

namespace corvelle::automation {

/// An IDE's VBProject object.
class VBProjectAdapter : public ide::VBProject {
  public:
    explicit VBProjectAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::string Name() override;
    std::string FileName() override;
    ide::ProjectType Type() override;
    bool IsDirty() override;
    std::shared_ptr<ide::VBComponents> VBComponents() override;

  private:
    com::Dispatch object_;
};

/// An IDE's VBComponents object.
class VBComponentsAdapter : public ide::VBComponents {
  public:
    explicit VBComponentsAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::int32_t Count() override;
    std::shared_ptr<ide::VBComponent> Item(std::int32_t index) override;
    std::shared_ptr<ide::VBComponent> Item(std::string_view name) override;
    std::shared_ptr<ide::VBComponent> Add(ide::ComponentType type) override;

  private:
    com::Dispatch object_;
};

} // namespace corvelle::automation
