#include "indexer/help_index.h"

#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

TEST(HelpIndex, HoldsTheDefaultEntryAloneWhenCleared) {
    HelpIndex index;
    index.designers = {"frmMain"};
    index.entries.front().HelpText = "text";
    index.entries.push_back({1, "IDH_AAAB", "cmdOK", "CommandButton", ""});
    index.unreadTextFiles = {"a.txt"};
    index.isUnread = true;
    index.clear();
    EXPECT_TRUE(index.unreadTextFiles.empty());
    EXPECT_FALSE(index.isUnread);
    EXPECT_TRUE(index.designers.empty());
    ASSERT_EQ(index.entries.size(), 1U);
    EXPECT_EQ(index.count(), 0U);
    EXPECT_EQ(index.entries[0].IDHName, "IDH_AAAA");
    EXPECT_EQ(index.entries[0].HelpText, "");
}

} // namespace
} // namespace corvelle::indexer
