#include "base/temporary_folder.h"
#include "cli/backup_names.h"

#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

using ide::ComponentType;

TEST(BackupNames, AreTheDialogsFirst) {
    const test::TemporaryFolder folder;
    BackupNames names(folder.path());
    EXPECT_EQ(names.next("Main", ComponentType::StdModule).text(), "Main_bak.bas");
    EXPECT_EQ(names.next("Account", ComponentType::ClassModule).text(), "Account_bak.cls");
}

TEST(BackupNames, AreNumberedWhenAModulesNameComesAgain) {
    const test::TemporaryFolder folder;
    BackupNames names(folder.path());
    EXPECT_EQ(names.next("Main", ComponentType::StdModule).text(), "Main_bak.bas");
    EXPECT_EQ(names.next("Main", ComponentType::StdModule).text(), "Main_bak2.bas");
    EXPECT_EQ(names.next("Main", ComponentType::StdModule).text(), "Main_bak3.bas");
    EXPECT_EQ(names.next("Main2", ComponentType::StdModule).text(), "Main2_bak.bas");
}

TEST(BackupNames, AreTheSameWhateverTheLetterCase) {
    // Two files whose names differ in case alone are one file on Windows.
    const test::TemporaryFolder folder;
    BackupNames names(folder.path());
    EXPECT_EQ(names.next("main", ComponentType::StdModule).text(), "main_bak.bas");
    EXPECT_EQ(names.next("MAIN", ComponentType::StdModule).text(), "MAIN_bak2.bas");
}

TEST(BackupNames, AreNumberedAcrossKinds) {
    const test::TemporaryFolder folder;
    BackupNames names(folder.path());
    EXPECT_EQ(names.next("A", ComponentType::VBForm).text(), "A_bak.frm");
    EXPECT_EQ(names.next("A", ComponentType::StdModule).text(), "A_bak2.bas");
}

TEST(BackupNames, AreThoseThatNothingHas) {
    const test::TemporaryFolder folder;
    folder.write("A_bak.bas", "x");
    folder.write("A_bak3.bas", "x");
    std::filesystem::create_directory(folder.path() / "A_bak5.bas");
    BackupNames names(folder.path());
    EXPECT_EQ(names.next("A", ComponentType::StdModule).text(), "A_bak2.bas");
    EXPECT_EQ(names.next("A", ComponentType::StdModule).text(), "A_bak4.bas");
    EXPECT_EQ(names.next("A", ComponentType::StdModule).text(), "A_bak6.bas");
}

} // namespace
} // namespace corvelle::cli
