#include "cli/turnstile.h"

#include <atomic>
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

TEST(Slots, LetNoMoreWorkersInThanThereAre) {
    Slots slots(3);
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    std::atomic<int> done = 0;
    std::vector<std::thread> workers;
    constexpr int count = 20;
    workers.reserve(count);
    for (int i = 0; i < count; ++i) {
        workers.emplace_back([&] {
            slots.use([&] {
                const int now = ++inside;
                int seen = most;
                while (now > seen && !most.compare_exchange_weak(seen, now)) {
                }
                std::this_thread::yield();
                --inside;
                ++done;
            });
        });
    }
    for (std::thread& worker : workers) worker.join();
    EXPECT_EQ(done, count);
    EXPECT_LE(most, 3);
}

TEST(Slots, AreGivenBackAfterAnException) {
    Slots slots(1);
    EXPECT_THROW(slots.use([] { throw std::runtime_error("no"); }), std::runtime_error);
    bool used = false;
    slots.use([&] { used = true; });
    EXPECT_TRUE(used);
}

} // namespace
} // namespace corvelle::cli
