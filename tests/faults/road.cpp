#include "faults/road.h"

#include "fakes/open_files.h"
#include "faults/every_call.h"
#include "forms/desktop.h"
#include "forms/message_box.h"

#include <new>

namespace corvelle::host::test {

namespace {

const base::RunTimeError disaster(-2147467259, "Method '~' of object '~' failed");

} // namespace

void FailingSettings::fail(int n) {
    callsUntil_ = n;
    failed_ = false;
}

void FailingSettings::enter() {
    if (callsUntil_ == 0 || --callsUntil_ > 0) return;
    failed_ = true;
    throw base::RunTimeError(base::ErrorNumber::PermissionDenied);
}

std::string FailingSettings::get(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& otherwise) {
    enter();
    return settings_.get(application, section, key, otherwise);
}

void FailingSettings::save(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& value) {
    enter();
    settings_.save(application, section, key, value);
}

void RoadDesktop::runModal(forms::Form& form) {
    inNextModal(inModal);
    HeadlessDesktop::runModal(form);
}

bool RoadDesktop::waitForEvents() {
    if (inWait) inWait();
    return !isQuitting();
}

std::optional<std::string> RoadDesktop::chooseFile(const forms::CommonDialog& dialog, bool) {
    return chosenFile(dialog.filter);
}

void RoadDesktop::startTimer(forms::Timer& timer, std::int32_t interval) {
    HeadlessDesktop::startTimer(timer, interval);
    ++timers;
}

void RoadDesktop::stopTimer(forms::Timer& timer) {
    HeadlessDesktop::stopTimer(timer);
    --timers;
}

int RoadDesktop::showMessageBox(const std::string&, int flags, const std::string&) {
    return (flags & forms::box::yesNo) != 0 ? forms::answer::yes : forms::answer::ok;
}

Road::Road() : openFiles_(corvelle::test::openFiles(folder.path())) {
    desktop.onUnexpected = [](const std::string& what) { ADD_FAILURE() << what; };
}

void Road::walk() {
    enter([this] { addIn->IDTExtensibility_OnConnection(ide, connect_mode::Startup); });
    enter([this] {
        const auto& sources = ide->sources;
        if (!sources.empty() && sources.back()->control) sources.back()->click(); // else there is no command
    });
    useWindows();
    enter([this] { addIn->IDTExtensibility_OnDisconnection(); });
}

void Road::enter(const std::function<void()>& call) {
    try {
        call();
    } catch (const std::exception&) {
    }
}

bool Road::press(forms::Control& button) {
    const auto alive = button.form().shared_from_this();
    if (!alive->isLoaded()) return false;
    bool pressed = false;
    try {
        pressed = desktop.click(button);
    } catch (const std::bad_alloc&) { // it was the user who had none
        pressed = alive->isLoaded() && desktop.click(button);
    }
    EXPECT_EQ(desktop.timers, 0) << "the indicator still runs after " << button.name();
    if (alive->isLoaded()) {
        EXPECT_EQ(alive->mousePointer(), forms::MousePointer::Default) << "after " << button.name();
    }
    return pressed;
}

void Road::expectNothingLeft() {
    EXPECT_TRUE(desktop.windows().empty());
    EXPECT_EQ(desktop.timers, 0);
    EXPECT_EQ(corvelle::test::openFiles(folder.path()), openFiles_);
    for (const auto& name : folder.names()) EXPECT_EQ(names.count(name), 1U) << name << " was left behind";
    const std::weak_ptr<AddIn> gone = addIn;
    ide->sources.clear();
    addIn.reset();
    EXPECT_TRUE(gone.expired());
    EXPECT_EQ(ide.use_count(), 1);
}

void failEachStep(const std::function<std::shared_ptr<Road>()>& makeRoad, int leastIdeCalls,
                  int leastSettingsCalls, int leastSystemCalls) {
    std::shared_ptr<Road> road;
    const auto before = [&] {
        road.reset();
        road = makeRoad();
    };
    const auto walk = [&] { road->walk(); };
    const auto check = [&](bool failed) {
        road->expectUnharmed(failed);
        road->expectNothingLeft();
    };
    struct IdeFault {
        Road& road;
        IdeFault(Road& faulty, int n) : road(faulty) { road.ide->calls->fail("", n, disaster); }
        ~IdeFault() { road.ide->calls->failNoMore(); }
        bool failed() const { return road.ide->calls->anyFailed(); }
    };
    corvelle::test::failEach(
        "call on the IDE", leastIdeCalls, [&](int n) { return IdeFault(*road, n); }, before, walk, check);
    struct SettingsFault {
        Road& road;
        SettingsFault(Road& faulty, int n) : road(faulty) { road.desktop.store.fail(n); }
        ~SettingsFault() { road.desktop.store.fail(0); }
        bool failed() const { return road.desktop.store.failed(); }
    };
    corvelle::test::failEach(
        "call on the settings", leastSettingsCalls, [&](int n) { return SettingsFault(*road, n); }, before,
        walk, check);
    corvelle::test::failEachSystemCall(leastSystemCalls, before, walk, check);
    corvelle::test::interruptEachSystemCall(leastSystemCalls, before, walk, check);
    corvelle::test::failEachAllocation(300, before, walk, check);
}

} // namespace corvelle::host::test
