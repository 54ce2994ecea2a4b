#include "cli/designer_changes.h"

#include "base/file.h"
#include "base/paths.h"
#include "base/text.h"
#include "cli/terminal.h"
#include "ide/workspace/designer_section.h"
#include "ide/workspace/file_kind.h"
#include "ide/workspace/path_resolver.h"
#include "ide/workspace/project_file.h"
#include "indexer/stable/help_properties.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <map>

namespace corvelle::cli {

namespace {

using indexer::stable::ControlPlace;
using indexer::stable::Memory;
using indexer::stable::NumberedDesigner;
using indexer::stable::Numbering;
using indexer::stable::WrittenProperty;
using workspace::Component;
using workspace::HelpProperty;
using workspace::HelpPropertyFate;
using workspace::HelpPropertyOutcome;
using workspace::HelpPropertyWish;

// The written properties by their designers' names in upper case, each in the order of the memory.
std::map<std::string, std::vector<WrittenProperty>> byDesigner(const Memory& memory) {
    std::map<std::string, std::vector<WrittenProperty>> result;
    for (const auto& written : memory.written) result[base::upper(written.place.designer)].push_back(written);
    return result;
}

std::vector<HelpPropertyWish> wishesFor(const std::vector<WrittenProperty>& written) {
    std::vector<HelpPropertyWish> wishes;
    for (const auto& one : written) {
        const auto property = workspace::helpPropertyNamed(one.property);
        if (property) wishes.push_back({one.place.control, one.place.index, *property, one.value});
    }
    return wishes;
}

WrittenProperty writtenOf(const std::string& designer, const HelpPropertyWish& wish) {
    return {ControlPlace{designer, wish.control, wish.index}, std::string(nameOf(wish.property)), wish.value};
}

std::string nameOf(const HelpPropertyWish& wish, Component& component) {
    const auto name = indexer::stable::nameInMemory({{}, wish.control, wish.index});
    return wish.control.empty() ? component.Name() : name;
}

bool isOf(const HelpPropertyWish& a, const HelpPropertyWish& b) {
    return a.property == b.property && a.index == b.index && base::equalIgnoringCase(a.control, b.control);
}

std::string nameKey(Component& component) {
    return base::upper(component.Name());
}

// What tells one file from another, by whatever name.
std::string fileKey(const Component& component) {
    const auto& stamp = component.stamp();
    return stamp.inode == 0 ? base::upper(base::textOf(component.path()))
                            : std::to_string(stamp.device) + ':' + std::to_string(stamp.inode);
}

bool isWritten(HelpPropertyFate fate) {
    return fate == HelpPropertyFate::Done || fate == HelpPropertyFate::Replaced;
}

} // namespace

DesignerChanges::DesignerChanges(const workspace::Project& project, const PropertySettings& settings,
                                 const Numbering& numbering, Memory& memory)
    : project_(project), settings_(settings) {
    for (const auto& component : project.components()) {
        if (!ide::hasDesigner(component->Type())) continue;
        ++names_[nameKey(*component)];
        ++fileNames_[fileKey(*component)];
    }
    if (settings.properties == PropertyChoice::Remove)
        remove(memory);
    else if (settings.properties != PropertyChoice::None)
        write(numbering, memory);
}

void DesignerChanges::write(const Numbering& numbering, Memory& memory) {
    auto ours = byDesigner(memory);
    std::map<std::string, const NumberedDesigner*> designers;
    for (const auto& designer : numbering) designers.emplace(base::upper(designer.name), &designer);
    std::vector<WrittenProperty> written;
    for (const auto& component : project_.components()) {
        if (!ide::hasDesigner(component->Type())) continue;
        const auto key = nameKey(*component);
        const auto designer = designers.find(key);
        const auto old = wishesFor(ours[key]);
        Wishes wishes;
        if (designer != designers.end()) wishes = wishesOf(*designer->second, *component, old);
        if (wishes.empty() || !mayChange(*component)) {
            std::move(ours[key].begin(), ours[key].end(), std::back_inserter(written));
            ours.erase(key);
            continue;
        }
        const auto changed = change(*component, wishes, false);
        if (!changed) continue;
        // What we wrote earlier and what stands there still is ours, and so is what we write now.
        const workspace::ModuleFile fresh(changed->bytes, component->Type());
        const auto rest = workspace::withoutHelpProperties(fresh, old).outcomes;
        std::vector<HelpPropertyWish> all;
        for (std::size_t i = 0; i < old.size(); ++i) {
            if (rest[i].fate == HelpPropertyFate::Done) all.push_back(old[i]);
        }
        for (std::size_t i = 0; i < wishes.size(); ++i) {
            if (isWritten(changed->outcomes[i].fate)) all.push_back(wishes[i]);
        }
        for (const auto& wish : all) written.push_back(writtenOf(component->Name(), wish));
        ours.erase(key);
    }
    memory.written = std::move(written);
}

void DesignerChanges::remove(Memory& memory) {
    auto ours = byDesigner(memory);
    std::vector<WrittenProperty> kept;
    for (const auto& component : project_.components()) {
        if (!ide::hasDesigner(component->Type())) continue;
        const auto found = ours.find(nameKey(*component));
        if (found == ours.end()) continue;
        if (!mayChange(*component)) {
            std::move(found->second.begin(), found->second.end(), std::back_inserter(kept));
        } else {
            const auto wishes = wishesFor(found->second);
            const auto changed = change(*component, wishes, true);
            if (!changed) continue;
            for (std::size_t i = 0; i < wishes.size(); ++i) {
                if (changed->outcomes[i].fate == HelpPropertyFate::Ambiguous)
                    kept.push_back(writtenOf(component->Name(), wishes[i]));
            }
        }
        ours.erase(found);
    }
    memory.written = std::move(kept);
}

DesignerChanges::Wishes DesignerChanges::wishesOf(const NumberedDesigner& designer, Component& component,
                                                  const Wishes& old) const {
    const bool help = settings_.properties != PropertyChoice::WhatsThis;
    const bool whatsThis = settings_.properties != PropertyChoice::Help;
    Wishes wishes;
    for (const auto& control : designer.controls) {
        const auto has = indexer::stable::helpPropertiesOf(control.library, control.className);
        const auto want = [&](HelpProperty property) {
            wishes.push_back({control.control, control.index, property, control.number});
        };
        if (help && has.helpContextID) want(HelpProperty::HelpContextID);
        if (whatsThis && has.whatsThisHelpID) want(HelpProperty::WhatsThisHelpID);
    }
    const bool isShown = std::any_of(wishes.begin(), wishes.end(), [](const HelpPropertyWish& wish) {
        return wish.property == HelpProperty::WhatsThisHelpID;
    });
    const bool isForm = component.Type() == ide::ComponentType::VBForm;
    const bool switchesForms = settings_.properties == PropertyChoice::WhatsThis || settings_.whatsThisForms;
    if (isShown && switchesForms && (isForm || component.Type() == ide::ComponentType::VBMDIForm)) {
        wishes.push_back({{}, {}, HelpProperty::WhatsThisHelp, -1});
        if (isForm) wishes.push_back({{}, {}, HelpProperty::WhatsThisButton, -1});
    }
    for (auto& wish : wishes) {
        wish.replacesAny = settings_.overwriteNumbers;
        const auto same =
            std::find_if(old.begin(), old.end(), [&](const auto& one) { return isOf(one, wish); });
        if (same != old.end()) wish.previous = same->value;
    }
    return wishes;
}

std::optional<workspace::ChangedDesigner> DesignerChanges::change(Component& component, const Wishes& wishes,
                                                                  bool removes) {
    if (wishes.empty()) return workspace::ChangedDesigner{component.file().bytes(), {}};
    try {
        auto changed = removes ? workspace::withoutHelpProperties(component.file(), wishes)
                               : workspace::withHelpProperties(component.file(), wishes);
        for (std::size_t i = 0; i < wishes.size(); ++i)
            tell(component, wishes[i], changed.outcomes[i], removes);
        if (changed.bytes != component.file().bytes()) files_.push_back({&component, changed.bytes});
        return changed;
    } catch (const workspace::StrangeDesigner& error) {
        say(exitFailed, component, error.line(), error.what());
    } catch (const std::logic_error& error) {
        say(exitFailed, component, 0, error.what());
    }
    return std::nullopt;
}

bool DesignerChanges::mayChange(Component& component) {
    if (component.Type() == ide::ComponentType::ActiveXDesigner) {
        say(exitDone, component, 0, "help properties are not written into ActiveX designers");
        return false;
    }
    const auto type = workspace::moduleTypeOfPath(component.path());
    if (!type || !ide::hasDesigner(*type)) {
        say(exitLookAt, component, 0, "its ending is no designer's; no help properties are written");
        return false;
    }
    if (names_[nameKey(component)] == 1 && fileNames_[fileKey(component)] == 1) return true;
    say(exitLookAt, component, 0,
        "the project has another designer of this name or file; no help properties are written");
    return false;
}

void DesignerChanges::tell(Component& component, const HelpPropertyWish& wish,
                           const HelpPropertyOutcome& outcome, bool removes) {
    const auto property = nameOf(wish, component) + ": " + std::string(nameOf(wish.property));
    const auto value = std::to_string(wish.value);
    switch (outcome.fate) {
    case HelpPropertyFate::Differs:
        say(exitLookAt, component, outcome.line,
            property + " is " + outcome.found + ", not " + value + "; it stays");
        break;
    case HelpPropertyFate::Replaced:
        say(exitDone, component, outcome.line, property + " was " + outcome.found + " and is " + value);
        break;
    case HelpPropertyFate::Forbidden:
        say(exitDone, component, outcome.line,
            property + " is left off: the form's border and buttons leave no room for it");
        break;
    case HelpPropertyFate::Missing:
        if (!removes) say(exitLookAt, component, 0, property + ": there is no such control");
        break;
    case HelpPropertyFate::Ambiguous:
        say(exitLookAt, component, outcome.line,
            property + ": several controls have this name and index, or the control has several of it");
        break;
    default:
        break;
    }
}

void DesignerChanges::say(ExitStatus status, Component& component, std::uint32_t line,
                          std::string_view text) {
    auto message = shown(base::textOf(component.path()));
    if (line != 0) message.append(1, ':').append(std::to_string(line));
    messages_.push_back(message.append(": ").append(shown(text)));
    status_ = std::max(status_, status);
}

std::vector<std::filesystem::path> designerFiles(const std::filesystem::path& project) {
    std::vector<std::filesystem::path> files;
    try {
        const auto folder = project.parent_path();
        workspace::PathResolver resolver;
        const workspace::ProjectFile file(base::readFile(project));
        for (const auto& member : file.members()) {
            if (!ide::hasDesigner(member.type)) continue;
            if (const auto found = resolver.resolve(folder, member.path)) files.push_back(*found);
        }
    } catch (const base::FileError&) { // whoever opens it tells
    }
    return files;
}

} // namespace corvelle::cli
