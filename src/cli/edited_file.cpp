#include "cli/edited_file.h"

#include "base/paths.h"
#include "base/text.h"
#include "cli/terminal.h"

namespace corvelle::cli {

namespace {

constexpr const char* textsNotSaved = ": Errors occured while saving file ..";

Refusal notSaved(const std::string& path, const char* words, const base::FileError& error) {
    return {exitFailed, shown(path) + words + " (" + error.description() + ")" + nothingWritten};
}

void addTo(base::FileBatch& files, const EditedFile& file, const char* words) {
    if (!file.isChanged()) return;
    try {
        files.add(base::pathOf(file.path), file.after, {.stamp = file.stamp});
    } catch (const base::FileError& error) {
        throw notSaved(file.path, words, error);
    }
}

} // namespace

std::string readText(const std::string& path, base::FileStamp* stamp) {
    try {
        auto bytes = base::readFile(base::pathOf(path), stamp);
        const auto what = base::whatInsteadOfText(bytes);
        if (!what.empty()) throw Refusal{exitFailed, shown(path) + ": this is " + std::string(what)};
        return bytes;
    } catch (const base::FileError& error) {
        throw Refusal{exitFailed, shown(path) + ": " + error.description()};
    }
}

void requireOfOurs(const EditedFile& file, bool (*isOurs)(std::string_view), const char* words) {
    if (file.isChanged() && !isOurs(file.before))
        throw Refusal{exitFailed, shown(file.path) + words + nothingWritten};
}

void saveTogether(const EditedFile& configuration, const EditedFile& texts) {
    outliveReaders(); // half a saving is not what they wanted
    base::FileBatch files;
    addTo(files, configuration, ": the configuration file could not be written");
    addTo(files, texts, textsNotSaved);
    try {
        files.commit();
    } catch (const base::FileError& error) {
        throw notSaved(base::textOf(files.failedFile()), textsNotSaved, error);
    }
}

std::string onOneLine(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && i > 0 && text[i - 1] == '\r') continue;
        result += text[i] == '\r' || text[i] == '\n' || text[i] == '\t' ? ' ' : text[i];
    }
    return std::string(base::trimSpaces(result));
}

} // namespace corvelle::cli
