#pragma once

#include "ide/menus.h"
#include "ide/vbe.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

class Menu;
class MenuClicks;

/// A command of a menu that exists in memory only.
class MenuCommand : public ide::CommandBarControl, public std::enable_shared_from_this<MenuCommand> {
  public:
    explicit MenuCommand(std::weak_ptr<Menu> menu) : menu_(std::move(menu)) {}

    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption) override { caption_ = caption; }
    bool isVisible() const { return visible_; }
    void setVisible(bool visible) { visible_ = visible; }
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled) { enabled_ = enabled; }
    /// A note of its owner.
    const std::string& tag() const { return tag_; }
    void setTag(std::string_view tag) { tag_ = tag; }
    /// The menu that it is on; null once it is on none.
    std::shared_ptr<Menu> menu() const { return menu_.lock(); }
    /// Throws RunTimeError 91 when it is on no menu any more.
    void Delete() override;
    /// What a click of the user does: every source of its clicks that is still held tells its handler.
    void Execute();

  private:
    friend class MenuEvents;

    std::weak_ptr<Menu> menu_;
    std::string caption_, tag_;
    bool visible_ = true, enabled_ = true;
    std::vector<std::weak_ptr<MenuClicks>> listeners_;
};

/// The source of a menu command's clicks.
class MenuClicks : public ide::CommandBarEvents {
  public:
    void setClick(ClickHandler handler) override { handler_ = std::move(handler); }
    const ClickHandler& handler() const { return handler_; }

  private:
    ClickHandler handler_;
};

/// A menu, which is its own collection of commands.
class Menu : public ide::CommandBar,
             public ide::CommandBarControls,
             public std::enable_shared_from_this<Menu> {
  public:
    explicit Menu(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }
    std::shared_ptr<ide::CommandBarControls> Controls() override { return shared_from_this(); }
    std::shared_ptr<ide::CommandBarControl> Add(ide::CommandBarControlType type) override;
    /// Adds a command in front of the one of that index, at the end for their number.
    std::shared_ptr<MenuCommand> insert(std::size_t index);

    const std::vector<std::shared_ptr<MenuCommand>>& commands() const { return commands_; }

  private:
    friend class MenuCommand;

    std::string name_;
    std::vector<std::shared_ptr<MenuCommand>> commands_;
};

/// The embedded IDE's menus: one of the name "Add-Ins".
class Menus : public ide::CommandBars {
  public:
    Menus();

    /// Throws RunTimeError 5 if there is no menu of that name.
    std::shared_ptr<ide::CommandBar> Item(std::string_view name) override;
    /// The "Add-Ins" menu.
    Menu& addIns() { return *menus_.front(); }

  private:
    std::vector<std::shared_ptr<Menu>> menus_;
};

/// Where the clicks of menu commands come from.
class MenuEvents : public ide::Events {
  public:
    /// Throws RunTimeError 13 for a command that is not on a menu of this IDE.
    std::shared_ptr<ide::CommandBarEvents>
    CommandBarEvents(const std::shared_ptr<ide::CommandBarControl>& control) override;
};

} // namespace corvelle::workspace
