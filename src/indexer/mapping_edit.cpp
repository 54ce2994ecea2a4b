#include "indexer/mapping_edit.h"

#include "base/text.h"
#include "indexer/index_lines.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <optional>

namespace corvelle::indexer {

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
