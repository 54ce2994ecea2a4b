#include "indexer/index_files.h"

#include "base/file.h"
#include "base/paths.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <optional>

namespace corvelle::indexer {

namespace {

// What stands between the mark at the line's start and the last end mark; whether there is one.
bool takeValue(std::string_view line, std::string_view mark, std::string_view endMark,
               std::string_view& value) {
    const auto end = base::findLastIgnoringCase(line, endMark);
    if (end == std::string_view::npos) return false;
    value = line.substr(mark.size(), end - mark.size());
    return true;
}

// Takes the text up to the next space off the value; nothing is left behind the last one.
std::string takePart(std::string_view& value) {
    const auto space = value.find(' ');
    const auto part = value.substr(0, space);
    value.remove_prefix(space == std::string_view::npos ? value.size() : space + 1);
    return std::string(part);
}

void readDesigner(std::string_view line, Mappings& mappings) {
    auto& name = mappings.index.designers.emplace_back();
    std::string_view value;
    if (!takeValue(line, designerMark, designerEndMark, value)) return;
    name = value;
    mappings.rows.push_back(name);
}

void readControl(std::string_view line, HelpIndex& index) {
    auto& entry = index.entries.emplace_back();
    std::string_view value;
    if (!takeValue(line, controlMark, controlEndMark, value)) return;
    entry.CtlName = takePart(value);
    entry.CtlClass = takePart(value);
    entry.IDHName = takePart(value);
    entry.DsrIndex = static_cast<std::int32_t>(index.designers.size());
}

// The numbers of the entries by designer number; entries of one designer keep their order.
std::vector<std::vector<std::size_t>> entriesOfDesigners(const HelpIndex& index) {
    std::vector<std::vector<std::size_t>> result(index.designers.size() + 1);
    for (std::size_t i = 0; i <= index.count(); ++i) {
        const auto designer = index.entries[i].DsrIndex;
        if (designer >= 0 && static_cast<std::size_t>(designer) < result.size())
            result[static_cast<std::size_t>(designer)].push_back(i);
    }
    return result;
}

void writeHeader(base::FileWriter& header, const HelpIndex& index) {
    std::int32_t number = defaultHelpContextID;
    writeDefine(header, defaultIDH, number);
    const auto entries = entriesOfDesigners(index);
    for (std::size_t designer = 1; designer <= index.designers.size(); ++designer) {
        for (const auto i : entries[designer]) {
            const auto& name = index.entries[i].IDHName;
            if (!name.empty() && name != index.entries.front().IDHName) writeDefine(header, name, ++number);
        }
    }
}

void writeConfiguration(base::FileWriter& configuration, const HelpIndex& index) {
    const auto entries = entriesOfDesigners(index);
    for (std::size_t designer = 1; designer <= index.designers.size(); ++designer) {
        writeDesigner(configuration, index.designers[designer - 1]);
        for (const auto i : entries[designer]) {
            const auto& entry = index.entries[i];
            if (!entry.IDHName.empty())
                writeControl(configuration, entry.CtlName, entry.CtlClass, entry.IDHName);
        }
    }
}

} // namespace

Mappings LoadMappings(std::string_view path) {
    Mappings mappings;
    mappings.index.isUnread =
        !base::ignoringErrors([&] { mappings = readMappings(base::readFile(base::pathOf(path))); });
    return mappings;
}

Mappings readMappings(std::string_view bytes) {
    Mappings mappings;
    mappings.index.entries.reserve(base::countBytes(bytes, [](char c) { return c == '\n'; }) + 1);
    for (TextLines lines(bytes); lines.next();) {
        const auto line = base::trimSpaces(lines.line());
        if (base::startsWithIgnoringCase(line, designerMark))
            readDesigner(line, mappings);
        else if (base::startsWithIgnoringCase(line, controlMark))
            readControl(line, mappings.index);
    }
    return mappings;
}

bool SaveIndexFiles(std::string_view configurationPath, std::string_view headerPath, const HelpIndex& index) {
    if (index.isUnread) return false;
    return base::ignoringErrors([&] {
        const auto path = base::pathOf(configurationPath);
        if (base::isSamePath(path, base::pathOf(headerPath)))
            throw base::FileError(base::ErrorNumber::FileAlreadyOpen);
        base::replaceFile(path,
                          [&](base::FileWriter& configuration) {
                              base::replaceFile(base::pathOf(headerPath),
                                                [&](base::FileWriter& header) {
                                                    writeHeader(header, index);
                                                    writeConfiguration(configuration, index);
                                                    configuration.flush(); // while the old header is there
                                                },
                                                {.breakLinks = true});
                          },
                          {.breakLinks = true});
    });
}

bool saveConfiguration(std::string_view path, const HelpIndex& index) {
    if (index.isUnread) return false;
    return base::ignoringErrors([&] {
        base::replaceFile(base::pathOf(path),
                          [&](base::FileWriter& configuration) { writeConfiguration(configuration, index); },
                          {.breakLinks = true});
    });
}

namespace {

// Goes to the control's line.
std::optional<TextLines> lineOf(std::size_t entry, std::string_view bytes) {
    std::size_t met = 0;
    for (TextLines lines(bytes); lines.next();) {
        if (base::startsWithIgnoringCase(base::trimSpaces(lines.line()), controlMark) && ++met == entry)
            return lines;
    }
    return std::nullopt;
}

} // namespace

std::string withControlNamed(std::string_view bytes, std::size_t entry, std::string_view idhName) {
    const auto lines = lineOf(entry, bytes);
    std::string result(bytes);
    if (!lines) return result;
    const auto line = lines->line();
    const auto from = line.find_first_not_of(' ') + controlMark.size();
    const auto to = base::findLastIgnoringCase(line, controlEndMark);
    if (to == std::string_view::npos || to < from) return result;
    // The value is the control's name, its class and the name in question, apart by a space each.
    auto value = line.substr(from, to - from);
    auto nameAt = from;
    std::string added;
    for (int part = 0; part < 2; ++part) {
        const auto space = value.find(' ');
        const auto size = space == std::string_view::npos ? value.size() : space + 1;
        if (space == std::string_view::npos) added += ' ';
        value.remove_prefix(size);
        nameAt += size;
    }
    return result.replace(lines->begin() + nameAt, std::min(value.find(' '), value.size()),
                          added.append(idhName));
}

std::string withoutControl(std::string_view bytes, std::size_t entry) {
    const auto lines = lineOf(entry, bytes);
    std::string result(bytes);
    return lines ? result.erase(lines->begin(), lines->end() - lines->begin()) : result;
}

} // namespace corvelle::indexer
