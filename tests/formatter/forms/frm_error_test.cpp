#include "formatter/forms/frm_error.h"
#include "formatter/forms/wizard.h"
#include "forms/tidy_layout.h"

namespace corvelle::formatter::test {
namespace {

using ErrorList = Wizard;

void expectListed(const FrmError& list, const std::string& caption, const Lines& rows) {
    EXPECT_EQ(list.lblCaption.caption(), caption);
    EXPECT_EQ(list.List1.items(), rows);
}

TEST_F(ErrorList, ListsTheErrorsOfARunInBufferOrder) {
    code() = {"End Sub", "x = 1", "Case 1", "End Select"};
    inDialog([&](FrmFormatter& dialog) {
        desktop.inNextModal([&](forms::Form& form) {
            auto& list = dynamic_cast<FrmError&>(form);
            expectListed(list, "Total 2 errors detected..", {"Tab On Line: 0", "Error On Line: 3"});
            EXPECT_EQ(list.Command1.caption(), "&Close");
            EXPECT_TRUE(desktop.click(list.Command1));
        });
        desktop.click(dialog.CmdFmt);
        EXPECT_TRUE(dialog.enabled());
        leaveAnyway(dialog);
    });
    EXPECT_EQ(desktop.modals(), (Lines{"FrmFormatter", "FrmError"}));
}

TEST_F(ErrorList, NeverShowsTheEntriesOfTheRunBefore) {
    code() = {"End Sub", "Loop"};
    const auto closeBy = [&](const Lines& rows, bool closeBox) {
        desktop.inNextModal([&, rows, closeBox](forms::Form& form) {
            auto& list = dynamic_cast<FrmError&>(form);
            expectListed(list, "Total " + std::to_string(rows.size()) + " errors detected..", rows);
            EXPECT_TRUE(closeBox ? desktop.close(list) : desktop.click(list.Command1));
        });
    };
    inDialog([&](FrmFormatter& dialog) {
        closeBy({"Tab On Line: 0", "Tab On Line: 1"}, false);
        desktop.click(dialog.CmdFmt);
        code() = {"x = 1", "Next"};
        closeBy({"Tab On Line: 1"}, true);
        desktop.click(dialog.CmdFmt);
        closeBy({"Tab On Line: 1"}, false);
        desktop.click(dialog.CmdFmt);
        leaveAnyway(dialog);
    });
}

TEST_F(ErrorList, IsNotShownAfterARunWithoutErrors) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        EXPECT_EQ(desktop.modals(), (Lines{"FrmFormatter"}));
        leaveAnyway(dialog);
    });
}

TEST_F(ErrorList, IsEmptiedByARunWithoutErrors) {
    code() = {"End Sub"};
    std::shared_ptr<forms::Form> list;
    inDialog([&](FrmFormatter& dialog) {
        desktop.inNextModal([&](forms::Form& form) {
            list = form.shared_from_this();
            form.hide(); // without an unload: the rows stay
        });
        desktop.click(dialog.CmdFmt);
        EXPECT_EQ(dynamic_cast<FrmError&>(*list).List1.listCount(), 1);
        code() = {"x = 1"};
        format(dialog);
        EXPECT_EQ(dynamic_cast<FrmError&>(*list).List1.listCount(), 0);
        leaveAnyway(dialog);
    });
    EXPECT_FALSE(list->isLoaded()); // the dialog has taken it along
}

TEST_F(ErrorList, ClosesOnEnterAndOnEscape) {
    const auto list = std::make_shared<FrmError>(desktop);
    list->show();
    EXPECT_TRUE(desktop.pressEnter(*list));
    EXPECT_FALSE(list->isLoaded());
    list->show();
    EXPECT_TRUE(desktop.pressEscape(*list));
    EXPECT_FALSE(list->isLoaded());
}

TEST_F(ErrorList, ControlsKeepClearOfEachOther) {
    const auto list = std::make_shared<FrmError>(desktop);
    list->load();
    corvelle::test::expectTidy(*list);
    corvelle::test::expectRoomFor("Total 65534 errors detected..", list->lblCaption);
    EXPECT_GE(list->List1.bounds().height, 10 * 195); // rows
}

} // namespace
} // namespace corvelle::formatter::test
