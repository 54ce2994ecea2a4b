#include "base/temporary_folder.h"
#include "indexer/confirm_update.h"
#include "indexer/files.h"

#include <cstring>
#include <gtest/gtest.h>

#ifdef _WIN32
#include "base/win32/short_path_name.h"

#include <windows.h>
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

TEST(ArrowKeysOnly, ClearsOtherKeys) {
    for (std::int16_t key = 0; key < 256; ++key) {
        auto changed = key;
        ArrowKeysOnly(changed);
        EXPECT_EQ(changed, key >= 37 && key <= 40 ? key : 0);
    }
}

TEST(ConfirmUpdate, AsksWithThePathsInOrder) {
    Message shown;
    const auto answer = [&](int given) {
        return [&shown, given](const Message& message) {
            shown = message;
            return given;
        };
    };
    EXPECT_TRUE(ConfirmUpdate("These files:", {"a.h", "", "b.txt"}, answer(6)));
    EXPECT_EQ(shown.text, "These files:\ra.h\r\rb.txt\rDo you wish to continue ?");
    EXPECT_EQ(shown.flags, 36);
    EXPECT_EQ(shown.title, "Update files..?");
    EXPECT_FALSE(ConfirmUpdate("x", {}, answer(7)));
    EXPECT_EQ(shown.text, "x\rDo you wish to continue ?");
}

} // namespace
} // namespace corvelle::indexer
