#include "workbench/model/event_objects.h"

#include "workbench/model/command_bar_objects.h"

#include <olectl.h>

namespace corvelle::workbench {

namespace {

using com::Arguments;
using com::Variant;

// _CommandBarControlEvents, which has no members, and _dispCommandBarControlEvents.
constexpr IID eventsInterface = {0x0002E197, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID clickEvents = {0x0002E198, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr DISPID click = 1;

constexpr com::Member<EventsObject> events[] = {
    {L"CommandBarEvents", 205, com::propertyGet, 1, 1,
     [](EventsObject& self, const Arguments& arguments) -> Variant {
         const auto* control = self.serving().find<CommandBarControlObject>(arguments.object(0).get());
         if (!control) throw com::HresultError(DISP_E_TYPEMISMATCH);
         auto clicks = workspace::MenuEvents().CommandBarEvents(control->modelPointer());
         const auto source =
             com::make<CommandBarEventsObject>(self.serving().shared_from_this(), std::move(clicks));
         return static_cast<IUnknown*>(source.get());
     }},
};

VARIANT reference(VARIANT_BOOL& truth) {
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&value) = &truth;
    return value;
}

} // namespace

Members<EventsObject> EventsObject::members() {
    return events;
}

CommandBarEventsObject::CommandBarEventsObject(std::shared_ptr<Serving> serving,
                                               std::shared_ptr<ide::CommandBarEvents> clicks)
    : serving_(std::move(serving)), clicks_(std::move(clicks)),
      point_(com::make<com::ConnectionPoint>(clickEvents, this)) {
    clicks_->setClick([this](ide::CommandBarControl& command, bool& handled, bool& cancelDefault) {
        clicked(command, handled, cancelDefault);
    });
}

CommandBarEventsObject::~CommandBarEventsObject() {
    clicks_->setClick({});
    point_->leave();
}

HRESULT CommandBarEventsObject::EnumConnectionPoints(IEnumConnectionPoints** result) {
    if (result) *result = nullptr;
    return E_NOTIMPL;
}

HRESULT CommandBarEventsObject::FindConnectionPoint(REFIID events, IConnectionPoint** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (!IsEqualIID(events, clickEvents)) return CONNECT_E_NOCONNECTION;
    *result = com::Ptr<IConnectionPoint>(point_).release();
    return S_OK;
}

void* CommandBarEventsObject::find(REFIID iid) {
    return IsEqualIID(iid, eventsInterface) ? static_cast<IUnknown*>(this) : Object::find(iid);
}

void CommandBarEventsObject::clicked(ide::CommandBarControl& command, bool& handled, bool& cancelDefault) {
    const com::Ptr<IUnknown> self(this); // a sink may let go of it
    const auto control = serving_->object<CommandBarControlObject>(
        static_cast<workspace::MenuCommand&>(command).shared_from_this());
    const Variant clickedControl(control);
    VARIANT_BOOL handledAnswer = VARIANT_FALSE, cancelAnswer = VARIANT_FALSE;
    point_->fire(click, {clickedControl.get(), reference(handledAnswer), reference(cancelAnswer)});
    handled = handledAnswer != VARIANT_FALSE;
    cancelDefault = cancelAnswer != VARIANT_FALSE;
}

} // namespace corvelle::workbench
