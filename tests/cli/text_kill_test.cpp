// `corvelle text`, killed, at the same time as itself, and while somebody else writes its files.
#ifndef _WIN32

#include "base/temporary_folder.h"
#include "cli/kill_at_each_call.h"
#include "cli/run_corvelle.h"
#include "faults/folder_state.h"

#include <atomic>
#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace corvelle::cli {
namespace {

using test::Files;
using testing::AnyOf;
using testing::HasSubstr;

const std::string foreignText = ".topic  IDH_AAAA\nby an editor\n";

class TextKill : public testing::Test {
  protected:
    TextKill() {
        files["p.icp"] = "Indexer project file :#\r\nVB Project Name= Proj\r\nProject File= p.vbp\r\n"
                         "Header file= a.h\r\nConfiguration File= a.hcnf\r\nText File= a.txt\r\n"
                         "Module Name= \r\nModule File= \r\n";
        files["a.h"] = "#define IDH_AAAA  1000\r\n";
        files["a.hcnf"] = "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                          "<C>txtName TextBox IDH_AAAC</C>\r\n";
        files["a.txt"] = ".topic  IDH_AAAA\r\nNothing is known.\r\n.topic  IDH_AAAB\r\nCloses the window.\r\n"
                         ".topic  IDH_AAAC\r\nThe name.\r\n";
        test::put(folder.path(), files);
    }
    test::Outcome run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"text", "p.icp"});
        test::Surroundings surroundings;
        surroundings.folder = folder.path();
        return test::runCorvelle(arguments, surroundings);
    }
    Files after(const Files& before, const std::vector<std::string>& command) const {
        test::put(folder.path(), before);
        EXPECT_EQ(run(command).status, 0);
        return test::filesIn(folder.path());
    }
    // Without what a run that was killed has left for the next one to take away.
    Files now() const {
        Files found = test::filesIn(folder.path());
        std::erase_if(found, [](const auto& file) { return file.first.rfind(".corvelle", 0) == 0; });
        return found;
    }
    // Each file is old or new; the next edit makes all of them old or all of them new, and leaves nothing
    // else.
    void expectHarmless(const Files& whole, const Files& oldAndNext, const Files& wholeAndNext) const {
        test::expectOldOrNew(files, whole, now());
        EXPECT_EQ(run(next).status, 0);
        EXPECT_THAT(test::filesIn(folder.path()), AnyOf(oldAndNext, wholeAndNext));
    }
    void killAtEachCall(const std::vector<std::string>& command, int least) {
        const Files whole = after(files, command), wholeAndNext = after(whole, next);
        const Files oldAndNext = after(files, next);
        ASSERT_NE(whole, files);
        std::vector<std::string> arguments{"text", "p.icp"};
        arguments.insert(arguments.end(), command.begin(), command.end());
        test::killAtEachCall(
            least, folder.path(), arguments, [&] { test::put(folder.path(), files); },
            [&](const std::string& call) {
                if (!call.empty()) return expectHarmless(whole, oldAndNext, wholeAndNext);
                EXPECT_EQ(test::filesIn(folder.path()), whole);
            });
    }

    const std::vector<std::string> next{"set", "frmMain", "txtName", "A name."};
    test::InMemory inMemory;
    test::TemporaryFolder folder;
    Files files;
};

TEST_F(TextKill, LeavesTheTextFileOldOrNewWhenATextIsSet) {
    killAtEachCall({"set", "frmMain", "cmdOK", "Shuts it."}, 3);
}

TEST_F(TextKill, LeavesTheFilesOldOrNewWhenAControlIsPutOnTheDefault) {
    killAtEachCall({"default", "frmMain", "cmdOK"}, 8);
}

TEST_F(TextKill, LeavesTheFilesOldOrNewWhenAControlIsDeleted) {
    killAtEachCall({"delete", "frmMain", "cmdOK"}, 8);
}

// With the header that numbers stay by, a topic that no control has, and a table of two texts.
class TextTableKill : public TextKill {
  protected:
    TextTableKill() {
        files["a.h"] = "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n#define IDH_AAAC  1002\r\n";
        files["a.txt"] += ".topic  IDH_AAAD\r\nOf a control that went.\r\n";
        files["a.csv"] =
            "designer,control,text\r\nfrmMain,cmdOK,Shuts it.\r\nfrmMain,txtName,Whose it is.\r\n";
        test::put(folder.path(), files);
    }
};

TEST_F(TextTableKill, LeavesTheTextFileOldOrNewWhenTextsAreImported) {
    killAtEachCall({"import", "a.csv"}, 3);
}

TEST_F(TextTableKill, LeavesTheTextFileOldOrNewWhenLeftOverTextsGo) {
    killAtEachCall({"prune"}, 3);
}

TEST_F(TextKill, LeavesTheFilesOldOrNewAtAnyMoment) {
    const std::vector<std::string> command{"delete", "frmMain", "cmdOK"};
    const Files whole = after(files, command), wholeAndNext = after(whole, next);
    const Files oldAndNext = after(files, next);
    test::put(folder.path(), files);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(run(command).status, 0);
    const auto longest =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin);
    std::mt19937 random(1);
    std::uniform_int_distribution<long> time(0, static_cast<long>(longest.count()));
    for (int i = 0; i < 100 && !HasFailure(); ++i) {
        test::put(folder.path(), files);
        test::runAndKillAfter(std::chrono::microseconds(time(random)), folder.path(),
                              {"text", "p.icp", "delete", "frmMain", "cmdOK"});
        expectHarmless(whole, oldAndNext, wholeAndNext);
    }
}

TEST_F(TextKill, LosesNoEditOfTwoRunsAtOnce) {
    constexpr int edits = 300; // each of a control of its own, so that no later one makes up for a lost one
    const auto number = [](int i) { return std::to_string(1000 + i); };
    std::string mappings = "<P>f</P>\r\n";
    for (int i = 0; i < edits; ++i) mappings += "<C>c" + number(i) + " Label IDH_" + number(i) + "</C>\r\n";
    folder.write("a.hcnf", mappings);
    std::atomic<int> failed = 0;
    const auto editEverySecond = [&](int first) {
        for (int i = first; i < edits; i += 2) {
            if (run({"set", "f", "c" + number(i), "edit " + number(i)}).status != 0) ++failed;
        }
    };
    std::thread other(editEverySecond, 1);
    editEverySecond(0);
    other.join();
    EXPECT_EQ(failed, 0);
    const auto texts = folder.read("a.txt");
    for (int i = 0; i < edits; ++i)
        EXPECT_THAT(texts, HasSubstr(".topic  IDH_" + number(i) + "\r\nedit " + number(i) + "\r\n"));
}

// At each call at which a run changes files an editor, which knows nothing of locks, saves the text file.
// From the moment that the new file has its name the editor's stands in its place rightly.
TEST_F(TextKill, WritesOverNothingThatSomebodyElseHasWrittenMeanwhile) {
    for (const auto& command : {std::vector<std::string>{"set", "frmMain", "cmdOK", "Shuts it."},
                                {"default", "frmMain", "cmdOK"}}) {
        std::vector<std::string> arguments{"text", "p.icp"};
        arguments.insert(arguments.end(), command.begin(), command.end());
        int refused = 0;
        for (int n = 1; !HasFailure(); ++n) {
            test::put(folder.path(), files);
            const auto result = test::runAndInterfere(n, folder.path(), arguments,
                                                      [&] { folder.write("a.txt", foreignText); });
            if (result.call.empty()) break;
            SCOPED_TRACE(command[0] + ", at call " + std::to_string(n) + ", " + result.call);
            if (result.status != 0) {
                ++refused;
                EXPECT_EQ(now().at("a.hcnf"), files.at("a.hcnf"));
            }
            EXPECT_EQ(folder.read("a.txt"), foreignText);
        }
        EXPECT_GE(refused, 3);
    }
}

} // namespace
} // namespace corvelle::cli

#endif
