#include "base/temporary_file.h"

#include "base/batch_journal.h"
#include "base/file_error.h"
#include "base/live_files.h"
#include "base/paths.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

// ".corvelle-NUMBER.tmp"; ".corvelle-NUMBER-FILE-STATE.tmp" for one that changes names with another: what
// tells our file from all others, and the state of the old one.
constexpr std::string_view beginning = ".corvelle", ending = ".tmp";

// The stirring of SplitMix64.
std::uint64_t stirred(std::uint64_t z) {
    z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9;
    z = (z ^ z >> 27) * 0x94D049BB133111EB;
    return z ^ z >> 31;
}

// Another number at each call, and in each process.
std::uint64_t nextNumber() {
    static std::atomic<std::uint64_t> state =
        static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count()) ^
        processNumber() << 40;
    return stirred(state += 0x9E3779B97F4A7C15);
}

std::string field(std::uint64_t number) {
    std::string text = "-0000000000000000";
    for (auto i = text.size(); number != 0; number >>= 4) text[--i] = "0123456789abcdef"[number & 15];
    return text;
}

std::string fileField(const FileStamp& stamp) {
    return field(stirred(stirred(stamp.device) + stamp.inode));
}

std::string stateField(const FileStamp& stamp) {
    std::uint64_t all = stirred(stirred(stamp.device) + stamp.inode) + stamp.size;
    for (const auto part : {stamp.seconds, stamp.nanoseconds})
        all = stirred(all) + static_cast<std::uint64_t>(part);
    return field(stirred(all));
}

// The fields of a temporary name; empty for any other.
std::vector<std::string> fieldsOf(const fs::path& path) {
    const auto& native = path.native();
    if (std::any_of(native.begin(), native.end(), [](auto c) { return c < 0 || c > 127; })) return {};
    std::string name(native.begin(), native.end());
    if (name.size() < beginning.size() + ending.size() || !name.starts_with(beginning) ||
        !name.ends_with(ending))
        return {};
    name = name.substr(beginning.size(), name.size() - beginning.size() - ending.size());
    const auto size = field(0).size();
    std::vector<std::string> fields;
    for (std::size_t at = 0; at < name.size(); at += size) {
        fields.push_back(name.substr(at, size));
        const auto& last = fields.back();
        if (last.size() != size || last[0] != '-' ||
            last.find_first_not_of("0123456789abcdef", 1) != last.npos)
            return {};
    }
    return fields;
}

// Once a process: a run over thousands of modules looks through their folder at the first.
void sweepOnce(const fs::path& folder) {
    static std::mutex mutex;
    static std::set<fs::path> swept;
    {
        const std::lock_guard lock(mutex);
        if (!swept.insert(folder).second) return;
    }
    std::vector<fs::path> names, left;
    try {
        names = namesIn(folder);
    } catch (const FileError&) { // the making of the file tells what is wrong with it
    }
    for (const auto& name : names) {
        if (isJournalName(name)) return; // whoever completes that batch needs its files
        if (!fieldsOf(name).empty()) left.push_back(folder / name);
    }
    for (const auto& path : left) sweep(path);
}

} // namespace

bool isTemporaryName(const fs::path& name, const FileStamp& stamp) {
    const auto fields = fieldsOf(name);
    if (fields.size() == 3) return fields[1] == fileField(stamp) || fields[2] == stateField(stamp);
    return fields.size() == 1;
}

TemporaryFile::TemporaryFile(const fs::path& folder, unsigned mode, const fs::path& target) {
    sweepOnce(folder);
    constexpr int attempts = 100;
    for (int i = 0; i < attempts; ++i) {
        path_ = folder / (std::string(beginning) + field(nextNumber()) + std::string(ending));
        slot_ = liveFiles::enter(path_);
        FileDescriptor file = openTemporary(path_, mode);
        const int error = errno;
        if (file.isOpen()) {
            file_.emplace(std::move(file));
            // The process ends at any moment now, and has perhaps looked for this file too early.
            if (liveFiles::areGoing()) {
                std::error_code ignored;
                fs::remove(path_, ignored);
                std::this_thread::sleep_for(std::chrono::hours(1));
            }
            return;
        }
        liveFiles::leave(slot_);
        if (error != EEXIST) {
            errno = error;
            throw fileErrorOfErrno(target);
        }
    }
    throw FileError(ErrorNumber::FileAlreadyExists);
}

TemporaryFile::~TemporaryFile() {
    if (path_.empty()) return;
    file_->close();
    std::error_code ignored;
    fs::remove(path_, ignored);
    liveFiles::leave(slot_);
}

fs::path TemporaryFile::exchangeName(const FileStamp& old, const fs::path& path) const {
    FileStamp own;
    if (!stampOf(number(), own)) throw fileErrorOfErrno(path);
    auto name = path_.filename().string();
    name.insert(name.size() - ending.size(), fileField(own) + stateField(old));
    return path_.parent_path() / name;
}

void TemporaryFile::prepareExchange(const FileStamp& old, const fs::path& path) {
    auto renamed = exchangeName(old, path);
    std::error_code error;
    fs::rename(path_, renamed, error);
    if (error) throw fileErrorOf(error, path);
    path_ = std::move(renamed);
    hasFirstName_ = false;
    // What bears the name soon may be somebody else's.
    surviveSignals();
}

void TemporaryFile::surviveSignals() {
    liveFiles::leave(slot_);
    slot_ = -1;
}

void TemporaryFile::letGo() {
    surviveSignals();
    path_.clear();
}

} // namespace corvelle::base
