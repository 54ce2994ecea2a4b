// Any file is taken apart into a header, code lines and hidden lines that are together all its bytes again;
// saved without an edit it is the same; with every code line deleted and inserted again it has the same code
// lines and as many hidden ones. Reading it as a project or a group only has to end well.
//
// Input: a byte that picks the type of module; then the file.

#include "ide/put_together.h"
#include "ide/workspace/edited_module.h"
#include "ide/workspace/project_file.h"
#include "require.h"
#include "vocabulary.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

using corvelle::ide::ComponentType;
using corvelle::workspace::EditedModule;
using corvelle::workspace::ModuleFile;

ComponentType typeOf(std::uint8_t byte) {
    constexpr std::array types{ComponentType::StdModule, ComponentType::ClassModule,
                               ComponentType::VBForm,    ComponentType::VBMDIForm,
                               ComponentType::PropPage,  ComponentType::UserControl,
                               ComponentType::DocObject, ComponentType::ActiveXDesigner};
    return types[byte % types.size()];
}

// Where an LF is put behind a line that ends in CR, the CR becomes part of the line end.
std::string_view withoutReturns(std::string_view line) {
    while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

std::uint32_t hiddenLines(const ModuleFile& file) {
    return file.hiddenRuns().empty() ? 0 : file.hiddenRuns().back().hiddenLinesThrough;
}

void checkParts(const ModuleFile& file, const std::string& bytes) {
    require(file.bytes() == bytes, "the bytes are kept");
    require(corvelle::test::putTogether(file) == bytes, "the parts are the whole file");
    const auto at = [&](std::string_view part) { return part.data() - file.bytes().data(); };
    const char* counted = file.bytes().data();
    std::uint32_t line = 1;
    for (std::uint32_t i = 0; i < file.codeLineCount(); ++i) {
        const auto code = file.codeLine(i);
        require(code.find('\n') == std::string_view::npos, "a code line is one line");
        require(at(code) >= static_cast<std::ptrdiff_t>(file.header().size()),
                "code stands behind the header");
        line += static_cast<std::uint32_t>(std::count(counted, code.data(), '\n'));
        counted = code.data();
        require(file.fileLine(i) == line, "a code line knows its number in the file");
    }
    std::uint32_t ends = 0, returns = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\n') continue;
        ++ends;
        if (i > 0 && bytes[i - 1] == '\r') ++returns;
    }
    require((file.newLine() == "\n") == (ends > 0 && returns == 0), "only LF stays LF");
}

void checkSaving(const ModuleFile& file, ComponentType type) {
    EditedModule module(file);
    require(module.bytes() == file.bytes(), "a file that is not edited stays the same");
    module.deleteLines(0, module.lineCount());
    for (std::uint32_t i = 0; i < file.codeLineCount(); ++i) module.insertLine(i, file.codeLine(i));
    const ModuleFile saved(module.bytes(), type);
    require(saved.codeLineCount() == file.codeLineCount(), "no code line is lost or hidden");
    for (std::uint32_t i = 0; i < file.codeLineCount(); ++i)
        require(withoutReturns(saved.codeLine(i)) == withoutReturns(file.codeLine(i)), "code lines are kept");
    require(saved.headerLines() == file.headerLines(), "the header is kept");
    require(hiddenLines(saved) == hiddenLines(file), "hidden lines are kept");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const auto type = typeOf(data[0]);
    const std::string bytes(data + 1, data + size);
    const corvelle::workspace::ProjectFile project(bytes);
    const corvelle::workspace::GroupFile group(bytes);
    require(group.projects().empty() || group.startup() < group.projects().size(),
            "the startup project is there");
    try {
        const ModuleFile file(bytes, type);
        checkParts(file, bytes);
        checkSaving(file, type);
    } catch (const corvelle::workspace::HeaderNeverEnds& error) {
        const auto lines = static_cast<std::uint32_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
        require(error.line() >= 1 && error.line() <= lines, "the header's line is one of the file");
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const auto phrases =
        vocabulary::together({vocabulary::code, vocabulary::designer, vocabulary::project});
    return mutateLines(data, size, maxSize, seed, phrases);
}
