#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

namespace corvelle::base {

/// The system's calls that put one file in the place of another, as Windows has them. Each gives 0, or the
/// system's number of the error.
class ReplacingCalls {
  public:
    virtual ~ReplacingCalls() = default;

    /// Puts `fresh` in the target's place with the target's access list, attributes and streams; the old file
    /// gets the backup's name.
    virtual std::uint32_t replace(const std::filesystem::path& target, const std::filesystem::path& fresh,
                                  const std::filesystem::path& backup) = 0;
    /// Renames a file. One that stands at the new name is replaced if that is asked for.
    virtual std::uint32_t move(const std::filesystem::path& from, const std::filesystem::path& to,
                               bool replaces) = 0;
    virtual std::uint32_t remove(const std::filesystem::path& path) = 0;
    virtual bool exists(const std::filesystem::path& path) = 0;
};

struct Replacement {
    enum class End {
        Done,
        Failed,  ///< the old file is in its place
        Changed, ///< the old file was not the expected one any more; it is back in its place
        InBackup ///< the old file, whole, is under the backup's name alone: nothing could bring it back
    };
    End end = End::Done;
    std::uint32_t error = 0; ///< the system's, where it failed
};

/// Puts `fresh` in the place of the target, which is there. Whatever fails, the target is the old file or the
/// new one at the end. `isExpected` looks at the old file under the backup's name, which is removed
/// afterwards.
Replacement replaceWithBackup(ReplacingCalls& calls, const std::filesystem::path& target,
                              const std::filesystem::path& fresh, const std::filesystem::path& backup,
                              const std::function<bool(const std::filesystem::path&)>& isExpected);

} // namespace corvelle::base
