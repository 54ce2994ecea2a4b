// Any bytes can be read as an indexer project file; what is valid is written and read again with the same
// values.

#include "base/text.h"
#include "indexer/project_info.h"
#include "vocabulary.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace indexer = corvelle::indexer;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    indexer::ProjectInfo info;
    const std::string bytes(data, data + size);
    if (!indexer::readProjectInfo(bytes, info)) return 0;
    bool whole = true;
    for (std::size_t i = 0; i <= indexer::slot::text; ++i)
        whole = whole && !corvelle::base::trimSpaces(info[i]).empty();
    for (const auto& value : info) whole = whole && value.find('\r') == std::string::npos;
    if (!whole) return 0; // too short to be written in full
    std::string written;
    for (const auto& line : indexer::projectFileLines("now", info)) written += line + "\r\n";
    indexer::ProjectInfo again;
    if (!indexer::readProjectInfo(written, again)) std::abort();
    for (std::size_t i = 0; i <= indexer::slot::text; ++i) {
        if (again[i] != info[i]) std::abort();
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return mutateLines(data, size, maxSize, seed, vocabulary::index);
}
