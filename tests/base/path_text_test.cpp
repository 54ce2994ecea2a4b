#include "base/file_error.h"
#include "base/paths.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#endif

namespace corvelle::base {
namespace {

TEST(PathText, KeepsBytesOfAnyCodePage) {
#ifdef _WIN32
    if (GetACP() != 1252) GTEST_SKIP() << "not every code page knows every byte";
#endif
    std::string bytes;
    for (int c = 1; c < 256; ++c) bytes += static_cast<char>(c);
    EXPECT_EQ(textOf(pathOf(bytes)), bytes);
    EXPECT_EQ(textOf(pathOf("")), "");
}

TEST(PathText, JoinsWithOtherPaths) {
    EXPECT_EQ(std::filesystem::path("folder") / pathOf("a/b.bas"), std::filesystem::path("folder/a/b.bas"));
}

#ifdef _WIN32
TEST(PathText, RefusesANameThatTheCodePageCannotHold) {
    EXPECT_THROW(textOf(std::filesystem::path(L"\x4E2D.bas")), FileError);
    EXPECT_THROW(textOf(std::filesystem::path(L"\x0100.bas")), FileError); // the system would offer an A
}

TEST(PathText, IsInTheMachinesCodePageWhateverTheLocale) {
    if (GetACP() != 1252) GTEST_SKIP() << "the code page is another one";
    EXPECT_EQ(pathOf("\x80\xE4").native(), L"\x20AC\xE4");
    EXPECT_EQ(textOf(std::filesystem::path(L"\x20AC\xE4")), "\x80\xE4");
}
#endif

} // namespace
} // namespace corvelle::base
