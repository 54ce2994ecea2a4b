#pragma once

#include "forms/application.h"
#include "forms/colour.h"
#include "forms/form_peer.h"
#include "forms/geometry.h"
#include "forms/message_box.h"
#include "forms/picture.h"
#include "forms/settings.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvelle::forms {

class CommonDialog;
class Form;
class Timer;

/// The window system as our windows see it. One thread uses it.
class Desktop {
  public:
    virtual ~Desktop() = default;

    Application application;

    virtual Settings& settings() = 0;
    /// The window behind a form that loads; it is not visible yet.
    virtual std::unique_ptr<FormPeer> makePeer(Form& form) = 0;

    /// Serves every message that waits, and returns. Any handler may run inside.
    virtual void doEvents() = 0;
    /// The body of an otherwise empty wait loop: sleeps until a message comes, serves what waits. False when
    /// the program quits; then the loop has to end.
    virtual bool waitForEvents() = 0;
    /// Whether the program has been told to quit.
    virtual bool isQuitting() const = 0;
    /// A call from outside wants a window shown. Unless a wait of ours is around it, what was told to quit
    /// before was a loop of the host's and not the program.
    virtual void calledFromOutside() {}
    /// A handler of a window or a timer begins, or has ended; they nest. What it wrote is on its windows
    /// from its end on.
    virtual void handlerBegins() {}
    virtual void handlerEnded() noexcept {}
    /// Shows the form above all other windows of the thread, which are disabled meanwhile, and returns when
    /// it is hidden or unloaded or the program quits.
    virtual void runModal(Form& form);
    /// The form is hidden or goes: if it was modal the others take input again.
    void endModal(const Form& form);

    /// Shows a message box and returns the answer; an empty title stands for the application's. A lone
    /// carriage return in the text breaks the line.
    int msgBox(const std::string& text, int flags, const std::string& title = std::string()) {
        return showMessageBox(text, flags, title.empty() ? application.title : title);
    }
    /// Shows the file dialog; none when the user cancels.
    virtual std::optional<std::string> chooseFile(const CommonDialog& dialog, bool save) = 0;
    /// Shows HTML help: command 1 the contents, 15 the topic of a context number. The caller is the control
    /// that asks, or null.
    virtual void showHelp(Control* caller, const std::string& file, int command, std::uint32_t data) = 0;

    /// The size at which a picture is whole and sharp; an icon's is 480 by 480 twips.
    virtual Size pictureSize(const Picture& picture) const = 0;
    /// The red-green-blue colour that a colour stands for now.
    virtual Colour resolve(Colour colour) const = 0;

    /// Ticks the timer every so many milliseconds, the first time after a full interval.
    virtual void startTimer(Timer& timer, std::int32_t interval) = 0;
    virtual void stopTimer(Timer& timer) = 0;

  protected:
    /// Windows that take no input as long as this lives.
    class Disabled {
      public:
        virtual ~Disabled() = default;
    };

    /// Disables every other window for a form that is about to be shown modally.
    virtual std::unique_ptr<Disabled> disableOthers(Form& form) = 0;
    /// Serves a modal form that stands there, until it is no more or the program quits.
    virtual void serveModal(Form& form, const std::function<bool()>& isOpen) = 0;
    /// The topmost modal form; null if there is none.
    Form* topModal() const { return modals_.empty() ? nullptr : modals_.back().form; }

    virtual int showMessageBox(const std::string& text, int flags, const std::string& title) = 0;

  private:
    struct Modal {
        int number;
        Form* form;
        std::unique_ptr<Disabled> disabled;
    };

    std::vector<Modal> modals_; // each above the one before
    int lastModal_ = 0;
};

/// Stands on the stack while a handler runs.
class InHandler {
  public:
    explicit InHandler(Desktop& desktop) : desktop_(desktop) { desktop_.handlerBegins(); }
    ~InHandler() { desktop_.handlerEnded(); }
    InHandler(const InHandler&) = delete;
    InHandler& operator=(const InHandler&) = delete;

  private:
    Desktop& desktop_;
};

} // namespace corvelle::forms
