#include "host/add_in.h"

#include "base/run_time_error.h"
#include "forms/message_box.h"
#include "ide/required.h"

#include <exception>
#include <new>
#include <utility>

namespace corvelle::host {

AddIn::AddIn(forms::Desktop& desktop, std::string menuCaption)
    : desktop_(desktop), menuCaption_(std::move(menuCaption)) {}

AddIn::~AddIn() {
    base::ignoringErrors([this] { setMenuEvents(nullptr); });
}

void AddIn::IDTExtensibility_OnConnection(const std::shared_ptr<ide::VBE>& VBInst, std::int32_t ConnectMode) {
    const auto alive = shared_from_this();
    const auto report = [this](const std::string& description) {
        desktop_.msgBox("The following error occurred:\r\n" + description, forms::box::information);
    };
    VBInstance_ = VBInst;
    try {
        connect(ConnectMode);
    } catch (const base::RunTimeError& error) {
        report(error.description());
    } catch (const std::bad_alloc&) {
        report(base::describeError(static_cast<int>(base::ErrorNumber::OutOfMemory)));
    } catch (const std::exception& error) {
        report(error.what());
    }
}

void AddIn::connect(std::int32_t ConnectMode) {
    if (ConnectMode == connect_mode::External) return Show();
    removeCommand(); // of a connection that was never ended
    menuCommand_ = AddMyMenu(menuCaption_);
    const auto events = ide::required(VBInstance_).Events();
    setMenuEvents(ide::required(events).CommandBarEvents(menuCommand_));
}

void AddIn::IDTExtensibility_OnDisconnection() {
    const auto alive = shared_from_this();
    removeCommand();
    if (IsLoaded_) {
        saveAutoShow("1");
        IsLoaded_ = false;
    } else {
        saveAutoShow("0");
    }
    unloadMainWindow();
    VBInstance_.reset();
    disconnected();
}

void AddIn::removeCommand() {
    if (const auto command = std::exchange(menuCommand_, nullptr)) {
        base::ignoringErrors([&] { command->Delete(); });
    }
    base::ignoringErrors([this] { setMenuEvents(nullptr); });
}

void AddIn::saveAutoShow(const std::string& value) {
    base::ignoringErrors(
        [&] { desktop_.settings().save(desktop_.application.title, "Settings", "AutoShow", value); });
}

void AddIn::unload(forms::Form& window) {
    bool gone = false;
    base::ignoringErrors([&] { gone = window.unload(); });
    if (!gone) base::ignoringErrors([&] { window.hide(); });
}

void AddIn::setMenuEvents(const std::shared_ptr<ide::CommandBarEvents>& events) {
    if (const auto former = std::exchange(MenuEvents_, nullptr)) {
        base::ignoringErrors([&] { former->setClick(nullptr); });
    }
    if (!events) return;
    events->setClick([weak = weak_from_this()](ide::CommandBarControl&, bool&, bool&) {
        if (const auto self = weak.lock()) self->Show();
    });
    MenuEvents_ = events;
}

std::shared_ptr<ide::CommandBarControl> AddIn::AddMyMenu(std::string_view MenuCaption) {
    std::shared_ptr<ide::CommandBarControl> result;
    base::ignoringErrors([&] {
        const auto bar = ide::required(ide::required(VBInstance_).CommandBars()).Item("Add-Ins");
        if (!bar) return;
        const auto controls = bar->Controls();
        const auto command = ide::required(controls).Add(ide::CommandBarControlType::Button);
        try {
            ide::required(command).setCaption(MenuCaption);
        } catch (...) { // no blank command stays behind
            if (command) base::ignoringErrors([&] { command->Delete(); });
            throw;
        }
        result = command;
    });
    return result;
}

} // namespace corvelle::host
