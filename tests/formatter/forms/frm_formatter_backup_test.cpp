#include "base/file.h"
#include "base/full_disk.h"
#include "base/paths.h"
#include "base/temporary_folder.h"
#include "formatter/forms/wizard.h"

#include <filesystem>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#endif

namespace corvelle::formatter::test {
namespace {

namespace fs = std::filesystem;
using ide::ComponentType;

class Backup : public Wizard {
  protected:
    std::string pathOf(const std::string& name) const { return base::textOf(folder.path() / name); }
    static std::string bytesOf(const std::string& path) { return base::readFile(base::pathOf(path)); }
    bool nothingElseIn() const { return fs::is_empty(folder.path()); }

    /// "&Select ..." with the path as the user's choice.
    void save(FrmFormatter& dialog, const std::string& path) {
        desktop.chooseNextFile(path);
        EXPECT_TRUE(desktop.click(dialog.CmdFile));
        EXPECT_EQ(dialog.Text1.text(), path);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
    }
    void expectSaved(FrmFormatter& dialog, const std::string& path) {
        EXPECT_EQ(status(dialog), " Status: File--> " + path + " was saved successfully..");
        EXPECT_EQ(picture(dialog), 2);
        EXPECT_TRUE(dialog.CmdFmt.enabled());
    }
    void expectFailed(FrmFormatter& dialog, const std::string& path) {
        EXPECT_EQ(status(dialog), " Status: Error while saving file: " + path + " please verify..");
        EXPECT_EQ(picture(dialog), 1);
        EXPECT_FALSE(dialog.CmdFmt.enabled());
        EXPECT_EQ(code(), sample());
    }

    corvelle::test::TemporaryFolder folder;
};

TEST_F(Backup, HoldsTheModulesCodeAndNotTheBuffers) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        const std::string path = pathOf("Account_bak.bas");
        save(dialog, path);
        expectSaved(dialog, path);
        EXPECT_EQ(bytesOf(path), asFile(sample()));
        leaveAnyway(dialog);
    });
}

TEST_F(Backup, AsksForTheFileWithItsDefaults) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.cancelNextFile();
        desktop.click(dialog.CmdFile);
    });
    ASSERT_EQ(desktop.fileDialogs().size(), 1U);
    const auto& asked = desktop.fileDialogs()[0];
    EXPECT_TRUE(asked.save);
    EXPECT_EQ(asked.title, "");
    EXPECT_EQ(asked.fileName, "Account_bak.bas");
    EXPECT_EQ(asked.initDir, "C:\\Projects\\Stock\\");
    EXPECT_EQ(asked.filter, "All Files(*.*)|*.*|VB_Forms(*.frm)|*.frm|Vb_Modules(*.bas)|*.bas|"
                            "VB_Class(*.cls)|*.cls|VB_Controls(*.ctl)|*.ctl");
    EXPECT_EQ(asked.flags, 8194);
}

TEST_F(Backup, IsNamedAfterTheComponentAndItsType) {
    const std::vector<std::pair<ComponentType, const char*>> names{
        {ComponentType::StdModule, "Account_bak.bas"},
        {ComponentType::ClassModule, "Account_bak.cls"},
        {ComponentType::MSForm, "Account_bak"},
        {ComponentType::ResFile, "Account_bak"},
        {ComponentType::VBForm, "Account_bak.frm"},
        {ComponentType::VBMDIForm, "Account_bak.frm"},
        {ComponentType::PropPage, "Account_bak.pag"},
        {ComponentType::UserControl, "Account_bak.ctl"},
        {ComponentType::DocObject, "Account_bak.dob"},
        {ComponentType::RelatedDocument, "Account_bak"},
        {ComponentType::ActiveXDesigner, "Account_bak.Dsr"},
        {static_cast<ComponentType>(99), "Account_bak"},
    };
    inDialog([&](FrmFormatter& dialog) {
        for (const auto& [type, name] : names) {
            module->type = type;
            EXPECT_EQ(dialog.getBackupName(), name);
        }
    });
}

TEST_F(Backup, GoesBesideTheProjectUnlessADirectoryIsRemembered) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.getProjectDir(), "C:\\Projects\\Stock\\");
        ide->project->fileName = "\\\\server\\share\\a.b\\P.vbp";
        EXPECT_EQ(dialog.getProjectDir(), "\\\\server\\share\\a.b\\");
        ide->project->fileName = "P.vbp";
        EXPECT_EQ(dialog.getProjectDir(), "");
        ide->project->fileName = "";
        EXPECT_EQ(dialog.getProjectDir(), "");
        dialog.BackDir = "D:\\Backups\\";
        EXPECT_EQ(dialog.getProjectDir(), "D:\\Backups\\");
    });
}

TEST_F(Backup, OfAProjectNeverSavedHasANameAndNoDirectory) {
    ide->project->fileName = "";
    inDialog([&](FrmFormatter& dialog) {
        desktop.cancelNextFile();
        desktop.click(dialog.CmdFile);
    });
    EXPECT_EQ(desktop.fileDialogs()[0].fileName, "Account_bak.bas");
    EXPECT_EQ(desktop.fileDialogs()[0].initDir, "");
}

TEST_F(Backup, WithoutAnActiveProjectOrAPageHasNoDirectory) {
    inDialog([&](FrmFormatter& dialog) {
        const auto project = std::exchange(ide->project, nullptr);
        EXPECT_EQ(dialog.getProjectDir(), "");
        ide->project = project;
    });
    EXPECT_EQ(std::make_shared<FrmFormatter>(desktop)->getProjectDir(), "");
}

TEST_F(Backup, CancellingLeavesFormatCodeDisabledUntilOneIsSaved) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.cancelNextFile();
        EXPECT_TRUE(desktop.click(dialog.CmdFile));
        EXPECT_EQ(dialog.Text1.text(), "");
        EXPECT_EQ(status(dialog), " Status: Not Saving exiting..");
        EXPECT_EQ(picture(dialog), 3);
        EXPECT_FALSE(dialog.CmdFmt.enabled());
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        EXPECT_FALSE(desktop.click(dialog.CmdFmt));
        save(dialog, pathOf("a.bas"));
        expectSaved(dialog, pathOf("a.bas"));
        format(dialog);
        leaveAnyway(dialog);
    });
}

TEST_F(Backup, CancellingForgetsThePathOfTheOneBefore) {
    inDialog([&](FrmFormatter& dialog) {
        save(dialog, pathOf("a.bas"));
        desktop.cancelNextFile();
        desktop.click(dialog.CmdFile);
        EXPECT_EQ(dialog.Text1.text(), "");
    });
}

TEST_F(Backup, IsNotTakenWhenTheFileDialogFails) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.inFileDialog = [] { throw disaster; };
        EXPECT_TRUE(desktop.click(dialog.CmdFile));
        EXPECT_EQ(status(dialog), " Status: Not Saving exiting..");
        EXPECT_EQ(dialog.Text1.text(), "");
        EXPECT_FALSE(dialog.CmdFmt.enabled());
    });
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(Backup, ReplacesAFileCompletely) {
    const std::string path = pathOf("old.bas");
    base::writeFile(base::pathOf(path), std::string(10000, 'x'));
    inDialog([&](FrmFormatter& dialog) {
        save(dialog, path);
        EXPECT_EQ(bytesOf(path), asFile(sample()));
    });
}

#ifdef _WIN32
TEST_F(Backup, TakesThePathInTheMachinesCodePage) {
    if (GetACP() != 1252) GTEST_SKIP() << "the code page is another one";
    fs::create_directory(folder.path() / L"\x20AC");
    const std::string path = folder.path().string() + "\\\x80\\\x99_bak.bas";
    inDialog([&](FrmFormatter& dialog) {
        save(dialog, path);
        expectSaved(dialog, path);
    });
    EXPECT_EQ(folder.read(L"\x20AC\\\x2122_bak.bas"), asFile(sample()));
}
#endif

TEST_F(Backup, KeepsEveryByteAndWritesNothingForNoLines) {
    inDialog([&](FrmFormatter& dialog) {
        code() = {"  x = \"\xE4\xFF\x80\"\t", "", "\x01"};
        save(dialog, pathOf("bytes"));
        EXPECT_EQ(bytesOf(pathOf("bytes")), "  x = \"\xE4\xFF\x80\"\t\r\n\r\n\x01\r\n");
        code().clear();
        save(dialog, pathOf("none"));
        expectSaved(dialog, pathOf("none"));
        EXPECT_EQ(bytesOf(pathOf("none")), "");
    });
}

TEST_F(Backup, TellsWhatItIsDoing) {
    inDialog([&](FrmFormatter& dialog) {
        const std::string path = pathOf("a.bas");
        format(dialog);
        int reads = 0;
        calls.onCall = [&](const std::string& member) {
            if (member != "CodeModule.Lines") return;
            ++reads;
            EXPECT_EQ(status(dialog), " Status: Saving file -->" + path);
            EXPECT_EQ(picture(dialog), 3);
            EXPECT_FALSE(dialog.CmdFmt.enabled());
            EXPECT_FALSE(dialog.CmdAdd.enabled());
        };
        save(dialog, path);
        calls.onCall = nullptr;
        EXPECT_EQ(reads, static_cast<int>(sample().size()));
        leaveAnyway(dialog);
    });
}

TEST_F(Backup, OfAnUnsetModuleIsReported) {
    inDialog([&](FrmFormatter& dialog) {
        dialog.FmtCodeModule.reset();
        desktop.answerNextBox(forms::answer::ok);
        save(dialog, pathOf("a.bas"));
        EXPECT_EQ(lastBox(), "Object variable not set..|48|Error while accessing object.. Aborting.");
        expectFailed(dialog, pathOf("a.bas"));
        EXPECT_EQ(desktop.fileDialogs().back().fileName, "");
    });
    EXPECT_TRUE(nothingElseIn());
}

TEST_F(Backup, FailsWhereNoFileCanBeOpened) {
    inDialog([&](FrmFormatter& dialog) {
        save(dialog, pathOf("no/such/folder.bas"));
        expectFailed(dialog, pathOf("no/such/folder.bas"));
        save(dialog, base::textOf(folder.path()));
        expectFailed(dialog, base::textOf(folder.path()));
        save(dialog, pathOf("a.bas"));
        expectSaved(dialog, pathOf("a.bas"));
    });
}

TEST_F(Backup, KeepsTheOldFileWhenAReadFails) {
    const std::string path = pathOf("old.bas");
    base::writeFile(base::pathOf(path), "the only copy");
    inDialog([&](FrmFormatter& dialog) {
        calls.fail("CodeModule.CountOfLines", 1, disaster);
        save(dialog, path);
        expectFailed(dialog, path);
        for (int n = 1; n <= static_cast<int>(sample().size()); ++n) {
            calls.fail("CodeModule.Lines", n, disaster);
            save(dialog, path);
            expectFailed(dialog, path);
            EXPECT_EQ(bytesOf(path), "the only copy");
        }
        save(dialog, path);
        expectSaved(dialog, path);
        EXPECT_EQ(bytesOf(path), asFile(sample()));
    });
    fs::remove(base::pathOf(path));
    EXPECT_TRUE(nothingElseIn());
}

#ifndef _WIN32
TEST_F(Backup, KeepsTheOldFileWhenTheDiskIsFull) {
    const std::string path = pathOf("old.bas");
    base::writeFile(base::pathOf(path), "the only copy");
    code().assign(20000, "x = 1 ' some text that takes its room"); // several writes
    const Lines before = code();
    inDialog([&](FrmFormatter& dialog) {
        for (const rlim_t room : {rlim_t{20}, rlim_t{70000}, rlim_t{500000}, rlim_t{779999}}) {
            const corvelle::test::FullDisk disk(room);
            save(dialog, path);
            EXPECT_EQ(status(dialog), " Status: Error while saving file: " + path + " please verify..");
            EXPECT_FALSE(dialog.CmdFmt.enabled());
            EXPECT_EQ(bytesOf(path), "the only copy");
        }
        save(dialog, path);
        expectSaved(dialog, path);
        EXPECT_EQ(bytesOf(path).size(), 780000U);
    });
    EXPECT_EQ(code(), before);
}
#endif

TEST_F(Backup, DirectoryIsHandedBackToThePage) {
    const std::string path = pathOf("here\\Account_bak.bas");
#ifdef _WIN32
    fs::create_directory(folder.path() / "here");
#endif
    const std::string directory = path.substr(0, path.rfind('\\') + 1);
    inDialog([&](FrmFormatter& dialog) { save(dialog, path); });
    EXPECT_EQ(page().backupDir(), directory);

    openModule("Other", sample());
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.BackDir, directory);
        desktop.cancelNextFile();
        desktop.click(dialog.CmdFile);
    });
    EXPECT_EQ(desktop.fileDialogs().back().initDir, directory);
    EXPECT_EQ(page().backupDir(), ""); // a path without a backslash has no directory
}

TEST_F(Backup, IsNotTakenWhileAPassRuns) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.atYield([&] { desktop.click(dialog.CmdFile); });
        desktop.atYield([&] { desktop.click(dialog.CmdFile); }, 11);
        format(dialog);
        EXPECT_TRUE(desktop.fileDialogs().empty());
        desktop.atYield([&] { desktop.click(dialog.CmdFile); });
        desktop.click(dialog.CmdAdd);
        EXPECT_TRUE(desktop.fileDialogs().empty());
    });
}

} // namespace
} // namespace corvelle::formatter::test
