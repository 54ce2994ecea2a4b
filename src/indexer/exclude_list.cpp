#include "indexer/exclude_list.h"

#include "base/file.h"
#include "base/ignoring_errors.h"
#include "base/path_text.h"
#include "base/text.h"
#include "indexer/space_pairs.h"
#include "indexer/text_lines.h"

#include <algorithm>

namespace corvelle::indexer {

namespace {

std::size_t upperBound(const ExcludeList& list) {
    return list.empty() ? 0 : list.size() - 1;
}

} // namespace

std::size_t ReadExcludeList(std::string_view path, ExcludeList& list) {
    base::ignoringErrors([&] { readExcludeList(base::readFile(base::pathOf(path)), list); });
    return upperBound(list);
}

std::size_t readExcludeList(std::string_view bytes, ExcludeList& list) {
    TextLines lines(bytes);
    if (!lines.next()) return upperBound(list); // no line is a failed reading
    const auto line =
        base::upper(withSpacePairsJoined(std::string(" ").append(base::trimSpaces(lines.line()))));
    list.clear();
    for (std::size_t begin = 0; begin <= line.size();) {
        const auto end = std::min(line.find(' ', begin), line.size());
        list.push_back(line.substr(begin, end - begin));
        begin = end + 1;
    }
    return upperBound(list);
}

bool isInList(std::string_view text, const std::vector<std::string>& list) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

} // namespace corvelle::indexer
