// Message boxes, file dialogs, settings, help and colours: what a program gets from the desktop.

#include "base/run_time_error.h"
#include "forms/headless/headless_desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::forms {
namespace {

class Services : public testing::Test {
  protected:
    HeadlessDesktop desktop;
};

TEST_F(Services, AMessageBoxShowsWhatItIsGiven) {
    desktop.answerNextBox(answer::yes);
    EXPECT_EQ(desktop.msgBox("one\rtwo", box::yesNo + box::question, "Save ?"), answer::yes);
    ASSERT_EQ(desktop.boxes().size(), 1U);
    EXPECT_EQ(desktop.boxes()[0].text, "one\rtwo");
    EXPECT_EQ(desktop.boxes()[0].flags, 36);
    EXPECT_EQ(desktop.boxes()[0].title, "Save ?");
}

TEST_F(Services, AMessageBoxHasTheApplicationsTitleByDefault) {
    desktop.application.title = "The Title";
    desktop.answerNextBox(answer::ok);
    EXPECT_EQ(desktop.msgBox("text", box::information), answer::ok);
    EXPECT_EQ(desktop.boxes()[0].title, "The Title");
}

TEST_F(Services, FlagsAndAnswersAreTheSystems) {
    EXPECT_EQ(box::okOnly, 0);
    EXPECT_EQ(box::yesNo, 4);
    EXPECT_EQ(box::critical, 16);
    EXPECT_EQ(box::question, 32);
    EXPECT_EQ(box::exclamation, 48);
    EXPECT_EQ(box::information, 64);
    EXPECT_EQ(answer::ok, 1);
    EXPECT_EQ(answer::yes, 6);
    EXPECT_EQ(answer::no, 7);
    EXPECT_EQ(file_dialog::overwritePrompt, 2);
    EXPECT_EQ(file_dialog::pathMustExist, 2048);
    EXPECT_EQ(file_dialog::fileMustExist, 4096);
    EXPECT_EQ(file_dialog::createPrompt, 8192);
}

TEST_F(Services, TheApplicationKnowsItself) {
    EXPECT_EQ(desktop.application.title, "Corvelle");
    EXPECT_EQ(desktop.application.productName, "Trellis");
    EXPECT_EQ(desktop.application.major, 1);
    EXPECT_EQ(desktop.application.minor, 0);
    EXPECT_EQ(desktop.application.revision, 7);
}

TEST_F(Services, AFileDialogShowsWhatItIsSetToAndGivesThePath) {
    CommonDialog dialog(desktop);
    dialog.dialogTitle = "Save it";
    dialog.fileName = "proposed.txt";
    dialog.initDir = "C:\\Work";
    dialog.filter = "Text|*.txt";
    dialog.flags = file_dialog::overwritePrompt + file_dialog::createPrompt;
    desktop.chooseNextFile("C:\\Work\\chosen.txt");
    dialog.showSave();
    EXPECT_EQ(dialog.fileName, "C:\\Work\\chosen.txt");
    ASSERT_EQ(desktop.fileDialogs().size(), 1U);
    const auto& shown = desktop.fileDialogs()[0];
    EXPECT_EQ(shown.title, "Save it");
    EXPECT_EQ(shown.fileName, "proposed.txt");
    EXPECT_EQ(shown.initDir, "C:\\Work");
    EXPECT_EQ(shown.filter, "Text|*.txt");
    EXPECT_EQ(shown.flags, 8194);
    EXPECT_TRUE(shown.save);
    desktop.chooseNextFile("other");
    dialog.showOpen();
    EXPECT_FALSE(desktop.fileDialogs()[1].save);
    EXPECT_EQ(dialog.fileName, "other");
}

TEST_F(Services, CancellingKeepsTheFileName) {
    CommonDialog dialog(desktop);
    dialog.fileName = "old";
    desktop.cancelNextFile();
    dialog.showOpen();
    EXPECT_EQ(dialog.fileName, "old");
}

TEST_F(Services, CancellingIsAnErrorWhereItIsWanted) {
    CommonDialog dialog(desktop);
    dialog.cancelError = true;
    dialog.fileName = "old";
    desktop.cancelNextFile();
    try {
        dialog.showSave();
        ADD_FAILURE();
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 32755);
        EXPECT_EQ(error.description(), "Cancel was selected.");
    }
    EXPECT_EQ(dialog.fileName, "old");
    desktop.chooseNextFile("new");
    EXPECT_NO_THROW(dialog.showSave());
}

TEST_F(Services, SettingsHaveDefaultsAndAreKeptByAllThreeNames) {
    Settings& settings = desktop.settings();
    EXPECT_EQ(settings.get("A", "S", "K", "otherwise"), "otherwise");
    settings.save("A", "S", "K", "value");
    EXPECT_EQ(settings.get("A", "S", "K", "otherwise"), "value");
    EXPECT_EQ(settings.get("B", "S", "K", ""), "");
    EXPECT_EQ(settings.get("A", "T", "K", ""), "");
    EXPECT_EQ(settings.get("A", "S", "L", ""), "");
    settings.save("A", "S", "K", "");
    EXPECT_EQ(settings.get("A", "S", "K", "otherwise"), "") << "an empty value is a value";
    EXPECT_EQ(desktop.map().values.size(), 1U);
}

TEST_F(Services, HelpIsRecorded) {
    desktop.showHelp(nullptr, "file.chm", 15, 1000);
    ASSERT_EQ(desktop.helps().size(), 1U);
    EXPECT_EQ(desktop.helps()[0].caller, nullptr);
    EXPECT_EQ(desktop.helps()[0].file, "file.chm");
    EXPECT_EQ(desktop.helps()[0].command, 15);
    EXPECT_EQ(desktop.helps()[0].data, 1000U);
}

TEST_F(Services, SystemColoursAreResolvedAndOthersAreTheirOwn) {
    EXPECT_EQ(desktop.resolve(0x00123456), 0x00123456U);
    EXPECT_EQ(desktop.resolve(0x7F123456), 0x00123456U);
    EXPECT_EQ(desktop.resolve(colours::windowBackground), 0xFFFFFFU);
    EXPECT_EQ(desktop.resolve(colours::buttonText), 0x000000U);
    EXPECT_EQ(desktop.resolve(0x80000018), 0xE1FFFFU);
    EXPECT_EQ(desktop.resolve(0x80000019), 0U) << "there is no such system colour";
    EXPECT_FALSE(isSystemColour(0x00FFFFFF));
    EXPECT_TRUE(isSystemColour(colours::buttonFace));
}

} // namespace
} // namespace corvelle::forms
