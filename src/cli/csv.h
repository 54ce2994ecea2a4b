#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Tables for spreadsheets: UTF-8 with its mark, cells as RFC 4180 has them.
namespace corvelle::cli {

struct CsvRow {
    std::uint32_t line = 0; ///< where it begins, from 1
    std::vector<std::string> cells;
};

struct Csv {
    std::vector<CsvRow> rows;
    std::uint32_t faultyLine =
        0; ///< where a cell in quotes never ends, or goes on behind its quotes; 0: nowhere
};

/// Reads a table; rows without any text are left out. Commas divide its cells, or whatever of semicolon and
/// tab the first line has instead.
Csv readCsv(std::string_view bytes);

/// A text that a spreadsheet shows as it is: one that begins like a formula ("- or print it") gets an
/// apostrophe before it, and so does one that has such an apostrophe already.
std::string shielded(std::string_view text);

/// The other way round.
std::string unshielded(std::string_view text);

/// Appends a row; a cell that needs quotes gets them.
void appendRow(std::string& table, const std::vector<std::string>& cells);

inline constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

/// The text of an index's files, which is Windows-1252, as UTF-8.
std::string toUtf8(std::string_view text);

/// The other way round; nothing for text that is no UTF-8 or has characters that Windows-1252 has not.
std::optional<std::string> fromUtf8(std::string_view text);

} // namespace corvelle::cli
