#include "cli/csv.h"

#include <algorithm>
#include <array>

namespace corvelle::cli {

namespace {

// What Windows-1252 has in the places 128 to 159; the five that it leaves empty stand for themselves.
constexpr std::array<char16_t, 32> upperPlaces{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char16_t characterOf(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? upperPlaces[byte - 0x80] : byte;
}

std::optional<char> byteOf(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    const auto* const found = std::find(upperPlaces.begin(), upperPlaces.end(), character);
    if (found == upperPlaces.end()) return std::nullopt;
    return static_cast<char>(0x80 + (found - upperPlaces.begin()));
}

// The sign that divides the cells of the first line.
char dividerOf(std::string_view bytes) {
    bool isQuoted = false;
    char divider = ',';
    for (const char c : bytes) {
        if (c == '"') isQuoted = !isQuoted;
        if (isQuoted) continue;
        if (c == '\n' || c == ',') break;
        if (c == ';' || c == '\t') {
            divider = c;
            break;
        }
    }
    return divider;
}

// With any number of apostrophes before it.
bool isLikeFormula(std::string_view text) {
    const auto begin = text.find_first_not_of('\'');
    return begin != std::string_view::npos &&
           std::string_view("=+-@").find(text[begin]) != std::string_view::npos;
}

class Reader {
  public:
    explicit Reader(std::string_view bytes)
        : bytes_(bytes.substr(0, utf8Mark.size()) == utf8Mark ? bytes.substr(utf8Mark.size()) : bytes),
          divider_(dividerOf(bytes_)) {}

    Csv read() {
        while (at_ < bytes_.size() && csv_.faultyLine == 0) readRow();
        return std::move(csv_);
    }

  private:
    void readRow() {
        CsvRow row;
        row.line = line_;
        for (bool goesOn = true; goesOn && csv_.faultyLine == 0;) goesOn = readCell(row.cells.emplace_back());
        if (csv_.faultyLine == 0 && std::any_of(row.cells.begin(), row.cells.end(),
                                                [](const std::string& cell) { return !cell.empty(); }))
            csv_.rows.push_back(std::move(row));
    }

    // Whether another cell of the row follows.
    bool readCell(std::string& cell) {
        if (at_ < bytes_.size() && bytes_[at_] == '"') {
            if (!readQuoted(cell)) return false;
        } else {
            while (at_ < bytes_.size() && !isEnd()) cell += bytes_[at_++];
        }
        if (at_ == bytes_.size()) return false;
        if (!isEnd()) {
            csv_.faultyLine = line_;
            return false;
        }
        if (bytes_[at_] == divider_) {
            ++at_;
            return true;
        }
        at_ += bytes_.substr(at_, 2) == "\r\n" ? 2 : 1;
        ++line_;
        return false;
    }
    bool isEnd() const { return bytes_[at_] == divider_ || bytes_[at_] == '\r' || bytes_[at_] == '\n'; }

    bool readQuoted(std::string& cell) {
        const auto begin = line_;
        for (++at_; at_ < bytes_.size(); ++at_) {
            if (bytes_[at_] == '"' && bytes_.substr(at_ + 1, 1) != "\"") {
                ++at_;
                return true;
            }
            if (bytes_[at_] == '"') ++at_;
            if (bytes_[at_] == '\n') ++line_;
            cell += bytes_[at_];
        }
        csv_.faultyLine = begin;
        return false;
    }

    std::string_view bytes_;
    char divider_;
    std::size_t at_ = 0;
    std::uint32_t line_ = 1;
    Csv csv_;
};

} // namespace

Csv readCsv(std::string_view bytes) {
    return Reader(bytes).read();
}

std::string shielded(std::string_view text) {
    return std::string(isLikeFormula(text) ? "'" : "").append(text);
}

std::string unshielded(std::string_view text) {
    const bool isShielded = !text.empty() && text.front() == '\'' && isLikeFormula(text);
    return std::string(text.substr(isShielded ? 1 : 0));
}

void appendRow(std::string& table, const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0) table += ',';
        const auto& cell = cells[i];
        const bool needsQuotes = cell.find_first_of("\",\r\n;\t") != std::string::npos ||
                                 (!cell.empty() && (cell.front() == ' ' || cell.back() == ' '));
        if (!needsQuotes) {
            table += cell;
            continue;
        }
        table += '"';
        for (const char c : cell) {
            if (c == '"') table += '"';
            table += c;
        }
        table += '"';
    }
    table += "\r\n";
}

std::string toUtf8(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto character = characterOf(static_cast<unsigned char>(c));
        if (character < 0x80) {
            result += c;
        } else if (character < 0x800) {
            result += static_cast<char>(0xC0 | (character >> 6));
            result += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            result += static_cast<char>(0xE0 | (character >> 12));
            result += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
            result += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return result;
}

std::optional<std::string> fromUtf8(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const auto first = static_cast<unsigned char>(text[i++]);
        std::size_t more = 0;
        unsigned character = first;
        if (first >= 0xC2 && first < 0xE0) {
            more = 1;
            character = first & 0x1F;
        } else if (first >= 0xE0 && first < 0xF0) {
            more = 2;
            character = first & 0x0F;
        } else if (first >= 0x80) {
            return std::nullopt; // none of the others stands in that code page
        }
        for (; more > 0; --more, ++i) {
            const auto next = i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
            if ((next & 0xC0U) != 0x80) return std::nullopt;
            character = (character << 6) | (next & 0x3F);
        }
        const auto byte = byteOf(static_cast<char16_t>(character));
        if (!byte) return std::nullopt;
        result += *byte;
    }
    return result;
}

} // namespace corvelle::cli
