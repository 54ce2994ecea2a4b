// Any bytes can be read as a header with its memory and a configuration file, which stands behind a line
// "====": they are taken up or refused; what is taken up is read again as the same, and numbering a project
// after it gives nothing twice.

#include "indexer/stable/earlier_index.h"
#include "indexer/stable/index_bytes.h"
#include "indexer/stable/numbering.h"
#include "require.h"
#include "vocabulary.h"

#include <cstdint>
#include <set>
#include <string>

using namespace corvelle::indexer::stable;

namespace {

FoundProject smallProject() {
    FoundDesigner designer{"frmMain", "frmMain.frm", corvelle::ide::ComponentType::VBForm, true, {}};
    for (const auto* name : {"cmdOK", "cmdNav", "cmdNav", "lblA"}) {
        FoundControl control;
        control.name = name;
        control.library = "VB";
        control.className = "CommandButton";
        designer.controls.push_back(control);
    }
    designer.controls[1].index = 0;
    designer.controls[2].index = 1;
    return {designer};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size), divider = "====\n";
    const auto at = bytes.find(divider);
    const auto header = bytes.substr(0, at);
    const auto configuration = at == std::string::npos ? "" : bytes.substr(at + divider.size());
    if (const auto read = readMemory(header); read.memory) {
        std::string lines;
        appendLines(lines, *read.memory);
        const auto again = readMemory(lines);
        require(again.memory && *again.memory == *read.memory, "a memory is read as it was written");
    }
    const auto earlier = readEarlierIndex(header, configuration);
    if (!earlier.fault.empty()) return 0;
    const auto numbered = numberProject(smallProject(), earlier.index, {});
    if (!numbered.fault.empty()) return 0;
    std::set<std::string> names;
    for (const auto& control : numbered.memory.controls)
        require(control.idhName == "IDH_AAAA" || names.insert(control.idhName).second,
                "a name is given once");
    for (const auto& retired : numbered.memory.retired)
        require(names.insert(retired.idhName).second, "a retired name is not given");
    const auto next =
        readEarlierIndex(headerOf(numbered.numbering, numbered.memory), configurationOf(numbered.numbering));
    require(next.fault.empty(), "what a run writes the next one takes up");
    require(next.index.memory == numbered.memory, "it is the same");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return mutateLines(data, size, maxSize, seed, vocabulary::headerMemory);
}
