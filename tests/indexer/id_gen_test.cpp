#include "indexer/id_gen.h"

#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

TEST(IDGen, BeginsWithTheDefaultTopicsName) {
    ResetIDGen();
    EXPECT_EQ(getNewIDH(), "IDH_AAAA");
    EXPECT_EQ(getNewIDH(), "IDH_AAAB");
}

TEST(IDGen, ChangesTheLastLetterFastest) {
    ResetIDGen();
    for (int i = 0; i < 25; ++i) getNewIDH();
    EXPECT_EQ(getNewIDH(), "IDH_AAAZ");
    EXPECT_EQ(getNewIDH(), "IDH_AABA");
}

TEST(IDGen, GivesCpAfterSixtyEightCalls) {
    ResetIDGen();
    std::string last;
    for (int i = 0; i < 68; ++i) last = getNewIDH();
    EXPECT_EQ(last, "IDH_AACP");
}

TEST(IDGen, BeginsAnewAfterAReset) {
    getNewIDH();
    ResetIDGen();
    EXPECT_EQ(getNewIDH(), "IDH_AAAA");
}

TEST(IDGen, EndsAfterTheLastNameUntilTheNextReset) {
    constexpr int names = 26 * 26 * 26 * 26;
    ResetIDGen();
    std::string last, name;
    for (int i = 0; i < names; ++i) {
        name = getNewIDH();
        ASSERT_GT(name, last) << i; // each name once
        ASSERT_EQ(name.size(), 8U);
        last = name;
    }
    EXPECT_EQ(last, "IDH_ZZZZ");
    EXPECT_EQ(getNewIDH(), "");
    EXPECT_EQ(getNewIDH(), "");
    ResetIDGen();
    EXPECT_EQ(getNewIDH(), "IDH_AAAA");
}

TEST(IDGen, CarriesThroughAllLetters) {
    ResetIDGen();
    std::string name;
    for (int i = 0; i <= 26 * 26 * 26; ++i) name = getNewIDH();
    EXPECT_EQ(name, "IDH_BAAA");
}

TEST(IDGen, SaysThatItIsExhausted) {
    const auto message = idGenExhausted();
    EXPECT_EQ(message.text, "You need to reset the IDGen");
    EXPECT_EQ(message.flags, 48);
}

} // namespace
} // namespace corvelle::indexer
