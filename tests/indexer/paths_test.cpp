#include "base/temporary_folder.h"
#include "indexer/paths.h"

#include <cstring>
#include <gtest/gtest.h>

#ifdef _WIN32
#include "base/win32/paths.h"
#endif

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;

TEST(FileExists, IsTrueWhereALengthCanBeTaken) {
    const TemporaryFolder folder;
    EXPECT_TRUE(fileExists(folder.write("a", "").string()));
    EXPECT_FALSE(fileExists((folder.path() / "none").string()));
    EXPECT_FALSE(fileExists(folder.path().string()));
    EXPECT_FALSE(fileExists(""));
}

TEST(GetFilePath, EndsAtTheLastBackslash) {
    EXPECT_EQ(getFilePath("C:\\a\\b.vbp"), "C:\\a\\");
    EXPECT_EQ(getFilePath("C:\\a\\"), "C:\\a\\");
    EXPECT_EQ(getFilePath("b.vbp"), "");
    EXPECT_EQ(getFilePath("a/b.vbp"), "");
    EXPECT_EQ(getFilePath(""), "");
}

#ifdef _WIN32

TEST(GetShortPath, NamesAFileAsTheSystemDoes) {
    const TemporaryFolder folder;
    const auto path = folder.write("a name that is long.text", "x").string();
    const std::filesystem::path found = getShortPath(path, base::shortPathName);
    EXPECT_EQ(std::filesystem::file_size(found), 1U);
    EXPECT_LE(found.filename().string().size(), 12U) << found;
    EXPECT_EQ(getShortPath(path + "none", base::shortPathName), "");
}

#endif

TEST(GetShortPath, GivesTheTextUpToTheFirstNul) {
    const auto call = [](const char* path, char* buffer, std::uint32_t size) {
        EXPECT_STREQ(path, "C:\\Program Files\\a");
        EXPECT_EQ(size, 128U);
        std::memcpy(buffer, "C:\\PROGRA~1\\a\0rest", 19);
    };
    EXPECT_EQ(getShortPath("C:\\Program Files\\a", call), "C:\\PROGRA~1\\a");
}

TEST(GetShortPath, IsEmptyWhenTheCallGivesNothingAndFullWithoutANul) {
    EXPECT_EQ(getShortPath("x", [](const char*, char*, std::uint32_t) {}), "");
    const auto fill = [](const char*, char* buffer, std::uint32_t size) { std::memset(buffer, 'x', size); };
    EXPECT_EQ(getShortPath("x", fill), std::string(128, 'x'));
}

} // namespace
} // namespace corvelle::indexer
