#pragma once

#include "faults/memory.h"
#include "faults/system_calls.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace corvelle::test {

/// Runs the action with the n-th of its calls failing, for n from 1 on, until it ends before its n-th call;
/// `check` looks at what each run has left, and is told whether a call failed in it. Stops at the first n
/// that a check fails for.
template <class MakeFault>
void failEach(const std::string& what, int least, const MakeFault& makeFault,
              const std::function<void()>& before, const std::function<void()>& action,
              const std::function<void(bool failed)>& check) {
    constexpr int most = 100000;
    int n = 0;
    for (bool failed = true; failed && n < most;) {
        SCOPED_TRACE(what + " " + std::to_string(++n));
        before();
        {
            const auto failing = makeFault(n);
            action();
            failed = failing.failed();
        }
        check(failed);
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(n, least) << what; // the way is as long as it was meant to be
    EXPECT_LT(n, most) << what;
}

/// The ways in which calls of the system fail, each for every n.
inline void failEachSystemCall(int least, const std::function<void()>& before,
                               const std::function<void()>& action,
                               const std::function<void(bool failed)>& check) {
    using Way = FailingSystem::Way;
    const auto failEachOf = [&](const char* what, int leastOfThese, Way way,
                                std::optional<SystemCall> only = std::nullopt) {
        if (testing::Test::HasFailure()) return;
        failEach(
            what, leastOfThese, [&](int n) { return FailingSystem(n, way, only); }, before, action, check);
    };
    failEachOf("call", least, Way::Once);
    failEachOf("disk full from write", 0, Way::ForGood, SystemCall::Write);
    failEachOf("no more files from open", 0, Way::ForGood, SystemCall::Open);
    failEachOf("no more names from rename", 0, Way::ForGood, SystemCall::Rename);
}

/// The ways in which calls of the system do less than was asked for, each for every n: nobody may see it.
inline void interruptEachSystemCall(int least, const std::function<void()>& before,
                                    const std::function<void()>& action,
                                    const std::function<void(bool failed)>& check) {
    using Way = FailingSystem::Way;
    for (const Way way : {Way::Interrupted, Way::Short}) {
        failEach(
            way == Way::Short ? "short transfer" : "interrupted call", way == Way::Short ? 0 : least,
            [&](int n) { return FailingSystem(n, way); }, before, action, [&](bool) { check(false); });
    }
}

inline void failEachAllocation(int least, const std::function<void()>& before,
                               const std::function<void()>& action,
                               const std::function<void(bool failed)>& check) {
    failEach(
        "allocation", least, [](int n) { return FailingMemory(n); }, before, action, check);
}

} // namespace corvelle::test
