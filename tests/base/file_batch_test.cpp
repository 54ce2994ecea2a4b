#include "base/error_of.h"
#include "base/file_batch.h"
#include "base/temporary_folder.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::base {
namespace {

namespace fs = std::filesystem;
using test::errorOf;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Batch : public testing::Test {
  protected:
    Batch() {
        folder.write("a.h", "old header");
        folder.write("sub/b.txt", "old texts");
    }
    fs::path at(const fs::path& name) const { return folder.path() / name; }
    std::vector<fs::path> outputs() const { return {at("a.h"), at("sub/b.txt"), at("c.log")}; }
    void addTo(FileBatch& batch) const {
        batch.add(at("a.h"), "new header");
        batch.add(at("sub/b.txt"), "new texts");
        batch.add(at("c.log"), "new report");
    }
    void expectOld() const {
        EXPECT_EQ(folder.read("a.h"), "old header");
        EXPECT_EQ(folder.read("sub/b.txt"), "old texts");
        EXPECT_THAT(folder.names(), UnorderedElementsAre("a.h", "sub"));
        EXPECT_FALSE(fs::exists(at("c.log")));
        EXPECT_EQ(namesInSub(), 1);
    }
    void expectNew() const {
        EXPECT_EQ(folder.read("a.h"), "new header");
        EXPECT_EQ(folder.read("sub/b.txt"), "new texts");
        EXPECT_EQ(folder.read("c.log"), "new report");
        EXPECT_THAT(folder.names(), UnorderedElementsAre("a.h", "sub", "c.log"));
        EXPECT_EQ(namesInSub(), 1);
    }
    std::ptrdiff_t namesInSub() const {
        return std::distance(fs::directory_iterator(at("sub")), fs::directory_iterator());
    }

    TemporaryFolder folder;
};

TEST_F(Batch, ReplacesAllItsFiles) {
    {
        FileBatch batch;
        addTo(batch);
        EXPECT_EQ(folder.read("a.h"), "old header");
        batch.commit();
    }
    expectNew();
    EXPECT_THAT(completeBatches(outputs()), IsEmpty());
}

TEST_F(Batch, LeavesNothingWithoutACommit) {
    {
        FileBatch batch;
        addTo(batch);
    }
    expectOld();
}

TEST_F(Batch, GivesEachFileItsOldBytesBackWhenOneCannotBeReplaced) {
    {
        FileBatch batch;
        addTo(batch);
        batch.add(at("d.icp"), "new project", {.onlyNew = true});
        folder.write("d.icp", "somebody else's");
        const auto error = errorOf([&] { batch.commit(); });
        EXPECT_EQ(error.number, 70);
        EXPECT_EQ(error.description, "the file was changed meanwhile");
    }
    EXPECT_EQ(folder.read("d.icp"), "somebody else's");
    fs::remove(at("d.icp"));
    expectOld();
}

TEST_F(Batch, LooksAtStamps) {
    FileStamp stamp;
    ASSERT_TRUE(stampOf(at("sub/b.txt"), stamp));
    FileBatch batch;
    batch.add(at("a.h"), "new header");
    batch.add(at("sub/b.txt"), "new texts", {.stamp = stamp});
    folder.write("sub/b.txt", "changed by somebody else");
    EXPECT_EQ(errorOf([&] { batch.commit(); }).number, 70);
    EXPECT_EQ(folder.read("a.h"), "old header");
    EXPECT_EQ(folder.read("sub/b.txt"), "changed by somebody else");
}

// A journal as a killed run leaves it, with its files.
class KilledBatch : public Batch {
  protected:
    KilledBatch() {
        folder.write(".corvelle0.tmp", "new header");
        folder.write("sub/.corvelle0.tmp", "new texts");
        folder.write(".corvelle1.tmp", "new report");
        folder.write(".corvelle2.tmp", "old header");
        folder.write("sub/.corvelle1.tmp", "old texts");
        folder.write("sub/.corvelle0.set", pointerText(home() / ".corvelle0.set", home() / "sub"));
    }
    fs::path home() const { return fs::canonical(folder.path()); }
    BatchJournal journal() const {
        const auto file = [this](const char* target, const char* fresh, std::string_view bytes) {
            return BatchFile{home() / target, home() / fresh, sumOf(bytes)};
        };
        BatchJournal result{{file("a.h", ".corvelle0.tmp", "new header"),
                             file("sub/b.txt", "sub/.corvelle0.tmp", "new texts"),
                             file("c.log", ".corvelle1.tmp", "new report")}};
        result.files[0].old = home() / ".corvelle2.tmp";
        result.files[0].oldSum = sumOf("old header");
        result.files[1].old = home() / "sub/.corvelle1.tmp";
        result.files[1].oldSum = sumOf("old texts");
        return result;
    }
    void leave(const BatchJournal& journal, const char* name = ".corvelle0.set") const {
        folder.write(name, journal.textIn(home()));
    }
    void rename(const char* from, const char* to) const { fs::rename(at(from), at(to)); }
    // As they were before a journal came to be looked at.
    std::vector<std::string> everything() const {
        std::vector<std::string> result;
        for (const auto& entry : fs::recursive_directory_iterator(folder.path())) {
            const auto name = fs::relative(entry.path(), folder.path());
            result.push_back(name.generic_string() + "=" + (entry.is_directory() ? "" : folder.read(name)));
        }
        std::sort(result.begin(), result.end());
        return result;
    }
    void expectIgnored() const {
        const auto before = everything();
        EXPECT_THAT(completeBatches({at("a.h")}), IsEmpty());
        EXPECT_EQ(everything(), before);
    }
};

TEST_F(KilledBatch, IsCompletedByTheNextRunOnAnyOfItsFiles) {
    leave(journal());
    rename(".corvelle0.tmp", "a.h");
    const auto done = completeBatches({at("sub/b.txt")});
    ASSERT_EQ(done.size(), 1U);
    EXPECT_FALSE(done[0].isTakenBack);
    EXPECT_THAT(done[0].files, ElementsAre(home() / "a.h", home() / "sub/b.txt", home() / "c.log"));
    EXPECT_THAT(done[0].left, IsEmpty());
    expectNew();
}

TEST_F(KilledBatch, IsTakenBackWhereTheRunItselfWasDoingThat) {
    leave(journal(), ".corvelle0.back");
    rename(".corvelle0.tmp", "a.h");
    rename(".corvelle1.tmp", "c.log");
    const auto done = completeBatches({at("sub/b.txt")});
    ASSERT_EQ(done.size(), 1U);
    EXPECT_TRUE(done[0].isTakenBack);
    expectOld();
}

TEST_F(KilledBatch, IsTakenBackWhereItCannotBeCompleted) {
    leave(journal());
    rename(".corvelle0.tmp", "a.h");
    fs::remove(at("sub/.corvelle0.tmp"));
    const auto done = completeBatches(outputs());
    ASSERT_EQ(done.size(), 1U);
    EXPECT_TRUE(done[0].isTakenBack);
    expectOld();
}

TEST_F(KilledBatch, LeavesWhatSomebodyHasChangedSince) {
    leave(journal());
    folder.write("a.h", "somebody's");
    const auto done = completeBatches(outputs());
    ASSERT_EQ(done.size(), 1U);
    EXPECT_THAT(done[0].left, ElementsAre(home() / "a.h"));
    EXPECT_EQ(folder.read("a.h"), "somebody's");
    EXPECT_EQ(folder.read("sub/b.txt"), "new texts");
    EXPECT_THAT(folder.names(), UnorderedElementsAre("a.h", "sub", "c.log"));
}

TEST_F(KilledBatch, IsNothingOfWhichNoFileWasToBeRenamedYet) {
    EXPECT_THAT(completeBatches(outputs()), IsEmpty());
    EXPECT_FALSE(fs::exists(at("sub/.corvelle0.set"))); // it points nowhere
    EXPECT_EQ(folder.read("a.h"), "old header");
}

TEST_F(KilledBatch, MovesWithItsFolders) {
    leave(journal());
    const TemporaryFolder elsewhere;
    fs::rename(at(""), elsewhere.path() / "moved");
    completeBatches({elsewhere.path() / "moved/a.h"});
    EXPECT_EQ(elsewhere.read("moved/a.h"), "new header");
    EXPECT_EQ(elsewhere.read("moved/sub/b.txt"), "new texts");
}

TEST_F(KilledBatch, IsNoGarbage) {
    const auto whole = journal().textIn(home());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        folder.write(".corvelle0.set", whole.substr(0, size));
        expectIgnored();
    }
    for (std::size_t i = 0; i < whole.size(); ++i) {
        auto garbage = whole;
        garbage[i] ^= 1;
        folder.write(".corvelle0.set", garbage);
        expectIgnored();
    }
    folder.write(".corvelle0.set", whole + "x");
    expectIgnored();
    fs::remove(at(".corvelle0.set"));
    fs::create_directory(at(".corvelle0.set"));
    expectIgnored();
}

// Whatever a folder from elsewhere holds: no file of another name or place is renamed, replaced or removed.
TEST_F(KilledBatch, NamesOnlyItsOwnTemporaryFilesBesideTheirTargets) {
    folder.write("mine.bas", "new header");
    const auto expectRefused = [&](const std::function<void(BatchFile&)>& change) {
        auto wrong = journal();
        change(wrong.files[0]);
        leave(wrong);
        expectIgnored();
    };
    expectRefused([&](BatchFile& file) { file.fresh = home() / "mine.bas"; });
    expectRefused([&](BatchFile& file) { file.fresh = home() / "sub/.corvelle0.tmp"; });
    expectRefused([&](BatchFile& file) { file.target = home() / "sub/a.h"; });
    expectRefused([&](BatchFile& file) { file.target = home() / "../a.h"; });
    expectRefused([&](BatchFile& file) { file.target = home() / "sub/.."; });
    expectRefused([&](BatchFile& file) { file.target = home() / ".corvelle7.tmp"; });
    expectRefused([&](BatchFile& file) { file.target = home() / ".corvelle7.set"; });
    expectRefused([&](BatchFile& file) { file.old = home() / "mine.bas"; });
    expectRefused([&](BatchFile& file) { file.old = home() / "../.corvelle0.tmp"; });
}

TEST_F(KilledBatch, HasNoSayInAFolderThatDoesNotPointToIt) {
    leave(journal());
    fs::remove(at("sub/.corvelle0.set"));
    expectIgnored();
    folder.write("sub/.corvelle0.set", pointerText(home() / ".corvelle9.set", home() / "sub"));
    expectIgnored();
}

#ifndef _WIN32
TEST_F(KilledBatch, FollowsNoLinks) {
    const TemporaryFolder elsewhere;
    leave(journal());
    fs::rename(at(".corvelle0.set"), elsewhere.path() / "journal");
    fs::create_symlink(elsewhere.path() / "journal", at(".corvelle0.set"));
    expectIgnored();
    fs::remove(at(".corvelle0.set"));
    leave(journal());
    fs::remove(at(".corvelle0.tmp"));
    elsewhere.write("secret", "new header");
    fs::create_symlink(elsewhere.path() / "secret", at(".corvelle0.tmp"));
    completeBatches(outputs());
    EXPECT_EQ(folder.read("a.h"), "old header");
    EXPECT_EQ(elsewhere.read("secret"), "new header");
}
#endif

TEST(BatchJournal, KeepsAnyName) {
    const fs::path folder = fs::path("/a b").lexically_normal();
    const auto odd = folder / fs::path(u8"x %0A \u00E4.h");
    BatchJournal journal{{{odd, folder / ".corvelle1.tmp", sumOf("x")}}};
    const auto read = BatchJournal::read(journal.textIn(folder), folder);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->files[0].target, odd);
}

} // namespace
} // namespace corvelle::base
