#include "indexer/stable/earlier_index.h"

#include "base/text.h"
#include "indexer/help_index.h"
#include "indexer/index_files.h"
#include "indexer/stable/help_names.h"
#include "indexer/stable/sorted_names.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <array>
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
    constexpr std::size_t usualLines = 64; // of a name: this one and one of the memory
    result.reserve(header.size() / usualLines);
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

// The places of the lines among all, by their names.
SortedNames namesOf(const std::vector<Define>& defines) {
    SortedNames names;
    names.reserve(defines.size());
    for (std::size_t i = 0; i < defines.size(); ++i) names.add(defines[i].name, i);
    const auto twice = names.anyTwice();
    if (!twice.empty()) refuse("the header has " + std::string(twice) + " twice");
    return names;
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

void requireNamesOnce(SortedNames& names) {
    const auto twice = names.anyTwice();
    if (!twice.empty()) refuse("the name " + std::string(twice) + " is given twice");
}

// Whether a line is a designer's own entry, which has the designer's name and is of a class of designers.
bool isOwnEntry(const HelpIndex& index, const IndexEntry& entry) {
    constexpr std::array<std::string_view, 5> designers{"Form", "MDIForm", "UserControl", "PropertyPage",
                                                        "UserDocument"};
    return base::equalIgnoringCase(entry.CtlName, designerOf(index, entry)) &&
           std::any_of(designers.begin(), designers.end(), [&](std::string_view className) {
               return base::equalIgnoringCase(entry.CtlClass, className);
           });
}

// Whether the name is made of one of the index's designers.
bool isReadableName(std::string_view name, const HelpIndex& index) {
    return std::any_of(index.designers.begin(), index.designers.end(), [&](const std::string& designer) {
        const auto begin = "IDH_" + designer;
        return base::equalIgnoringCase(name, begin) || base::startsWithIgnoringCase(name, begin + "_");
    });
}

// Over files without a memory.
Memory takeOver(const std::vector<Define>& defines, SortedNames& places, const HelpIndex& mappings) {
    Memory memory;
    SortedNames given;
    std::vector<bool> isUsed(defines.size(), false);
    memory.controls.reserve(mappings.count());
    for (std::size_t i = 1; i <= mappings.count(); ++i) {
        const auto& entry = mappings.entries[i];
        const bool isDefault = entry.IDHName == defaultIDH;
        if (!isDefault) given.add(entry.IDHName, i);
        const auto place = places.find(entry.IDHName);
        if (place == SortedNames::nothing)
            refuse(inFile(mappings, entry) + "the header has no " + entry.IDHName);
        isUsed[place] = true;
        const auto control = isOwnEntry(mappings, entry) ? std::string() : entry.CtlName;
        memory.controls.push_back({{designerOf(mappings, entry), control, {}},
                                   entry.CtlClass,
                                   {},
                                   entry.IDHName,
                                   defines[place].number,
                                   isDefault ? Standing::OnDefault : Standing::Indexed});
    }
    requireNamesOnce(given);
    for (std::size_t i = 1; i < defines.size(); ++i) {
        if (isUsed[i]) continue;
        if (!isNameInSequence(defines[i].name) && !isReadableName(defines[i].name, mappings))
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
    Standings(Memory& memory, const std::vector<Define>& defines, const HelpIndex& mappings)
        : memory_(memory), defines_(defines), mappings_(mappings) {}

    void read() {
        owners_.reserve(memory_.controls.size() + memory_.retired.size());
        for (std::size_t i = 0; i < memory_.controls.size(); ++i) {
            if (memory_.controls[i].idhName != defaultIDH) owners_.add(memory_.controls[i].idhName, i);
        }
        for (const auto& retired : memory_.retired) owners_.add(retired.idhName, ofNobody);
        requireNamesOnce(owners_);
        requireNumbers();
        isMet_.assign(memory_.controls.size(), false);
        bool anyDefault = false;
        for (std::size_t i = 1; i <= mappings_.count(); ++i) {
            const auto& entry = mappings_.entries[i];
            if (entry.IDHName == defaultIDH)
                anyDefault = true;
            else
                takeOwn(entry);
        }
        if (anyDefault) takeDefaults();
        for (std::size_t i = 0; i < isMet_.size(); ++i) settle(memory_.controls[i], isMet_[i]);
    }

  private:
    static constexpr std::size_t ofNobody = SortedNames::nothing - 1;

    static std::string keyOf(std::string_view designer, std::string_view name) {
        return base::upper(designer) + " " + base::upper(name);
    }
    // As the configuration file calls it: a designer's own entry has the designer's name.
    static const std::string& nameOf(const RememberedControl& control) {
        return control.place.control.empty() ? control.place.designer : control.place.control;
    }

    // The header's two halves must tell the same.
    void requireNumbers() {
        std::vector<bool> isDefined(memory_.controls.size(), false);
        for (const auto& [name, number] : defines_) {
            if (name == defaultIDH) continue;
            const auto owner = owners_.find(name);
            if (owner == SortedNames::nothing)
                refuse("the header's memory does not know " + std::string(name));
            if (owner == ofNobody) continue;
            isDefined[owner] = true;
            const auto remembered = memory_.controls[owner].number;
            if (remembered != number)
                refuse(std::string(name) + " is " + std::to_string(number) + " in the header and " +
                       std::to_string(remembered) + " in its memory");
        }
        for (std::size_t i = 0; i < isDefined.size(); ++i) {
            const auto& control = memory_.controls[i];
            if (control.standing == Standing::Indexed && !control.isLeftOut && !isDefined[i])
                refuse("the header's memory has " + control.idhName + ", and its lines have not");
        }
    }

    void takeOwn(const IndexEntry& entry) {
        const auto owner = owners_.find(entry.IDHName);
        if (owner >= ofNobody)
            refuse(inFile(mappings_, entry) + "the header's memory has no control of the name " +
                   entry.IDHName);
        auto& control = memory_.controls[owner];
        if (!base::equalIgnoringCase(control.place.designer, designerOf(mappings_, entry)) ||
            !base::equalIgnoringCase(nameOf(control), entry.CtlName))
            refuse(inFile(mappings_, entry) + "in the header's memory " + entry.IDHName +
                   " is the name of another control");
        if (isMet_[owner]) refuse(inFile(mappings_, entry) + entry.IDHName + " stands there twice");
        isMet_[owner] = true;
        control.standing = Standing::Indexed;
    }

    void takeDefaults() {
        for (std::size_t i = 0; i < memory_.controls.size(); ++i)
            ofPlace_[keyOf(memory_.controls[i].place.designer, nameOf(memory_.controls[i]))].push_back(i);
        for (std::size_t i = 1; i <= mappings_.count(); ++i) {
            if (mappings_.entries[i].IDHName == defaultIDH) takeDefault(mappings_.entries[i]);
        }
    }

    void takeDefault(const IndexEntry& entry) {
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
    const std::vector<Define>& defines_;
    const HelpIndex& mappings_;
    SortedNames owners_;                                                // of the names
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
    auto names = namesOf(defines);
    auto read = readMemory(header);
    if (read.fault) refuse(atLine("header", read.fault->line, read.fault->reason));
    const auto mappings = wholeMappings(configuration);
    if (defines.empty() && (read.memory || mappings.count() > 0))
        refuse("the configuration file is there, but the header with its numbers is not");
    EarlierIndex result;
    if (read.memory) {
        result.memory = std::move(*read.memory);
        requireDesigners(result.memory, mappings);
        Standings(result.memory, defines, mappings).read();
    } else {
        if (defines.size() > 1 && mappings.designers.empty())
            refuse("the header has numbers, but the configuration file with their controls is not there");
        result.memory = takeOver(defines, names, mappings);
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
