#include "base/file.h"
#include "base/paths.h"
#include "base/temporary_folder.h"
#include "formatter/forms/wizard.h"

#include <algorithm>
#include <filesystem>
#include <utility>

// Every call that the windows make on the IDE fails, one after the other, in a user's whole way through them.
namespace corvelle::formatter::test {
namespace {

class WholeWay : public Session {
  public:
    explicit WholeWay(std::filesystem::path backup) : backup_(std::move(backup)) {
        desktop.alwaysYes = true;
        desktop.everyFile = base::textOf(backup_);
        desktop.inEveryModal = [this](forms::Form& form) { useDialog(dynamic_cast<FrmFormatter&>(form)); };
    }

    /// Page, refresh, dialog, format, backup, format, add, back. What a failure has disabled is passed over.
    void walk() {
        showPage();
        desktop.click(page().cmdRef);
        desktop.click(page().CmdNext);
        EXPECT_TRUE(page().visible());
        EXPECT_TRUE(page().enabled());
        EXPECT_EQ(page().formatter(), nullptr);
        EXPECT_EQ(desktop.windows().size(), 1U);
    }

    using Session::calls;
    using Session::code;
    using Session::disaster;
    using Session::followSettings;

    /// Whether the user has been told of a failure.
    bool told = false;

  private:
    void useDialog(FrmFormatter& dialog) {
        press(dialog, dialog.CmdFmt);
        press(dialog, dialog.CmdFile);
        if (picture(dialog) == 2) {
            EXPECT_EQ(base::readFile(backup_), asFile(sample()));
        }
        press(dialog, dialog.CmdFmt);
        press(dialog, dialog.CmdAdd);
        EXPECT_TRUE(desktop.click(dialog.CmdBack));
        EXPECT_FALSE(dialog.isLoaded());
    }
    void press(FrmFormatter& dialog, forms::Control& button) {
        if (!desktop.click(button)) return;
        expectPassAtRest(dialog);
        EXPECT_TRUE(dialog.visible());
        EXPECT_TRUE(picture(dialog) == 1 || picture(dialog) == 2);
        if (picture(dialog) == 1) told = true;
    }

    std::filesystem::path backup_;
};

using Faults = std::function<void(corvelle::test::Calls&, int n)>;

// Runs the way with the n-th call failing, for every n, and lets `check` look at what is left.
void forEveryCallBy(const char* settings, const Faults& fail, const std::function<void(WholeWay&)>& check) {
    const corvelle::test::TemporaryFolder folder;
    const auto backup = folder.path() / "Account_bak.bas";
    int calls = 0;
    for (bool failed = true; failed;) {
        ++calls;
        SCOPED_TRACE("call " + std::to_string(calls));
        std::filesystem::remove(backup);
        WholeWay way(backup);
        if (*settings != 0) way.followSettings(settings);
        fail(way.calls, calls);
        way.walk();
        failed = static_cast<int>(way.calls.all().size()) >= calls && way.calls.anyFailed();
        check(way);
        if (!failed) {
            EXPECT_EQ(way.code(), formattedSample());
        }

        // The same windows serve the user once the IDE is well again.
        way.calls.failNoMore();
        way.calls.onCall = nullptr;
        way.code() = sample();
        way.walk();
        EXPECT_EQ(way.code(), formattedSample());
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(calls, 50); // the way is as long as it was meant to be
}

// The same in both layouts.
void forEveryCall(const Faults& fail, const std::function<void(WholeWay&)>& check) {
    for (const char* settings : {"", structuredSample}) {
        SCOPED_TRACE(settings);
        forEveryCallBy(settings, fail, check);
        if (testing::Test::HasFailure()) return;
    }
}

TEST(IdeFailures, AnyCallThatFailsOnceHarmsNothing) {
    forEveryCall(
        [](corvelle::test::Calls& calls, int n) { calls.fail("", n, WholeWay::disaster); },
        [](WholeWay& way) { EXPECT_TRUE(way.code() == sample() || way.code() == formattedSample()); });
}

TEST(IdeFailures, AnIdeThatStaysDeadTakesNothingBeyondWhatWasDeleted) {
    forEveryCall([](corvelle::test::Calls& calls, int n) { calls.failForGood("", n, WholeWay::disaster); },
                 [](WholeWay& way) {
                     const Lines whole = formattedSample();
                     const bool written = way.code().size() <= whole.size() &&
                                          std::equal(way.code().begin(), way.code().end(), whole.begin());
                     EXPECT_TRUE(way.code() == sample() || written);
                     if (written && way.code() != whole) {
                         EXPECT_TRUE(way.told);
                     }
                 });
}

TEST(IdeFailures, LackOfMemoryInAnyCallHarmsNothing) {
    forEveryCall(
        [](corvelle::test::Calls& calls, int n) {
            calls.onCall = [&calls, n](const std::string&) {
                if (static_cast<int>(calls.all().size()) == n) calls.failWithoutMemory();
            };
        },
        [](WholeWay& way) { EXPECT_TRUE(way.code() == sample() || way.code() == formattedSample()); });
}

} // namespace
} // namespace corvelle::formatter::test
