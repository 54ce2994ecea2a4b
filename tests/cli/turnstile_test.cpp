#include "cli/turnstile.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace corvelle::cli {
namespace {

TEST(Turnstile, LetsWorkersThroughInTheirOrder) {
    constexpr std::size_t count = 50;
    Turnstile turnstile;
    std::vector<std::size_t> passed; // no lock: one worker at a time is the promise
    std::vector<std::thread> workers;
    for (std::size_t i = count; i-- > 0;) {
        workers.emplace_back([&, i] { turnstile.pass(i, [&] { passed.push_back(i); }); });
    }
    for (std::thread& worker : workers) worker.join();
    ASSERT_EQ(passed.size(), count);
    for (std::size_t i = 0; i < count; ++i) EXPECT_EQ(passed[i], i);
}

TEST(Turnstile, GivesTheTurnOnAfterAnException) {
    Turnstile turnstile;
    EXPECT_THROW(turnstile.pass(0, [] { throw std::runtime_error("no"); }), std::runtime_error);
    bool passed = false;
    turnstile.pass(1, [&] { passed = true; });
    EXPECT_TRUE(passed);
}

} // namespace
} // namespace corvelle::cli
