#include "indexer/space_pairs.h"

namespace corvelle::indexer {

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
