#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::test {

/// A new folder, removed with all that is in it at the end of its life.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("corvelle-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

    /// Writes a file, making the folders on the way; gives its path.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view bytes) const {
        auto path = path_ / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path;
    }

    std::string read(const std::filesystem::path& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    /// The names in the folder, hidden ones too.
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            result.push_back(entry.path().filename().string());
        return result;
    }

  private:
    std::filesystem::path path_;
};

} // namespace corvelle::test
