#pragma once

#include "com/connection_point.h"
#include "ide/menus.h"
#include "workbench/model/serving.h"

#include <memory>

namespace corvelle::workbench {

/// Events: the clicks of commands only.
class EventsObject : public Served<EventsObject, Serving> {
  public:
    using Served::Served;
    static Members<EventsObject> members();
};

/// CommandBarEvents of one command: calls its sinks at a click. It has no members of its own.
class CommandBarEventsObject : public com::Object<IConnectionPointContainer> {
  public:
    CommandBarEventsObject(std::shared_ptr<Serving> serving, std::shared_ptr<ide::CommandBarEvents> clicks);
    ~CommandBarEventsObject() override;

    /// Not offered.
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** result) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID events, IConnectionPoint** result) override;

  protected:
    void* find(REFIID iid) override;

  private:
    void clicked(ide::CommandBarControl& command, bool& handled, bool& cancelDefault);

    std::shared_ptr<Serving> serving_;
    std::shared_ptr<ide::CommandBarEvents> clicks_;
    com::Ptr<com::ConnectionPoint> point_;
};

} // namespace corvelle::workbench
