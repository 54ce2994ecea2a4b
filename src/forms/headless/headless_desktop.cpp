#include "forms/headless/headless_desktop.h"

#include "base/scope_exit.h"
#include "forms/headless/headless_peer.h"
#include "forms/timer.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace corvelle::forms {

std::string MapSettings::get(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& otherwise) {
    const auto found = values.find({application, section, key});
    return found == values.end() ? otherwise : found->second;
}

void MapSettings::save(const std::string& application, const std::string& section, const std::string& key,
                       const std::string& value) {
    values[{application, section, key}] = value;
}

HeadlessDesktop::HeadlessDesktop() = default;
HeadlessDesktop::~HeadlessDesktop() = default;

// The script

void HeadlessDesktop::answerNextBox(int answer, std::function<void()> before) {
    answers_.push_back({answer, std::move(before)});
}

void HeadlessDesktop::chooseNextFile(const std::string& path) {
    files_.emplace_back(path);
}

void HeadlessDesktop::cancelNextFile() {
    files_.emplace_back(std::nullopt);
}

void HeadlessDesktop::inNextModal(std::function<void(Form&)> action) {
    modalActions_.push_back(std::move(action));
}

void HeadlessDesktop::atYield(std::function<void()> action, int yieldsBefore) {
    yieldActions_.push_back({yieldsBefore, std::move(action)});
}

void HeadlessDesktop::passTime(std::int64_t milliseconds) {
    const std::int64_t end = clock_ + milliseconds;
    for (;;) {
        const auto next = std::min_element(timers_.begin(), timers_.end(),
                                           [](const Running& a, const Running& b) { return a.due < b.due; });
        if (next == timers_.end() || next->due > end) break;
        clock_ = std::max(clock_, next->due); // a handler may have let time pass itself
        next->due += next->interval;
        next->timer->ticked();
    }
    clock_ = std::max(clock_, end);
}

bool HeadlessDesktop::scriptIsDone() const {
    return answers_.empty() && files_.empty() && modalActions_.empty() && yieldActions_.empty();
}

void HeadlessDesktop::unexpected(const std::string& what) {
    if (!onUnexpected) throw std::logic_error(what);
    onUnexpected(what);
}

// The user

bool HeadlessDesktop::takesInput(const Control& control) const {
    return takesInput(control.form()) && control.reachable();
}

// The handlers of what loses and gets the focus may do anything: false if the control is out of reach then.
bool HeadlessDesktop::bringUp(Control& control) {
    if (!takesInput(control)) return false;
    raise(control.form());
    if (!takesInput(control)) return false;
    control.setFocus();
    return takesInput(control);
}

bool HeadlessDesktop::tabTo(Control& control) {
    if (!control.takesFocus()) return false;
    const auto alive = control.form().shared_from_this();
    return bringUp(control);
}

bool HeadlessDesktop::click(Control& control) {
    if (!takesInput(control)) return false;
    const auto alive = control.form().shared_from_this();
    if (bringUp(control)) control.userClicked();
    return true;
}

bool HeadlessDesktop::type(TextBox& box, const std::string& text) {
    const auto alive = box.form().shared_from_this();
    if (!takesInput(box) || box.locked() || !bringUp(box)) return false;
    box.userPressedKey();
    if (takesInput(box)) box.userTyped(text);
    return true;
}

bool HeadlessDesktop::choose(ListControl& list, int row) {
    const auto alive = list.form().shared_from_this();
    if (!bringUp(list) || row < 0 || row >= list.listCount()) return false;
    list.setListIndex(row);
    return true;
}

bool HeadlessDesktop::choose(TabStrip& tabs, int tab) {
    const auto alive = tabs.form().shared_from_this();
    if (!bringUp(tabs) || tab < 1 || tab > static_cast<int>(tabs.tabs().size())) return false;
    tabs.select(tab);
    return true;
}

bool HeadlessDesktop::drag(Slider& slider, int value) {
    const auto alive = slider.form().shared_from_this();
    if (!bringUp(slider) || value < slider.range().min || value > slider.range().max) return false;
    slider.userDragged(value);
    return true;
}

bool HeadlessDesktop::press(Form& form, int keyCode) {
    if (!takesInput(form)) return false;
    if (form.keyPreview() || !form.activeControl()) form.userReleasedKey(keyCode);
    return true;
}

bool HeadlessDesktop::press(ListControl& list, int keyCode) {
    const auto alive = list.form().shared_from_this();
    if (!bringUp(list)) return false;
    list.userPressedKey(keyCode);
    return true;
}

bool HeadlessDesktop::pressEnter(Form& form) {
    if (!takesInput(form)) return false;
    const Control* const focused = form.activeControl();
    if (focused && focused->takesEnter()) return false;
    return form.keyboard().pressEnter();
}

bool HeadlessDesktop::pressEscape(Form& form) {
    return takesInput(form) && form.keyboard().pressEscape();
}

bool HeadlessDesktop::pressTab(Form& form, bool back) {
    if (!takesInput(form)) return false;
    raise(form);
    if (!takesInput(form)) return false;
    form.keyboard().moveOn(back);
    return true;
}

bool HeadlessDesktop::pressAccelerator(Form& form, char letter) {
    if (!takesInput(form)) return false;
    const auto alive = form.shared_from_this();
    raise(form);
    return takesInput(form) && form.keyboard().pressAccelerator(letter);
}

bool HeadlessDesktop::moveMouse(Control& control) {
    if (!takesInput(control.form())) return false;
    for (const Control* shown = &control; shown; shown = shown->container()) {
        if (!shown->visible()) return false;
    }
    control.userMovedMouse();
    return true;
}

bool HeadlessDesktop::moveMouse(Form& form) {
    if (!takesInput(form)) return false;
    form.userMovedMouse();
    return true;
}

bool HeadlessDesktop::click(Form& form) {
    if (!takesInput(form)) return false;
    const auto alive = form.shared_from_this();
    raise(form);
    if (takesInput(form)) form.userClicked();
    return true;
}

bool HeadlessDesktop::close(Form& form) {
    if (!takesInput(form) || form.borderStyle() == BorderStyle::FixedWithoutCloseBox) return false;
    form.userClosed();
    return true;
}

bool HeadlessDesktop::activate(Form& form) {
    if (!takesInput(form)) return false;
    raise(form);
    return true;
}

bool HeadlessDesktop::resize(Form& form, Size clientArea) {
    if (!takesInput(form) || form.borderStyle() != BorderStyle::Sizable) return false;
    const Size least = form.leastSize();
    form.userResized({std::max(clientArea.width, least.width), std::max(clientArea.height, least.height)});
    return true;
}

// Windows

std::unique_ptr<FormPeer> HeadlessDesktop::makePeer(Form& form) {
    auto peer = std::make_unique<HeadlessPeer>(*this, form);
    for (Control* control : form.controls()) HeadlessPeer::sizeSurface(*control);
    return peer;
}

void HeadlessDesktop::raise(Form& form) {
    windows_.erase(std::remove(windows_.begin(), windows_.end(), &form), windows_.end());
    windows_.push_back(&form);
    activateTop();
}

void HeadlessDesktop::remove(Form& form) {
    endModal(form);
    windows_.erase(std::remove(windows_.begin(), windows_.end(), &form), windows_.end());
    if (active_ == &form) active_ = nullptr;
    activateTop();
}

void HeadlessDesktop::activateTop() {
    const auto top =
        std::find_if(windows_.rbegin(), windows_.rend(), [](const Form* form) { return form->enabled(); });
    Form* const next = top == windows_.rend() ? nullptr : *top;
    if (next == active_) return;
    active_ = next;
    if (!next) return;
    const auto alive = next->shared_from_this();
    next->userActivated();
    if (active_ == next && next->peer()) next->keyboard().restore();
}

void HeadlessDesktop::runModal(Form& form) {
    modals_.push_back(form.name());
    Desktop::runModal(form);
}

class HeadlessDesktop::OthersDisabled : public Disabled {
  public:
    OthersDisabled(HeadlessDesktop& desktop, const Form& except) : desktop_(desktop) {
        for (Form* form : desktop.loaded_) {
            if (form == &except || !form->enabled()) continue;
            forms_.push_back(form);
            form->setEnabled(false);
        }
    }
    ~OthersDisabled() override {
        const auto& loaded = desktop_.loaded_;
        for (Form* form : forms_) {
            if (std::find(loaded.begin(), loaded.end(), form) != loaded.end()) form->setEnabled(true);
        }
    }
    OthersDisabled(const OthersDisabled&) = delete;
    OthersDisabled& operator=(const OthersDisabled&) = delete;

  private:
    HeadlessDesktop& desktop_;
    std::vector<Form*> forms_;
};

std::unique_ptr<Desktop::Disabled> HeadlessDesktop::disableOthers(Form& form) {
    return std::make_unique<OthersDisabled>(*this, form);
}

void HeadlessDesktop::serveModal(Form& form, const std::function<bool()>& isOpen) {
    const auto serves = [&] { return !quitting_ && isOpen(); };
    if (!serves()) return;
    if (modalActions_.empty()) {
        unexpected("modal window " + form.name() + " was not expected");
    } else {
        const auto action = std::move(modalActions_.front());
        modalActions_.pop_front();
        action(form);
    }
    while (serves() && !yieldActions_.empty()) doEvents();
    if (serves()) {
        unexpected("modal window " + form.name() + " was left open");
        form.hide();
    }
}

// Messages

void HeadlessDesktop::doEvents() {
    ++yields_;
    if (yieldActions_.empty()) return;
    if (yieldActions_.front().yieldsBefore-- > 0) return;
    const auto action = std::move(yieldActions_.front().action);
    yieldActions_.pop_front();
    action();
}

bool HeadlessDesktop::waitForEvents() {
    if (quitting_) return false;
    if (yieldActions_.empty()) {
        unexpected("the program waits and nothing will happen");
        quitting_ = true;
        return false;
    }
    doEvents();
    return !quitting_;
}

int HeadlessDesktop::showMessageBox(const std::string& text, int flags, const std::string& title) {
    boxes_.push_back({text, flags, title});
    ++openBoxes_; // while one is open the user reaches nothing else
    const base::ScopeExit closed([this] { --openBoxes_; });
    const bool asks = (flags & box::yesNo) != 0;
    const int cautious = asks ? answer::no : answer::ok;
    if (answers_.empty()) {
        unexpected("message box was not expected: " + title + ": " + text);
        return cautious;
    }
    const Answer next = std::move(answers_.front());
    answers_.pop_front();
    if (next.before) next.before();
    if (next.answer == cautious || (asks && next.answer == answer::yes)) return next.answer;
    unexpected("the box has no such answer: " + title + ": " + text);
    return cautious;
}

std::optional<std::string> HeadlessDesktop::chooseFile(const CommonDialog& dialog, bool save) {
    fileDialogs_.push_back(
        {dialog.dialogTitle, dialog.fileName, dialog.initDir, dialog.filter, dialog.flags, save});
    if (files_.empty()) {
        unexpected("file dialog was not expected: " + dialog.dialogTitle);
        return std::nullopt;
    }
    auto chosen = std::move(files_.front());
    files_.pop_front();
    return chosen;
}

void HeadlessDesktop::showHelp(Control* caller, const std::string& file, int command, std::uint32_t data) {
    helps_.push_back({caller, file, command, data});
}

Size HeadlessDesktop::pictureSize(const Picture& picture) const {
    constexpr Size icon{480, 480};
    const auto found = pictureSizes.find(picture.name());
    return found == pictureSizes.end() ? icon : found->second;
}

Colour HeadlessDesktop::resolve(Colour colour) const {
    // The classic scheme.
    static constexpr std::array<Colour, 25> system{
        0xC8D0D4, 0xA56E3A, 0x6A240A, 0x808080, 0xC8D0D4, 0xFFFFFF, 0x000000, 0x000000, 0x000000,
        0xFFFFFF, 0xC8D0D4, 0xC8D0D4, 0x808080, 0x6A240A, 0xFFFFFF, 0xC8D0D4, 0x808080, 0x808080,
        0x000000, 0xC8D0D4, 0xFFFFFF, 0x404040, 0xC8D0D4, 0x000000, 0xE1FFFF};
    if (!isSystemColour(colour)) return colour & 0xFFFFFFU;
    const auto index = colour & 0xFFU;
    return index < system.size() ? system[index] : 0;
}

// Timers

void HeadlessDesktop::startTimer(Timer& timer, std::int32_t interval) {
    timers_.push_back({&timer, interval, clock_ + interval});
}

void HeadlessDesktop::stopTimer(Timer& timer) {
    timers_.erase(std::remove_if(timers_.begin(), timers_.end(),
                                 [&timer](const Running& running) { return running.timer == &timer; }),
                  timers_.end());
}

} // namespace corvelle::forms
