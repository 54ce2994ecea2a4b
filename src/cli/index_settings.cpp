#include "cli/index_settings.h"

#include "indexer/text_file.h"

#include <algorithm>

namespace corvelle::cli {

namespace {

bool isEmpty(const std::optional<std::string>& path) {
    return path && path->empty();
}

} // namespace

std::optional<std::string> checkBoxes(std::string_view list, const std::array<OptionWord, 6>& words,
                                      indexer::IndexOptions& options) {
    if (list.empty()) return std::nullopt;
    for (std::size_t begin = 0; begin <= list.size();) {
        const auto end = std::min(list.find(',', begin), list.size());
        const auto word = list.substr(begin, end - begin);
        const auto* const found = std::find_if(words.begin(), words.end(),
                                               [&](const OptionWord& known) { return known.word == word; });
        if (found == words.end()) return std::string(word);
        options.*found->box = 1;
        begin = end + 1;
    }
    return std::nullopt;
}

std::string wrongUsage(const IndexSettings& settings) {
    if (settings.module.has_value() != settings.moduleFile.has_value())
        return "--module and --module-file: only together";
    if (settings.autoload && !settings.module) return "--autoload: needs --module";
    if (settings.replaceModule && !settings.module) return "--replace-module: needs --module";
    if (settings.defaultText && !settings.text) return "--default-text: needs --text";
    if (settings.defaultText && indexer::holdsTopicLine(*settings.defaultText))
        return "--default-text: a line that begins with .topic would begin another topic";
    const bool anyEmpty = settings.header.empty() || settings.config.empty() ||
                          isEmpty(settings.excludeList) || isEmpty(settings.moduleFile) ||
                          isEmpty(settings.text) || isEmpty(settings.report) || isEmpty(settings.projectFile);
    return anyEmpty ? "a file's name is empty" : "";
}

} // namespace corvelle::cli
