#pragma once

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

} // namespace corvelle::ide
