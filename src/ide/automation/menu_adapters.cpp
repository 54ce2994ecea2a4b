#include "ide/automation/menu_adapters.h"

#include "base/run_time_error.h"
#include "ide/automation/adapt.h"

#include <exception>

namespace corvelle::automation {

std::shared_ptr<ide::CommandBar> CommandBarsAdapter::Item(std::string_view name) {
    return adapt<CommandBarAdapter>(object_.get(L"Item", name));
}

std::shared_ptr<ide::CommandBarControls> CommandBarAdapter::Controls() {
    return adapt<CommandBarControlsAdapter>(object_.get(L"Controls"));
}

std::shared_ptr<ide::CommandBarControl> CommandBarControlsAdapter::Add(ide::CommandBarControlType type) {
    return adapt<CommandBarControlAdapter>(object_.get(L"Add", static_cast<std::int32_t>(type)));
}

void CommandBarControlAdapter::setCaption(std::string_view caption) {
    object_.put(L"Caption", caption);
}

void CommandBarControlAdapter::Delete() {
    object_.call(L"Delete");
}

namespace {

// _dispCommandBarControlEvents of the IDE's extensibility library.
constexpr IID clickEvents = {0x0002E198, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr DISPID click = 1;
enum ClickArgument { control, handled, cancelDefault };

bool initialAnswer(const com::Arguments& arguments, std::size_t index) {
    try {
        return arguments.has(index) && arguments.boolean(index);
    } catch (const std::exception&) { // not a Boolean
        return false;
    }
}

com::Ptr<IDispatch> clickedObject(const com::Arguments& arguments) {
    try {
        return arguments.has(control) ? arguments.object(control) : com::Ptr<IDispatch>();
    } catch (const std::exception&) { // not an object
        return {};
    }
}

} // namespace

/// Takes the clicks of one command.
class ClickSink : public com::EventSink {
  public:
    explicit ClickSink(ide::CommandBarEvents::ClickHandler handler)
        : EventSink(clickEvents), handler_(std::move(handler)) {}

    void stop() { handler_ = nullptr; }

  protected:
    void event(DISPID id, const com::Arguments& arguments) override {
        const auto handler = handler_; // it may be taken away while it runs
        if (id != click || !handler) return;
        CommandBarControlAdapter command{com::Dispatch(clickedObject(arguments))};
        const bool wasHandled = initialAnswer(arguments, handled);
        const bool wasCancelled = initialAnswer(arguments, cancelDefault);
        bool isHandled = wasHandled, isCancelled = wasCancelled;
        handler(command, isHandled, isCancelled);
        if (isHandled != wasHandled) arguments.setBoolean(handled, isHandled);
        if (isCancelled != wasCancelled) arguments.setBoolean(cancelDefault, isCancelled);
    }

  private:
    ide::CommandBarEvents::ClickHandler handler_;
};

std::shared_ptr<ide::CommandBarEvents>
EventsAdapter::CommandBarEvents(const std::shared_ptr<ide::CommandBarControl>& control) {
    const auto adapter = std::dynamic_pointer_cast<CommandBarControlAdapter>(control);
    if (control && !adapter) throw base::RunTimeError(base::ErrorNumber::TypeMismatch);
    auto source = com::unknownOf(object_.get(L"CommandBarEvents", adapter ? adapter->object() : nullptr));
    return source ? std::make_shared<CommandBarEventsAdapter>(std::move(source)) : nullptr;
}

CommandBarEventsAdapter::CommandBarEventsAdapter(com::Ptr<IUnknown> object) : object_(std::move(object)) {}

CommandBarEventsAdapter::~CommandBarEventsAdapter() {
    disconnect();
}

void CommandBarEventsAdapter::setClick(ClickHandler handler) {
    disconnect();
    if (!handler) return;
    auto sink = com::make<ClickSink>(std::move(handler));
    connection_ = com::Connection(object_.get(), clickEvents, sink.get());
    sink_ = std::move(sink);
}

void CommandBarEventsAdapter::disconnect() {
    if (sink_) sink_->stop();
    sink_.reset();
    connection_ = {};
}

} // namespace corvelle::automation
