#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <utility>
#include <vector>

namespace corvelle::base {

/// A folder that this process has to itself, as far as others ask. What is held is let go at the end of the
/// object's life; the system does it for a process that is killed. Nothing of it stays on the disk.
class HeldFolder {
  public:
    enum class Answer {
        Held,
        Taken,      ///< another one holds it
        CannotLock, ///< it is not there, or its disk or the user's rights do not allow it
    };

    explicit HeldFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}
    HeldFolder(HeldFolder&& other) noexcept
        : folder_(std::move(other.folder_)), handle_(std::exchange(other.handle_, none)) {}
    HeldFolder& operator=(HeldFolder&& other) = delete;
    ~HeldFolder() { letGo(); }

    const std::filesystem::path& folder() const { return folder_; }

    /// Tries to get the folder, without waiting. Not while it is held.
    Answer take();
    void letGo();

  private:
    static constexpr std::intptr_t none = -1;

    std::filesystem::path folder_;
    std::intptr_t handle_ = none;
};

/// Keeps runs of this program apart that work on the same files. Whoever reads files and writes them changed
/// takes the lock before the first of them is read and has it until the last one is written. It is the files'
/// folders that are locked: the files themselves get replaced, and may not be there yet. So it does not
/// matter which of its files two runs share, nor by what names they call them.
///
/// A folder that cannot be locked (it is missing, this user may not look into it, its disk knows no locks) is
/// left out: what then still stops a run from writing over another one's files is the stamps it took when it
/// read them.
class FolderLock {
  public:
    static constexpr std::chrono::seconds usualWait{30};

    /// Waits until no other run has any of the folders, but no longer than that: then throws FileError (70)
    /// with words that name the folder. A symbolic link stands for the file that it points to. One object
    /// takes all that a run needs at once; a second one in the same run would wait for the first.
    explicit FolderLock(const std::vector<std::filesystem::path>& files,
                        std::chrono::milliseconds longest = usualWait);

  private:
    /// The folder that another one has; nullptr once all are held.
    const std::filesystem::path* takeAll();

    std::vector<HeldFolder> folders_;
};

} // namespace corvelle::base
