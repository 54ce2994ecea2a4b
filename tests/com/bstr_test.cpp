#include "base/error_of.h"
#include "com/bstr.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace corvelle::com {
namespace {

using test::errorOf;

TEST(Bstr, TakesEveryByteThereAndBack) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    const Bstr text{std::string_view(bytes)};
    EXPECT_EQ(SysStringLen(text.get()), 256U);
    EXPECT_EQ(textOf(text.get()), bytes);
}

TEST(Bstr, HasTheCharactersOfTheCodePage) {
    ASSERT_EQ(GetACP(), 1252U);
    const Bstr text{std::string_view("\x80 \xE4")};
    EXPECT_EQ(std::wstring(text.get()), L"\u20AC \u00E4");
}

TEST(Bstr, KeepsEmbeddedNuls) {
    const std::string bytes("a\0b\xE4\0", 5);
    EXPECT_EQ(textOf(Bstr(std::string_view(bytes)).get()), bytes);
}

TEST(Bstr, IsEmptyForANullPointerAndForNoCharacters) {
    EXPECT_EQ(textOf(static_cast<BSTR>(nullptr)), "");
    EXPECT_EQ(textOf(Bstr(std::string_view()).get()), "");
    EXPECT_NE(Bstr(std::string_view()).get(), nullptr);
}

TEST(Bstr, RefusesACharacterThatTheCodePageDoesNotHave) {
    // A Greek letter, one that resembles A, a curly quote's look-alike, half a surrogate pair, a whole one.
    for (const wchar_t* text : {L"\u03A9", L"\u0410", L"\uFF02", L"a\xD800", L"\U0001F600", L"\u0100"})
        EXPECT_EQ(errorOf([&] { textOf(std::wstring_view(text)); }).number, 13) << static_cast<int>(text[0]);
    EXPECT_EQ(textOf(std::wstring_view(L"?")), "?");
}

TEST(Bstr, ShowsAMessageWhateverItsCharacters) {
    EXPECT_EQ(messageOf(L"caf\u00E9"), "caf\xE9");
    EXPECT_EQ(messageOf(L"\u4E2D"), "?");
    EXPECT_EQ(messageOf({}), "");
}

} // namespace
} // namespace corvelle::com
