#include "indexer/text_lines.h"

#include "base/file.h"
#include "base/paths.h"
#include "base/run_time_error.h"

namespace corvelle::indexer {

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

std::string withSpacePairsJoined(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        result += text[i];
        if (text.substr(i, 2) == "  ") ++i;
    }
    return result;
}

} // namespace corvelle::indexer
