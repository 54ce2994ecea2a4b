#include "base/batch_journal.h"
#include "base/temporary_folder.h"
#include "cli/format_command.h"
#include "cli/format_settings.h"
#include "cli/index_command.h"
#include "cli/index_settings.h"
#include "cli/text_command.h"
#include "cli/text_settings.h"
#include "fakes/open_files.h"
#include "faults/every_call.h"
#include "faults/folder_state.h"

#include <algorithm>
#include <exception>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <iostream>
#include <unistd.h>

// The command line's commands, in this process, while each of the system's calls and each allocation fails.
namespace corvelle::cli {
namespace {

namespace fs = std::filesystem;
using test::Files;

// Nobody reads what is printed.
class Unread {
  public:
    Unread() {
        std::cout.flush();
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        for (int stream = 1; stream <= 2; ++stream) {
            kept_[stream - 1] = ::dup(stream);
            ::dup2(nowhere, stream);
        }
        ::close(nowhere);
    }
    ~Unread() {
        std::cout.clear();
        std::cerr.clear();
        std::cout.flush();
        for (int stream = 1; stream <= 2; ++stream) {
            ::dup2(kept_[stream - 1], stream);
            ::close(kept_[stream - 1]);
        }
    }
    Unread(const Unread&) = delete;
    Unread& operator=(const Unread&) = delete;

  private:
    int kept_[2];
};

struct About {
    bool repeatable = true;  ///< whether the command, given again, completes what it left
    bool allocations = true; ///< whether allocations fail too
    bool together = false;   ///< whether all files are replaced or none
    /// Another command, which puts right what the failed one left of several files that go together.
    std::function<int()> next = nullptr;
};

bool leavesAJournal(const Files& files) {
    return std::any_of(files.begin(), files.end(),
                       [](const auto& file) { return base::isJournalName(fs::path(file.first).filename()); });
}

class CommandFaults : public testing::Test {
  protected:
    CommandFaults() { fs::current_path(folder.path()); }
    ~CommandFaults() override { fs::current_path(before_); }

    // The exit status, as the program ends with it.
    static int statusOf(const std::function<int()>& command) {
        const Unread unread;
        try {
            return command();
        } catch (const std::exception&) {
            return exitFailed;
        }
    }

    // Fails each call of the command over the files.
    void expectHarmless(const Files& before, const std::function<int()>& command, const About& about = {}) {
        test::put(folder.path(), before);
        ASSERT_EQ(statusOf(command), exitDone);
        const Files whole = test::filesIn(folder.path());
        ASSERT_NE(whole, before);
        if (about.repeatable) {
            ASSERT_EQ(statusOf(command), exitDone);
        }
        const Files twice = test::filesIn(folder.path());
        const Files oldAndNext = filesAfter(before, about.next), wholeAndNext = filesAfter(whole, about.next);
        const auto files = test::openFiles(folder.path());
        int status = 0;
        const auto prepare = [&] { test::put(folder.path(), before); };
        const auto run = [&] { status = statusOf(command); };
        const auto check = [&](bool failed) {
            EXPECT_EQ(test::openFiles(folder.path()), files);
            const Files now = test::filesIn(folder.path());
            test::expectPermissionsKept(folder.path(), before);
            if (!failed || status == exitDone) {
                EXPECT_EQ(status, exitDone);
                EXPECT_EQ(now, whole);
                return;
            }
            if (about.together && now != before && now != whole) {
                // No name can be changed any more, not even back: the next run does it, or completes the set.
                EXPECT_TRUE(leavesAJournal(now));
                EXPECT_EQ(statusOf(command), exitDone);
                EXPECT_THAT(test::filesIn(folder.path()), testing::AnyOf(whole, twice));
                return;
            }
            if (about.next) {
                test::expectOldOrNew(before, whole, withoutJournals(now));
                EXPECT_EQ(statusOf(about.next), exitDone);
                EXPECT_THAT(test::filesIn(folder.path()), testing::AnyOf(oldAndNext, wholeAndNext));
                return;
            }
            test::expectOldOrNew(before, whole, now);
            if (!about.repeatable || now == before) return;
            EXPECT_EQ(statusOf(command), exitDone);
            test::expectOldOrNew(whole, twice, test::filesIn(folder.path()));
        };
        test::failEachSystemCall(10, prepare, run, check);
        test::interruptEachSystemCall(10, prepare, run, check);
        if (about.allocations) test::failEachAllocation(10, prepare, run, check);
    }

    Files filesAfter(const Files& before, const std::function<int()>& command) {
        test::put(folder.path(), before);
        if (command) {
            EXPECT_EQ(statusOf(command), exitDone);
        }
        return test::filesIn(folder.path());
    }

    // Without what is kept for the next run beside the files.
    static Files withoutJournals(Files files) {
        std::erase_if(files, [](const auto& file) { return file.first.rfind(".corvelle", 0) == 0; });
        return files;
    }

    // The same for a command that writes nothing.
    static void expectRefused(const Files& untouched, const std::function<void()>& prepare,
                              const std::function<int()>& command) {
        ASSERT_NE(statusOf(command), exitDone);
        int status = 0;
        const auto run = [&] { status = statusOf(command); };
        const auto check = [&](bool) {
            EXPECT_NE(status, exitDone);
            EXPECT_EQ(test::filesIn("."), untouched);
        };
        test::failEachSystemCall(10, prepare, run, check);
        test::failEachAllocation(10, prepare, run, check);
    }

    test::InMemory inMemory;
    test::TemporaryFolder folder;

  private:
    fs::path before_ = fs::current_path();
};

const char* const untidy =
    "Attribute VB_Name = \"Greeting\"\r\nSub Greet()\r\nIf a Then\r\nb\r\nEnd If\r\nEnd Sub\r\n";

TEST_F(CommandFaults, FormattingLeavesTheModuleOldOrNew) {
    expectHarmless({{"a.bas", untidy}}, [] {
        FormatSettings settings;
        settings.paths = {"a.bas"};
        return runFormat(settings);
    });
}

// A command that is repeated after its backup was saved saves another one.
TEST_F(CommandFaults, FormattingWithABackupLeavesBothWhole) {
    const auto run = [] {
        FormatSettings settings;
        settings.paths = {"a.bas"};
        settings.backupDir = "old";
        return runFormat(settings);
    };
    expectHarmless({{"a.bas", untidy}, {"old/Greeting_bak.bas", "an older one"}}, run, {{}, false});
}

int formatProject() {
    FormatSettings settings;
    settings.paths = {"p.vbp"};
    settings.backupDir = "backups";
    settings.jobs = 3;
    return runFormat(settings);
}

Files project(const std::string& second) {
    Files files{{"p.vbp", "Type=Exe\r\nModule=A; a.bas\r\nModule=B; " + second +
                              "\r\nModule=C; c.bas\r\nName=\"P\"\r\n"}};
    for (const char* const name : {"a.bas", "b.bas", "c.bas"}) files[name] = untidy;
    return files;
}

// What is formatted already gets no backup, so the command cannot be repeated.
TEST_F(CommandFaults, FormattingAProjectWithSeveralWorkersEndsAndHarmsNoModule) {
    expectHarmless(project("b.bas"), formatProject, {.repeatable = false});
}

// The library itself ends the program where it has no memory to read a folder.
TEST_F(CommandFaults, LookingForAModuleInAFolderHarmsNone) {
    expectHarmless(project("B.BAS"), formatProject, {.repeatable = false, .allocations = false});
}

const char* const form =
    "VERSION 5.00\r\nBegin VB.Form frmMain \r\n   Begin VB.CommandButton cmdOK \r\n   End\r\n"
    "   Begin VB.TextBox txtName \r\n   End\r\nEnd\r\nAttribute VB_Name = \"frmMain\"\r\n";

Files indexedProject() {
    return {
        {"p.vbp", "Type=Exe\r\nForm=frmMain.frm\r\nModule=Module1; Module1.bas\r\nName=\"Proj\"\r\n"},
        {"frmMain.frm", form},
        {"Module1.bas", "Attribute VB_Name = \"Module1\"\r\n"},
        {"none.lst", "Timer\r\n"},
        {"o/a.txt", ".topic  IDH_AAAA\r\nNothing is known.\r\n.topic  IDH_AAAB\r\nCloses the window.\r\n"},
        {"o/a.log", "Indexing initiated by ContextHElpID Indexer\r\nan older report\r\n"},
        {"o/a.icp", "Indexer project file :an older one\r\n"}};
}

IndexSettings indexing() {
    IndexSettings settings;
    settings.project = "p.vbp";
    settings.header = "o/a.h";
    settings.config = "o/a.hcnf";
    return settings;
}

TEST_F(CommandFaults, IndexingLosesNoTextAndLeavesTheProjectWhole) {
    expectHarmless(indexedProject(),
                   [] {
                       auto settings = indexing();
                       settings.module = "modHelp";
                       settings.moduleFile = "o/modHelp.bas";
                       settings.replaceModule = true;
                       settings.autoload = true;
                       settings.text = "o/a.txt";
                       settings.projectFile = "o/a.icp";
                       return runIndex(settings);
                   },
                   {.together = true});
}

TEST_F(CommandFaults, WritingPropertiesLeavesDesignersAndIndexOldOrNew) {
    expectHarmless(indexedProject(),
                   [] {
                       auto settings = indexing();
                       settings.properties.properties = PropertyChoice::Both;
                       settings.properties.whatsThisForms = true;
                       settings.helpFile = "a.chm";
                       return runIndex(settings);
                   },
                   {.together = true});
}

TEST_F(CommandFaults, AReportIsOldOrNew) {
    expectHarmless(indexedProject(),
                   [] {
                       auto settings = indexing();
                       settings.excludeList = "none.lst";
                       settings.report = "o/a.log";
                       return runIndex(settings);
                   },
                   {.together = true});
}

// What is no output of an index is not written over, whatever fails while that is found out.
TEST_F(CommandFaults, WrongOutputsOfAnIndexAreRefused) {
    auto before = indexedProject();
    before["other.bas"] = "Attribute VB_Name = \"Other\"\r\n";
    before["frmMain.frx"] = "binary";
    before["o/binary.txt"] = std::string(100, '\1');
    std::string IndexSettings::*const header = &IndexSettings::header;
    for (const char* const path :
         {"frmMain.frm", "Module1.bas", "p.vbp", "frmMain.frx", "o/hard.frm", "o/hard.vbp"}) {
        const auto prepare = [&] {
            test::put(folder.path(), before);
            fs::create_hard_link("frmMain.frm", "o/hard.frm");
            fs::create_hard_link("p.vbp", "o/hard.vbp");
        };
        prepare();
        const Files untouched = test::filesIn(folder.path());
        expectRefused(untouched, prepare, [&] {
            auto settings = indexing();
            settings.*header = path;
            return runIndex(settings);
        });
    }
    const auto prepare = [&] { test::put(folder.path(), before); };
    expectRefused(before, prepare, [] {
        auto settings = indexing();
        settings.module = "modHelp";
        settings.moduleFile = "other.bas";
        return runIndex(settings);
    });
    expectRefused(before, prepare, [] {
        auto settings = indexing();
        settings.text = "o/binary.txt";
        return runIndex(settings);
    });
}

class TextFaults : public CommandFaults {
  protected:
    static Files index() {
        return {{"p.icp", "Indexer project file :#\r\nVB Project Name= Proj\r\nProject File= p.vbp\r\n"
                          "Header file= a.h\r\nConfiguration File= a.hcnf\r\nText File= a.txt\r\n"
                          "Module Name= \r\nModule File= \r\n"},
                {"a.h", "header"},
                {"a.hcnf", "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                           "<C>txtName TextBox IDH_AAAC</C>\r\n"},
                {"a.txt",
                 ".topic  IDH_AAAA\r\nNothing is known.\r\n.topic  IDH_AAAB\r\nCloses the window.\r\n"
                 ".topic  IDH_AAAC\r\nThe name.\r\n"}};
    }
    static TextSettings about(TextAction action) {
        TextSettings settings;
        settings.project = "p.icp";
        settings.action = action;
        settings.designer = "frmMain";
        settings.control = "cmdOK";
        settings.text = "Shuts the window.";
        return settings;
    }
    static int setTheOther() {
        auto settings = about(TextAction::Set);
        settings.control = "txtName";
        return runText(settings);
    }
};

TEST_F(TextFaults, SettingATextLosesNoOther) {
    expectHarmless(index(), [] { return runText(about(TextAction::Set)); });
}

TEST_F(TextFaults, PuttingAControlOnTheDefaultLosesNoOther) {
    expectHarmless(index(), [] { return runText(about(TextAction::Default)); },
                   {.repeatable = false, .next = setTheOther});
}

TEST_F(TextFaults, DeletingAControlLosesNoOther) {
    expectHarmless(index(), [] { return runText(about(TextAction::Delete)); },
                   {.repeatable = false, .next = setTheOther});
}

// With the header that numbers stay by, a topic that no control has, and a table of two texts.
class TextTableFaults : public TextFaults {
  protected:
    static Files wholeIndex() {
        auto files = index();
        files["a.h"] = "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n#define IDH_AAAC  1002\r\n";
        files["a.txt"] += ".topic  IDH_AAAD\r\nOf a control that went.\r\n";
        files["a.csv"] =
            "designer,control,text\r\nfrmMain,cmdOK,Shuts it.\r\nfrmMain,txtName,Whose it is.\r\n";
        return files;
    }
};

TEST_F(TextTableFaults, ImportingTextsTakesAllOrNone) {
    expectHarmless(wholeIndex(),
                   [] {
                       auto settings = about(TextAction::Import);
                       settings.table = "a.csv";
                       return runText(settings);
                   },
                   {.together = true});
}

TEST_F(TextTableFaults, PruningLosesNoTextOfAControl) {
    expectHarmless(wholeIndex(), [] { return runText(about(TextAction::Prune)); }, {.together = true});
}

} // namespace
} // namespace corvelle::cli
