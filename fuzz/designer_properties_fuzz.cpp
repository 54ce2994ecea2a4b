// Help properties go into any file that reads as a designer, and come out again, without harm: the result
// reads as the same designer, nothing behind the header changes, and taking out what was written gives the
// old bytes.
//
// Input: a byte that says which properties are wanted and whether numbers are replaced; then the file.

#include "ide/workspace/designer_properties.h"
#include "ide/workspace/designer_section.h"
#include "require.h"
#include "vocabulary.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace corvelle::workspace;

// One wish of each wanted property a block, of some more for what is not there.
std::vector<HelpPropertyWish> wishesOf(const ModuleFile& file, std::uint8_t choice) {
    std::vector<HelpPropertyWish> wishes;
    std::int32_t number = 1000;
    const auto want = [&](std::string_view control, const std::optional<std::int32_t>& index) {
        for (const auto property : {HelpProperty::WhatsThisHelpID, HelpProperty::HelpContextID}) {
            if (property == HelpProperty::HelpContextID && (choice & 1) != 0) continue;
            wishes.push_back({std::string(control), index, property, ++number, {}, (choice & 2) != 0});
        }
    };
    want({}, {});
    for (const auto property : {HelpProperty::WhatsThisHelp, HelpProperty::WhatsThisButton})
        wishes.push_back({{}, {}, property, -1});
    for (const auto& block : readDesignerSection(file)) want(block.name, block.index);
    want("nobody", 3);
    return wishes;
}

std::string_view behindHeader(const ModuleFile& file) {
    return std::string_view(file.bytes()).substr(file.header().size());
}

void check(const ModuleFile& file, std::uint8_t choice) {
    const auto wishes = wishesOf(file, choice);
    const auto changed = withHelpProperties(file, wishes);
    require(changed.outcomes.size() == wishes.size(), "each wish has an outcome");
    const ModuleFile fresh(changed.bytes, file.type());
    require(behindHeader(fresh) == behindHeader(file), "the rest of the file is kept");
    require(fresh.controlCount() == file.controlCount(), "no control comes or goes");
    std::vector<HelpPropertyWish> written;
    bool anyReplaced = false;
    for (std::size_t i = 0; i < wishes.size(); ++i) {
        if (changed.outcomes[i].fate == HelpPropertyFate::Done) written.push_back(wishes[i]);
        anyReplaced = anyReplaced || changed.outcomes[i].fate == HelpPropertyFate::Replaced;
    }
    require((changed.bytes == file.bytes()) == (written.empty() && !anyReplaced), "what is written shows");
    const auto back = withoutHelpProperties(fresh, written);
    for (const auto& outcome : back.outcomes)
        require(outcome.fate == HelpPropertyFate::Done, "what was written is found again");
    if (!anyReplaced) require(back.bytes == file.bytes(), "what was written goes without a trace");
    const auto again = withHelpProperties(fresh, wishes);
    require(again.bytes == changed.bytes, "a second time there is nothing to write");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    try {
        const ModuleFile file(std::string(data + 1, data + size), corvelle::ide::ComponentType::VBForm);
        if (file.hasDesigner()) check(file, data[0]);
    } catch (const HeaderNeverEnds&) {
    } catch (const StrangeDesigner&) {
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const auto phrases =
        vocabulary::together({vocabulary::designer,
                              vocabulary::designer,
                              {
                                  "   Begin Lib.Control $ ",
                                  "      Height = #",
                                  "      Width = #",
                                  "      _ExtentX = #",
                                  "      HelpContextID   =   #",
                                  "      whatsthishelpid = 0",
                                  "   WhatsThisHelp = 0 'False",
                                  "   WhatsThisButton =   -1  'True",
                                  "   BorderStyle = 3",
                                  "   BeginProperty $ {0BE35203-8F91-11CE-9DE3-00AA004BB851} ",
                                  "      BeginProperty HelpContextID",
                                  "   Tab(0).Control(#) = \"a=b\"",
                                  "\tText = $\"f.frx\":00A4",
                              }});
    return mutateLines(data, size, maxSize, seed, phrases);
}
