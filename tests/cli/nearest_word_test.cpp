#include "cli/nearest_word.h"

#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

std::string nearest(std::string_view typed) {
    return nearestWord(typed, {"format", "index", "text"});
}

TEST(NearestWord, HasTheFewestLettersToMend) {
    EXPECT_EQ(nearest("fromat"), "format"); // exchanged
    EXPECT_EQ(nearest("formatt"), "format");
    EXPECT_EQ(nearest("forat"), "format");
    EXPECT_EQ(nearest("indes"), "index");
    EXPECT_EQ(nearest("test"), "text");
    EXPECT_EQ(nearest("format"), "format");
}

TEST(NearestWord, IsNoneWhereTooLittleIsAlike) {
    EXPECT_EQ(nearest(""), "");
    EXPECT_EQ(nearest("help"), "");
    EXPECT_EQ(nearest(std::string(1'000'000, 'f')), "");
}

} // namespace
} // namespace corvelle::cli
