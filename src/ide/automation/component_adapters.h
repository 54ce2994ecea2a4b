#pragma once

#include "com/dispatch.h"
#include "ide/component.h"

#include <utility>

namespace corvelle::automation {

/// An IDE's VBComponent object.
class VBComponentAdapter : public ide::VBComponent {
  public:
    explicit VBComponentAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::string Name() override;
    void setName(std::string_view name) override;
    ide::ComponentType Type() override;
    bool IsDirty() override;
    std::string FileNames(std::int32_t index) override;
    std::shared_ptr<ide::CodeModule> CodeModule() override;
    std::shared_ptr<ide::VBForm> Designer() override;
    std::shared_ptr<ide::Window> DesignerWindow() override;
    void Activate() override;
    /// Some IDEs answer False for a success too: only an error counts.
    void SaveAs(std::string_view fileName) override;

  private:
    com::Dispatch object_;
};

/// An IDE's Window object.
class WindowAdapter : public ide::Window {
  public:
    explicit WindowAdapter(com::Dispatch object) : object_(std::move(object)) {}

    void SetFocus() override;
    void Close() override;

  private:
    com::Dispatch object_;
};

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
