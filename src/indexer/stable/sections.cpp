#include "indexer/stable/sections.h"

#include "base/paths.h"

#include <unordered_map>
#include <utility>

namespace corvelle::indexer::stable {

namespace {

std::string nameOf(const ControlPlace& place) {
    return place.control.empty() ? place.designer : place.designer + ": " + nameInMemory(place);
}

std::string withNumber(const std::string& idhName, std::int32_t number) {
    return idhName + " " + std::to_string(number);
}

// "frmMain: cmdOK (CommandButton): IDH_AAAB 1001"
std::string lineOf(const Finding& finding) {
    return nameOf(finding.place.control) + " (" + finding.place.className +
           "): " + withNumber(finding.idhName, finding.number);
}

// "C:\Project\frmMain.frm:12: frmMain: cmdOK"
std::string withPlace(const PlaceInProject& place) {
    return base::textOf(place.path) + ":" + std::to_string(place.line) + ": " + nameOf(place.control);
}

void add(std::vector<Section>& sections, Section section) {
    if (!section.lines.empty()) sections.push_back(std::move(section));
}

template <class Items, class Line>
void add(std::vector<Section>& sections, const char* title, const Items& items, bool isMismatch,
         const Line& line) {
    Section section{title, {}, isMismatch};
    section.lines.reserve(items.size());
    for (const auto& item : items) section.lines.push_back(line(item));
    add(sections, std::move(section));
}

std::string renamedLine(const Changes::Renamed& renamed, const char* is) {
    const auto before =
        renamed.before.designer.empty()
            ? withNumber(renamed.idhNameBefore, renamed.numberBefore)
            : nameOf(renamed.before) + " (" + withNumber(renamed.idhNameBefore, renamed.numberBefore) + ")";
    return before + is + nameOf(renamed.now.place.control) + ": " +
           withNumber(renamed.now.idhName, renamed.now.number);
}

} // namespace

std::vector<Section> sectionsOf(const Changes& changes) {
    std::vector<Section> sections;
    if (changes.allAreNew > 0)
        add(sections, {"New", {"all " + std::to_string(changes.allAreNew) + ", since there was no index"}});
    add(sections, "New", changes.added, true, lineOf);
    add(sections, "Gone", changes.gone, true, lineOf);
    add(sections, "Restored", changes.restored, true, lineOf);
    add(sections, "Renamed", changes.renamed, true,
        [](const Changes::Renamed& renamed) { return renamedLine(renamed, " is now "); });
    add(sections, "Perhaps renamed", changes.offered, true,
        [](const Changes::Renamed& renamed) { return renamedLine(renamed, " is perhaps "); });
    Section shared{"Shared number", {}, false};
    for (const auto& group : changes.shared) {
        for (const auto& finding : group.findings)
            shared.lines.push_back(std::to_string(group.number) + ": " + withPlace(finding.place) + ": " +
                                   finding.idhName);
    }
    add(sections, std::move(shared));
    add(sections, "Other number in the file", changes.different, true,
        [](const Changes::Different& different) {
            return withPlace(different.index.place) + ": " + different.property + " is " +
                   std::to_string(different.value) + ", in the index " +
                   withNumber(different.index.idhName, different.index.number);
        });
    return sections;
}

std::vector<Section> sectionsOf(const TopicsOf& topics, const Numbering& numbering) {
    std::vector<Section> sections;
    std::unordered_map<std::string_view, std::string> owners;
    const auto count = topics.missing.size();
    const bool isListed = !topics.allAreMissing || count == 1;
    if (!isListed && count > 0)
        add(sections, {"Text missing", {"all " + std::to_string(count) + ", since no control has one"}});
    if (count > 0 && isListed) {
        for (const auto& designer : numbering) {
            for (const auto& control : designer.controls)
                owners.emplace(control.idhName, nameOf({designer.name, control.control, control.index}));
        }
    }
    const auto itself = [](const std::string& name) { return name; };
    if (isListed)
        add(sections, "Text missing", topics.missing, true,
            [&](const std::string& name) { return owners[name] + ": " + name; });
    add(sections, "Text left over", topics.leftOver, true, itself);
    add(sections, "Topic there twice", topics.twice, true, itself);
    return sections;
}

std::vector<Section> sectionsOfModule(const std::vector<std::string>& notReached) {
    std::vector<Section> sections;
    add(sections, {"Without a procedure, since no module reaches its controls", notReached, false});
    return sections;
}

} // namespace corvelle::indexer::stable
