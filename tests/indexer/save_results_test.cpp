#include "base/temporary_folder.h"
#include "indexer/report.h"

#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;

TEST(SaveReport, EndsTheLastLineAndReplacesTheFile) {
    const TemporaryFolder folder;
    const auto path = (folder.path() / "a.log").string();
    Report report;
    report.AddInfo_Rpt("now", {});
    for (int i = 0; i < 2; ++i) {
        const auto result = saveReport(path, report);
        EXPECT_TRUE(result.saved);
        EXPECT_EQ(result.message->text, "File: " + path + " was saved..");
        EXPECT_EQ(result.message->flags, 64);
        EXPECT_EQ(folder.read("a.log"), report.text() + "\r\n");
    }
}

TEST(SaveReport, SaysNothingOfAFailure) {
    const TemporaryFolder folder;
    const auto result = saveReport(folder.path().string(), Report());
    EXPECT_FALSE(result.saved);
    EXPECT_FALSE(result.message);
}

TEST(SaveProject, WritesTheEightLinesAndReplacesTheFile) {
    const TemporaryFolder folder;
    const auto path = (folder.path() / "a.icp").string();
    for (const auto* date : {"the day before yesterday", "now"}) {
        const auto result = saveProject(path, date, ProjectInfo{"P", "p.vbp", "a.h", "a.hcnf", "", "m", ""});
        EXPECT_TRUE(result.saved);
        EXPECT_EQ(result.message->text, "File was saved successfully.");
        EXPECT_EQ(result.message->flags, 64);
        EXPECT_EQ(folder.read("a.icp"), std::string("Indexer project file :") + date +
                                            "\r\nVB Project Name= P\r\nProject File= p.vbp\r\n"
                                            "Header file= a.h\r\nConfiguration File= a.hcnf\r\n"
                                            "Text File= \r\nModule Name= m\r\nModule File= \r\n");
    }
}

TEST(SaveProject, TellsOfAFailure) {
    const TemporaryFolder folder;
    const auto result = saveProject(folder.path().string(), "now", {});
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(result.message->text, "Errors occured while saving file. ");
    EXPECT_EQ(result.message->flags, 48);
}

} // namespace
} // namespace corvelle::indexer
