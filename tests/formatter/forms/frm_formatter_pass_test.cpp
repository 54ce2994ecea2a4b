#include "formatter/forms/wizard.h"

namespace corvelle::formatter::test {
namespace {

using FormatCode = Wizard;

Lines bufferOf(const FrmFormatter& dialog) {
    Lines lines;
    for (std::int32_t i = 0; i <= dialog.lineBuffer().maxIndx(); ++i) {
        lines.push_back(dialog.lineBuffer().line(i));
    }
    return lines;
}

TEST_F(FormatCode, FormatsIntoTheBufferAndLeavesTheModuleAlone) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.click(dialog.CmdFmt));
        EXPECT_EQ(bufferOf(dialog), formattedSample());
        EXPECT_EQ(code(), sample());
        EXPECT_EQ(status(dialog), " Status: Formatting completed successfully...");
        EXPECT_EQ(process(dialog), " No Process..");
        EXPECT_EQ(results(dialog), "      Module contains 10 Lines | Formatted code contains:  8 Lines");
        EXPECT_EQ(picture(dialog), 2);
        EXPECT_TRUE(dialog.CmdAdd.enabled());
        EXPECT_TRUE(dialog.CmdFmt.enabled());
        expectPassAtRest(dialog);
        leaveAnyway(dialog);
    });
    EXPECT_EQ(calls.count("CodeModule.DeleteLines"), 0);
    EXPECT_EQ(calls.count("CodeModule.InsertLines"), 0);
}

TEST_F(FormatCode, TellsHowFarItIs) {
    code() = {"Sub A()", "", "x = 1", "End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        Lines texts;
        const auto watch = [&] {
            texts.push_back(status(dialog) + " |" + process(dialog));
            EXPECT_EQ(picture(dialog), 3);
            EXPECT_EQ(dialog.mousePointer(), forms::MousePointer::Hourglass);
        };
        for (int i = 0; i < 7; ++i) desktop.atYield(watch);
        format(dialog);
        EXPECT_EQ(texts, (Lines{
                             " Status: Reading Module Pane.. | LN: 1",
                             " Status: Reading Module Pane.. | LN: 2",
                             " Status: Reading Module Pane.. | LN: 3",
                             " Status: Reading Module Pane.. | LN: 3", // the indicator stops
                             " Status: Formating... | No Process..",
                             " Status: Formating... | In Line: 0 of 2",
                             " Status: Formating... | In Line: 1 of 2",
                         }));
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, IndicatorRunsAndOptionsRestDuringThePass) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.atYield([&] { EXPECT_TRUE(indicatorRuns(dialog)); });
        desktop.atYield(
            [&] {
                EXPECT_TRUE(indicatorRuns(dialog));
                EXPECT_FALSE(dialog.Frame1.enabled());
                EXPECT_FALSE(desktop.click(dialog.ChkNoCmnt));
                EXPECT_FALSE(desktop.drag(dialog.Slider1, 8));
            },
            11); // 8 lines kept, the indicator's stop, the third line of the pass
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), formattedSample());
        expectPassAtRest(dialog);
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, OptionsChangedWhileTheModuleIsReadHoldForTheNextRun) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.atYield([&] {
            desktop.click(dialog.ChkNoCmnt);
            desktop.drag(dialog.Slider1, 8);
        });
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), formattedSample());
        format(dialog);
        EXPECT_EQ(bufferOf(dialog)[2], "        Dim n As Long ' count");
        EXPECT_EQ(bufferOf(dialog).size(), 7U);
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, ChecksChooseWhatIsRemoved) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.click(dialog.ChkNoEmpty)); // off
        EXPECT_TRUE(desktop.click(dialog.ChkNoCmnt));
        EXPECT_TRUE(desktop.click(dialog.ChkNoAll));
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), (Lines{"Option Explicit", "", "Sub Main()", "  Dim n As Long ",
                                           "  If n > 0 Then", "    n = 1", "  End If", "  ", "End Sub"}));
        desktop.click(dialog.ChkNoEmpty);
        desktop.click(dialog.ChkNoCmnt);
        desktop.click(dialog.ChkNoAll);
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), formattedSample());
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, SliderSetsTheSpacesOfTheNextRun) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.drag(dialog.Slider1, 4));
        EXPECT_EQ(dialog.lblTab.caption(), "4");
        format(dialog);
        EXPECT_EQ(bufferOf(dialog)[4], "        n = 1");
        desktop.drag(dialog.Slider1, 0);
        format(dialog);
        EXPECT_EQ(bufferOf(dialog)[4], "n = 1");
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, AnUnsetModuleIsReportedAndLeavesTheDialogUsable) {
    inDialog([&](FrmFormatter& dialog) {
        const auto set = dialog.FmtCodeModule;
        dialog.FmtCodeModule.reset();
        desktop.answerNextBox(forms::answer::ok);
        EXPECT_TRUE(desktop.click(dialog.CmdFmt));
        EXPECT_EQ(lastBox(), "Object variable not set..|48|Error while accessing object.. Aborting.");
        EXPECT_EQ(status(dialog), " Status: Loading file to internal buffer..");
        EXPECT_EQ(picture(dialog), 1);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        expectPassAtRest(dialog);
        dialog.FmtCodeModule = set;
        format(dialog);
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, AnEmptyModuleGivesNothingToAdd) {
    code().clear();
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.click(dialog.CmdFmt));
        EXPECT_EQ(status(dialog), " Status: Code Module Successfully loaded ..");
        EXPECT_EQ(picture(dialog), 1);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        expectPassAtRest(dialog);
    });
}

TEST_F(FormatCode, StructuralErrorsAreCountedAndListed) {
    code() = {"End Sub", "x = 1", "Loop"};
    inDialog([&](FrmFormatter& dialog) {
        desktop.inNextModal([&](forms::Form& list) {
            EXPECT_EQ(status(dialog), " Status: Formatting was not successful.2 errors detected..");
            EXPECT_EQ(results(dialog), "      Module contains 3 Lines | Formatted code contains:  3 Lines");
            EXPECT_EQ(picture(dialog), 1);
            expectPassAtRest(dialog);
            desktop.close(list);
        });
        EXPECT_TRUE(desktop.click(dialog.CmdFmt));
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        leaveAnyway(dialog); // a completed pass counts as formatted
    });
    EXPECT_EQ(lastBox().substr(0, 14), "Add code ..?|3");
}

TEST_F(FormatCode, NothingCanBeAddedAfterALaterRunWithErrors) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        code().push_back("End Sub");
        desktop.inNextModal([&](forms::Form& list) { desktop.close(list); });
        desktop.click(dialog.CmdFmt);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, AStopRequestAbortsThePass) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        code().push_back("' more");
        desktop.atYield([&] { dialog.DisableProc(); }, 12); // before the third line
        desktop.click(dialog.CmdFmt);
        EXPECT_EQ(results(dialog), "      Module contains 10 Lines | Formatted code contains:  8 Lines")
            << "of the run before";
        EXPECT_EQ(status(dialog), " Status: Formatting was aborted by user..");
        EXPECT_EQ(process(dialog), " No Process..");
        EXPECT_EQ(picture(dialog), 0);
        EXPECT_FALSE(dialog.CmdAdd.enabled()); // half of the buffer is not formatted
        expectPassAtRest(dialog);
    }); // and closing asks nothing
    EXPECT_TRUE(desktop.boxes().empty());
    code().pop_back();
    EXPECT_EQ(code(), sample());
}

TEST_F(FormatCode, AStopRequestBeforeThePassIsForgotten) {
    inDialog([&](FrmFormatter& dialog) {
        dialog.DisableProc();
        desktop.atYield([&] { dialog.DisableProc(); }); // while the module is read
        format(dialog);
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, ARunTimeErrorInThePassIsShownAndTheDialogStaysUsable) {
    // 3,277 levels of ten spaces are more than a 16-bit number holds.
    code().assign(3300, "Do");
    inDialog([&](FrmFormatter& dialog) {
        desktop.drag(dialog.Slider1, 10);
        desktop.answerNextBox(forms::answer::ok, [&] { EXPECT_EQ(picture(dialog), 3); });
        EXPECT_TRUE(desktop.click(dialog.CmdFmt));
        EXPECT_EQ(lastBox(), "Corvelle|0|Overflow");
        EXPECT_EQ(results(dialog), "       No Results..");
        EXPECT_EQ(picture(dialog), 1);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        expectPassAtRest(dialog);
        code() = sample();
        desktop.drag(dialog.Slider1, 2);
        format(dialog);
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, ANegativeLevelIsShownAsTheErrorItIs) {
    // Two unmatched ends leave no level for the second Case to step back from.
    code() = {"Select Case a", "Case 1", "End Sub", "End Sub", "Case 2"};
    inDialog([&](FrmFormatter& dialog) {
        desktop.answerNextBox(forms::answer::ok);
        desktop.click(dialog.CmdFmt);
        EXPECT_EQ(lastBox(), "Corvelle|0|Invalid procedure call or argument");
        EXPECT_EQ(picture(dialog), 1);
        expectPassAtRest(dialog);
    });
}

TEST_F(FormatCode, ASecondRunReadsTheModuleAgain) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        code() = {"Sub A()", "x = 1", "End Sub"};
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), (Lines{"Sub A()", "  x = 1", "End Sub"}));
        EXPECT_EQ(results(dialog), "      Module contains 3 Lines | Formatted code contains:  3 Lines");
        leaveAnyway(dialog);
    });
}

TEST_F(FormatCode, ARunThatCannotBeginIsNoFormattedCodeToAskAbout) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        calls.fail("CodeModule.CountOfLines", 1, disaster);
        desktop.answerNextBox(forms::answer::ok);
        desktop.click(dialog.CmdFmt);
        EXPECT_EQ(lastBox(), "Corvelle|0|" + disaster.description());
        EXPECT_EQ(picture(dialog), 1);
        expectPassAtRest(dialog);
    }); // and closing asks nothing
    EXPECT_EQ(desktop.boxes().size(), 1U);
}

TEST_F(FormatCode, AModuleThatShrinksWhileItIsReadIsAnError) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.atYield([&] { code().resize(4); });
        desktop.answerNextBox(forms::answer::ok);
        desktop.click(dialog.CmdFmt);
        EXPECT_EQ(lastBox(), "Corvelle|0|Subscript out of range");
        EXPECT_EQ(picture(dialog), 1);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        expectPassAtRest(dialog);
    });
}

TEST_F(FormatCode, InitBtnsForgetsTheRunButNeverUnderOne) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.atYield([&] { dialog.InitBtns(); }, 12);
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), formattedSample());
        dialog.InitBtns();
        EXPECT_EQ(process(dialog), " No Process");
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        EXPECT_EQ(bufferOf(dialog), Lines{""});
    }); // nothing is formatted any more: closing asks nothing
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(FormatCode, EnterPressesIt) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.pressEnter(dialog));
        EXPECT_EQ(picture(dialog), 2);
        leaveAnyway(dialog);
    });
}

} // namespace
} // namespace corvelle::formatter::test
