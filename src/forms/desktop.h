#pragma once

#include "forms/drawing.h"
#include "forms/form_peer.h"
#include "forms/message_box.h"
#include "version.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvelle::forms {

/// What the package knows of itself.
struct Application {
    std::string title = "Corvelle";
    std::string productName = "Trellis";
    /// The help file that F1 and "&Help" show.
    std::string helpFile;
    int major = ADD_INS_VERSION_MAJOR;
    int minor = ADD_INS_VERSION_MINOR;
    int revision = ADD_INS_VERSION_REVISION;
};

/// The per-user settings store: text values by application, section and key.
class Settings {
  public:
    virtual ~Settings() = default;

    /// The value, or the default where there is none.
    virtual std::string get(const std::string& application, const std::string& section,
                            const std::string& key, const std::string& otherwise) = 0;
    /// Raises a run-time error when the value cannot be saved.
    virtual void save(const std::string& application, const std::string& section, const std::string& key,
                      const std::string& value) = 0;
};

class Desktop;

/// Flags of a file dialog.
namespace file_dialog {
inline constexpr int overwritePrompt = 2;
inline constexpr int pathMustExist = 2048;
inline constexpr int fileMustExist = 4096;
inline constexpr int createPrompt = 8192;
} // namespace file_dialog

/// The common dialog for choosing a file.
class CommonDialog {
  public:
    explicit CommonDialog(Desktop& desktop) : desktop_(desktop) {}

    std::string dialogTitle; ///< empty: the system's own
    std::string fileName;    ///< what is proposed, then what was chosen
    std::string initDir;     ///< the folder shown first; empty: the system's choice
    std::string filter;      ///< description|pattern pairs
    int flags = 0;           ///< of namespace file_dialog
    bool cancelError = false;

    /// Puts the chosen path into fileName. When the user cancels: "Cancel was selected." if cancelError is
    /// set, else fileName keeps its value.
    void showOpen();
    void showSave();

  private:
    void show(bool save);

    Desktop& desktop_;
};

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
