#include "indexer/stable/numbering.h"

#include "base/text.h"
#include "indexer/help_index.h"
#include "indexer/stable/match.h"

#include <algorithm>
#include <limits>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace corvelle::indexer::stable {

namespace {

struct Fault {
    std::string reason;
};

// The numbers that new controls get: above all that were given, and none that a file gives itself.
class HelpNumbers {
  public:
    HelpNumbers(const FoundProject& project, const Memory& earlier) {
        const auto note = [this](std::int32_t number, bool isAdopted) {
            if (isAdopted)
                taken_.insert(number);
            else
                last_ = std::max(last_, number);
        };
        for (const auto& control : earlier.controls) note(control.number, control.isAdopted);
        for (const auto& retired : earlier.retired) note(retired.number, retired.isAdopted);
        for (const auto& designer : project) {
            for (const auto& control : designer.controls) {
                for (const auto number : {control.helpContextID, control.whatsThisHelpID}) {
                    if (number > 0) taken_.insert(number);
                }
            }
        }
    }

    std::int32_t next() {
        do {
            if (last_ == std::numeric_limits<std::int32_t>::max())
                throw Fault{"there is no number left above " + std::to_string(last_)};
            ++last_;
        } while (taken_.count(last_) > 0);
        return last_;
    }

  private:
    std::int32_t last_ = defaultHelpContextID;
    std::unordered_set<std::int32_t> taken_;
};

class NumberingRun {
  public:
    NumberingRun(const FoundProject& project, const EarlierIndex& earlier, const NumberingOptions& options)
        : project_(project), earlier_(earlier.memory), options_(options),
          matches_(match(project, earlier_.controls, earlier.knowsIndices)), names_(earlier_, options.names),
          numbers_(project, earlier_) {
        for (const auto& rename : findRenames(project, earlier_.controls, matches_, earlier.knowsIndices))
            renames_[{rename.found.designer, rename.found.control}] = rename.remembered;
        for (const auto& retired : earlier_.retired) retired_.emplace(retired.idhName, &retired);
    }

    NumberedProject run() {
        isKept_ = matches_.isThere;
        std::size_t count = 0;
        for (const auto& designer : project_) count += designer.controls.size();
        result_.memory.controls.reserve(count);
        result_.numbering.reserve(project_.size());
        for (std::size_t d = 0; d < project_.size(); ++d) addDesigner(d);
        retire();
        carryWritten();
        findShared();
        return std::move(result_);
    }

  private:
    void addDesigner(std::size_t d) {
        const auto& designer = project_[d];
        auto* numbered = designer.isChosen ? &result_.numbering.emplace_back(NumberedDesigner{
                                                 designer.name, designer.path, designer.type, {}})
                                           : nullptr;
        if (numbered) numbered->controls.reserve(designer.controls.size());
        for (std::size_t c = 0; c < designer.controls.size(); ++c) {
            const auto& found = designer.controls[c];
            const bool isChosen = designer.isChosen && found.isChosen;
            const auto known = matches_.remembered[d][c];
            if (known == nothing && !isChosen) continue;
            auto control = known == nothing ? fresh(d, c) : kept(d, c, known, isChosen);
            compareWithFile(d, c, control);
            const bool isIn = isChosen && control.standing != Standing::Deleted;
            if (isIn && numbered) numbered->controls.push_back(numberedOf(found, control));
            result_.memory.controls.push_back(std::move(control));
        }
    }

    static NumberedControl numberedOf(const FoundControl& found, const RememberedControl& control) {
        const bool isOnDefault = control.standing == Standing::OnDefault;
        return {std::string(found.name),
                found.index,
                std::string(found.library),
                std::string(found.className),
                found.container,
                isOnDefault ? std::string(defaultIDH) : control.idhName,
                isOnDefault ? defaultHelpContextID : control.number,
                found.hasWidth};
    }

    PlaceInProject placeOf(std::size_t d, std::size_t c) const {
        const auto& designer = project_[d];
        const auto& control = designer.controls[c];
        return {designer.path,
                control.line,
                {designer.name, std::string(control.name), control.index},
                std::string(control.className)};
    }
    Finding findingOf(std::size_t d, std::size_t c, const RememberedControl& control) const {
        return {placeOf(d, c), control.idhName, control.number};
    }
    static Finding findingOf(const RememberedControl& control) {
        return {{{}, 0, control.place, control.className}, control.idhName, control.number};
    }

    // The control as it stands in the file now, with nothing of an index yet.
    RememberedControl describe(std::size_t d, std::size_t c) const {
        const auto& found = project_[d].controls[c];
        RememberedControl control;
        control.place = {project_[d].name, std::string(found.name), found.index};
        control.className = found.className;
        control.container = found.container;
        return control;
    }
    // With the name, the number and what else the index knows of the other one.
    static void inherit(RememberedControl& control, const RememberedControl& from) {
        control.idhName = from.idhName;
        control.number = from.number;
        control.standing = from.standing;
        control.isAdopted = from.isAdopted;
        control.perhapsFrom = from.perhapsFrom;
    }

    RememberedControl kept(std::size_t d, std::size_t c, std::size_t known, bool isChosen) {
        auto control = describe(d, c);
        inherit(control, earlier_.controls[known]);
        const bool isDeleted = control.standing == Standing::Deleted;
        control.isLeftOut = !isChosen && !isDeleted;
        if (isDeleted && isChosen && options_.restoresDeleted) {
            control.standing = Standing::Indexed;
            if (control.idhName == defaultIDH) giveNew(d, c, control);
            result_.changes.restored.push_back(findingOf(d, c, control));
        }
        if (!control.perhapsFrom.empty()) settleRename(d, c, control);
        return control;
    }

    void giveNew(std::size_t d, std::size_t c, RememberedControl& control) {
        auto name = names_.next(control.place);
        if (!name)
            throw Fault{"the names end with IDH_ZZZZ, which is given; with --names readable there are more"};
        control.idhName = std::move(*name);
        const auto given = project_[d].controls[c].givenNumber();
        control.isAdopted = given != 0;
        control.number = given != 0 ? given : numbers_.next();
    }

    // A rename that an earlier run has offered.
    void settleRename(std::size_t d, std::size_t c, RememberedControl& control) {
        const auto retired = retired_.find(control.perhapsFrom);
        if (retired == retired_.end() || options_.renames == RenamesAre::Declined) {
            control.perhapsFrom.clear();
            return;
        }
        const auto& before = *retired->second;
        if (options_.renames == RenamesAre::Offered) {
            result_.changes.offered.push_back({{}, findingOf(d, c, control), before.idhName, before.number});
            return;
        }
        if (control.idhName != defaultIDH)
            result_.memory.retired.push_back({control.idhName, control.number, control.isAdopted});
        takenBack_.insert(before.idhName);
        control.idhName = before.idhName;
        control.number = before.number;
        control.isAdopted = before.isAdopted;
        control.perhapsFrom.clear();
        result_.changes.renamed.push_back({{}, findingOf(d, c, control), before.idhName, before.number});
    }

    RememberedControl fresh(std::size_t d, std::size_t c) {
        auto control = describe(d, c);
        const auto rename = renames_.find({d, c});
        const auto* before = rename == renames_.end() ? nullptr : &earlier_.controls[rename->second];
        if (before && options_.renames == RenamesAre::Taken) {
            inherit(control, *before);
            isKept_[rename->second] = true;
            carryOver(before->place, control.place);
            if (!control.perhapsFrom.empty()) settleRename(d, c, control);
            if (control.idhName == before->idhName)
                result_.changes.renamed.push_back(
                    {before->place, findingOf(d, c, control), before->idhName, before->number});
            return control;
        }
        giveNew(d, c, control);
        if (isFirst_)
            ++result_.changes.allAreNew;
        else
            result_.changes.added.push_back(findingOf(d, c, control));
        if (before && options_.renames == RenamesAre::Offered && before->idhName != defaultIDH)
            offer(d, c, control, *before);
        return control;
    }

    // Of a control that was renamed again while the first rename was open it is the first name that counts:
    // the texts are there.
    void offer(std::size_t d, std::size_t c, RememberedControl& control, const RememberedControl& before) {
        auto idhName = before.idhName;
        auto number = before.number;
        const auto first = retired_.find(before.perhapsFrom);
        if (first != retired_.end()) {
            idhName = first->second->idhName;
            number = first->second->number;
        }
        control.perhapsFrom = idhName;
        result_.changes.offered.push_back({before.place, findingOf(d, c, control), idhName, number});
        // The IDE took along what we wrote. It is ours still, however the rename is settled.
        const auto& found = project_[d].controls[c];
        if (found.name.empty() || found.givenNumber() == before.number)
            carryOver(before.place, control.place);
    }

    // What was written for the one place is the other's. With its controls a designer is renamed too.
    void carryOver(const ControlPlace& before, const ControlPlace& now) {
        renamedPlaces_.emplace(keyOf(before), now);
        if (!base::equalIgnoringCase(before.designer, now.designer))
            renamedPlaces_.emplace(keyOf({before.designer, {}, {}}), ControlPlace{now.designer, {}, {}});
    }

    void compareWithFile(std::size_t d, std::size_t c, const RememberedControl& control) {
        if (control.standing == Standing::Deleted || control.isLeftOut) return;
        const auto number = control.standing == Standing::OnDefault ? defaultHelpContextID : control.number;
        const auto& found = project_[d].controls[c];
        const auto compare = [&](const char* property, std::int32_t value) {
            if (value == 0 || value == number) return;
            auto finding = findingOf(d, c, control);
            finding.number = number;
            result_.changes.different.push_back({std::move(finding), property, value});
        };
        compare("HelpContextID", found.helpContextID);
        compare("WhatsThisHelpID", found.whatsThisHelpID);
    }

    void retire() {
        auto& retired = result_.memory.retired;
        std::vector<RetiredNumber> fresh;
        fresh.swap(retired); // those whose number was given back for an older one
        for (const auto& before : earlier_.retired) {
            if (takenBack_.count(before.idhName) == 0) retired.push_back(before);
        }
        retired.insert(retired.end(), fresh.begin(), fresh.end());
        for (std::size_t i = 0; i < earlier_.controls.size(); ++i) {
            const auto& control = earlier_.controls[i];
            if (isKept_[i]) continue;
            if (control.standing != Standing::Deleted && !control.isLeftOut)
                result_.changes.gone.push_back(findingOf(control));
            if (control.idhName != defaultIDH)
                retired.push_back({control.idhName, control.number, control.isAdopted});
        }
    }

    static std::string keyOf(const ControlPlace& place) {
        return base::upper(place.designer) + " " + base::upper(nameInMemory(place));
    }

    // Of a designer that is not in the project they stay: its file may come back.
    void carryWritten() {
        if (earlier_.written.empty()) return;
        std::unordered_set<std::string> present, designers;
        for (const auto& designer : project_) {
            designers.insert(base::upper(designer.name));
            present.insert(keyOf({designer.name, {}, {}}));
            for (const auto& control : designer.controls)
                present.insert(keyOf({designer.name, std::string(control.name), control.index}));
        }
        for (auto written : earlier_.written) {
            const auto renamed = renamedPlaces_.find(keyOf(written.place));
            if (renamed != renamedPlaces_.end()) written.place = renamed->second;
            if (designers.count(base::upper(written.place.designer)) == 0 ||
                present.count(keyOf(written.place)) > 0)
                result_.memory.written.push_back(std::move(written));
        }
    }

    void findShared() {
        std::vector<std::int32_t> numbers;
        for (const auto& control : result_.memory.controls) {
            if (isShown(control)) numbers.push_back(control.number);
        }
        if (!std::is_sorted(numbers.begin(), numbers.end())) std::sort(numbers.begin(), numbers.end());
        if (std::adjacent_find(numbers.begin(), numbers.end()) == numbers.end() &&
            !std::binary_search(numbers.begin(), numbers.end(), defaultHelpContextID))
            return;
        std::map<std::int32_t, std::vector<Finding>> findings;
        std::size_t next = 0; // of the memory's controls, which stand in the order of the project
        for (std::size_t d = 0; d < project_.size(); ++d) {
            for (std::size_t c = 0; c < project_[d].controls.size(); ++c) {
                const bool isRemembered = matches_.remembered[d][c] != nothing ||
                                          (project_[d].isChosen && project_[d].controls[c].isChosen);
                if (!isRemembered) continue;
                const auto& control = result_.memory.controls[next++];
                if (isShown(control)) findings[control.number].push_back(findingOf(d, c, control));
            }
        }
        for (auto& [number, sharing] : findings) {
            if (sharing.size() > 1 || number == defaultHelpContextID)
                result_.changes.shared.push_back({number, std::move(sharing)});
        }
    }
    static bool isShown(const RememberedControl& control) {
        return control.standing == Standing::Indexed && !control.isLeftOut;
    }

    const FoundProject& project_;
    const Memory& earlier_;
    const NumberingOptions& options_;
    bool isFirst_ = earlier_.controls.empty() && earlier_.retired.empty();
    Matches matches_;
    HelpNames names_;
    HelpNumbers numbers_;
    std::map<std::pair<std::size_t, std::size_t>, std::size_t> renames_; // found control to remembered one
    std::unordered_map<std::string, const RetiredNumber*> retired_;
    std::vector<bool> isKept_;                                    // of the remembered ones
    std::unordered_set<std::string> takenBack_;                   // names that are not retired any more
    std::unordered_map<std::string, ControlPlace> renamedPlaces_; // from where they were
    NumberedProject result_;
};

} // namespace

NumberedProject numberProject(const FoundProject& project, const EarlierIndex& earlier,
                              const NumberingOptions& options) {
    try {
        return NumberingRun(project, earlier, options).run();
    } catch (const Fault& fault) {
        NumberedProject refused;
        refused.fault = fault.reason;
        return refused;
    }
}

} // namespace corvelle::indexer::stable
