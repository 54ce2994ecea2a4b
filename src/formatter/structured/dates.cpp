#include "formatter/structured/dates.h"

#include "formatter/structured/words.h"

#include <array>

namespace corvelle::formatter::structured {
namespace {

constexpr std::array<std::string_view, 26> wordsInDates{
    "am",   "pm",   "jan",    "feb",       "mar",     "apr",      "may",      "jun",   "jul",
    "aug",  "sep",  "oct",    "nov",       "dec",     "january",  "february", "march", "april",
    "june", "july", "august", "september", "october", "november", "december", "sept",
};

bool isWordInDate(std::string_view word) {
    for (const std::string_view known : wordsInDates) {
        if (known.size() != word.size()) continue;
        std::size_t same = 0;
        while (same < word.size() && (word[same] | 0x20) == known[same]) ++same;
        if (same == word.size()) return true;
    }
    return false;
}

bool isDateSeparator(char c) {
    return isBlank(c) || c == '/' || c == '-' || c == ':' || c == ',' || c == '.';
}

// Longer than any date that a person writes; it keeps a line full of `#` linear.
constexpr std::size_t longestDate = 64;

} // namespace

std::size_t pastDate(std::string_view line, std::size_t at) {
    bool digits = false;
    for (std::size_t i = at + 1; i < line.size() && i - at < longestDate;) {
        const char c = line[i];
        if (c == '#') return digits ? i + 1 : at;
        if (isDigit(c)) {
            digits = true;
            ++i;
        } else if (isDateSeparator(c)) {
            ++i;
        } else {
            std::size_t end = i;
            while (end < line.size() && isLetter(line[end]) && !isDigit(line[end])) ++end;
            if (end == i || !isWordInDate(line.substr(i, end - i))) return at;
            i = end;
        }
    }
    return at;
}

} // namespace corvelle::formatter::structured
