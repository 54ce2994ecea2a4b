#include "indexer/stable/earlier_index.h"

#include "base/text.h"
#include "indexer/help_index.h"
#include "indexer/index_files.h"
#include "indexer/stable/help_names.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace corvelle::indexer::stable {

namespace {

struct Fault {
    std::string reason;
};

[[noreturn]] void refuse(std::string reason) {
    throw Fault{std::move(reason)};
}

std::string atLine(const char* file, std::uint32_t line, std::string_view reason) {
    return std::string("line ") + std::to_string(line) + " of the " + file + ": " + std::string(reason);
}

// The names of a header's `#define` lines with their numbers.
using Numbers = std::unordered_map<std::string_view, std::int32_t>;

struct Define {
    std::string_view name;
    std::int32_t number;
};

bool readDefine(std::string_view line, Define& define) {
    constexpr std::string_view word = "#define ", gap = "  ";
    if (line.substr(0, word.size()) != word) return false;
    line.remove_prefix(word.size());
    const auto end = line.find(gap);
    if (end == std::string_view::npos || end == 0) return false;
    define.name = line.substr(0, end);
    const auto digits = line.substr(end + gap.size());
    const char* const behind = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), behind, define.number);
    return error == std::errc() && rest == behind && define.number > 0 &&
           std::all_of(define.name.begin(), define.name.end(), base::isNameCharacter);
}

std::vector<Define> definesOf(std::string_view header) {
    std::vector<Define> result;
    for (TextLines lines(header); lines.next();) {
        const auto line = lines.line();
        if (line.empty() || isMemoryLine(line)) continue;
        if (!readDefine(line, result.emplace_back()))
            refuse(atLine("header", lines.number(), "this is no line of an index's header"));
    }
    if (!result.empty() && (result[0].name != defaultIDH || result[0].number != defaultHelpContextID))
        refuse("the header does not begin with the default topic, IDH_AAAA  1000");
    return result;
}

Numbers numbersOf(const std::vector<Define>& defines) {
    Numbers numbers;
    numbers.reserve(defines.size());
    for (const auto& define : defines) {
        if (!numbers.emplace(define.name, define.number).second)
            refuse("the header has " + std::string(define.name) + " twice");
    }
    return numbers;
}

// A configuration file whose lines are all whole.
HelpIndex wholeMappings(std::string_view configuration) {
    auto index = indexer::readMappings(configuration).index;
    for (const auto& designer : index.designers) {
        if (designer.empty()) refuse("a line of the configuration file names no designer");
    }
    for (std::size_t i = 1; i <= index.count(); ++i) {
        const auto& entry = index.entries[i];
        if (entry.CtlName.empty() || entry.CtlClass.empty() || entry.IDHName.empty())
            refuse("a control's line of the configuration file is not whole, the " + std::to_string(i) + ".");
        if (entry.DsrIndex == 0)
            refuse("a control of the configuration file has no designer: " + entry.CtlName);
    }
    return index;
}

const std::string& designerOf(const HelpIndex& index, const IndexEntry& entry) {
    return index.designers[static_cast<std::size_t>(entry.DsrIndex) - 1];
}

std::string inFile(const HelpIndex& index, const IndexEntry& entry) {
    return designerOf(index, entry) + ": " + entry.CtlName + ": ";
}

void requireNewName(std::unordered_map<std::string_view, std::size_t>& taken, std::string_view name,
                    std::size_t control) {
    if (name != defaultIDH && !taken.emplace(name, control).second)
        refuse("the name " + std::string(name) + " is given twice");
}

// Over files without a memory.
Memory takeOver(const std::vector<Define>& defines, const Numbers& numbers, const HelpIndex& mappings) {
    Memory memory;
    std::unordered_map<std::string_view, std::size_t> taken;
    memory.controls.reserve(mappings.count());
    for (std::size_t i = 1; i <= mappings.count(); ++i) {
        const auto& entry = mappings.entries[i];
        requireNewName(taken, entry.IDHName, i);
        const auto number = numbers.find(entry.IDHName);
        if (number == numbers.end()) refuse(inFile(mappings, entry) + "the header has no " + entry.IDHName);
        const bool isDefault = entry.IDHName == defaultIDH;
        memory.controls.push_back({{designerOf(mappings, entry), entry.CtlName, {}},
                                   entry.CtlClass,
                                   {},
                                   entry.IDHName,
                                   number->second,
                                   isDefault ? Standing::OnDefault : Standing::Indexed});
    }
    for (std::size_t i = 1; i < defines.size(); ++i) {
        if (taken.count(defines[i].name) > 0) continue;
        if (!isNameInSequence(defines[i].name))
            refuse(std::string(defines[i].name) +
                   " is no name of a control, nor one that corvelle has given");
        memory.retired.push_back({std::string(defines[i].name), defines[i].number});
    }
    return memory;
}

// Which lines of the configuration file are of which remembered controls, where there is a memory. A line
// with a control's own name is its; lines on the default are of those that are left, in their order, which
// before were on the default before others.
class Standings {
  public:
    Standings(Memory& memory, const Numbers& numbers, const HelpIndex& mappings)
        : memory_(memory), numbers_(numbers), mappings_(mappings) {}

    void read() {
        for (std::size_t i = 0; i < memory_.controls.size(); ++i) {
            requireNewName(owners_, memory_.controls[i].idhName, i);
            ofPlace_[keyOf(memory_.controls[i].place.designer, nameOf(memory_.controls[i]))].push_back(i);
        }
        for (std::size_t i = 0; i < memory_.retired.size(); ++i)
            requireNewName(owners_, memory_.retired[i].idhName, ofNobody);
        requireNumbers();
        isMet_.assign(memory_.controls.size(), false);
        for (std::size_t i = 1; i <= mappings_.count(); ++i) takeOwn(mappings_.entries[i]);
        for (std::size_t i = 1; i <= mappings_.count(); ++i) takeDefault(mappings_.entries[i]);
        for (std::size_t i = 0; i < isMet_.size(); ++i) settle(memory_.controls[i], isMet_[i]);
    }

  private:
    static constexpr std::size_t ofNobody = static_cast<std::size_t>(-1);

    static std::string keyOf(std::string_view designer, std::string_view name) {
        return base::upper(designer) + " " + base::upper(name);
    }
    // As the configuration file calls it: a designer's own entry has the designer's name.
    static const std::string& nameOf(const RememberedControl& control) {
        return control.place.control.empty() ? control.place.designer : control.place.control;
    }

    // The header's two halves must tell the same.
    void requireNumbers() const {
        for (const auto& [name, number] : numbers_) {
            if (name == defaultIDH) continue;
            const auto owner = owners_.find(name);
            if (owner == owners_.end()) refuse("the header's memory does not know " + std::string(name));
            if (owner->second == ofNobody) continue;
            const auto remembered = memory_.controls[owner->second].number;
            if (remembered != number)
                refuse(std::string(name) + " is " + std::to_string(number) + " in the header and " +
                       std::to_string(remembered) + " in its memory");
        }
        for (const auto& control : memory_.controls) {
            if (control.standing == Standing::Indexed && !control.isLeftOut &&
                numbers_.count(control.idhName) == 0)
                refuse("the header's memory has " + control.idhName + ", and its lines have not");
        }
    }

    void takeOwn(const IndexEntry& entry) {
        if (entry.IDHName == defaultIDH) return;
        const auto owner = owners_.find(entry.IDHName);
        if (owner == owners_.end() || owner->second == ofNobody)
            refuse(inFile(mappings_, entry) + "the header's memory has no control of the name " +
                   entry.IDHName);
        auto& control = memory_.controls[owner->second];
        if (!base::equalIgnoringCase(control.place.designer, designerOf(mappings_, entry)) ||
            !base::equalIgnoringCase(nameOf(control), entry.CtlName))
            refuse(inFile(mappings_, entry) + "in the header's memory " + entry.IDHName +
                   " is the name of another control");
        if (isMet_[owner->second]) refuse(inFile(mappings_, entry) + entry.IDHName + " stands there twice");
        isMet_[owner->second] = true;
        control.standing = Standing::Indexed;
    }

    void takeDefault(const IndexEntry& entry) {
        if (entry.IDHName != defaultIDH) return;
        const auto found = ofPlace_.find(keyOf(designerOf(mappings_, entry), entry.CtlName));
        if (found == ofPlace_.end())
            refuse(inFile(mappings_, entry) + "the header's memory does not know this control");
        std::size_t best = ofNobody;
        for (const auto i : found->second) {
            if (isMet_[i]) continue;
            const bool wasOnDefault = memory_.controls[i].standing == Standing::OnDefault;
            if (best == ofNobody || wasOnDefault) best = i;
            if (wasOnDefault) break;
        }
        if (best == ofNobody) refuse(inFile(mappings_, entry) + "it stands there too often");
        isMet_[best] = true;
        memory_.controls[best].standing = Standing::OnDefault;
    }

    static void settle(RememberedControl& control, bool isMet) {
        if (isMet)
            control.isLeftOut = false;
        else if (!control.isLeftOut)
            control.standing = Standing::Deleted;
    }

    Memory& memory_;
    const Numbers& numbers_;
    const HelpIndex& mappings_;
    std::unordered_map<std::string_view, std::size_t> owners_;          // by name
    std::unordered_map<std::string, std::vector<std::size_t>> ofPlace_; // by designer and control
    std::vector<bool> isMet_;
};

// A control that was in the index must have been deleted from a file that is there.
void requireDesigners(const Memory& memory, const HelpIndex& mappings) {
    std::unordered_map<std::string, bool> isThere;
    for (const auto& name : mappings.designers) isThere.emplace(base::upper(name), true);
    const std::string* last = nullptr;
    for (const auto& control : memory.controls) {
        if (control.isLeftOut || control.standing == Standing::Deleted) continue;
        const auto& designer = control.place.designer;
        if (last && *last == designer) continue;
        last = &designer;
        if (isThere.count(base::upper(designer)) == 0)
            refuse(designer + " is in the header's memory and not in the configuration file");
    }
}

EarlierIndex readBoth(std::string_view header, std::string_view configuration) {
    const auto defines = definesOf(header);
    const auto numbers = numbersOf(defines);
    auto read = readMemory(header);
    if (read.fault) refuse(atLine("header", read.fault->line, read.fault->reason));
    const auto mappings = wholeMappings(configuration);
    if (defines.empty() && (read.memory || mappings.count() > 0))
        refuse("the configuration file is there, but the header with its numbers is not");
    EarlierIndex result;
    if (read.memory) {
        result.memory = std::move(*read.memory);
        requireDesigners(result.memory, mappings);
        Standings(result.memory, numbers, mappings).read();
    } else {
        if (defines.size() > 1 && mappings.designers.empty())
            refuse("the header has numbers, but the configuration file with their controls is not there");
        result.memory = takeOver(defines, numbers, mappings);
        result.knowsIndices = false;
    }
    return result;
}

} // namespace

ReadEarlier readEarlierIndex(std::string_view header, std::string_view configuration) {
    ReadEarlier result;
    try {
        result.index = readBoth(header, configuration);
    } catch (const Fault& fault) {
        result.fault = fault.reason;
    }
    return result;
}

} // namespace corvelle::indexer::stable
