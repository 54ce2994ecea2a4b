#include "base/replace_with_backup.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace corvelle::base {
namespace {

namespace fs = std::filesystem;
using End = Replacement::End;

// A folder's names and what is under them, with calls that fail where they are told to.
class FakeCalls : public ReplacingCalls {
  public:
    std::map<fs::path, std::string> files{{"a.bas", "old"}, {"fresh", "new"}};
    std::uint32_t replaceFails = 0, moveFails = 0, removeFails = 0;

    std::uint32_t replace(const fs::path& target, const fs::path& fresh, const fs::path& backup) override {
        constexpr std::uint32_t unableToMoveReplacement2 = 1177;
        if (replaceFails != 0 && replaceFails != unableToMoveReplacement2) return replaceFails;
        rename(target, backup);
        if (replaceFails != 0) return replaceFails;
        rename(fresh, target);
        return 0;
    }
    std::uint32_t move(const fs::path& from, const fs::path& to, bool replaces) override {
        if (moveFails != 0) return moveFails;
        if (!replaces && exists(to)) return 183;
        rename(from, to);
        return 0;
    }
    std::uint32_t remove(const fs::path& path) override {
        if (removeFails == 0) files.erase(path);
        return removeFails;
    }
    bool exists(const fs::path& path) override { return files.count(path) != 0; }

  private:
    void rename(const fs::path& from, const fs::path& to) {
        files[to] = files.at(from);
        files.erase(from);
    }
};

Replacement replaced(FakeCalls& calls, bool expected = true) {
    return replaceWithBackup(calls, "a.bas", "fresh", "backup", [&](const fs::path& old) {
        EXPECT_EQ(calls.files.at(old), "old");
        return expected;
    });
}

TEST(ReplaceWithBackup, LeavesTheNewFileAlone) {
    FakeCalls calls;
    EXPECT_EQ(replaced(calls).end, End::Done);
    EXPECT_EQ(calls.files, (std::map<fs::path, std::string>{{"a.bas", "new"}}));
}

TEST(ReplaceWithBackup, LeavesTheOldFileWhereNothingWasDone) {
    for (const std::uint32_t error : {5U, 32U, 1175U, 1176U}) {
        FakeCalls calls;
        calls.replaceFails = error;
        const auto result = replaced(calls);
        EXPECT_EQ(result.end, End::Failed);
        EXPECT_EQ(result.error, error);
        EXPECT_EQ(calls.files.at("a.bas"), "old");
        EXPECT_FALSE(calls.exists("backup"));
    }
}

TEST(ReplaceWithBackup, PutsTheOldFileBackThatHasLostItsName) {
    FakeCalls calls;
    calls.replaceFails = 1177;
    const auto result = replaced(calls);
    EXPECT_EQ(result.end, End::Failed);
    EXPECT_EQ(result.error, 1177U);
    EXPECT_EQ(calls.files, (std::map<fs::path, std::string>{{"a.bas", "old"}, {"fresh", "new"}}));
}

TEST(ReplaceWithBackup, TellsWhereTheOldFileIsThatCannotBePutBack) {
    FakeCalls calls;
    calls.replaceFails = 1177;
    calls.moveFails = 5;
    EXPECT_EQ(replaced(calls).end, End::InBackup);
    EXPECT_EQ(calls.files.at("backup"), "old");
}

TEST(ReplaceWithBackup, PutsBackWhatSomebodyWroteInTheLastMoment) {
    FakeCalls calls;
    EXPECT_EQ(replaced(calls, false).end, End::Changed);
    EXPECT_EQ(calls.files.at("a.bas"), "old");
    EXPECT_FALSE(calls.exists("backup"));
}

TEST(ReplaceWithBackup, IsDoneEvenWhereTheBackupCannotBeRemoved) {
    FakeCalls calls;
    calls.removeFails = 32;
    EXPECT_EQ(replaced(calls).end, End::Done);
    EXPECT_EQ(calls.files.at("a.bas"), "new");
}

} // namespace
} // namespace corvelle::base
