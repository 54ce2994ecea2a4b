#include "base/file.h"
#include "base/paths.h"
#include "base/temporary_folder.h"
#include "formatter/forms/wizard.h"

namespace corvelle::formatter::test {
namespace {

using forms::answer::no;
using forms::answer::yes;

class FormatterHelp : public Wizard {
  protected:
    std::string helpFile() const {
        const auto path = folder.path() / "Formatter.chm";
        base::writeFile(path, "help");
        return base::textOf(path);
    }

    corvelle::test::TemporaryFolder folder;
};

TEST_F(FormatterHelp, ShowsTheContentsOfTheRememberedFile) {
    const std::string file = helpFile();
    desktop.settings().save("Trellis", "Configurations", "Help File", file);
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.click(dialog.CmdHelp));
        ASSERT_EQ(desktop.helps().size(), 1U);
        EXPECT_EQ(desktop.helps()[0].file, file);
        EXPECT_EQ(desktop.helps()[0].command, 1);
        EXPECT_EQ(desktop.helps()[0].data, 0U);
    });
}

TEST_F(FormatterHelp, AsksForAMissingFile) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(desktop.application.helpFile, "Formatter Help.chm");
        desktop.answerNextBox(no);
        EXPECT_TRUE(desktop.click(dialog.CmdHelp));
    });
    EXPECT_EQ(lastBox(), "Help file missing..|36|The help file FormatterHelp.chm could not be found./"
                         "Would you like to search the file..?");
    EXPECT_TRUE(desktop.fileDialogs().empty());
    EXPECT_TRUE(desktop.helps().empty());
}

TEST_F(FormatterHelp, AFolderIsNoHelpFile) {
    desktop.settings().save("Trellis", "Configurations", "Help File", base::textOf(folder.path()));
    inDialog([&](FrmFormatter& dialog) {
        desktop.answerNextBox(no);
        desktop.click(dialog.CmdHelp);
    });
    EXPECT_EQ(desktop.boxes().size(), 1U);
}

TEST_F(FormatterHelp, ShowsTheFileThatTheUserFinds) {
    const std::string file = helpFile();
    inDialog([&](FrmFormatter& dialog) {
        desktop.answerNextBox(yes);
        desktop.chooseNextFile(file);
        desktop.click(dialog.CmdHelp);
        ASSERT_EQ(desktop.fileDialogs().size(), 1U);
        const auto& asked = desktop.fileDialogs()[0];
        EXPECT_FALSE(asked.save);
        EXPECT_EQ(asked.title, "Search FormatterHelp.chm");
        EXPECT_EQ(asked.filter, "Html help file(*.chm)|*.chm");
        EXPECT_EQ(asked.fileName, "*.chm");
        EXPECT_EQ(asked.flags, 2048);
        desktop.click(dialog.CmdHelp); // it is found at once from now on
    });
    EXPECT_EQ(desktop.application.helpFile, file);
    ASSERT_EQ(desktop.helps().size(), 2U);
    EXPECT_EQ(desktop.helps()[1].file, file);
    EXPECT_EQ(desktop.helps()[1].command, 1);
}

TEST_F(FormatterHelp, ShowsNothingWhenTheSearchIsCancelled) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.answerNextBox(yes);
        desktop.cancelNextFile();
        desktop.click(dialog.CmdHelp);
    });
    EXPECT_TRUE(desktop.helps().empty());
    EXPECT_EQ(desktop.application.helpFile, "Formatter Help.chm");
}

TEST_F(FormatterHelp, F1ShowsTheTopicOfTheActiveControl) {
    desktop.settings().save("Trellis", "Configurations", "Help File", "C:\\Help\\F.chm");
    inDialog([&](FrmFormatter& dialog) {
        desktop.tabTo(dialog.Text1);
        EXPECT_TRUE(desktop.press(dialog, forms::keys::F1));
        desktop.tabTo(dialog.ChkNoAll);
        desktop.press(dialog, forms::keys::F1);
        ASSERT_EQ(desktop.helps().size(), 2U);
        EXPECT_EQ(desktop.helps()[0].caller, &dialog.Text1);
        EXPECT_EQ(desktop.helps()[0].file, "C:\\Help\\F.chm");
        EXPECT_EQ(desktop.helps()[0].command, 15);
        EXPECT_EQ(desktop.helps()[0].data, 1000U);
        EXPECT_EQ(desktop.helps()[1].caller, &dialog.ChkNoAll);
        EXPECT_EQ(desktop.helps()[1].data, 0U);
        desktop.press(dialog, forms::keys::F1 + 1);
        EXPECT_EQ(desktop.helps().size(), 2U);
    });
}

TEST_F(FormatterHelp, F1WithoutAnActiveControlShowsNothing) {
    const auto dialog = std::make_shared<FrmFormatter>(desktop);
    dialog->load();
    EXPECT_EQ(dialog->activeControl(), nullptr); // it is not shown
    dialog->userReleasedKey(forms::keys::F1);
    EXPECT_TRUE(desktop.helps().empty());
}

} // namespace
} // namespace corvelle::formatter::test
