#pragma once

#include "ide/vb_project.h"
#include "ide/workspace/component.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// A project on disk.
class Project : public ide::VBProject {
  public:
    /// `whole` is what a pointer to the project keeps alive. The path is empty for a module that was opened
    /// without a project.
    Project(std::weak_ptr<void> whole, std::filesystem::path path, std::string name, ide::ProjectType type);

    std::string Name() override { return name_; }
    std::string FileName() override;
    ide::ProjectType Type() override { return type_; }
    /// Never: what is open here is what the disk holds.
    bool IsDirty() override { return false; }
    std::shared_ptr<ide::VBComponents> VBComponents() override;

    const std::vector<std::unique_ptr<Component>>& components() const { return components_; }
    void add(std::unique_ptr<Component> component) { components_.push_back(std::move(component)); }

  private:
    class Components : public ide::VBComponents {
      public:
        explicit Components(Project& project) : project_(project) {}

        std::int32_t Count() override;
        std::shared_ptr<ide::VBComponent> Item(std::int32_t index) override;
        std::shared_ptr<ide::VBComponent> Item(std::string_view name) override;
        /// Throws RunTimeError 438: the embedded IDE adds nothing.
        std::shared_ptr<ide::VBComponent> Add(ide::ComponentType type) override;

      private:
        Project& project_;
    };

    std::weak_ptr<void> whole_;
    std::filesystem::path path_;
    std::string name_;
    ide::ProjectType type_;
    std::vector<std::unique_ptr<Component>> components_;
    Components collection_{*this};
};

} // namespace corvelle::workspace
