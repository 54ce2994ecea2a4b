#pragma once

#include "ide/workspace/menus.h"
#include "workbench/add_in.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>
#include <windows.h>

namespace corvelle::workbench {

/// The "Add-Ins" menu on the screen: the manager's command, then the add-ins' own as the model has them.
class AddInMenu {
  public:
    AddInMenu(HMENU popup, workspace::Menu& model) : popup_(popup), model_(model) {}

    /// Is called before the menu opens.
    void update();
    /// Clicks the add-ins' command of that number; whether there is one.
    bool run(int command);
    HMENU popup() const { return popup_; }

  private:
    HMENU popup_;
    workspace::Menu& model_;
    std::vector<std::shared_ptr<workspace::MenuCommand>> shown_;
};

/// What add-ins see of the list: the model's collection.
class AddInCollection : public com::DispatchServer<AddInCollection> {
  public:
    explicit AddInCollection(AddIns& all) : all_(&all) {}
    void leave() { all_ = nullptr; }

    static const std::array<com::Member<AddInCollection>, 4>& members();

  private:
    AddIns& all() const;

    AddIns* all_;
};

/// The add-ins that are listed on the machine, and those of them that are loaded.
class AddIns {
  public:
    /// Tells the user what went wrong.
    using Report = std::function<void(const std::string& text)>;

    explicit AddIns(Report report);
    /// All add-ins must have been disconnected.
    ~AddIns();
    AddIns(const AddIns&) = delete;
    AddIns& operator=(const AddIns&) = delete;

    /// The object that add-ins are connected to.
    void setVbe(com::Ptr<IDispatch> vbe) { vbe_ = std::move(vbe); }
    const com::Ptr<IDispatch>& vbe() const { return vbe_; }
    com::Ptr<IDispatch> collection() const { return collection_; }

    /// Reads the machine's list again. What is loaded stays in it.
    void refresh();
    const std::vector<com::Ptr<AddIn>>& list() const { return list_; }
    /// Loads what is to be loaded at the start, and the ones named here; failures are reported.
    void start(const std::vector<std::string>& named);
    /// Loads or unloads it, as the user or another add-in wants it; a failure is reported.
    void connect(AddIn& addIn, bool wanted);
    /// Disconnects all, because the program ends.
    void disconnectAll();
    /// Lets go of the DLLs of unloaded add-ins; only where no code of theirs can be under way.
    void releaseLibraries();

  private:
    AddIn& named(const std::string& progId);
    bool load(AddIn& addIn, ConnectMode mode);

    Report report_;
    com::Ptr<IDispatch> vbe_;
    com::Ptr<AddInCollection> collection_;
    std::vector<com::Ptr<AddIn>> list_;
    bool ending_ = false;
    bool unloaded_ = false;
};

} // namespace corvelle::workbench
