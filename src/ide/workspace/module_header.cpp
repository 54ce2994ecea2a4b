#include "ide/workspace/module_header.h"

#include "base/text.h"
#include "ide/workspace/declarations.h"
#include "ide/workspace/designer_lines.h"
#include "ide/workspace/module_file.h"

namespace corvelle::workspace {

namespace {

bool isVersionLine(std::string_view line) {
    std::string_view rest;
    return takeWord(line, "VERSION", rest) && !rest.empty() && rest[0] >= '0' && rest[0] <= '9';
}

bool isObjectLine(std::string_view line) {
    std::string_view rest;
    return takeWord(line, "Object", rest) && !rest.empty() && rest[0] == '=';
}

// Whether the line's first letters let it be a Begin or an End line. Rules out nearly every line at once.
bool mayBeBlockLine(std::string_view line) {
    std::size_t blanks = 0;
    while (blanks < line.size() && base::isBlank(line[blanks])) ++blanks;
    if (line.size() - blanks < 3) return false;
    const char first = base::lower(line[blanks]), third = base::lower(line[blanks + 2]);
    return (first == 'b' && third == 'g') || (first == 'e' && third == 'd');
}

// Notes the control that a Begin line, of which `rest` is what follows the word, begins.
void addControl(std::string_view rest, std::string_view bytes, std::vector<ControlBlock>& controls) {
    auto className = nextWord(rest);
    const auto name = nextWord(rest);
    if (name.empty()) return;
    className.remove_prefix(className.find('.') + 1); // npos + 1 is 0
    const auto placeOf = [&](std::string_view part) {
        return static_cast<std::uint32_t>(part.data() - bytes.data());
    };
    controls.push_back({placeOf(className), static_cast<std::uint32_t>(className.size()), placeOf(name),
                        static_cast<std::uint32_t>(name.size())});
}

// Leaves the reader at the End of the block whose Begin it stands at.
void passBlock(base::LineReader& lines, std::string_view bytes, std::vector<ControlBlock>& controls) {
    const auto beginLine = lines.number();
    std::size_t depth = 1;
    while (depth > 0) {
        if (!lines.next()) throw HeaderNeverEnds(beginLine);
        if (!mayBeBlockLine(lines.line())) continue;
        std::string_view rest;
        if (isBeginLine(lines.line(), rest)) {
            ++depth;
            addControl(rest, bytes, controls);
        } else if (isEndLine(lines.line())) {
            --depth;
        }
    }
}

void readDesigner(std::string_view bytes, ModuleHeader& header) {
    bool begun = header.lines.number() > 0;
    base::LineReader ahead = header.lines;
    while (ahead.next()) {
        std::string_view rest;
        if (isObjectLine(ahead.line())) {
            begun = true;
            header.lines = ahead;
        } else if (isBeginLine(ahead.line(), rest)) {
            header.isMdiForm = base::equalIgnoringCase(nextWord(rest), "VB.MDIForm");
            header.designerName = nextWord(rest);
            header.hasDesigner = true;
            passBlock(ahead, bytes, header.controls);
            header.lines = ahead;
            return;
        } else if (!begun || !base::withoutLeadingBlanks(ahead.line()).empty()) {
            return;
        }
    }
}

void readAttributes(ModuleHeader& header) {
    base::LineReader ahead = header.lines;
    while (ahead.next()) {
        const auto attribute = readAttributeLine(ahead.line());
        if (!attribute.found) return;
        if (attribute.member.empty() && base::equalIgnoringCase(attribute.name, "VB_Name"))
            header.attributeName = literalText(base::withoutLeadingBlanks(attribute.value));
        header.lines = ahead;
    }
}

} // namespace

ModuleHeader readModuleHeader(std::string_view bytes, ide::ComponentType type) {
    ModuleHeader header{base::linesOf(bytes), {}, {}, false, false, {}};
    base::LineReader ahead = header.lines;
    const bool hasVersion = ahead.next() && isVersionLine(ahead.line());
    if (hasVersion) header.lines = ahead;
    if (hasVersion || type != ide::ComponentType::StdModule) readDesigner(bytes, header);
    readAttributes(header);
    return header;
}

} // namespace corvelle::workspace
