#include "formatter/backup.h"

#include <gtest/gtest.h>

namespace corvelle::formatter {
namespace {

TEST(BackupName, NumbersCopiesFromTheSecondOn) {
    EXPECT_EQ(backupName("Main", ide::ComponentType::ClassModule), "Main_bak.cls");
    EXPECT_EQ(backupName("Main", ide::ComponentType::ClassModule, 1), "Main_bak.cls");
    EXPECT_EQ(backupName("Main", ide::ComponentType::ClassModule, 2), "Main_bak2.cls");
}

} // namespace
} // namespace corvelle::formatter
