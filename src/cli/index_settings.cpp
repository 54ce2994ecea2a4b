#include "cli/index_settings.h"

#include "indexer/text_file.h"

#include <algorithm>

namespace corvelle::cli {

namespace {

// The option that only numbers that stay know, if one is given; empty: none is.
std::string_view stableOption(const IndexSettings& settings) {
    if (settings.names) return "--names";
    if (settings.takesRenames) return "--renames";
    if (settings.declinesRenames) return "--no-renames";
    if (settings.restoresDeleted) return "--restore";
    if (settings.designersToo) return "--designers";
    return settings.check ? "--check" : "";
}

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

indexer::stable::NumberingOptions numberingOptions(const IndexSettings& settings) {
    using namespace indexer::stable;
    NumberingOptions options;
    if (settings.names == "readable") options.names = NameKind::Readable;
    if (settings.takesRenames) options.renames = RenamesAre::Taken;
    if (settings.declinesRenames) options.renames = RenamesAre::Declined;
    options.restoresDeleted = settings.restoresDeleted;
    return options;
}

namespace {

// Of what concerns the project's own files.
std::string wrongProperties(const IndexSettings& settings) {
    const auto choice = settings.properties.properties;
    if (settings.changesDesigners() && settings.isClassic)
        return "--properties: only with --numbering stable";
    if (settings.properties.whatsThisForms && choice != PropertyChoice::Both)
        return "--whatsthis-forms: needs --properties both";
    if (settings.properties.overwriteNumbers &&
        (!settings.changesDesigners() || choice == PropertyChoice::Remove))
        return "--overwrite-numbers: needs --properties help, whatsthis or both";
    const bool changesProject = settings.changesDesigners() || settings.helpFile;
    if (settings.diff && !changesProject) return "--diff: needs --properties or --help-file";
    if (settings.diff && settings.check) return "--diff and --check: only one of them";
    if (settings.backupDir && !changesProject) return "--backup-dir: needs --properties or --help-file";
    const auto isNoPartOfAName = [](char c) { return c == '"' || static_cast<unsigned char>(c) < 32; };
    if (settings.helpFile &&
        std::any_of(settings.helpFile->begin(), settings.helpFile->end(), isNoPartOfAName))
        return "--help-file: a file's name has no quotes and no control characters in it";
    return {};
}

} // namespace

std::string wrongUsage(const IndexSettings& settings) {
    const auto properties = wrongProperties(settings);
    if (!properties.empty()) return properties;
    const auto stable = stableOption(settings);
    if (settings.isClassic && !stable.empty()) return std::string(stable) + ": only with --numbering stable";
    if (settings.takesRenames && settings.declinesRenames)
        return "--renames and --no-renames: only one of them";
    if (settings.module.has_value() != settings.moduleFile.has_value())
        return "--module and --module-file: only together";
    if (settings.autoload && !settings.module) return "--autoload: needs --module";
    if (settings.replaceModule && !settings.module) return "--replace-module: needs --module";
    if (settings.defaultText && !settings.text) return "--default-text: needs --text";
    if (settings.defaultText && indexer::holdsTopicLine(*settings.defaultText))
        return "--default-text: a line that begins with .topic would begin another topic";
    const bool anyEmpty = settings.header.empty() || settings.config.empty() ||
                          isEmpty(settings.excludeList) || isEmpty(settings.moduleFile) ||
                          isEmpty(settings.text) || isEmpty(settings.report) ||
                          isEmpty(settings.projectFile) || isEmpty(settings.backupDir);
    return anyEmpty ? "a file's name is empty" : "";
}

} // namespace corvelle::cli
