#include "cli/backup_names.h"

#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

using ide::ComponentType;

TEST(BackupNames, AreTheDialogsFirst) {
    BackupNames names;
    EXPECT_EQ(names.next("Main", ComponentType::StdModule), "Main_bak.bas");
    EXPECT_EQ(names.next("Account", ComponentType::ClassModule), "Account_bak.cls");
}

TEST(BackupNames, AreNumberedWhenAModulesNameComesAgain) {
    BackupNames names;
    EXPECT_EQ(names.next("Main", ComponentType::StdModule), "Main_bak.bas");
    EXPECT_EQ(names.next("Main", ComponentType::StdModule), "Main_bak2.bas");
    EXPECT_EQ(names.next("Main", ComponentType::StdModule), "Main_bak3.bas");
    EXPECT_EQ(names.next("Main2", ComponentType::StdModule), "Main2_bak.bas");
}

TEST(BackupNames, AreTheSameWhateverTheLetterCase) {
    // Two files whose names differ in case alone are one file on Windows.
    BackupNames names;
    EXPECT_EQ(names.next("main", ComponentType::StdModule), "main_bak.bas");
    EXPECT_EQ(names.next("MAIN", ComponentType::StdModule), "MAIN_bak2.bas");
}

TEST(BackupNames, AreNumberedAcrossKinds) {
    BackupNames names;
    EXPECT_EQ(names.next("A", ComponentType::VBForm), "A_bak.frm");
    EXPECT_EQ(names.next("A", ComponentType::StdModule), "A_bak2.bas");
}

} // namespace
} // namespace corvelle::cli
