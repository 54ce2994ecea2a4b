// Any bytes can be read as a configuration file; what comes out is what a plain second reading finds.

#include "base/text.h"
#include "indexer/index_files.h"
#include "line_feeds.h"
#include "require.h"
#include "vocabulary.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace base = corvelle::base;
namespace indexer = corvelle::indexer;

namespace {

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const auto read = indexer::readMappings(bytes);
    std::size_t designers = 0, entries = 0, rows = 0;
    for (const auto& line : split(withLineFeeds(bytes), '\n')) {
        const std::string trimmed(base::trimSpaces(line));
        const auto upper = base::upper(trimmed);
        if (upper.substr(0, 3) == "<P>") {
            ++designers;
            const auto end = upper.rfind("</P>");
            const auto name = end == std::string::npos ? "" : trimmed.substr(3, end - 3);
            require(read.index.designers.at(designers - 1) == name, "a designer's name");
            if (end != std::string::npos) require(read.rows.at(rows++) == name, "a row");
        } else if (upper.substr(0, 3) == "<C>") {
            const auto& entry = read.index.entries.at(++entries);
            const auto end = upper.rfind("</C>");
            const bool ended = end != std::string::npos;
            auto parts = split(ended ? trimmed.substr(3, end - 3) : "", ' ');
            parts.resize(std::max<std::size_t>(parts.size(), 3));
            require(entry.CtlName == parts[0] && entry.CtlClass == parts[1] && entry.IDHName == parts[2],
                    "an entry");
            require(entry.DsrIndex == (ended ? static_cast<std::int32_t>(designers) : 0),
                    "an entry's designer");
        }
    }
    require(read.index.designers.size() == designers && read.index.count() == entries &&
                read.rows.size() == rows,
            "nothing is added");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return mutateLines(data, size, maxSize, seed, vocabulary::index);
}
