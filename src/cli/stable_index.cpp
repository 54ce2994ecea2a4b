#include "cli/stable_index.h"

#include "base/paths.h"
#include "base/text.h"
#include "cli/line_ends.h"
#include "cli/terminal.h"
#include "ide/workspace/designer_controls.h"
#include "indexer/index_options.h"
#include "indexer/stable/earlier_index.h"
#include "indexer/stable/index_bytes.h"
#include "indexer/stable/match.h"
#include "indexer/stable/topics.h"
#include "indexer/valid_name.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace corvelle::cli {

namespace {

using namespace indexer::stable;

std::string containerOf(const workspace::DesignerControl& control,
                        const std::vector<workspace::DesignerControl>& controls) {
    if (control.container == workspace::DesignerControl::noContainer) return {};
    const auto& container = controls[control.container];
    if (!indexer::isName(container.name)) return {};
    return nameInMemory({{}, std::string(container.name), container.index});
}

FoundControl foundFrom(const workspace::DesignerControl& control) {
    FoundControl found;
    found.name = control.name;
    found.library = control.library;
    found.className = control.className;
    found.index = control.index;
    found.helpContextID = control.helpContextID;
    found.whatsThisHelpID = control.whatsThisHelpID;
    found.line = control.line;
    found.hasWidth = control.hasWidth;
    return found;
}

// Other makers' designers have no place for help.
bool canHaveEntry(ide::ComponentType type) {
    return type != ide::ComponentType::ActiveXDesigner;
}

} // namespace

bool StableIndex::isChosen(std::string_view className) const {
    return indexer::isIndexable(className, job_.excludeList, job_.options);
}

FoundDesigner StableIndex::findControls(workspace::Component& component, bool isDesignerChosen) const {
    FoundDesigner designer{component.Name(), component.path(), component.Type(), isDesignerChosen, {}};
    const auto read = workspace::readDesignerControls(component.file().header());
    designer.controls.reserve(read.controls.size() + 1);
    if (canHaveEntry(designer.type) && indexer::isMadeOfNameCharacters(read.designer.className)) {
        auto& own = designer.controls.emplace_back(foundFrom(read.designer));
        own.name = {};
        own.index = {}; // it is in no array, whatever its file says
        own.isChosen = settings_.designersToo && isChosen(own.className);
    }
    for (const auto& control : read.controls) {
        const bool chosen = isChosen(control.className);
        if (!indexer::isControlOfNames(control.name, control.className)) {
            if (isDesignerChosen && chosen) observer_.leftOut(designer.name, control.name);
            continue;
        }
        auto& found = designer.controls.emplace_back(foundFrom(control));
        found.container = containerOf(control, read.controls);
        found.isChosen = chosen;
    }
    return designer;
}

FoundProject StableIndex::findControls() const {
    FoundProject project;
    const auto& chosen = job_.SelectedDesigners;
    for (const auto& component : project_.components()) {
        if (!ide::hasDesigner(component->Type()) || !component->file().hasDesigner()) continue;
        const bool isOne = std::any_of(chosen.begin(), chosen.end(),
                                       [&](const auto& other) { return other.get() == component.get(); });
        if (indexer::isName(component->Name()))
            project.push_back(findControls(*component, isOne));
        else if (isOne)
            observer_.leftOut(component->Name(), {});
    }
    return project;
}

std::string StableIndex::number() {
    auto earlier = readEarlierIndex(files_.oldBytes(settings_.header), files_.oldBytes(settings_.config));
    const auto project = findControls();
    if (earlier.fault.empty() && isOfAnotherProject(project, earlier.index))
        earlier = {{}, "none of its designers is in this project"};
    if (!earlier.fault.empty()) {
        const auto reason = "--header: " + shown(settings_.header) +
                            " is no header file whose numbers can be taken up: " + shown(earlier.fault);
        if (!settings_.overwrite) return reason + "; it is replaced with --overwrite only";
        note_ = reason + "; the numbers begin anew";
    }
    numbered_ = numberProject(project, earlier.index, numberingOptions(settings_));
    if (!numbered_.fault.empty()) return shown(settings_.header) + ": " + numbered_.fault;
    add(sectionsOf(numbered_.changes));
    return {};
}

void StableIndex::add(std::vector<Section> sections) {
    std::move(sections.begin(), sections.end(), std::back_inserter(sections_));
}

void StableIndex::putHeaderAndConfiguration() {
    files_.put(base::pathOf(settings_.header), headerOf(numbered_.numbering, numbered_.memory));
    files_.put(base::pathOf(settings_.config), configurationOf(numbered_.numbering));
}

void StableIndex::putTexts() {
    auto old = files_.oldBytes(*settings_.text);
    if (!base::whatInsteadOfText(old).empty()) old = {};
    const auto names = ownNames(numbered_.numbering);
    const auto defaultText =
        settings_.defaultText ? std::optional(withFileLineEnds(*settings_.defaultText)) : std::nullopt;
    std::vector<std::string> waiting;
    for (const auto& control : numbered_.memory.controls) {
        if (control.isLeftOut) waiting.push_back(control.idhName);
    }
    add(sectionsOf(compareTopics(old, names, waiting), numbered_.numbering));
    files_.put(base::pathOf(*settings_.text), withTopics(old, names, defaultText));
}

ModuleCode StableIndex::moduleCode() const {
    return mappingCode(numbered_.numbering, job_.options.ChkIDMap == 1, job_.options.ChkAutoLoad == 1);
}

} // namespace corvelle::cli
