#pragma once

namespace corvelle::formatter {

/// The formatter's connect object, as its windows see it.
class AddInManager {
  public:
    virtual ~AddInManager() = default;

    /// Unloads the module selection page and lets go of it.
    virtual void Hide() = 0;
};

} // namespace corvelle::formatter
