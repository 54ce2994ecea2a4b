// An index that is being made while the program is killed, or while another one works on the same files.
#ifndef _WIN32

#include "base/batch_journal.h"
#include "base/temporary_folder.h"
#include "cli/kill_at_each_call.h"
#include "cli/run_corvelle.h"
#include "faults/folder_state.h"
#include "places.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace corvelle::cli {
namespace {

namespace fs = std::filesystem;
using test::Files;
using testing::AnyOf;
using testing::HasSubstr;

const char* const form =
    "VERSION 5.00\r\nBegin VB.Form frmMain \r\n   Begin VB.CommandButton cmdOK \r\n   End\r\n"
    "   Begin VB.TextBox txtName \r\n   End\r\nEnd\r\nAttribute VB_Name = \"frmMain\"\r\n";

// An index that was made when the form had one control, with a text; its files stand in two folders.
const Files before{
    {"p.vbp", "Type=Exe\r\nForm=frmMain.frm\r\nModule=Module1; Module1.bas\r\nName=\"Proj\"\r\n"},
    {"frmMain.frm", form},
    {"Module1.bas", "Attribute VB_Name = \"Module1\"\r\n"},
    {"o/a.h", "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n"},
    {"o/a.hcnf", "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"},
    {"t/a.txt", ".topic  IDH_AAAA\r\nNothing is known.\r\n.topic  IDH_AAAB\r\nCloses.\r\n"},
    {"t/a.icp",
     "Indexer project file :#\r\nVB Project Name= Proj\r\nProject File= p.vbp\r\nHeader file= o/a.h\r\n"
     "Configuration File= o/a.hcnf\r\nText File= t/a.txt\r\nModule Name= modHelp\r\n"
     "Module File= o/modHelp.bas\r\n"}};

const std::vector<std::string> indexing{
    "index",    "p.vbp",   "--header",       "o/a.h",         "--config",         "o/a.hcnf",
    "--module", "modHelp", "--module-file",  "o/modHelp.bas", "--replace-module", "--autoload",
    "--text",   "t/a.txt", "--project-file", "t/a.icp",       "--report",         "t/a.log"};

class IndexKill : public testing::Test {
  protected:
    IndexKill() {
        surroundings.folder = folder.path();
        test::put(folder.path(), before);
        EXPECT_EQ(run(indexing).status, 0);
        whole = files();
        // The texts' line breaks change once more, then no more.
        EXPECT_EQ(run(indexing).status, 0);
        twice = files();
    }
    test::Outcome run(const std::vector<std::string>& arguments) const {
        return test::runCorvelle(arguments, surroundings);
    }
    Files files() const { return test::filesIn(folder.path()); }
    // But for what the next run sweeps away, and for the report's and the project's times.
    Files filesOfUse() const {
        Files result = files();
        std::erase_if(result,
                      [](const auto& file) { return file.first.find(".corvelle") != std::string::npos; });
        return result;
    }

    test::InMemory inMemory;
    test::TemporaryFolder folder;
    test::Surroundings surroundings;
    Files whole, twice;
};

// Whatever the moment: the next run on any of the files, be it another command, finds them all old or makes
// them all new.
TEST_F(IndexKill, LeavesAllFilesOldOrAllNewForTheNextRun) {
    test::killAtEachCall(
        50, folder.path(), indexing, [&] { test::put(folder.path(), before); },
        [&](const std::string& call) {
            if (call.empty()) {
                EXPECT_EQ(files(), whole);
                return;
            }
            test::expectOldOrNew(before, whole, filesOfUse());
            // It puts the files right and has nothing else to do.
            EXPECT_EQ(run({"index", "p.vbp", "--header", "o/a.h", "--config", "t/none/b.hcnf"}).status, 2);
            const auto now = filesOfUse();
            EXPECT_THAT(now, AnyOf(before, whole));
            EXPECT_EQ(run(indexing).status, 0);
            EXPECT_THAT(filesOfUse(), AnyOf(whole, twice));
            for (const auto& [name, bytes] : files())
                EXPECT_FALSE(base::isJournalName(fs::path(name).filename()));
        });
}

// The designers' files belong to the set, and the project's, wherever they stand.
TEST_F(IndexKill, LeavesDesignersOldOrNewTogetherWithTheIndex) {
    auto old = before;
    old["sub/frmSub.frm"] = "VERSION 5.00\nBegin VB.Form frmSub\n   Begin VB.ListBox lst\n   End\nEnd\n"
                            "Attribute VB_Name = \"frmSub\"\n";
    old["p.vbp"] += "Form=sub\\frmSub.frm\r\n";
    auto arguments = indexing;
    arguments.insert(arguments.end(), {"--properties", "both", "--help-file", "a.chm"});
    test::put(folder.path(), old);
    EXPECT_EQ(run(arguments).status, 0);
    whole = files();
    EXPECT_THAT(whole["sub/frmSub.frm"], HasSubstr("HelpContextID"));
    EXPECT_THAT(whole["frmMain.frm"], HasSubstr("HelpContextID"));
    test::killAtEachCall(
        70, folder.path(), arguments, [&] { test::put(folder.path(), old); },
        [&](const std::string& call) {
            if (call.empty()) {
                EXPECT_EQ(files(), whole);
                return;
            }
            test::expectOldOrNew(old, whole, filesOfUse());
            EXPECT_EQ(run({"index", "p.vbp", "--header", "o/a.h", "--config", "t/none/b.hcnf"}).status, 2);
            EXPECT_THAT(filesOfUse(), AnyOf(old, whole));
            EXPECT_EQ(run(arguments).status, 0);
            EXPECT_EQ(filesOfUse()["sub/frmSub.frm"], whole["sub/frmSub.frm"]);
            EXPECT_EQ(filesOfUse()["frmMain.frm"], whole["frmMain.frm"]);
        });
}

TEST_F(IndexKill, IsPutRightByATextCommandToo) {
    test::killAtEachCall(
        50, folder.path(), indexing, [&] { test::put(folder.path(), before); },
        [&](const std::string& call) {
            if (call.empty()) return;
            EXPECT_EQ(run({"text", "t/a.icp", "set", "frmMain", "cmdOK", "Shuts."}).status, 0);
            auto now = filesOfUse();
            EXPECT_THAT(now["t/a.txt"], HasSubstr("Shuts."));
            now["t/a.txt"] = before.at("t/a.txt");
            auto wanted = whole;
            wanted["t/a.txt"] = before.at("t/a.txt");
            EXPECT_THAT(now, AnyOf(before, wanted));
        });
}

// A run in the background.
class Running {
  public:
    Running(const fs::path& folder, std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), CORVELLE_BINARY);
        std::vector<char*> argv;
        for (auto& argument : arguments) argv.push_back(argument.data());
        argv.push_back(nullptr);
        process_ = fork();
        if (process_ != 0) return;
        const int nowhere = open("/dev/null", O_RDWR);
        for (int stream = 0; stream <= STDERR_FILENO; ++stream) dup2(nowhere, stream);
        if (chdir(folder.c_str()) == 0) execv(argv[0], argv.data());
        _exit(127);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        if (process_ > 0) end();
    }
    void kill() const { ::kill(process_, SIGKILL); }
    int end() {
        int status = 0;
        waitpid(process_, &status, 0);
        process_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

  private:
    pid_t process_ = 0;
};

TEST_F(IndexKill, LeavesNoHalfSetAtAnyMoment) {
    using Clock = std::chrono::steady_clock;
    test::put(folder.path(), before);
    const auto begin = Clock::now();
    ASSERT_EQ(Running(folder.path(), indexing).end(), 0);
    const auto length = Clock::now() - begin;
    std::mt19937 random(20);
    int killed = 0; // a run is as long as the machine makes it
    for (const auto end = begin + std::chrono::seconds(15); killed < 100 && Clock::now() < end;) {
        test::put(folder.path(), before);
        Running running(folder.path(), indexing);
        const auto moment = length * std::uniform_real_distribution<>(0, 1)(random);
        std::this_thread::sleep_for(std::chrono::duration_cast<std::chrono::microseconds>(moment));
        running.kill();
        if (running.end() != -SIGKILL) continue;
        ++killed;
        run({"index", "p.vbp", "--header", "o/a.h", "--config", "t/none/b.hcnf"});
        ASSERT_THAT(filesOfUse(), AnyOf(before, whole));
    }
    EXPECT_GT(killed, 0);
}

TEST_F(IndexKill, RunsThatMeetWaitForOneAnother) {
    auto other = indexing;
    other.insert(other.end(), {"--exclude", "labels", "--default-text", "Ask us."});
    const auto header = [&](const Files& all) { return all.at("o/a.h"); };
    for (int i = 0; i < 10; ++i) {
        test::put(folder.path(), before);
        Running a(folder.path(), indexing), b(folder.path(), other), c(folder.path(), indexing);
        EXPECT_EQ(a.end(), 0);
        EXPECT_EQ(b.end(), 0);
        EXPECT_EQ(c.end(), 0);
        const auto now = files();
        EXPECT_EQ(header(now), header(whole));
        EXPECT_EQ(now.at("o/a.hcnf"), whole.at("o/a.hcnf"));
        EXPECT_EQ(now.at("p.vbp"), whole.at("p.vbp"));
        EXPECT_EQ(now.at("o/modHelp.bas"), whole.at("o/modHelp.bas"));
        EXPECT_EQ(now.size(), whole.size());
    }
}

TEST_F(IndexKill, TakesTheTextsThatAreSetMeanwhile) {
    for (int i = 0; i < 10; ++i) {
        test::put(folder.path(), whole);
        Running index(folder.path(), indexing);
        Running first(folder.path(), {"text", "t/a.icp", "set", "frmMain", "cmdOK", "Shuts."});
        Running second(folder.path(), {"text", "t/a.icp", "set", "frmMain", "txtName", "Names."});
        EXPECT_EQ(index.end(), 0);
        EXPECT_EQ(first.end(), 0);
        EXPECT_EQ(second.end(), 0);
        const auto texts = folder.read("t/a.txt");
        EXPECT_THAT(texts, HasSubstr("Shuts."));
        EXPECT_THAT(texts, HasSubstr("Names."));
    }
}

} // namespace
} // namespace corvelle::cli

#endif
