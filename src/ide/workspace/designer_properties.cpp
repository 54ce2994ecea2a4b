#include "ide/workspace/designer_properties.h"

#include "base/text.h"
#include "ide/workspace/designer_section.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace corvelle::workspace {

namespace {

using Blocks = std::vector<DesignerBlock>;
using Fate = HelpPropertyFate;

bool isSwitch(HelpProperty property) {
    return property == HelpProperty::WhatsThisButton || property == HelpProperty::WhatsThisHelp;
}

std::string valueText(const HelpPropertyWish& wish) {
    if (!isSwitch(wish.property)) return std::to_string(wish.value);
    return wish.value != 0 ? "-1  'True" : "0   'False";
}

std::string lineText(const HelpPropertyWish& wish) {
    constexpr std::size_t nameWidth = 16;
    std::string text(nameOf(wish.property));
    text.resize(std::max(text.size(), nameWidth), ' ');
    return text + "=   " + valueText(wish);
}

bool isForm(const DesignerBlock& block) {
    return base::equalIgnoringCase(block.className, "VB.Form");
}

// A whole number or a Boolean of a block; what the IDE leaves out has its default.
std::int32_t valueOf(const DesignerBlock& block, std::string_view property, std::int32_t byDefault) {
    const auto* const found = block.find(property);
    return found ? numberOf(found->value).value_or(byDefault) : byDefault;
}

bool allowsWhatsThisButton(const DesignerBlock& form) {
    if (!isForm(form) || valueOf(form, "ControlBox", -1) == 0) return false;
    const auto border = valueOf(form, "BorderStyle", 2);
    const bool hasOtherButtons = valueOf(form, "MinButton", -1) != 0 || valueOf(form, "MaxButton", -1) != 0;
    return border == 3 || ((border == 1 || border == 2) && !hasOtherButtons);
}

// The blocks that a wish may be meant for, by name and index.
class BlockNames {
  public:
    explicit BlockNames(const Blocks& blocks) {
        for (std::size_t i = 1; i < blocks.size(); ++i)
            byName_.emplace(Key(base::upper(blocks[i].name), blocks[i].index), i);
    }
    // All of them; one where things are in order.
    std::vector<std::size_t> find(const HelpPropertyWish& wish) const {
        if (wish.control.empty()) return {0};
        std::vector<std::size_t> result;
        const auto [first, last] = byName_.equal_range(Key(base::upper(wish.control), wish.index));
        std::transform(first, last, std::back_inserter(result),
                       [](const auto& entry) { return entry.second; });
        return result;
    }

  private:
    using Key = std::pair<std::string, std::optional<std::int32_t>>;
    std::multimap<Key, std::size_t> byName_;
};

// Bytes of the file that others take the place of.
struct Edit {
    std::size_t begin, end;
    std::string text;
    HelpProperty property; // those at one place come in the order of their names
};

bool comesBefore(const Edit& a, const Edit& b) {
    return std::tie(a.begin, a.property) < std::tie(b.begin, b.property);
}

std::string edited(std::string_view bytes, std::vector<Edit> edits) {
    std::stable_sort(edits.begin(), edits.end(), comesBefore);
    std::string result;
    std::size_t kept = 0;
    for (const auto& edit : edits) {
        result.append(bytes.substr(kept, edit.begin - kept)).append(edit.text);
        kept = edit.end;
    }
    return result.append(bytes.substr(kept));
}

Edit insertion(const DesignerBlock& block, const HelpPropertyWish& wish) {
    const auto containers = containersProperties(block);
    const auto count = isBuiltIn(block.className) ? block.headProperties : containers;
    const auto name = base::upper(nameOf(wish.property));
    std::size_t place = block.bodyBegin;
    for (std::size_t i = 0; i < count; ++i) {
        const auto& property = block.properties[i];
        if (base::upper(property.name) > name) {
            place = property.begin;
            break;
        }
        place = property.end;
    }
    const auto indentation = block.headProperties == 0 ? std::string(block.indentation) + "   "
                                                       : std::string(block.properties.front().indentation);
    return {place, place, indentation + lineText(wish) + std::string(block.lineEnd), wish.property};
}

// The same designer but for the properties of the wishes: it reads as the same blocks with the same other
// properties, and the rest of the file is the same.
void requireSameDesigner(const ModuleFile& before, const ModuleFile& after,
                         const std::vector<std::size_t>& touched, const Blocks& old) {
    const auto isOthers = [](const DesignerProperty& property) { return !helpPropertyNamed(property.name); };
    const auto bytesOf = [](const ModuleFile& file, const DesignerProperty& property) {
        return std::string_view(file.bytes()).substr(property.begin, property.end - property.begin);
    };
    const auto fresh = readDesignerSection(after);
    bool same = old.size() == fresh.size();
    for (std::size_t i = 0; same && i < old.size(); ++i) {
        const auto &a = old[i], &b = fresh[i];
        same = a.className == b.className && a.name == b.name && a.index == b.index &&
               a.container == b.container;
        const bool all = !std::binary_search(touched.begin(), touched.end(), i);
        auto x = a.properties.begin();
        auto y = b.properties.begin();
        while (same) {
            while (!all && x != a.properties.end() && !isOthers(*x)) ++x;
            while (!all && y != b.properties.end() && !isOthers(*y)) ++y;
            if (x == a.properties.end() || y == b.properties.end()) break;
            same = bytesOf(before, *x++) == bytesOf(after, *y++);
        }
        same = same && x == a.properties.end() && y == b.properties.end();
    }
    const auto rest = [](const ModuleFile& file) {
        return std::string_view(file.bytes()).substr(file.header().size());
    };
    if (!same || rest(before) != rest(after)) throw std::logic_error("the designer would read otherwise");
}

// One file, one call of a function of ours.
class Change {
  public:
    explicit Change(const ModuleFile& file)
        : file_(file), blocks_(readDesignerSection(file)), names_(blocks_) {}

    HelpPropertyOutcome write(const HelpPropertyWish& wish) {
        return onTheOnlyOne(wish, [&](std::size_t number, const DesignerBlock& block) {
            if (!isBuiltIn(block.className) && containersProperties(block) == 0)
                return HelpPropertyOutcome{Fate::Invisible, block.line, {}};
            const auto* const old = block.find(nameOf(wish.property));
            if (old) return overwrite(*old, number, wish);
            if (wish.property == HelpProperty::WhatsThisButton && !allowsWhatsThisButton(block))
                return HelpPropertyOutcome{Fate::Forbidden, block.line, {}};
            note(number, insertion(block, wish));
            return HelpPropertyOutcome{Fate::Done, block.line, {}};
        });
    }

    HelpPropertyOutcome remove(const HelpPropertyWish& wish) {
        return onTheOnlyOne(wish, [&](std::size_t number, const DesignerBlock& block) {
            const auto* const old = block.find(nameOf(wish.property));
            if (!old) return HelpPropertyOutcome{Fate::Needless, block.line, {}};
            if (numberOf(old->value) != wish.value)
                return HelpPropertyOutcome{Fate::Differs, old->line, std::string(old->value)};
            note(number, {old->begin, old->end, {}, wish.property});
            return HelpPropertyOutcome{Fate::Done, old->line, {}};
        });
    }

    std::string bytes() {
        auto result = edited(file_.bytes(), edits_);
        std::sort(touched_.begin(), touched_.end());
        requireSameDesigner(file_, ModuleFile(result, file_.type()), touched_, blocks_);
        return result;
    }

  private:
    template <class Work>
    HelpPropertyOutcome onTheOnlyOne(const HelpPropertyWish& wish, Work work) {
        const auto found = names_.find(wish);
        if (found.empty()) return {Fate::Missing, 0, {}};
        const auto& block = blocks_[found.front()];
        if (found.size() > 1 || block.count(nameOf(wish.property)) > 1)
            return {Fate::Ambiguous, block.line, {}};
        if (!done_.emplace(found.front(), wish.property).second) return {Fate::Ambiguous, block.line, {}};
        return work(found.front(), block);
    }

    HelpPropertyOutcome overwrite(const DesignerProperty& old, std::size_t number,
                                  const HelpPropertyWish& wish) {
        if (old.isGroup) throw StrangeDesigner(old.line);
        const auto value = numberOf(old.value);
        if (value == wish.value) return {Fate::Needless, old.line, {}};
        HelpPropertyOutcome outcome{Fate::Replaced, old.line, std::string(old.value)};
        // A zero, which stands where somebody has typed it, is no number yet. What is none that we can read
        // is not ours.
        const bool isFree = value && (value == 0 || value == wish.previous);
        if (!isFree && !wish.replacesAny) outcome.fate = Fate::Differs;
        if (outcome.fate == Fate::Differs) return outcome;
        const auto begin = static_cast<std::size_t>(old.value.data() - file_.bytes().data());
        note(number, {begin, begin + old.value.size(), valueText(wish), wish.property});
        return outcome;
    }

    void note(std::size_t block, Edit edit) {
        edits_.push_back(std::move(edit));
        touched_.push_back(block);
    }

    const ModuleFile& file_;
    Blocks blocks_;
    BlockNames names_;
    std::vector<Edit> edits_;
    std::vector<std::size_t> touched_; // numbers of blocks
    std::set<std::pair<std::size_t, HelpProperty>> done_;
};

constexpr std::array helpProperties{HelpProperty::HelpContextID, HelpProperty::WhatsThisButton,
                                    HelpProperty::WhatsThisHelp, HelpProperty::WhatsThisHelpID};

} // namespace

std::string_view nameOf(HelpProperty property) {
    switch (property) {
    case HelpProperty::HelpContextID:
        return "HelpContextID";
    case HelpProperty::WhatsThisButton:
        return "WhatsThisButton";
    case HelpProperty::WhatsThisHelp:
        return "WhatsThisHelp";
    default:
        return "WhatsThisHelpID";
    }
}

std::optional<HelpProperty> helpPropertyNamed(std::string_view name) {
    for (const auto property : helpProperties) {
        if (base::equalIgnoringCase(name, nameOf(property))) return property;
    }
    return std::nullopt;
}

ChangedDesigner withHelpProperties(const ModuleFile& file, const std::vector<HelpPropertyWish>& wishes) {
    Change change(file);
    ChangedDesigner result;
    for (const auto& wish : wishes) result.outcomes.push_back(change.write(wish));
    result.bytes = change.bytes();
    return result;
}

ChangedDesigner withoutHelpProperties(const ModuleFile& file, const std::vector<HelpPropertyWish>& wishes) {
    Change change(file);
    ChangedDesigner result;
    for (const auto& wish : wishes) result.outcomes.push_back(change.remove(wish));
    result.bytes = change.bytes();
    return result;
}

} // namespace corvelle::workspace
