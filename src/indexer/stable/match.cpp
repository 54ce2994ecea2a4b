#include "indexer/stable/match.h"

#include "base/text.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace corvelle::indexer::stable {

namespace {

// A designer's controls of an index by their names.
class ByName {
  public:
    explicit ByName(bool knowsIndices) : knowsIndices_(knowsIndices) {}

    void add(std::string_view control, const std::optional<std::int32_t>& index, std::size_t number) {
        auto& queue = queues_[keyOf(control, index)];
        queue.numbers.push_back(number);
    }
    // The next one of that name; nothing when there are no more.
    std::size_t take(std::string_view control, const std::optional<std::int32_t>& index) {
        const auto found = queues_.find(keyOf(control, index));
        if (found == queues_.end() || found->second.next == found->second.numbers.size()) return nothing;
        return found->second.numbers[found->second.next++];
    }

  private:
    struct Queue {
        std::vector<std::size_t> numbers;
        std::size_t next = 0;
    };

    std::string keyOf(std::string_view control, const std::optional<std::int32_t>& index) const {
        auto key = base::upper(control);
        if (knowsIndices_ && index) key.append("(").append(std::to_string(*index));
        return key;
    }

    bool knowsIndices_;
    std::unordered_map<std::string, Queue> queues_;
};

// The remembered controls of each designer, by its name in upper case, in their order.
using OfDesigners = std::unordered_map<std::string, std::vector<std::size_t>>;

OfDesigners ofDesigners(const std::vector<RememberedControl>& earlier) {
    OfDesigners result;
    const std::string* last = nullptr;
    std::vector<std::size_t>* numbers = nullptr;
    for (std::size_t i = 0; i < earlier.size(); ++i) {
        const auto& designer = earlier[i].place.designer;
        if (!last || *last != designer) numbers = &result[base::upper(designer)];
        last = &designer;
        numbers->push_back(i);
    }
    return result;
}

// The first of a designer's found controls that earlier ones can stand for: its own entry is found always,
// and remembered only where designers have one.
std::size_t firstToMatch(const FoundDesigner& designer, const std::vector<std::size_t>& numbers,
                         const std::vector<RememberedControl>& earlier) {
    const bool hasOwn = !designer.controls.empty() && designer.controls.front().name.empty();
    const bool remembersOwn = !numbers.empty() && earlier[numbers.front()].place.control.empty();
    return hasOwn && !remembersOwn ? 1 : 0;
}

// Whether a designer has, from that control on, the remembered ones, all of them and in their order, and they
// are not another designer's of that name.
bool isUnchanged(const FoundDesigner& designer, std::size_t first, const std::vector<std::size_t>& numbers,
                 const std::vector<RememberedControl>& earlier, bool knowsIndices,
                 const std::vector<bool>& isTaken) {
    if (designer.controls.size() - first != numbers.size()) return false;
    return std::equal(numbers.begin(), numbers.end(),
                      designer.controls.begin() + static_cast<std::ptrdiff_t>(first),
                      [&](std::size_t i, const FoundControl& control) {
                          const auto& place = earlier[i].place;
                          return !isTaken[i] && base::equalIgnoringCase(place.control, control.name) &&
                                 (!knowsIndices || place.index == control.index);
                      });
}

class RenameSearch {
  public:
    RenameSearch(const FoundProject& project, const std::vector<RememberedControl>& earlier,
                 const Matches& matches, bool knowsContainers)
        : project_(project), earlier_(earlier), matches_(matches), knowsContainers_(knowsContainers),
          byDesigner_(ofDesigners(earlier)), isTaken_(earlier.size(), false) {}

    std::vector<Rename> run() {
        for (std::size_t d = 0; d < project_.size(); ++d) isPaired_.emplace_back(project_[d].controls.size());
        for (std::size_t d = 0; d < project_.size(); ++d) {
            const auto found = byDesigner_.find(base::upper(project_[d].name));
            if (found == byDesigner_.end()) {
                newDesigners_.push_back(d);
                continue;
            }
            if (std::none_of(found->second.begin(), found->second.end(),
                             [this](std::size_t i) { return isGone(i); }))
                continue;
            pairByNumber(d, found->second);
            pairByPlace(d, found->second);
        }
        pairDesigners();
        return std::move(renames_);
    }

  private:
    bool isGone(std::size_t remembered) const {
        return !matches_.isThere[remembered] && !isTaken_[remembered] &&
               earlier_[remembered].standing != Standing::Deleted && !earlier_[remembered].isLeftOut;
    }
    bool isNew(std::size_t d, std::size_t c) const {
        return matches_.remembered[d][c] == nothing && !isPaired_[d][c] && project_[d].isChosen &&
               project_[d].controls[c].isChosen;
    }
    static bool isOfClass(const RememberedControl& control, const FoundControl& found) {
        return control.place.control.empty() == found.name.empty() &&
               base::equalIgnoringCase(control.className, found.className);
    }
    void pair(std::size_t remembered, std::size_t d, std::size_t c) {
        isTaken_[remembered] = true;
        isPaired_[d][c] = true;
        renames_.push_back({remembered, {d, c}});
        const ControlPlace now{{}, std::string(project_[d].controls[c].name), project_[d].controls[c].index};
        newContainers_[containerKey(earlier_[remembered].place.designer,
                                    nameInMemory(earlier_[remembered].place))] = nameInMemory(now);
    }

    // The IDE keeps the properties of a control that is renamed.
    void pairByNumber(std::size_t d, const std::vector<std::size_t>& remembered) {
        std::unordered_map<std::int32_t, std::size_t> gone;
        for (const auto i : remembered) {
            if (!isGone(i)) continue;
            const auto [place, isFirst] = gone.emplace(earlier_[i].number, i);
            if (!isFirst) place->second = nothing; // shared: it says nothing
        }
        if (gone.empty()) return;
        for (std::size_t c = 0; c < project_[d].controls.size(); ++c) {
            const auto& control = project_[d].controls[c];
            if (!isNew(d, c) || control.givenNumber() == 0) continue;
            const auto found = gone.find(control.givenNumber());
            if (found == gone.end() || found->second == nothing) continue;
            if (isGone(found->second) && isOfClass(earlier_[found->second], control))
                pair(found->second, d, c);
        }
    }

    // Goes along both lists; between two controls that are in both stand those in question.
    void pairByPlace(std::size_t d, const std::vector<std::size_t>& remembered) {
        const auto& controls = project_[d].controls;
        std::unordered_map<std::size_t, std::size_t> order; // of a remembered one, in its designer
        for (std::size_t k = 0; k < remembered.size(); ++k) order.emplace(remembered[k], k);
        std::size_t next = 0, gapBegin = 0;
        for (std::size_t c = 0; c <= controls.size(); ++c) {
            std::size_t end = remembered.size();
            if (c < controls.size()) {
                const auto kept = order.find(matches_.remembered[d][c]);
                if (kept == order.end() || kept->second < next) continue; // new, or it has changed its place
                end = kept->second;
            }
            pairGap(d, gapBegin, c, remembered, next, end);
            next = end + 1;
            gapBegin = c + 1;
        }
    }

    void pairGap(std::size_t d, std::size_t begin, std::size_t end,
                 const std::vector<std::size_t>& remembered, std::size_t first, std::size_t behindLast) {
        struct Group {
            std::vector<std::size_t> gone, fresh;
        };
        std::map<std::string, Group> groups; // by class and container
        for (auto k = first; k < behindLast && k < remembered.size(); ++k) {
            const auto& control = earlier_[remembered[k]];
            if (isGone(remembered[k]))
                groups[groupKey(control.place.control.empty(), control.className,
                                containerNow(control.place.designer, control.container))]
                    .gone.push_back(remembered[k]);
        }
        if (groups.empty()) return;
        for (auto c = begin; c < end; ++c) {
            const auto& control = project_[d].controls[c];
            if (isNew(d, c))
                groups[groupKey(control.name.empty(), control.className, control.container)].fresh.push_back(
                    c);
        }
        for (const auto& [key, group] : groups) {
            if (group.gone.size() != group.fresh.size()) continue;
            for (std::size_t i = 0; i < group.gone.size(); ++i) pair(group.gone[i], d, group.fresh[i]);
        }
    }

    std::string groupKey(bool isDesigner, std::string_view className, std::string_view container) const {
        auto key = (isDesigner ? "D" : "C") + base::upper(className);
        if (knowsContainers_) key.append(" ").append(base::upper(container));
        return key;
    }
    static std::string containerKey(std::string_view designer, std::string_view container) {
        return base::upper(designer) + " " + base::upper(container);
    }
    // A container may have been renamed itself.
    std::string containerNow(std::string_view designer, const std::string& container) const {
        const auto found = newContainers_.find(containerKey(designer, container));
        return found == newContainers_.end() ? container : found->second;
    }

    // Those that went and those that came, by how many controls they have in common: it must be most of both
    // sides', and no other's as many.
    void pairDesigners() {
        if (newDesigners_.empty()) return;
        std::unordered_map<std::string, bool> present;
        for (const auto& designer : project_) present.emplace(base::upper(designer.name), true);
        std::map<std::string, std::vector<std::size_t>> went;
        for (const auto& [name, controls] : byDesigner_) {
            if (present.count(name) == 0) went.emplace(name, controls);
        }
        constexpr std::size_t mostPairs = 10000; // so many at once are another project
        if (newDesigners_.size() * went.size() > mostPairs) return;
        for (const auto d : newDesigners_) {
            const std::vector<std::size_t>* best = nullptr;
            std::size_t most = 0;
            bool isTie = false;
            for (const auto& [name, controls] : went) {
                const auto common = pairsOf(d, controls).size();
                if (common == 0 || common * 2 <= controls.size() ||
                    common * 2 <= project_[d].controls.size() || common < most)
                    continue;
                isTie = common == most;
                most = common;
                best = &controls;
            }
            if (!best || isTie) continue;
            for (const auto& [remembered, c] : pairsOf(d, *best)) {
                if (isGone(remembered) && isNew(d, c)) pair(remembered, d, c);
            }
        }
    }

    std::vector<std::pair<std::size_t, std::size_t>> pairsOf(std::size_t d,
                                                             const std::vector<std::size_t>& controls) const {
        ByName byName(true);
        for (const auto i : controls) {
            if (isGone(i)) byName.add(earlier_[i].place.control, earlier_[i].place.index, i);
        }
        std::vector<std::pair<std::size_t, std::size_t>> result;
        for (std::size_t c = 0; c < project_[d].controls.size(); ++c) {
            const auto& control = project_[d].controls[c];
            const auto i = byName.take(control.name, control.index);
            if (i != nothing && isOfClass(earlier_[i], control)) result.emplace_back(i, c);
        }
        return result;
    }

    const FoundProject& project_;
    const std::vector<RememberedControl>& earlier_;
    const Matches& matches_;
    bool knowsContainers_;
    OfDesigners byDesigner_;
    std::vector<bool> isTaken_;               // of the remembered ones
    std::vector<std::vector<bool>> isPaired_; // of the found ones
    std::vector<std::size_t> newDesigners_;
    std::unordered_map<std::string, std::string> newContainers_;
    std::vector<Rename> renames_;
};

} // namespace

Matches match(const FoundProject& project, const std::vector<RememberedControl>& earlier, bool knowsIndices) {
    Matches result;
    result.isThere.assign(earlier.size(), false);
    result.remembered.reserve(project.size());
    const auto byDesigner = ofDesigners(earlier);
    std::unordered_map<std::string, ByName> known; // of designers that have changed
    for (const auto& designer : project) {
        auto& remembered = result.remembered.emplace_back(designer.controls.size(), nothing);
        const auto name = base::upper(designer.name);
        const auto found = byDesigner.find(name);
        if (found == byDesigner.end()) continue;
        const auto& numbers = found->second;
        const bool isNew = known.find(name) == known.end();
        const auto first = firstToMatch(designer, numbers, earlier);
        if (isNew && isUnchanged(designer, first, numbers, earlier, knowsIndices, result.isThere)) {
            std::copy(numbers.begin(), numbers.end(),
                      remembered.begin() + static_cast<std::ptrdiff_t>(first));
        } else {
            auto& byName = known.emplace(name, knowsIndices).first->second;
            if (isNew) {
                for (const auto i : numbers) byName.add(earlier[i].place.control, earlier[i].place.index, i);
            }
            for (std::size_t c = 0; c < designer.controls.size(); ++c)
                remembered[c] = byName.take(designer.controls[c].name, designer.controls[c].index);
        }
        for (const auto i : remembered) {
            if (i != nothing) result.isThere[i] = true;
        }
    }
    return result;
}

std::vector<Rename> findRenames(const FoundProject& project, const std::vector<RememberedControl>& earlier,
                                const Matches& matches, bool knowsContainers) {
    if (std::find(matches.isThere.begin(), matches.isThere.end(), false) == matches.isThere.end()) return {};
    return RenameSearch(project, earlier, matches, knowsContainers).run();
}

bool isOfAnotherProject(const FoundProject& project, const EarlierIndex& earlier) {
    const auto& controls = earlier.memory.controls;
    if (project.empty() || controls.empty()) return false;
    std::unordered_set<std::string> designers;
    for (const auto& designer : project) designers.insert(base::upper(designer.name));
    if (std::any_of(controls.begin(), controls.end(), [&](const RememberedControl& control) {
            return designers.count(base::upper(control.place.designer)) > 0;
        }))
        return false;
    const auto matches = match(project, controls, earlier.knowsIndices);
    return findRenames(project, controls, matches, earlier.knowsIndices).empty();
}

} // namespace corvelle::indexer::stable
