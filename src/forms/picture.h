#pragma once

#include <string>
#include <utility>

namespace corvelle::forms {

/// A picture or icon of the package, by the name of its source (`pictures/NAME.svg`); empty: none. Windows
/// draw it at the size and resolution they need.
class Picture {
  public:
    Picture() = default;
    explicit Picture(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }
    bool empty() const { return name_.empty(); }
    bool operator==(const Picture&) const = default;

  private:
    std::string name_;
};

} // namespace corvelle::forms
