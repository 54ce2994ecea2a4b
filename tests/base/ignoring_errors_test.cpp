#include "base/ignoring_errors.h"
#include "base/run_time_error.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <new>
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

TEST(IgnoringErrors, CountsEveryFailureAsAnError) {
    EXPECT_FALSE(ignoringErrors([] { throw std::bad_alloc(); }));
    EXPECT_FALSE(ignoringErrors([] { throw std::length_error("too long"); }));
    EXPECT_FALSE(
        ignoringErrors([] { throw std::filesystem::filesystem_error("failed", std::error_code()); }));
}

} // namespace
} // namespace corvelle::base
