#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvelle::workspace {

/// Why a path that a project or a group names is not even looked at, told from its text alone, since a look
/// may log on to a computer or wake a device: "a path on the network", "a device's path". Empty for any other
/// path, and for one on the share or the device that `folder`, where the project stands, is on itself.
std::string_view whyNotLookedAt(std::string_view written, const std::filesystem::path& folder);

/// A path as a project writes it, with backslashes, in the form the system takes, from the project's folder
/// on. Where it is absolute the folder is left out. The file need not exist.
std::filesystem::path pathInProject(const std::filesystem::path& folder, std::string_view written);

/// Finds the files that the paths in projects stand for. On a case-sensitive disk the exact name is taken
/// first, else the only one that matches without regard to the case of the ASCII letters. Folders are listed
/// once in the resolver's life.
class PathResolver {
  public:
    /// The path of the file; none when nothing matches, when several do, or for a path of another system
    /// (a drive or a network share).
    std::optional<std::filesystem::path> resolve(const std::filesystem::path& folder,
                                                 std::string_view written);

  private:
    /// Names by their upper-case form.
    using Listing = std::unordered_map<std::string, std::vector<std::string>>;

    std::optional<std::filesystem::path> findIn(const std::filesystem::path& folder, const std::string& name);
    const Listing& listingOf(const std::filesystem::path& folder);

    std::unordered_map<std::string, Listing> listings_;
};

} // namespace corvelle::workspace
