#include "base/temporary_folder.h"
#include "cli/format_job.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::cli {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

constexpr std::string_view untidy = "Sub a()\r\nb\r\nEnd Sub\r\n";

FormatSettings classic() {
    FormatSettings result;
    result.layout.layout = settings::Layout::Classic;
    return result;
}

TEST(FormatJob, RefusesAFileThatChangedSinceItWasRead) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", untidy);
    const ModuleSource source{.shownPath = "a.bas", .path = path, .type = ide::ComponentType::StdModule};
    const FormatSettings settings = classic();
    FormatJob job(source, settings);
    job.format();
    ASSERT_EQ(job.fate(), FormatJob::Fate::Rewritten);
    folder.write("a.bas", "Sub somethingElse()\r\nEnd Sub\r\n");
    job.save();
    EXPECT_EQ(job.fate(), FormatJob::Fate::Failed);
    EXPECT_EQ(job.status(), exitFailed);
    EXPECT_EQ(folder.read("a.bas"), "Sub somethingElse()\r\nEnd Sub\r\n");
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
}

TEST(FormatJob, RefusesAFileThatWentAway) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", untidy);
    const ModuleSource source{.shownPath = "a.bas", .path = path, .type = ide::ComponentType::StdModule};
    const FormatSettings settings = classic();
    FormatJob job(source, settings);
    job.format();
    std::filesystem::remove(path);
    job.save();
    EXPECT_EQ(job.fate(), FormatJob::Fate::Failed);
    EXPECT_THAT(folder.names(), testing::IsEmpty());
}

TEST(FormatJob, WritesNothingBeforeItIsToldTo) {
    const TemporaryFolder folder;
    const auto path = folder.write("a.bas", untidy);
    const ModuleSource source{.shownPath = "a.bas", .path = path, .type = ide::ComponentType::StdModule};
    FormatSettings settings = classic();
    settings.backupDir = (folder.path() / "backups").string();
    FormatJob job(source, settings);
    BackupNames names(*settings.backupDir);
    job.format();
    job.chooseBackup(names);
    EXPECT_THAT(folder.names(), ElementsAre("a.bas"));
    EXPECT_EQ(folder.read("a.bas"), untidy);
    job.save();
    EXPECT_THAT(folder.names(), UnorderedElementsAre("a.bas", "backups"));
    EXPECT_EQ(folder.read("backups/a_bak.bas"), untidy);
}

} // namespace
} // namespace corvelle::cli
