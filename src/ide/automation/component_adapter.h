#pragma once

#include "com/dispatch.h"
#include "ide/vb_component.h"

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

} // namespace corvelle::automation
