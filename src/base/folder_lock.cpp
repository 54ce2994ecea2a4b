#include "base/folder_lock.h"

#include "base/file_error.h"
#include "base/paths.h"

#include <algorithm>
#include <system_error>
#include <thread>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

fs::path folderOf(const fs::path& file) {
    std::error_code error;
    auto real = fs::weakly_canonical(fs::absolute(file, error), error);
    return (error ? file : real).parent_path();
}

} // namespace

FolderLock::FolderLock(const std::vector<fs::path>& files, std::chrono::milliseconds longest) {
    for (const auto& file : files) {
        auto folder = folderOf(file);
        const bool isKnown = std::any_of(folders_.begin(), folders_.end(), [&](const HeldFolder& other) {
            return isSamePath(folder, other.folder());
        });
        if (!isKnown) folders_.emplace_back(std::move(folder));
    }

    constexpr std::chrono::milliseconds longestPause{50};
    const auto end = std::chrono::steady_clock::now() + longest;
    std::chrono::milliseconds pause{1};
    while (const auto* taken = takeAll()) {
        if (std::chrono::steady_clock::now() >= end)
            throw FileError(static_cast<std::int32_t>(ErrorNumber::PermissionDenied),
                            "another run of corvelle is at work in " + textOf(*taken));
        std::this_thread::sleep_for(pause);
        pause = std::min(2 * pause, longestPause);
    }
}

// All or none: who waits holds nothing that another one may wait for.
const fs::path* FolderLock::takeAll() {
    for (auto& wanted : folders_) {
        if (wanted.take() != HeldFolder::Answer::Taken) continue;
        for (auto& held : folders_) held.letGo();
        return &wanted.folder();
    }
    return nullptr;
}

} // namespace corvelle::base
