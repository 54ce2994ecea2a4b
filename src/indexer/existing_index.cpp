#include "indexer/existing_index.h"

#include "base/file.h"
#include "base/ignoring_errors.h"
#include "base/path_text.h"
#include "indexer/files.h"
#include "indexer/index_files.h"
#include "indexer/text_file.h"

namespace corvelle::indexer {

namespace {

// Gives a file that may have been replaced its old bytes back.
void restore(std::string_view path, std::string_view bytes) {
    std::string now;
    const bool isRead = base::ignoringErrors([&] { now = base::readFile(base::pathOf(path)); });
    if (isRead && now == bytes) return;
    const auto isDone = base::ignoringErrors(
        [&] { base::replaceFile(base::pathOf(path), [&](base::FileWriter& file) { file.write(bytes); }); });
    if (isRead && !isDone) base::ignoringErrors([&] { base::writeFile(base::pathOf(path), bytes); });
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
    std::string oldTexts;
    bool mustRestore = false;
    const bool isUnread = indexer::isUnread(textPath, index); // no line may replace its texts
    if (bFilesPrompted) result.indexFiles = false;
    if (bFilesPrompted && !isUnread) {
        mustRestore = base::ignoringErrors([&] { oldTexts = base::readFile(base::pathOf(textPath)); });
        setStatus("Status: Saving Configuration and Index file..");
    }
    const auto goOn = [&] {
        if (bFilesPrompted && !isUnread)
            setStatus(result.indexFiles ? "Status: Configuration and Index files saved.."
                                        : "Status: Error while saving header or configuration file..");
        setStatus("Status: Saving Text file..");
    };
    // The new texts have their place on the disk before the header lines take that of the old ones.
    bool complete = false;
    result.texts = SaveTextFile(textPath, index, [&] {
        complete = true;
        if (bFilesPrompted) result.indexFiles = SaveIndexFiles(info[slot::configuration], textPath, index);
        goOn();
    });
    if (!complete) goOn();
    if (result.texts) {
        result.message = {"File was saved successfully.", forms::box::information};
        result.status = "Status: Text file saved..";
    } else {
        // Header lines in place of the texts would be the loss of all texts.
        if (mustRestore) restore(textPath, oldTexts);
        result.message = {"Errors occured while saving file ..", forms::box::exclamation};
        result.status = "Status: Error while saving text file..";
    }
    return result;
}

} // namespace corvelle::indexer
