#pragma once

#include "com/dispatch.h"
#include "ide/command_bars.h"

#include <utility>

namespace corvelle::automation {

/// An IDE's CommandBars object.
class CommandBarsAdapter : public ide::CommandBars {
  public:
    explicit CommandBarsAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::shared_ptr<ide::CommandBar> Item(std::string_view name) override;

  private:
    com::Dispatch object_;
};

/// An IDE's CommandBar object.
class CommandBarAdapter : public ide::CommandBar {
  public:
    explicit CommandBarAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::shared_ptr<ide::CommandBarControls> Controls() override;

  private:
    com::Dispatch object_;
};

/// An IDE's CommandBarControls object.
class CommandBarControlsAdapter : public ide::CommandBarControls {
  public:
    explicit CommandBarControlsAdapter(com::Dispatch object) : object_(std::move(object)) {}

    std::shared_ptr<ide::CommandBarControl> Add(ide::CommandBarControlType type) override;

  private:
    com::Dispatch object_;
};

/// An IDE's CommandBarControl object.
class CommandBarControlAdapter : public ide::CommandBarControl {
  public:
    explicit CommandBarControlAdapter(com::Dispatch object) : object_(std::move(object)) {}

    void setCaption(std::string_view caption) override;
    void Delete() override;
    IDispatch* object() const { return object_.object(); }

  private:
    com::Dispatch object_;
};

} // namespace corvelle::automation
