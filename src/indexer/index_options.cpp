#include "indexer/index_options.h"

#include "base/file.h"
#include "base/paths.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <array>

namespace corvelle::indexer {

void SetDefOption(ide::VBProject& project, IndexOptions& options) {
    using ide::ProjectType;
    if (project.Type() == ProjectType::StandardExe) options.ChkFrm = options.ChkMDI = 1;
    if (project.Type() == ProjectType::ActiveXControl)
        options.ChkPG = options.ChkActiveXCtl = options.ChkFrm = 1;
    if (project.Type() == ProjectType::ActiveXDll || project.Type() == ProjectType::ActiveXExe)
        options.ChkDOB = options.ChkFrm = options.ChkDsr = 1;
}

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

namespace {

struct Exclusion {
    std::string_view className;
    CheckValue IndexOptions::*box;
};

constexpr std::array exclusions{
    Exclusion{"LABEL", &IndexOptions::ChkExclLbl},  Exclusion{"FRAME", &IndexOptions::ChKExcFrame},
    Exclusion{"SHAPE", &IndexOptions::ChkExcShape}, Exclusion{"LINE", &IndexOptions::ChkExcLine},
    Exclusion{"MENU", &IndexOptions::ChkExcMenu},   Exclusion{"TOOLBAR", &IndexOptions::ChkExcToolbar},
};

} // namespace

bool isIndexable(std::string_view className, const ExcludeList& list, const IndexOptions& options) {
    const auto name = base::upper(className);
    if (isInList(name, list)) return false;
    for (const auto& exclusion : exclusions) {
        if (name == exclusion.className) return options.*exclusion.box == 0;
    }
    return true;
}

} // namespace corvelle::indexer
