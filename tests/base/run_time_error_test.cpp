#include "base/run_time_error.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

namespace corvelle::base {
namespace {

TEST(RunTimeError, CarriesTheDescriptionOfItsNumber) {
    const RunTimeError error(ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(error.number(), 9);
    EXPECT_EQ(error.description(), "Subscript out of range");
    EXPECT_STREQ(error.what(), "Subscript out of range");
}

TEST(RunTimeError, CarriesAnotherDescriptionAsGiven) {
    const RunTimeError error(-2147467259, "Automation error");
    EXPECT_EQ(error.number(), -2147467259);
    EXPECT_EQ(error.description(), "Automation error");
}

TEST(RunTimeError, DescribesEveryNumberLetterForLetter) {
    EXPECT_EQ(describeError(5), "Invalid procedure call or argument");
    EXPECT_EQ(describeError(6), "Overflow");
    EXPECT_EQ(describeError(7), "Out of memory");
    EXPECT_EQ(describeError(9), "Subscript out of range");
    EXPECT_EQ(describeError(13), "Type mismatch");
    EXPECT_EQ(describeError(52), "Bad file name or number");
    EXPECT_EQ(describeError(53), "File not found");
    EXPECT_EQ(describeError(55), "File already open");
    EXPECT_EQ(describeError(57), "Device I/O error");
    EXPECT_EQ(describeError(58), "File already exists");
    EXPECT_EQ(describeError(61), "Disk full");
    EXPECT_EQ(describeError(62), "Input past end of file");
    EXPECT_EQ(describeError(70), "Permission denied");
    EXPECT_EQ(describeError(71), "Disk not ready");
    EXPECT_EQ(describeError(75), "Path/File access error");
    EXPECT_EQ(describeError(76), "Path not found");
    EXPECT_EQ(describeError(91), "Object variable or With block variable not set");
    EXPECT_EQ(describeError(380), "Invalid property value");
    EXPECT_EQ(describeError(424), "Object required");
    EXPECT_EQ(describeError(429), "ActiveX component can't create object");
    EXPECT_EQ(describeError(438), "Object doesn't support this property or method");
    EXPECT_EQ(describeError(32755), "Cancel was selected.");
    EXPECT_EQ(describeError(1), "Application-defined or object-defined error");
}

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
