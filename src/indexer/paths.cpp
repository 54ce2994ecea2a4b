#include "indexer/paths.h"

#include "base/paths.h"
#include "base/run_time_error.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace corvelle::indexer {

bool fileExists(std::string_view path) {
    return base::ignoringErrors(
        [&] { [[maybe_unused]] const auto length = std::filesystem::file_size(base::pathOf(path)); });
}

std::string_view getFilePath(std::string_view path) {
    return path.substr(0, path.rfind('\\') + 1); // npos + 1 is 0
}

std::string getShortPath(std::string_view path, const ShortPathCall& getShortPathName) {
    std::array<char, 128> buffer{};
    getShortPathName(std::string(path).c_str(), buffer.data(), static_cast<std::uint32_t>(buffer.size()));
    return {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')};
}

} // namespace corvelle::indexer
