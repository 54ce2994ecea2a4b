#pragma once

namespace corvelle::indexer {

/// The indexer's connect object, as its windows see it.
class AddInManager {
  public:
    virtual ~AddInManager() = default;

    /// Unloads the wizard and lets go of it.
    virtual void Hide() = 0;
    /// True ends the wait for the start menu, whose user has chosen a command.
    virtual void setbOK(bool chosen) = 0;
};

} // namespace corvelle::indexer
