#pragma once

#include "forms/desktop.h"
#include "forms/form.h"
#include "ide/vbe.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvelle::host {

/// How the IDE connects an add-in (`vbext_ConnectMode`).
namespace connect_mode {
inline constexpr std::int32_t AfterStartup = 0;
inline constexpr std::int32_t Startup = 1;
/// By a wizard or a tool bar, not by the add-in manager.
inline constexpr std::int32_t External = 2;
} // namespace connect_mode

/// What the two connect classes have in common: an add-in's command on the IDE's "Add-Ins" menu, and what
/// is remembered when it goes. Any call may find the object disconnected, or let go of by its owner, while a
/// window of it is yielding. Make them with std::make_shared.
class AddIn : public std::enable_shared_from_this<AddIn> {
  public:
    /// The desktop must outlive the object.
    AddIn(forms::Desktop& desktop, std::string menuCaption);
    virtual ~AddIn();
    AddIn(const AddIn&) = delete;
    AddIn& operator=(const AddIn&) = delete;

    /// Adds the menu command, or shows the first window at once if the connection is external. A failure is
    /// told in a message box and leaves the add-in connected as far as it got.
    void IDTExtensibility_OnConnection(const std::shared_ptr<ide::VBE>& VBInst, std::int32_t ConnectMode);
    /// Removes the command, saves whether the window was showing and unloads it; ignores errors.
    void IDTExtensibility_OnDisconnection();

    /// Whether the add-in's window has been shown and not been hidden.
    bool IsLoaded() const { return IsLoaded_; }
    void setIsLoaded(bool loaded) { IsLoaded_ = loaded; }
    /// The source of the menu command's clicks, each of which calls Show; none while not connected.
    const std::shared_ptr<ide::CommandBarEvents>& MenuEvents() const { return MenuEvents_; }
    /// Raises a run-time error when the source cannot be listened to; then there is none.
    void setMenuEvents(const std::shared_ptr<ide::CommandBarEvents>& events);
    /// Appends a command to the "Add-Ins" menu; none if that is not possible.
    std::shared_ptr<ide::CommandBarControl> AddMyMenu(std::string_view MenuCaption);
    /// Shows the add-in's first window; ignores errors.
    virtual void Show() = 0;
    /// Unloads the add-in's main window and lets go of it; ignores errors.
    virtual void Hide() = 0;

  protected:
    forms::Desktop& desktop() const { return desktop_; }
    /// The IDE; none while not connected.
    const std::shared_ptr<ide::VBE>& VBInstance() const { return VBInstance_; }

    /// Unloads a window, ignoring errors; one that fails to unload is hidden, so that letting go of it ends
    /// it.
    static void unload(forms::Form& window);
    /// Unloads the main window, if there is one, and lets go of it.
    virtual void unloadMainWindow() = 0;
    /// The add-in has been disconnected: whatever waits has to end.
    virtual void disconnected() {}

  private:
    void connect(std::int32_t ConnectMode);
    void removeCommand();
    void saveAutoShow(const std::string& value);

    forms::Desktop& desktop_;
    std::string menuCaption_;
    std::shared_ptr<ide::VBE> VBInstance_;
    std::shared_ptr<ide::CommandBarControl> menuCommand_;
    std::shared_ptr<ide::CommandBarEvents> MenuEvents_;
    bool IsLoaded_ = false;
};

} // namespace corvelle::host
