#pragma once

#include "forms/controls.h"
#include "forms/desktop.h"
#include "forms/form.h"
#include "forms/list_controls.h"

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace corvelle::forms {

/// A settings store in memory.
class MapSettings : public Settings {
  public:
    std::string get(const std::string& application, const std::string& section, const std::string& key,
                    const std::string& otherwise) override;
    void save(const std::string& application, const std::string& section, const std::string& key,
              const std::string& value) override;

    /// By application, section and key.
    std::map<std::tuple<std::string, std::string, std::string>, std::string> values;
};

/// A window system without a screen, with a scripted user: what the user will answer and do is queued before,
/// what was shown is recorded. Whatever the script did not expect (a message box, an answer that the box does
/// not offer, a file dialog, a modal window, one left open, a wait without end) is reported to onUnexpected
/// and answered with the cautious choice.
class HeadlessDesktop : public Desktop {
  public:
    struct Box {
        std::string text;
        int flags;
        std::string title;
    };
    struct FileDialog {
        std::string title, fileName, initDir, filter;
        int flags;
        bool save;
    };
    struct Help {
        Control* caller;
        std::string file;
        int command;
        std::uint32_t data;
    };

    HeadlessDesktop();
    ~HeadlessDesktop() override;

    // The script.

    /// What to do about anything unexpected; until it is set, a std::logic_error is thrown.
    std::function<void(const std::string& what)> onUnexpected;
    /// The answer to the next message box; `before` runs while the box is open.
    void answerNextBox(int answer, std::function<void()> before = nullptr);
    /// The next file dialog is answered with the path, or cancelled.
    void chooseNextFile(const std::string& path);
    void cancelNextFile();
    /// What the user does in the next modal window, which must be gone afterwards, at the latest when nothing
    /// waits for a yield any more.
    void inNextModal(std::function<void(Form&)> action);
    /// Runs at a yield: at the next one, or after so many more.
    void atYield(std::function<void()> action, int yieldsBefore = 0);
    /// Lets the clock go on; timers tick as they fall due, in order.
    void passTime(std::int64_t milliseconds);
    /// What pictureSize() says of pictures by their names; the others have an icon's size.
    std::map<std::string, Size> pictureSizes;
    /// Tells the program to quit.
    void quit() { quitting_ = true; }

    // The user. Each returns whether it could be done: the window is visible and takes input, no message box
    // is open, the control can be reached and has what is wanted.

    bool click(Control& control);
    bool type(TextBox& box, const std::string& text);
    bool choose(ListControl& list, int row);
    bool choose(TabStrip& tabs, int tab);
    bool drag(Slider& slider, int value);
    bool press(Form& form, int keyCode);
    /// A key in a list, which by itself does nothing with it here.
    bool press(ListControl& list, int keyCode);
    /// Enter, which presses a button unless the control with the focus has a use for it, Esc, Tab, with
    /// Shift or without, and Alt with a letter: what the form's Keyboard does.
    bool pressEnter(Form& form);
    bool pressEscape(Form& form);
    bool pressTab(Form& form, bool back = false);
    bool pressAccelerator(Form& form, char letter);
    /// Moves the focus to the control, as Tab does.
    bool tabTo(Control& control);
    /// Moves the mouse over the control, be it enabled or not.
    bool moveMouse(Control& control);
    bool moveMouse(Form& form);
    bool click(Form& form);
    bool close(Form& form);
    /// Clicks on the window's title: it becomes the active one.
    bool activate(Form& form);
    /// Drags the edge of a window that can be sized, down to its least size.
    bool resize(Form& form, Size clientArea);

    // What was shown.

    const std::vector<Box>& boxes() const { return boxes_; }
    const std::vector<FileDialog>& fileDialogs() const { return fileDialogs_; }
    const std::vector<Help>& helps() const { return helps_; }
    /// Names of the modal windows, in the order they were shown.
    const std::vector<std::string>& modals() const { return modals_; }
    int yields() const { return yields_; }
    /// Whether everything in the script has been used up.
    bool scriptIsDone() const;
    /// The windows on the screen, the topmost last.
    const std::vector<Form*>& windows() const { return windows_; }
    /// The window that has the focus; null: none of ours.
    Form* active() const { return active_; }
    MapSettings& map() { return settings_; }

    // Desktop

    Settings& settings() override { return settings_; }
    std::unique_ptr<FormPeer> makePeer(Form& form) override;
    void doEvents() override;
    bool waitForEvents() override;
    bool isQuitting() const override { return quitting_; }
    void runModal(Form& form) override;
    std::optional<std::string> chooseFile(const CommonDialog& dialog, bool save) override;
    void showHelp(Control* caller, const std::string& file, int command, std::uint32_t data) override;
    Size pictureSize(const Picture& picture) const override;
    Colour resolve(Colour colour) const override;
    void startTimer(Timer& timer, std::int32_t interval) override;
    void stopTimer(Timer& timer) override;

  protected:
    std::unique_ptr<Disabled> disableOthers(Form& form) override;
    void serveModal(Form& form, const std::function<bool()>& isOpen) override;
    int showMessageBox(const std::string& text, int flags, const std::string& title) override;

  private:
    friend class HeadlessPeer;

    struct Running {
        Timer* timer;
        std::int32_t interval;
        std::int64_t due;
    };
    struct Answer {
        int answer;
        std::function<void()> before;
    };
    struct Yield {
        int yieldsBefore;
        std::function<void()> action;
    };
    class OthersDisabled;

    void unexpected(const std::string& what);
    void raise(Form& form);
    void remove(Form& form);
    void activateTop();
    bool takesInput(const Form& form) const { return openBoxes_ == 0 && form.visible() && form.enabled(); }
    bool takesInput(const Control& control) const;
    bool bringUp(Control& control);

    MapSettings settings_;
    std::deque<Answer> answers_;
    std::deque<std::optional<std::string>> files_;
    std::deque<std::function<void(Form&)>> modalActions_;
    std::deque<Yield> yieldActions_;
    std::vector<Running> timers_;
    std::int64_t clock_ = 0;
    bool quitting_ = false;
    int yields_ = 0;
    int openBoxes_ = 0;

    std::vector<Form*> loaded_;  // forms with a window, in no order
    std::vector<Form*> windows_; // of these the visible ones
    Form* active_ = nullptr;

    std::vector<Box> boxes_;
    std::vector<FileDialog> fileDialogs_;
    std::vector<Help> helps_;
    std::vector<std::string> modals_;
};

} // namespace corvelle::forms
