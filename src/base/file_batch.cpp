#include "base/file_batch.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

// The same file in its folder's real name, which is what journals are compared by.
fs::path inRealFolder(const fs::path& file) {
    std::error_code error;
    const auto folder = fs::canonical(file.has_parent_path() ? file.parent_path() : fs::path("."), error);
    if (error) throw fileErrorOf(error, file);
    return folder / file.filename();
}

void writeWhole(const fs::path& path, std::string_view bytes) {
    PendingFile file(path);
    file.writer().write(bytes);
    file.commit();
}

} // namespace

// The journal and the pointers to it: on the disk from the construction on, gone with the object.
class FileBatch::Journal {
  public:
    explicit Journal(const std::vector<Member>& members) {
        BatchJournal journal;
        for (const auto& member : members) journal.files.push_back(member.file);
        path_ = journalBeside(journal.files.front().fresh);
        try {
            write(journal);
        } catch (...) {
            remove();
            throw;
        }
    }
    ~Journal() {
        if (!isKept_) remove();
    }
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    // From now on the next run would put the old files back.
    void turnBack() {
        const auto turned = whenTakenBack(path_);
        std::error_code error;
        fs::rename(path_, turned, error);
        if (error) throw fileErrorOf(error, path_);
        path_ = turned;
        flushFolder(path_.parent_path());
    }
    // The next run has work left.
    void keep() { isKept_ = true; }

  private:
    // It counts from the moment that it has its name; the pointers are there before.
    void write(const BatchJournal& journal) {
        const auto home = path_.parent_path();
        for (const auto& file : journal.files) {
            const auto folder = file.fresh.parent_path();
            const auto isHere = [&](const fs::path& pointer) { return pointer.parent_path() == folder; };
            if (folder == home || std::any_of(pointers_.begin(), pointers_.end(), isHere)) continue;
            pointers_.push_back(journalBeside(file.fresh));
            writeWhole(pointers_.back(), pointerText(path_, folder));
        }
        writeWhole(path_, journal.textIn(home));
    }
    void remove() {
        std::error_code ignored;
        fs::remove(path_, ignored);
        for (const auto& pointer : pointers_) fs::remove(pointer, ignored);
    }

    fs::path path_;
    std::vector<fs::path> pointers_;
    bool isKept_ = false;
};

void FileBatch::add(const fs::path& path, std::string_view bytes, const ReplaceOptions& options) {
    Member member;
    member.fresh = std::make_unique<PendingFile>(path, options);
    member.fresh->writer().write(bytes);
    member.fresh->finish();
    member.file.target = inRealFolder(member.fresh->target());
    member.file.fresh = inRealFolder(member.fresh->temporary());
    member.file.freshSum = sumOf(bytes);
    members_.push_back(std::move(member));
}

void FileBatch::copyOldFile(Member& member) {
    failedFile_ = member.fresh->path();
    if (!stampIfThere(member.file.target)) return;
    const auto bytes = readFile(member.file.target);
    member.old = std::make_unique<PendingFile>(member.fresh->path());
    member.old->writer().write(bytes);
    member.old->finish();
    member.file.old = inRealFolder(member.old->temporary());
    member.file.oldSum = sumOf(bytes);
}

void FileBatch::commit() {
    if (members_.empty()) return;
    failedFile_ = members_.front().fresh->path();
    if (members_.size() == 1) return members_.front().fresh->commit();
    for (auto& member : members_) copyOldFile(member);
    for (auto& member : members_) {
        member.fresh->surviveSignals();
        if (member.old) member.old->surviveSignals();
    }
    Journal journal(members_);
    std::size_t renamed = 0;
    try {
        for (; renamed < members_.size(); ++renamed) {
            failedFile_ = members_[renamed].fresh->path();
            members_[renamed].fresh->commit();
        }
    } catch (const FileError& error) {
        if (takeBack(journal, renamed)) throw;
        throw FileError(error.number(), error.reason() + "; the next run puts right the files before it");
    } catch (...) {
        takeBack(journal, renamed);
        throw;
    }
}

// What cannot be taken back now, the next run takes back.
bool FileBatch::takeBack(Journal& journal, std::size_t renamed) {
    if (renamed == 0) return true;
    try {
        journal.turnBack();
        while (renamed > 0) {
            const auto& member = members_[--renamed];
            if (member.old)
                member.old->commit();
            else
                fs::remove(member.file.target);
        }
        return true;
    } catch (const std::exception&) {
        journal.keep();
        for (auto& member : members_) {
            member.fresh->keep();
            if (member.old) member.old->keep();
        }
        return false;
    }
}

} // namespace corvelle::base
