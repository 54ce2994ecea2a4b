#include "base/byte_search.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace corvelle::base {
namespace {

using Marks = AnyOf<'"', '\'', '['>;

// Asks both ways at every place of a text that ends where its memory does, so that a byte read behind it
// would be noticed.
template <class Kind>
void compareBothWays(const std::string& bytes) {
    const std::vector<char> exact(bytes.begin(), bytes.end());
    const std::string_view text(exact.data(), exact.size());
    for (std::size_t at = 0; at <= text.size(); ++at) {
        ASSERT_EQ(findKind<Kind>(text, at), findPlainly<Kind>(text, at)) << at << " in " << bytes;
        ASSERT_EQ(skipKind<Kind>(text, at), (findPlainly<Kind, false>(text, at))) << at << " in " << bytes;
    }
}

TEST(ByteSearch, findsEveryByteValueAsThePlainWayDoes) {
    for (int c = 0; c < 256; ++c) {
        const std::string text = std::string(17, ' ') + static_cast<char>(c) + std::string(17, ' ');
        const bool isName = isNameCharacter(static_cast<char>(c));
        EXPECT_EQ(findKind<NameBytes>(text, 0), isName ? 17U : text.size()) << c;
        compareBothWays<NameBytes>(text);
        compareBothWays<Marks>(text);
    }
}

TEST(ByteSearch, findsAsThePlainWayDoesInTextsOfEveryLength) {
    std::mt19937 random(7);
    constexpr std::string_view bytes = "aZ_9 \t\"'[]:#=.@`{/;\x7F\x80\xFF";
    for (std::size_t length = 0; length < 70; ++length) {
        for (int round = 0; round < 20; ++round) {
            // Long runs of one kind, now and then a byte of another.
            std::string text(length, bytes[random() % bytes.size()]);
            for (unsigned i = random() % 4; i > 0 && length > 0; --i)
                text[random() % length] = bytes[random() % bytes.size()];
            compareBothWays<NameBytes>(text);
            compareBothWays<AnyOf<' ', '\t'>>(text);
            compareBothWays<Marks>(text);
        }
    }
}

TEST(ByteSearch, findsNothingInNothing) {
    EXPECT_EQ(findKind<Marks>({}, 0), 0U);
    EXPECT_EQ(skipKind<Marks>({}, 0), 0U);
}

} // namespace
} // namespace corvelle::base
