#include "indexer/existing_index.h"

#include "base/paths.h"
#include "base/run_time_error.h"
#include "indexer/index_files.h"
#include "indexer/paths.h"
#include "indexer/text_file.h"

namespace corvelle::indexer {

namespace {

// The header's lines would go where the text file then takes their place at once, so they are not written at
// all: whatever happens meanwhile, there are texts.
bool saveMappings(const ProjectInfo& info, const HelpIndex& index) {
    const auto& path = info[slot::configuration];
    bool isTextFile = true;
    base::ignoringErrors(
        [&] { isTextFile = base::isSamePath(base::pathOf(path), base::pathOf(info[slot::text])); });
    return !isTextFile && saveConfiguration(path, index);
}

} // namespace

ProjectInfo withPathsFound(ProjectInfo info, std::string_view projectPath) {
    for (const auto which : {slot::header, slot::configuration, slot::text}) {
        base::ignoringErrors([&] {
            const auto folder = base::pathOf(projectPath).parent_path();
            const auto path = base::pathOf(info[which]);
            if (info[which].empty() || !path.is_relative() || fileExists(info[which])) return;
            auto beside = base::textOf(folder / path);
            if (fileExists(beside)) info[which] = std::move(beside);
        });
    }
    return info;
}

bool indexFilesExist(const ProjectInfo& info) {
    return fileExists(info[slot::configuration]) && fileExists(info[slot::text]);
}

Message indexFilesMissing() {
    return {"Either Text  file or configuration file is invalid.You need to re generate them ",
            forms::box::critical};
}

SavedIndex saveExistingIndex(const ProjectInfo& info, const HelpIndex& index, bool bFilesPrompted,
                             const std::function<void(std::string_view)>& setStatus) {
    const auto& textPath = info[slot::text];
    SavedIndex result;
    const bool mappingsToo = bFilesPrompted && !isUnread(textPath, index);
    if (bFilesPrompted) result.indexFiles = false;
    if (mappingsToo) setStatus("Status: Saving Configuration and Index file..");
    const auto goOn = [&] {
        if (mappingsToo)
            setStatus(result.indexFiles ? "Status: Configuration and Index files saved.."
                                        : "Status: Error while saving header or configuration file..");
        setStatus("Status: Saving Text file..");
    };
    // The new texts have their place on the disk before anything is replaced.
    bool complete = false;
    result.texts = SaveTextFile(textPath, index, [&] {
        complete = true;
        if (mappingsToo) result.indexFiles = saveMappings(info, index);
        goOn();
    });
    if (!complete) goOn();
    if (result.texts) {
        result.message = {"File was saved successfully.", forms::box::information};
        result.status = "Status: Text file saved..";
    } else {
        result.message = {"Errors occured while saving file ..", forms::box::exclamation};
        result.status = "Status: Error while saving text file..";
    }
    return result;
}

} // namespace corvelle::indexer
