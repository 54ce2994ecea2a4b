#include "cli/slots.h"

#include <atomic>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>
#include <vector>

namespace corvelle::cli {
namespace {

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
