// Runs that meet, and runs that are killed at any moment: each time the modules are whole.
#ifndef _WIN32

#include "cli/format_fixture.h"
#include "faults/folder_state.h"

#include <chrono>
#include <random>
#include <thread>

namespace corvelle::test {
namespace {

namespace fs = std::filesystem;

constexpr int moduleCount = 12;

std::string moduleText(int number, bool isTidy) {
    return "Attribute VB_Name = \"M" + std::to_string(number) + "\"\r\n" +
           std::string(isTidy ? tidy : untidy);
}

Files modules(bool areTidy) {
    Files files;
    for (int i = 0; i < moduleCount; ++i) files["m" + std::to_string(i) + ".bas"] = moduleText(i, areTidy);
    return files;
}

bool isTemporary(const std::string& name) {
    return name.ends_with(".tmp");
}

using TwoWriters = FormatTest;

TEST_F(TwoWriters, LeaveEachModuleFormattedAndEachBackupWhole) {
    const InMemory inMemory;
    const TemporaryFolder shared;
    Surroundings here;
    here.folder = shared.path();
    for (int round = 0; round < 10; ++round) {
        put(shared.path(), modules(false));
        const auto run = [&] {
            runCorvelle({"format", "--layout", "classic", "--quiet", "--backup-dir", "bak", "."}, here);
        };
        std::thread other(run);
        run();
        other.join();
        // One of the two may have found a module changed by the other, and said so; a third has the last
        // word.
        EXPECT_EQ(
            runCorvelle({"format", "--layout", "classic", "--check", "--quiet", ".", "--backup-dir", "bak"},
                        here)
                .out,
            "");
        Files now = filesIn(shared.path());
        for (const auto& [name, text] : modules(true)) EXPECT_EQ(now[name], text) << name;
        int backups = 0;
        for (const auto& [name, text] : now) {
            EXPECT_FALSE(isTemporary(name)) << name;
            if (name.rfind("bak/M", 0) != 0) continue;
            ++backups;
            const auto number = std::stoi(name.substr(5));
            EXPECT_EQ(text, moduleText(number, false)) << name;
        }
        EXPECT_GE(backups, moduleCount);
    }
}

using FormatRandomKill = FormatTest;

TEST_F(FormatRandomKill, LeavesEachModuleOldOrNew) {
    const InMemory inMemory;
    const TemporaryFolder shared;
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same moments each time, as far as they can be
    int killed = 0;
    for (int round = 0; round < 100; ++round) {
        put(shared.path(), modules(false));
        Surroundings here;
        here.folder = shared.path();
        here.killedAfter = std::chrono::microseconds(random() % 15000);
        const Outcome outcome = runCorvelle(
            {"format", "--layout", "classic", "--quiet", "--jobs", "4", "--backup-dir", "bak", "."}, here);
        killed += outcome.status < 0 ? 1 : 0;
        Files now = filesIn(shared.path());
        for (int i = 0; i < moduleCount; ++i) {
            const auto& text = now["m" + std::to_string(i) + ".bas"];
            EXPECT_TRUE(text == moduleText(i, false) || text == moduleText(i, true)) << text;
            if (text == moduleText(i, true)) {
                EXPECT_EQ(now["bak/M" + std::to_string(i) + "_bak.bas"], moduleText(i, false));
            }
        }
    }
    EXPECT_GT(killed, 10);
}

} // namespace
} // namespace corvelle::test

#endif
