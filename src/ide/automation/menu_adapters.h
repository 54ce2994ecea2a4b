#pragma once

#include "com/dispatch.h"
#include "com/event_sink.h"
#include "ide/menus.h"
#include "ide/vbe.h"

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

/// An IDE's Events object.
class EventsAdapter : public ide::Events {
  public:
    explicit EventsAdapter(com::Dispatch object) : object_(std::move(object)) {}

    /// Throws RunTimeError 13 for a command that is none of an IDE's.
    std::shared_ptr<ide::CommandBarEvents>
    CommandBarEvents(const std::shared_ptr<ide::CommandBarControl>& control) override;

  private:
    com::Dispatch object_;
};

class ClickSink;

/// An IDE's CommandBarEvents object. While a handler is set a sink is connected to it.
class CommandBarEventsAdapter : public ide::CommandBarEvents {
  public:
    explicit CommandBarEventsAdapter(com::Ptr<IUnknown> object);
    ~CommandBarEventsAdapter() override;

    /// Throws the RunTimeError of an IDE that refuses the connection; then no handler is set. A handler that
    /// was taken away is called no more, not by a click under way either.
    void setClick(ClickHandler handler) override;
    IUnknown* object() const { return object_.get(); }

  private:
    void disconnect();

    com::Ptr<IUnknown> object_;
    com::Ptr<ClickSink> sink_;
    com::Connection connection_;
};

} // namespace corvelle::automation
