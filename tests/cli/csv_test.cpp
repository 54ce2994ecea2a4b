#include "cli/csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

using testing::ElementsAre;

std::vector<std::vector<std::string>> cellsOf(std::string_view bytes) {
    std::vector<std::vector<std::string>> result;
    const auto csv = readCsv(bytes);
    EXPECT_EQ(csv.faultyLine, 0U);
    for (const auto& row : csv.rows) result.push_back(row.cells);
    return result;
}

TEST(Csv, ReadsWhatItWrites) {
    const std::vector<std::vector<std::string>> rows{{"a", "b,c", "d\"e", "f\ng", "", " h ", "i;j"},
                                                     {"\"", "\"\"", "\r\n", ",", "=1+1"}};
    std::string table(utf8Mark);
    for (const auto& row : rows) appendRow(table, row);
    EXPECT_EQ(cellsOf(table), rows);
}

TEST(Csv, ShieldsWhatASpreadsheetWouldReckon) {
    for (const auto* text : {"=1+1", "- or print it", "+", "@x", "'=1", "''-"}) {
        EXPECT_EQ(shielded(text), "'" + std::string(text));
        EXPECT_EQ(unshielded(shielded(text)), text);
    }
    for (const auto* text : {"", "'", "'tis", "a=1", " =1"}) {
        EXPECT_EQ(shielded(text), text);
        EXPECT_EQ(unshielded(text), text);
    }
    EXPECT_EQ(unshielded("=1"), "=1");
}

TEST(Csv, ReadsWhatSpreadsheetsWrite) {
    EXPECT_THAT(cellsOf("a,b\n\"1\n2\",x\n\n,,\nlast"),
                ElementsAre(ElementsAre("a", "b"), ElementsAre("1\n2", "x"), ElementsAre("last")));
    EXPECT_THAT(cellsOf("a;b\r\n1,5;\"x;y\"\r\n"),
                ElementsAre(ElementsAre("a", "b"), ElementsAre("1,5", "x;y")));
    EXPECT_THAT(cellsOf("a\tb\r\n1\t2"), ElementsAre(ElementsAre("a", "b"), ElementsAre("1", "2")));
    EXPECT_THAT(cellsOf(""), ElementsAre());
    EXPECT_THAT(cellsOf("a,"), ElementsAre(ElementsAre("a", "")));
}

TEST(Csv, TellsTheLineOfARow) {
    const auto csv = readCsv("a,b\r\n\"1\r\n2\",x\r\nlast,y\r\n");
    ASSERT_EQ(csv.rows.size(), 3U);
    EXPECT_EQ(csv.rows[1].line, 2U);
    EXPECT_EQ(csv.rows[2].line, 4U);
}

TEST(Csv, TellsWhereQuotesAreWrong) {
    EXPECT_EQ(readCsv("a\n\"b").faultyLine, 2U);
    EXPECT_EQ(readCsv("a\nb\n\"c\"d\n").faultyLine, 3U);
}

TEST(Csv, TurnsEveryByteIntoUtf8AndBack) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(fromUtf8(toUtf8(text)), text) << byte;
    }
    EXPECT_EQ(toUtf8("\x80\xE4"), "\xE2\x82\xAC\xC3\xA4");
    for (const auto* wrong :
         {"\xE4", "\xC3", "\xC3(", "\xD0\x96", "\xF0\x9F\x98\x80", "\xC0\x80", "\xE2\x82"})
        EXPECT_FALSE(fromUtf8(wrong)) << wrong;
}

} // namespace
} // namespace corvelle::cli
