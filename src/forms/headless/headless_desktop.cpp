#include "forms/headless/headless_desktop.h"

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
        clock_ = next->due;
        next->due += next->interval;
        next->timer->ticked();
    }
    clock_ = end;
}

bool HeadlessDesktop::scriptIsDone() const {
    return answers_.empty() && files_.empty() && modalActions_.empty() && yieldActions_.empty();
}

void HeadlessDesktop::unexpected(const std::string& what) {
    if (!onUnexpected) throw std::logic_error(what);
    onUnexpected(what);
}

// The user

bool HeadlessDesktop::takesInput(Control& control) const {
    Form& form = control.form();
    if (!takesInput(form)) return false;
    return control.reachable();
}

bool HeadlessDesktop::tabTo(Control& control) {
    if (!takesInput(control)) return false;
    raise(control.form());
    control.setFocus();
    return true;
}

bool HeadlessDesktop::click(Control& control) {
    if (!takesInput(control)) return false;
    const auto alive = control.form().shared_from_this();
    raise(control.form());
    switch (control.kind()) {
    case ControlKind::Label:
    case ControlKind::Image:
    case ControlKind::Frame:
        break; // these take no focus
    default:
        control.setFocus();
    }
    if (takesInput(control)) control.userClicked(); // what left the focus may have changed that
    return true;
}

bool HeadlessDesktop::type(TextBox& box, const std::string& text) {
    if (box.locked() || !tabTo(box)) return false;
    box.userTyped(text);
    return true;
}

bool HeadlessDesktop::choose(ListControl& list, int row) {
    if (!tabTo(list)) return false;
    list.setListIndex(row);
    return true;
}

bool HeadlessDesktop::drag(Slider& slider, int value) {
    if (!tabTo(slider)) return false;
    slider.userDragged(value);
    return true;
}

bool HeadlessDesktop::press(Form& form, int keyCode) {
    if (!takesInput(form)) return false;
    if (form.keyPreview() || form.activeControl() == nullptr) form.userReleasedKey(keyCode);
    return true;
}

bool HeadlessDesktop::pressEnter(Form& form) {
    return takesInput(form) && form.defaultButton() != nullptr && click(*form.defaultButton());
}

bool HeadlessDesktop::pressEscape(Form& form) {
    return takesInput(form) && form.cancelButton() != nullptr && click(*form.cancelButton());
}

void HeadlessDesktop::moveMouse(Control& control) {
    if (takesInput(control.form())) control.userMovedMouse();
}

void HeadlessDesktop::moveMouse(Form& form) {
    if (takesInput(form)) form.userMovedMouse();
}

bool HeadlessDesktop::click(Form& form) {
    if (!takesInput(form)) return false;
    raise(form);
    form.userClicked();
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

// Windows

std::unique_ptr<FormPeer> HeadlessDesktop::makePeer(Form& form) {
    for (Control* control : form.controls()) HeadlessPeer::sizeSurface(*control);
    return std::make_unique<HeadlessPeer>(*this, form);
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
    if (next != nullptr) next->userActivated();
}

void HeadlessDesktop::runModal(Form& form) {
    modals_.push_back(form.name());
    Modal modal{&form, {}};
    for (Form* window : windows_) {
        if (window == &form || !window->enabled()) continue;
        window->setEnabled(false);
        modal.disabled.push_back(window);
    }
    modalStack_.push_back(modal);
    form.show();
    if (modalActions_.empty()) {
        unexpected("modal window " + form.name() + " was not expected");
    } else {
        const auto action = std::move(modalActions_.front());
        modalActions_.pop_front();
        action(form);
    }
    while (form.visible() && !quitting_ && !yieldActions_.empty()) doEvents();
    if (form.visible() && !quitting_) {
        unexpected("modal window " + form.name() + " was left open");
        form.hide();
    }
    endModal(form);
}

void HeadlessDesktop::endModal(Form& form) {
    const auto found = std::find_if(modalStack_.begin(), modalStack_.end(),
                                    [&form](const Modal& modal) { return modal.form == &form; });
    if (found == modalStack_.end()) return;
    const Modal modal = *found;
    modalStack_.erase(found);
    for (Form* window : modal.disabled) {
        if (std::find(windows_.begin(), windows_.end(), window) != windows_.end()) window->setEnabled(true);
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
    const bool asks = (flags & box::yesNo) != 0;
    if (answers_.empty()) {
        unexpected("message box was not expected: " + title + ": " + text);
        return asks ? answer::no : answer::ok;
    }
    const Answer next = std::move(answers_.front());
    answers_.pop_front();
    if (next.before) next.before();
    if (asks != (next.answer != answer::ok)) unexpected("the box has no such answer: " + title + ": " + text);
    return next.answer;
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
