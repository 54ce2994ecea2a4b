#include "base/ignoring_errors.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace corvelle::base {
namespace {

TEST(IgnoringErrors, KeepsWhatAStatementDidBeforeItFailed) {
    int done = 0;
    EXPECT_FALSE(ignoringErrors([&] {
        done = 1;
        throw RunTimeError(ErrorNumber::Overflow);
    }));
    EXPECT_EQ(done, 1);
    EXPECT_TRUE(ignoringErrors([&] { done = 2; }));
    EXPECT_EQ(done, 2);
}

TEST(IgnoringErrors, CountsLackOfMemoryAsAnError) {
    EXPECT_FALSE(ignoringErrors([] { throw std::bad_alloc(); }));
}

TEST(IgnoringErrors, LetsMistakesOfOurOwnPass) {
    EXPECT_THROW(ignoringErrors([] { throw std::logic_error("mistake"); }), std::logic_error);
}

} // namespace
} // namespace corvelle::base
