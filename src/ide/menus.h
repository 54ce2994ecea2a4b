#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace corvelle::ide {

/// What kind of control a command bar holds (`MsoControlType`).
enum class CommandBarControlType {
    Button = 1,
};

/// A command on a command bar.
class CommandBarControl {
  public:
    virtual ~CommandBarControl() = default;

    virtual void setCaption(std::string_view caption) = 0;
    /// Takes it off its bar.
    virtual void Delete() = 0;
};

/// The commands of a command bar, in their order.
class CommandBarControls {
  public:
    virtual ~CommandBarControls() = default;

    /// Adds a command at the end.
    virtual std::shared_ptr<CommandBarControl> Add(CommandBarControlType type) = 0;
};

/// A menu or tool bar of the IDE.
class CommandBar {
  public:
    virtual ~CommandBar() = default;

    virtual std::shared_ptr<CommandBarControls> Controls() = 0;
};

/// The menus and tool bars of the IDE.
class CommandBars {
  public:
    virtual ~CommandBars() = default;

    /// The bar of that name, letter case aside. Nothing, or RunTimeError, if there is none.
    virtual std::shared_ptr<CommandBar> Item(std::string_view name) = 0;
};

/// The source of one command's clicks. Whoever wants the clicks keeps it.
class CommandBarEvents {
  public:
    /// The command that was clicked, and two answers to the IDE that are false before the call.
    using ClickHandler = std::function<void(CommandBarControl& control, bool& handled, bool& cancelDefault)>;

    virtual ~CommandBarEvents() = default;

    /// Names the procedure that runs at each click, in place of the one before; an empty one ends that.
    virtual void setClick(ClickHandler handler) = 0;
};

} // namespace corvelle::ide
