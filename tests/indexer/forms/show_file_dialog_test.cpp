#include "base/run_time_error.h"
#include "forms/headless/headless_desktop.h"
#include "indexer/forms/show_file_dialog.h"

#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

TEST(ShowFileDialog, AsksForAFileToSaveInto) {
    forms::HeadlessDesktop desktop;
    forms::CommonDialog dialog(desktop);
    desktop.chooseNextFile("C:\\p\\b.h");
    EXPECT_EQ(ShowFileDialog("Header file(*.h)|*.h", "C:\\p\\", "a.h", dialog), "C:\\p\\b.h");
    ASSERT_EQ(desktop.fileDialogs().size(), 1U);
    const auto& shown = desktop.fileDialogs().front();
    EXPECT_TRUE(shown.save);
    EXPECT_EQ(shown.filter, "Header file(*.h)|*.h");
    EXPECT_EQ(shown.initDir, "C:\\p\\");
    EXPECT_EQ(shown.fileName, "a.h");
    EXPECT_EQ(shown.flags, 8194);
    EXPECT_TRUE(dialog.cancelError);
}

TEST(ShowFileDialog, GivesNothingWhenItIsCancelled) {
    forms::HeadlessDesktop desktop;
    forms::CommonDialog dialog(desktop);
    desktop.cancelNextFile();
    EXPECT_EQ(ShowFileDialog("", "", "a.h", dialog), "");
}

TEST(ShowFileDialog, GivesNothingWhenItFails) {
    class Failing : public forms::HeadlessDesktop {
        std::optional<std::string> chooseFile(const forms::CommonDialog&, bool) override {
            throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
        }
    } desktop;
    forms::CommonDialog dialog(desktop);
    EXPECT_EQ(ShowFileDialog("", "", "a.h", dialog), "");
}

} // namespace
} // namespace corvelle::indexer
