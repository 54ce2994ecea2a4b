#include "base/temporary_folder.h"
#include "indexer/text_lines.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> result;
    TextLines lines(text);
    while (lines.next()) {
        result.emplace_back(lines.line());
        EXPECT_EQ(lines.number(), result.size());
    }
    EXPECT_FALSE(lines.next());
    return result;
}

using Lines = std::vector<std::string>;

TEST(TextLines, EndAtCrLfCrOrLf) {
    EXPECT_EQ(linesOf("a\r\nb\rc\nd\r\n"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(linesOf("a\n\rb\r\r\nc"), (Lines{"a", "", "b", "", "c"}));
    for (const auto* ends : {"\r\n", "\r", "\n"}) EXPECT_EQ(linesOf(ends), Lines{""});
    EXPECT_EQ(linesOf(""), Lines{});
}

TEST(WriteLines, EndsEachLine) {
    const TemporaryFolder folder;
    const auto path = folder.write("a", std::string(100, 'x')).string();
    EXPECT_TRUE(WriteLines(path, {"a", "", "\xE4 b"}));
    EXPECT_EQ(folder.read("a"), "a\r\n\r\n\xE4 b\r\n");
    EXPECT_TRUE(WriteLines(path, {}));
    EXPECT_EQ(folder.read("a"), "");
}

TEST(WriteLines, TellsThatAFileCannotBeWritten) {
    const TemporaryFolder folder;
    EXPECT_FALSE(WriteLines(folder.path().string(), {"a"}));
    EXPECT_FALSE(WriteLines((folder.path() / "none" / "a").string(), {"a"}));
    const auto readOnly = folder.write("ro", "x");
    std::filesystem::permissions(readOnly, std::filesystem::perms(0444));
    EXPECT_FALSE(WriteLines(readOnly.string(), {"a"}));
#ifdef __linux__
    EXPECT_FALSE(WriteLines("/dev/full", {"a"}));
#endif
}

#ifdef _WIN32

TEST(WriteLines, TakesThePathInTheMachinesCodePage) {
    if (GetACP() != 1252) GTEST_SKIP() << "the code page is another one";
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / L"\x20AC");
    EXPECT_TRUE(WriteLines(folder.path().string() + "\\\x80\\\x99.icp", {"a"}));
    EXPECT_EQ(folder.read(L"\x20AC\\\x2122.icp"), "a\r\n");
}

#endif

} // namespace
} // namespace corvelle::indexer
