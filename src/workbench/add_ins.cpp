#include "workbench/add_ins.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "workbench/resource.h"

#include <algorithm>
#include <utility>

namespace corvelle::workbench {

void AddInMenu::update() {
    while (GetMenuItemCount(popup_) > 1) DeleteMenu(popup_, 1, MF_BYPOSITION);
    shown_ = model_.commands();
    bool separated = false;
    UINT_PTR number = IDM_FIRST_COMMAND;
    for (const auto& command : shown_) {
        const UINT_PTR id = number++;
        if (!command->isVisible()) continue;
        if (!std::exchange(separated, true)) AppendMenuA(popup_, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(popup_, command->isEnabled() ? MF_STRING : MF_STRING | MF_GRAYED, id,
                    command->caption().c_str());
    }
}

bool AddInMenu::run(int command) {
    const int index = command - IDM_FIRST_COMMAND;
    if (index < 0 || index >= static_cast<int>(shown_.size())) return false;
    const auto clicked = shown_[static_cast<std::size_t>(index)]; // its handler may change the menu
    clicked->Execute();
    return true;
}

using base::ErrorNumber;
using base::RunTimeError;
using com::Arguments;
using com::Variant;

AddIns::AddIns(Report report) : report_(std::move(report)), collection_(com::make<AddInCollection>(*this)) {
    refresh();
}

AddIns::~AddIns() {
    // Whoever still holds one of them finds nothing behind it.
    collection_->leave();
    for (const auto& addIn : list_) addIn->leave();
}

void AddIns::refresh() {
    for (auto& listed : listAddIns()) {
        const auto found = std::find_if(list_.begin(), list_.end(), [&](const auto& addIn) {
            return base::equalIgnoringCase(addIn->listed().progId, listed.progId);
        });
        if (found == list_.end()) {
            list_.push_back(com::make<AddIn>(*this, std::move(listed)));
        } else {
            (*found)->setListed(std::move(listed));
        }
    }
}

AddIn& AddIns::named(const std::string& progId) {
    for (const auto& addIn : list_) {
        if (base::equalIgnoringCase(addIn->listed().progId, progId)) return *addIn;
    }
    list_.push_back(com::make<AddIn>(*this, ListedAddIn{progId, progId, {}, false}));
    return *list_.back();
}

bool AddIns::load(AddIn& addIn, ConnectMode mode) {
    if (ending_) return false; // behind a report of the one before
    try {
        addIn.load(mode);
        return true;
    } catch (const std::exception& error) {
        report_(addIn.listed().progId + "\n\ncould not be loaded: " + error.what());
        return false;
    }
}

void AddIns::start(const std::vector<std::string>& named) {
    for (const auto& progId : named) load(this->named(progId), ConnectMode::Startup);
    const auto all = list_; // an add-in may change the list
    for (const auto& addIn : all) {
        if (addIn->listed().onStartup) load(*addIn, ConnectMode::Startup);
    }
    for (const auto& addIn : all) addIn->addInsUpdated();
    for (const auto& addIn : all) addIn->startupCompleted();
}

void AddIns::connect(AddIn& addIn, bool wanted) {
    if (ending_ || addIn.isLoaded() == wanted) return;
    const com::Ptr<AddIn> alive(&addIn);
    if (!wanted) {
        addIn.unload(DisconnectMode::UserClosed);
        unloaded_ = true;
    } else if (!load(addIn, ConnectMode::AfterStartup)) {
        return;
    }
    const auto all = list_;
    for (const auto& one : all) one->addInsUpdated();
}

void AddIns::disconnectAll() {
    ending_ = true;
    const auto all = list_;
    for (const auto& addIn : all) addIn->unload(DisconnectMode::HostShutdown);
}

void AddIns::releaseLibraries() {
    if (!unloaded_) return;
    unloaded_ = false;
    CoFreeUnusedLibraries();
}

AddIns& AddInCollection::all() const {
    if (!all_) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    return *all_;
}

const std::array<com::Member<AddInCollection>, 4>& AddInCollection::members() {
    static const std::array<com::Member<AddInCollection>, 4> all{{
        {L"Item", 0, com::method | com::propertyGet, 1, 1,
         [](AddInCollection& self, const Arguments& given) {
             const auto& list = self.all().list();
             const bool byName = given.isText(0);
             const std::string name = byName ? given.text(0) : std::string();
             const std::int32_t number = byName ? 0 : given.number(0);
             for (std::size_t i = 0; i < list.size(); ++i) {
                 if (byName ? base::equalIgnoringCase(list[i]->listed().progId, name)
                            : static_cast<std::int32_t>(i + 1) == number)
                     return Variant(list[i]);
             }
             throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
         }},
        {L"Count", 10, com::propertyGet, 0, 0,
         [](AddInCollection& self, const Arguments&) {
             return Variant(static_cast<std::int32_t>(self.all().list().size()));
         }},
        {L"VBE", 1, com::propertyGet, 0, 0,
         [](AddInCollection& self, const Arguments&) { return Variant(self.all().vbe()); }},
        {L"Update", 41, com::method, 0, 0,
         [](AddInCollection& self, const Arguments&) {
             self.all().refresh();
             return Variant();
         }},
    }};
    return all;
}

} // namespace corvelle::workbench
