#include "base/file_batch.h"
#include "base/file_properties.h"
#include "base/folder_lock.h"
#include "base/paths.h"

#include <algorithm>
#include <set>
#include <system_error>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

bool isPresent(const fs::path& path) {
    std::error_code error;
    const auto status = fs::symlink_status(path, error);
    if (status.type() == fs::file_type::none) throw fileErrorOf(error, path);
    return fs::exists(status);
}

// A journal and the files that it names are plain files; nothing else is even opened.
std::optional<std::string> bytesIfPlain(const fs::path& path) {
    std::error_code error;
    const auto status = fs::symlink_status(path, error);
    if (status.type() == fs::file_type::none) throw fileErrorOf(error, path);
    if (!fs::is_regular_file(status)) return std::nullopt;
    return readFile(path);
}

std::optional<FileSum> sumIfPlain(const fs::path& path) {
    const auto bytes = path.empty() ? std::nullopt : bytesIfPlain(path);
    return bytes ? std::optional(sumOf(*bytes)) : std::nullopt;
}

void renameFile(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    if (error) throw fileErrorOf(error, to);
}

void removeFile(const fs::path& path) {
    std::error_code error;
    fs::remove(path, error);
    if (error) throw fileErrorOf(error, path);
}

// One file of a batch as it is found now.
class FoundFile {
  public:
    explicit FoundFile(const BatchFile& file)
        : file_(file), target_(sumIfPlain(file.target)), fresh_(sumIfPlain(file.fresh)),
          old_(sumIfPlain(file.old)), isThere_(isPresent(file.target)) {}

    const fs::path& target() const { return file_.target; }
    bool canBeNew() const { return isNew() || (isOld() && fresh_ == file_.freshSum); }
    bool canBeOld() const { return isOld() || (isNew() && (!file_.oldSum || old_ == file_.oldSum)); }

    void makeNew() const {
        if (!isNew()) renameFile(file_.fresh, file_.target);
    }
    void makeOld() const {
        if (isOld()) return;
        if (file_.oldSum)
            renameFile(file_.old, file_.target);
        else
            removeFile(file_.target);
    }
    // What the batch has written beside the file.
    void clear() const {
        for (const auto& path : {file_.fresh, file_.old}) {
            const auto sum = sumIfPlain(path);
            if (sum && (sum == file_.freshSum || sum == file_.oldSum)) removeFile(path);
        }
    }

  private:
    bool isNew() const { return target_ == file_.freshSum; }
    bool isOld() const { return file_.oldSum ? target_ == file_.oldSum : !isThere_; }

    const BatchFile& file_;
    std::optional<FileSum> target_, fresh_, old_;
    bool isThere_;
};

class Completion {
  public:
    explicit Completion(const std::vector<fs::path>& files) {
        for (const auto& file : files) {
            std::error_code error;
            const auto real = fs::weakly_canonical(fs::absolute(file, error), error);
            if (!error && fs::is_directory(real.parent_path(), error)) folders_.insert(real.parent_path());
        }
    }

    std::vector<CompletedBatch> run() {
        for (const auto& folder : folders_) {
            for (const auto& path : journalsIn(folder)) look(path);
        }
        return std::move(completed_);
    }

  private:
    static std::vector<fs::path> journalsIn(const fs::path& folder) {
        std::vector<fs::path> found;
        for (const auto& name : namesIn(folder)) {
            if (isJournalName(name)) found.push_back(folder / name);
        }
        return found;
    }

    void look(const fs::path& path) {
        if (!isOwnOrFoldersOwners(path)) return;
        const auto text = bytesIfPlain(path);
        if (!text) return;
        const auto journal = readPointer(*text, path.parent_path());
        if (!journal) return complete(path, *text);
        for (const auto& state : {*journal, whenTakenBack(*journal)}) {
            if (!isPresent(state)) continue;
            const auto bytes = isOwnOrFoldersOwners(state) ? bytesIfPlain(state) : std::nullopt;
            if (bytes) complete(state, *bytes);
            return;
        }
        removeFile(path); // what it pointed to has been done
    }

    void complete(const fs::path& path, std::string_view text) {
        const auto home = path.parent_path();
        const auto journal = BatchJournal::read(text, home);
        if (!journal) return;
        const auto pointers = pointersOf(*journal, path);
        if (!pointers) return;
        std::vector<fs::path> elsewhere;
        for (const auto& file : journal->files) {
            if (folders_.count(file.target.parent_path()) == 0) elsewhere.push_back(file.target);
        }
        const FolderLock lock(elsewhere);
        completed_.push_back(putRight(*journal, path != whenTakenBack(path)));
        removeFile(path);
        for (const auto& pointer : *pointers) removeFile(pointer);
    }

    // Nothing unless each other folder has one: a journal has no say where it was not expected.
    static std::optional<std::vector<fs::path>> pointersOf(const BatchJournal& journal,
                                                           const fs::path& path) {
        const auto forward = fs::path(path).replace_extension(journalBeside(path).extension());
        std::set<fs::path> folders;
        for (const auto& file : journal.files) folders.insert(file.target.parent_path());
        folders.erase(path.parent_path());
        std::vector<fs::path> pointers;
        for (const auto& folder : folders) {
            const auto found = journalsIn(folder);
            const auto it = std::find_if(found.begin(), found.end(), [&](const fs::path& other) {
                if (!isOwnOrFoldersOwners(other)) return false;
                const auto text = bytesIfPlain(other);
                return text && readPointer(*text, folder) == forward;
            });
            if (it == found.end()) return std::nullopt;
            pointers.push_back(*it);
        }
        return pointers;
    }

    static CompletedBatch putRight(const BatchJournal& journal, bool isForward) {
        const std::vector<FoundFile> files(journal.files.begin(), journal.files.end());
        const auto all = [&](bool (FoundFile::*can)() const) {
            return std::all_of(files.begin(), files.end(),
                               [&](const FoundFile& file) { return (file.*can)(); });
        };
        if (isForward ? !all(&FoundFile::canBeNew) && all(&FoundFile::canBeOld)
                      : !all(&FoundFile::canBeOld) && all(&FoundFile::canBeNew))
            isForward = !isForward;
        CompletedBatch result;
        result.isTakenBack = !isForward;
        for (const auto& file : files) {
            if (!(isForward ? file.canBeNew() : file.canBeOld())) {
                result.left.push_back(file.target());
                continue;
            }
            isForward ? file.makeNew() : file.makeOld();
            result.files.push_back(file.target());
        }
        std::set<fs::path> folders;
        for (const auto& file : files) folders.insert(file.target().parent_path());
        for (const auto& folder : folders) flushFolder(folder);
        for (const auto& file : files) file.clear();
        return result;
    }

    std::set<fs::path> folders_;
    std::vector<CompletedBatch> completed_;
};

} // namespace

std::vector<CompletedBatch> completeBatches(const std::vector<fs::path>& files) {
    return Completion(files).run();
}

} // namespace corvelle::base
