// Any bytes can be read as an exclusion list: put together again the names are the first line.

#include "base/text.h"
#include "indexer/index_options.h"
#include "indexer/text_lines.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace base = corvelle::base;
namespace indexer = corvelle::indexer;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    indexer::ExcludeList list;
    const auto bound = indexer::readExcludeList(bytes, list);
    if (bytes.empty()) return list.empty() && bound == 0 ? 0 : (std::abort(), 0);
    const std::string line = bytes.substr(0, bytes.find_first_of("\r\n"));
    std::string joined;
    for (const auto& name : list) joined += " " + name;
    const auto wanted = indexer::withSpacePairsJoined(" " + std::string(base::trimSpaces(line)));
    if (joined != " " + base::upper(wanted) || !list.front().empty() || bound + 1 != list.size())
        std::abort();
    return 0;
}
