#include "ide/workspace/group_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(GroupFile, ReadsTheProjectsInTheirOrder) {
    const GroupFile file("VBGROUP 5.0\r\nStartupProject=App\\App.vbp\r\nProject=Lib\\Lib.vbp\r\n");
    EXPECT_THAT(file.projects(), ElementsAre("App\\App.vbp", "Lib\\Lib.vbp"));
    EXPECT_EQ(file.startup(), 0U);
}

TEST(GroupFile, CountsAProjectOnce) {
    const GroupFile file("VBGROUP 5.0\nProject=Lib\\Lib.vbp\nProject=app.vbp\nproject = lib/LIB.vbp\n"
                         "StartupProject=APP.vbp");
    EXPECT_THAT(file.projects(), ElementsAre("Lib\\Lib.vbp", "app.vbp"));
    EXPECT_EQ(file.startup(), 1U);
}

TEST(GroupFile, StartsTheFirstProjectWhereNothingIsSaid) {
    EXPECT_EQ(GroupFile("Project=a.vbp\nProject=b.vbp\n").startup(), 0U);
}

TEST(GroupFile, ToleratesAnything) {
    EXPECT_THAT(GroupFile("").projects(), IsEmpty());
    EXPECT_THAT(GroupFile("VBGROUP 5.0").projects(), IsEmpty());
    EXPECT_THAT(GroupFile("\"x\n=\nProject=\"a b.vbp\"\n[x]\nProject=c.vbp").projects(),
                ElementsAre("a b.vbp"));
}

} // namespace
} // namespace corvelle::workspace
