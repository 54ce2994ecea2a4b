#include "cli/nearest_word.h"

#include <algorithm>
#include <cstddef>

namespace corvelle::cli {

namespace {

std::size_t distance(std::string_view a, std::string_view b) {
    // Of the beginnings of a to the beginnings of b, row by row.
    std::vector<std::vector<std::size_t>> rows(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                rows[i][j] = i + j;
                continue;
            }
            const std::size_t changed = rows[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            rows[i][j] = std::min({changed, rows[i - 1][j] + 1, rows[i][j - 1] + 1});
            const bool exchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (exchanged) rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
        }
    }
    return rows[a.size()][b.size()];
}

} // namespace

std::string nearestWord(std::string_view typed, const std::vector<std::string>& words) {
    constexpr std::size_t longest = 64; // nobody means a command by more
    if (typed.size() > longest) return {};
    std::string nearest;
    std::size_t least = 0;
    for (const auto& word : words) {
        const std::size_t now = distance(typed, word);
        if (now * 3 > std::max(typed.size(), word.size()) || (!nearest.empty() && now >= least)) continue;
        nearest = word;
        least = now;
    }
    return nearest;
}

} // namespace corvelle::cli
