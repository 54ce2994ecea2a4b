#pragma once

#include "com/dispatch_server.h"
#include "workbench/add_in_list.h"
#include "workbench/id_t_extensibility.h"

#include <array>

namespace corvelle::workbench {

class AddIns;

/// An add-in that the machine lists, loaded or not; also what add-ins see of one another.
class AddIn : public com::DispatchServer<AddIn> {
  public:
    AddIn(AddIns& all, ListedAddIn listed);

    const ListedAddIn& listed() const { return listed_; }
    void setListed(ListedAddIn listed) { listed_ = std::move(listed); }
    bool isLoaded() const { return static_cast<bool>(extensibility_); }
    /// Makes its object and connects it; nothing happens where that is done already. Throws
    /// base::RunTimeError, whose description tells what is in the way; then it is not loaded.
    void load(ConnectMode mode);
    /// Disconnects its object and lets go of it. Nothing stops that.
    void unload(DisconnectMode mode);
    void addInsUpdated();
    void startupCompleted();
    /// There is no IDE any more.
    void leave() { all_ = nullptr; }

    static const std::array<com::Member<AddIn>, 9>& members();

  private:
    AddIns& all() const;

    AddIns* all_;
    ListedAddIn listed_;
    com::Ptr<IDTExtensibility> extensibility_;
    com::Ptr<IDispatch> exposed_;
};

} // namespace corvelle::workbench
