// A program that is killed at each of its calls that change files.
#ifndef _WIN32

#include "base/temporary_folder.h"
#include "cli/kill_at_each_call.h"
#include "cli/run_corvelle.h"
#include "faults/folder_state.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

using test::Files;

const char* const untidy =
    "Attribute VB_Name = \"Greeting\"\r\nSub Greet()\r\nIf a Then\r\nb\r\nEnd If\r\nEnd Sub\r\n";

// Whatever the moment: every module is old or new, and once the command has been given again all is as if
// nothing had happened.
void expectHarmless(const Files& before, const std::vector<std::string>& arguments, int least) {
    const test::InMemory inMemory;
    const test::TemporaryFolder folder;
    test::Surroundings surroundings;
    surroundings.folder = folder.path();
    const auto run = [&] { return test::runCorvelle(arguments, surroundings).status; };
    test::put(folder.path(), before);
    ASSERT_EQ(run(), 0);
    const Files whole = test::filesIn(folder.path());
    ASSERT_NE(whole, before);
    test::killAtEachCall(
        least, folder.path(), arguments, [&] { test::put(folder.path(), before); },
        [&](const std::string& call) {
            Files now = test::filesIn(folder.path());
            if (call.empty()) {
                EXPECT_EQ(now, whole);
                return;
            }
            std::erase_if(now, [](const auto& file) { return file.first.ends_with(".tmp"); });
            test::expectOldOrNew(before, whole, now);
            EXPECT_EQ(run(), 0);
            // What is left goes with the next run that has something to write.
            for (const auto& [name, bytes] : before) folder.write(name, bytes);
            EXPECT_EQ(run(), 0);
            EXPECT_EQ(test::filesIn(folder.path()), whole);
        });
}

TEST(FormatKill, LeavesTheModuleOldOrNewAndTheNextRunCleansUp) {
    expectHarmless({{"a.bas", untidy}}, {"format", "--layout", "classic", "a.bas"}, 5);
}

TEST(FormatKill, LeavesEachModuleOfAProjectOldOrNew) {
    expectHarmless({{"p.vbp", "Type=Exe\r\nModule=A; a.bas\r\nModule=B; b.bas\r\nName=\"P\"\r\n"},
                    {"a.bas", untidy},
                    {"b.bas", untidy}},
                   {"format", "--layout", "classic", "p.vbp"}, 10);
}

TEST(FormatKill, LeavesModulesAndBackupsThatWereThereOldOrNew) {
    const test::InMemory inMemory;
    const test::TemporaryFolder folder;
    const Files before{{"a.bas", untidy}, {"old/Greeting_bak.bas", "an older one"}};
    const std::vector<std::string> arguments{"format", "--backup-dir", "old", "a.bas"};
    test::killAtEachCall(
        5, folder.path(), arguments, [&] { test::put(folder.path(), before); },
        [&](const std::string&) {
            const Files now = test::filesIn(folder.path());
            EXPECT_EQ(now.at("old/Greeting_bak.bas"), "an older one");
            // A module that is new has a backup that is whole.
            if (now.at("a.bas") != untidy) {
                EXPECT_EQ(now.at("old/Greeting_bak2.bas"), untidy);
            }
        });
}

TEST(FormatKill, LeavesNoNumberOfFilesThatWouldStopAWrite) {
    const test::InMemory inMemory;
    const test::TemporaryFolder folder;
    folder.write("a.bas", untidy);
    char name[] = ".corvelle-0000000000000000.tmp";
    for (int i = 0; i < 10000; ++i) {
        std::snprintf(name, sizeof name, ".corvelle-%016x.tmp", i);
        folder.write(name, "");
    }
    folder.write(".corvelle-mine.tmp", "no name of ours");
    test::Surroundings surroundings;
    surroundings.folder = folder.path();
    EXPECT_EQ(test::runCorvelle({"format", "a.bas"}, surroundings).status, 0);
    EXPECT_NE(folder.read("a.bas"), untidy);
    EXPECT_THAT(folder.names(), testing::UnorderedElementsAre("a.bas", ".corvelle-mine.tmp"));
}

} // namespace
} // namespace corvelle::cli

#endif
