#include "indexer/files.h"

#include "base/file.h"
#include "base/ignoring_errors.h"
#include "base/path_text.h"

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

std::string fileOfLines(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const auto& line : lines) bytes.append(line).append("\r\n");
    return bytes;
}

bool WriteLines(std::string_view path, const std::vector<std::string>& lines) {
    return base::ignoringErrors([&] {
        base::replaceFile(base::pathOf(path), [&](base::FileWriter& file) { file.write(fileOfLines(lines)); },
                          {.breakLinks = true});
    });
}

std::string getShortPath(std::string_view path, const ShortPathCall& getShortPathName) {
    std::array<char, 128> buffer{};
    getShortPathName(std::string(path).c_str(), buffer.data(), static_cast<std::uint32_t>(buffer.size()));
    return {buffer.begin(), std::find(buffer.begin(), buffer.end(), '\0')};
}

void ArrowKeysOnly(std::int16_t& keyCode) {
    constexpr std::int16_t left = 37, down = 40;
    if (keyCode < left || keyCode > down) keyCode = 0;
}

} // namespace corvelle::indexer
