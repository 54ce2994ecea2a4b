#pragma once

#include "com/dispatch.h"
#include "ide/code.h"

#include <utility>

namespace corvelle::automation {

/// An IDE's CodeModule object.
class CodeModuleAdapter : public ide::CodeModule {
  public:
    explicit CodeModuleAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::string Name() override;
    std::shared_ptr<ide::VBComponent> Parent() override;
    std::int32_t CountOfLines() override;
    std::string Lines(std::int32_t start, std::int32_t count) override;
    void DeleteLines(std::int32_t start, std::int32_t count) override;
    void InsertLines(std::int32_t line, std::string_view text) override;

  private:
    com::Dispatch object_;
};

/// An IDE's CodePane object.
class CodePaneAdapter : public ide::CodePane {
  public:
    explicit CodePaneAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::shared_ptr<ide::CodeModule> CodeModule() override;

  private:
    com::Dispatch object_;
};

} // namespace corvelle::automation
