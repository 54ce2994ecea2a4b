#include "formatter/forms/wizard.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace corvelle::formatter::test {
namespace {

using FormatterControls = Wizard;

TEST_F(FormatterControls, HaveTheirCaptions) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.CmdFile.caption(), "&Select ...");
        EXPECT_EQ(dialog.CmdFmt.caption(), "&Format Code");
        EXPECT_EQ(dialog.CmdAdd.caption(), "&Add to Module");
        EXPECT_EQ(dialog.CmdBack.caption(), "<< Go &Back");
        EXPECT_EQ(dialog.CmdClose.caption(), "&Close");
        EXPECT_EQ(dialog.CmdHelp.caption(), "&Help");
        EXPECT_EQ(dialog.Frame1.caption(), "Formatting Options");
        EXPECT_EQ(dialog.ChkNoAll.caption(), "Remove all trailing Comments from code lines");
        EXPECT_EQ(dialog.ChkNoCmnt.caption(), "Remove all Lines which have Only &Comments");
        EXPECT_EQ(dialog.ChkNoEmpty.caption(), "Remove all empty lines [Lines which have only space]");
        EXPECT_EQ(dialog.Lbl6.caption(), "Tab Width:");
        EXPECT_EQ(dialog.frmeResult.caption(), "Processing Results");
    });
}

TEST_F(FormatterControls, StandReadyWhenTheDialogOpens) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.caption(), "Trellis [Stockroom]");
        EXPECT_EQ(dialog.icon().name(), "formatter");
        EXPECT_TRUE(dialog.CmdFmt.enabled());
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        EXPECT_TRUE(dialog.CmdFile.enabled());
        EXPECT_EQ(dialog.lblModule.caption(), "Account");
        EXPECT_EQ(dialog.Text1.text(), "");
        EXPECT_EQ(process(dialog), " No Process");
        EXPECT_EQ(results(dialog), "       No Results..");
        EXPECT_EQ(status(dialog), "");
        EXPECT_EQ(picture(dialog), -1);
        EXPECT_EQ(dialog.ChkNoEmpty.value(), 1);
        EXPECT_EQ(dialog.ChkNoCmnt.value(), 0);
        EXPECT_EQ(dialog.ChkNoAll.value(), 0);
        EXPECT_EQ(dialog.Slider1.value(), 2);
        EXPECT_EQ(dialog.lblTab.caption(), "2");
        EXPECT_EQ(dialog.Text1.helpContextID(), 1000);
        EXPECT_EQ(dialog.Text1.whatsThisHelpID(), 1000);
        expectPassAtRest(dialog);
    });
    EXPECT_EQ(calls.count("CodeModule.InsertLines") + calls.count("CodeModule.DeleteLines"), 0);
}

TEST_F(FormatterControls, ShowDesignTextsBeforeAnythingIsKnown) {
    const auto dialog = std::make_shared<FrmFormatter>(desktop);
    EXPECT_FALSE(dialog->isLoaded());
    dialog->load();
    EXPECT_EQ(dialog->lblModule.caption(), "Unknown [Error]");
    EXPECT_EQ(dialog->caption(), "Trellis []");
}

TEST_F(FormatterControls, TellThatNothingHasHappenedYet) {
    struct Designed : FrmFormatter {
        using FrmFormatter::FrmFormatter;
        void Form_Load() override {} // which has a text of its own for the process
    };
    EXPECT_EQ(std::make_shared<Designed>(desktop)->Label1.caption(), "Waiting for action");
}

TEST_F(FormatterControls, KeepTheDesignTextWhereTheModuleDoesNotTellItsName) {
    showPage();
    calls.fail("CodeModule.Name", 1, disaster);
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(calls.anyFailed());
        EXPECT_EQ(dialog.lblModule.caption(), "Unknown [Error]");
        EXPECT_TRUE(dialog.CmdFmt.enabled());
    });
}

TEST_F(FormatterControls, SliderRunsFromZeroToTen) {
    inDialog([&](FrmFormatter& dialog) {
        const auto range = dialog.Slider1.range();
        EXPECT_EQ(range.min, 0);
        EXPECT_EQ(range.max, 10);
        EXPECT_EQ(range.smallChange, 1);
        EXPECT_EQ(range.largeChange, 2);
        EXPECT_TRUE(desktop.drag(dialog.Slider1, 10));
        EXPECT_EQ(dialog.lblTab.caption(), "10");
        dialog.Slider1.setValue(0);
        EXPECT_EQ(dialog.lblTab.caption(), "0");
    });
}

TEST_F(FormatterControls, EachResultPictureHidesTheOthers) {
    inDialog([&](FrmFormatter& dialog) {
        for (const int mode : {3, 0, 1, 2}) {
            dialog.setImage(mode);
            EXPECT_EQ(picture(dialog), mode);
        }
        EXPECT_EQ(dialog.Image1[0].picture().name(), "result0");
        EXPECT_EQ(dialog.Image1[1].picture().name(), "result1");
        EXPECT_EQ(dialog.Image1[2].picture().name(), "result2");
        EXPECT_EQ(dialog.Image1[3].picture().name(), "result3");
        EXPECT_EQ(dialog.Image2.picture().name(), "usage");
    });
}

TEST_F(FormatterControls, TextsStandBehindTheirPrefixes) {
    inDialog([&](FrmFormatter& dialog) {
        dialog.setInfo("a");
        dialog.SetProcInfo("b");
        dialog.SetResults("c");
        EXPECT_EQ(status(dialog), " Status: a");
        EXPECT_EQ(process(dialog), " b");
        EXPECT_EQ(results(dialog), "      c");
    });
}

TEST_F(FormatterControls, UserCannotTypeIntoWhatOnlyShows) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_FALSE(desktop.type(dialog.Text1, "C:\\other"));
        EXPECT_FALSE(desktop.type(dialog.txtInfo, "other"));
    });
}

// Tab follows the order of creation.
TEST_F(FormatterControls, AreCreatedInAUsersOrder) {
    Lines order;
    inDialog([&](FrmFormatter& dialog) {
        dialog.CmdAdd.setEnabled(true);
        for (forms::Control* control : dialog.controls()) {
            using forms::ControlKind;
            const auto kind = control->kind();
            if (kind == ControlKind::Label || kind == ControlKind::Image || kind == ControlKind::Frame ||
                kind == ControlKind::Surface)
                continue;
            order.push_back(control->name());
        }
    });
    EXPECT_EQ(order, (Lines{"CmdFmt", "CmdAdd", "Text1", "CmdFile", "ChkNoEmpty", "ChkNoCmnt", "ChkNoAll",
                            "Slider1", "txtInfo", "CmdBack", "CmdClose", "CmdHelp"}));
}

// Hints

const char* const homeHint = "Move the mouse pointer over a control to learn what the control means..";

using FormatterHints = Wizard;

TEST_F(FormatterHints, HomeHintStandsThereAtFirst) {
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.lblInfo.caption(), homeHint);
        EXPECT_EQ(dialog.lblInfo.tag(), "0");
    });
}

TEST_F(FormatterHints, EveryControlTellsWhatItMeans) {
    inDialog([&](FrmFormatter& dialog) {
        dialog.CmdAdd.setEnabled(true);
        const std::vector<std::tuple<forms::Control*, const char*, const char*>> hints{
            {&dialog.CmdFile, "1",
             "Let you select a file to which you must save a backup copy first.. It is good idea to create a "
             "backup directory under project directory to store backups."},
            {&dialog.lblInfo, "0", homeHint},
            {&dialog.CmdFmt, "2",
             "This command formats the code module and stores in a internal butffer. Code module is not "
             "updated any way at this stage.."},
            {&dialog.CmdAdd, "3",
             "This command removes any existing code and  adds the formatted code to the module .. "},
            {&dialog.CmdBack, "4", "Go back to previous window to select another module.."},
            {&dialog.CmdClose, "5", "Close this Add In Program.."},
            {&dialog.CmdHelp, "6", "Displays a help file to assist you.."},
            {&dialog.Slider1, "7",
             "It is highly recommended that you set the 'TAB WIDTH' equal to the value set in VB IDE.."},
            {&dialog.ChkNoEmpty, "8", "If this option is selected then all empty lines will be discarded..."},
            {&dialog.ChkNoCmnt, "9",
             "If this option is selected then all commented lines will be discarded..."},
            {&dialog.ChkNoAll, "10",
             "If this option is selected then all trailing comments in code lines will be removed. It is a "
             "risky option be carefull..."},
            {&dialog.frmeResult, "11", "These are passive controls meant for displaying informatons.."},
        };
        for (const auto& [control, tag, text] : hints) {
            desktop.moveMouse(*control);
            EXPECT_EQ(dialog.lblInfo.tag(), tag);
            EXPECT_EQ(dialog.lblInfo.caption(), text);
        }
        desktop.moveMouse(dialog);
        EXPECT_EQ(dialog.lblInfo.tag(), "0");
        EXPECT_EQ(dialog.lblInfo.caption(), homeHint);
        desktop.moveMouse(dialog.Image2);
        EXPECT_EQ(dialog.lblInfo.tag(), "11");
        EXPECT_EQ(dialog.lblInfo.caption(),
                  "This diagram depicts how you have to proceed in using this Add-In..");
    });
}

TEST_F(FormatterHints, ResultsAndDiagramKeepOneAnothersHint) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.moveMouse(dialog.frmeResult);
        const std::string text = dialog.lblInfo.caption();
        desktop.moveMouse(dialog.Image2);
        EXPECT_EQ(dialog.lblInfo.caption(), text);
        desktop.moveMouse(dialog);
        desktop.moveMouse(dialog.Image2);
        const std::string diagram = dialog.lblInfo.caption();
        EXPECT_NE(diagram, text);
        desktop.moveMouse(dialog.frmeResult);
        EXPECT_EQ(dialog.lblInfo.caption(), diagram);
    });
}

TEST_F(FormatterHints, AreNotWrittenAgainWhileTheyStand) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.moveMouse(dialog.CmdFmt);
        dialog.lblInfo.setCaption("written by the test");
        desktop.moveMouse(dialog.CmdFmt);
        EXPECT_EQ(dialog.lblInfo.caption(), "written by the test");
    });
}

TEST_F(FormatterHints, OverADisabledControlTheFormHasTheMouse) {
    inDialog([&](FrmFormatter& dialog) {
        desktop.moveMouse(dialog.CmdFmt);
        desktop.moveMouse(dialog.CmdAdd);
        EXPECT_EQ(dialog.lblInfo.tag(), "0");
    });
}

// Layout

using FormatterLayout = Wizard;

struct Place {
    int left, top, right, bottom;
};

Place placeOf(const forms::Control& control) {
    const auto& bounds = control.bounds();
    return {bounds.left, bounds.top, bounds.left + bounds.width, bounds.top + bounds.height};
}

bool overlap(const Place& a, const Place& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

// How many lines a text takes at the width, by an average character's width.
int linesOf(const std::string& text, int width) {
    constexpr int characterWidth = 90;
    return (static_cast<int>(text.size()) * characterWidth + width - 1) / width;
}

void expectTidy(FrmFormatter& dialog) {
    const auto& controls = dialog.controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const Place place = placeOf(*controls[i]);
        const forms::Control* const frame = controls[i]->container();
        const forms::Size room =
            frame ? forms::Size{frame->bounds().width, frame->bounds().height} : dialog.size();
        SCOPED_TRACE(controls[i]->name());
        EXPECT_GE(place.left, 0);
        EXPECT_GE(place.top, frame ? 195 : 0); // below the frame's title
        EXPECT_LT(place.left, place.right);
        EXPECT_LT(place.top, place.bottom);
        EXPECT_LE(place.right, room.width);
        EXPECT_LE(place.bottom, room.height);
        for (std::size_t j = 0; j < i; ++j) {
            if (controls[j]->container() != frame) continue;
            if (controls[i]->name().rfind("Image1", 0) == 0 && controls[j]->name().rfind("Image1", 0) == 0)
                continue; // one place for the four pictures
            EXPECT_FALSE(overlap(place, placeOf(*controls[j]))) << "over " << controls[j]->name();
        }
    }
}

TEST_F(FormatterLayout, ControlsKeepClearOfEachOtherAtEverySize) {
    inDialog([&](FrmFormatter& dialog) {
        expectTidy(dialog);
        for (const forms::Size size : {forms::Size{7800, 6795}, {9600, 7500}, {15000, 12000}, {7800, 9000}}) {
            dialog.userResized(size);
            expectTidy(dialog);
        }
    });
}

TEST_F(FormatterLayout, FollowsTheWindowsWidth) {
    inDialog([&](FrmFormatter& dialog) {
        const int before = dialog.Text1.bounds().width;
        dialog.userResized({dialog.size().width + 3000, dialog.size().height});
        EXPECT_EQ(dialog.Text1.bounds().width, before + 3000);
    });
}

TEST_F(FormatterLayout, HasALeastSizeAtWhichNothingIsCutOff) {
    inDialog([&](FrmFormatter& dialog) {
        ASSERT_TRUE(desktop.resize(dialog, {6300, 4500}));
        expectTidy(dialog);
    });
}

TEST_F(FormatterLayout, SharesHeightToSpare) {
    inDialog([&](FrmFormatter& dialog) {
        const std::vector<const forms::Control*> growing{&dialog.Frame1, &dialog.frmeResult, &dialog.lblInfo};
        std::vector<int> before;
        for (const forms::Control* control : growing) before.push_back(control->bounds().height);
        constexpr int more = 3000;
        dialog.userResized({dialog.size().width, dialog.size().height + more});
        int grown = 0;
        for (std::size_t i = 0; i < growing.size(); ++i) {
            const int own = growing[i]->bounds().height - before[i];
            EXPECT_GT(own, more / 10) << growing[i]->name();
            EXPECT_LT(own, more / 2) << growing[i]->name();
            grown += own;
        }
        EXPECT_EQ(grown, more);
        EXPECT_EQ(dialog.CmdFmt.bounds().top, 1215); // the buttons stay together
    });
}

TEST_F(FormatterLayout, StaysUsableInATinyWindow) {
    inDialog([&](FrmFormatter& dialog) {
        dialog.userResized({0, 0});
        for (const forms::Control* control : dialog.controls()) {
            EXPECT_GT(control->bounds().width, 0) << control->name();
            EXPECT_GT(control->bounds().height, 0) << control->name();
        }
    });
}

TEST_F(FormatterLayout, TheLongestTextsHaveRoom) {
    inDialog([&](FrmFormatter& dialog) {
        for (const forms::Size size : {forms::Size{7800, 6795}, dialog.size()}) {
            dialog.userResized(size);
            desktop.moveMouse(dialog.CmdFile);
            const auto& hint = dialog.lblInfo;
            EXPECT_LE(linesOf(hint.caption(), hint.bounds().width - 60) * 195 + 60, hint.bounds().height);
            dialog.SetResults("Module contains 65535 Lines | Formatted code contains:  65535 Lines");
            EXPECT_LE(linesOf(dialog.Label2.caption(), dialog.Label2.bounds().width) * 195,
                      dialog.Label2.bounds().height);
        }
    });
}

} // namespace
} // namespace corvelle::formatter::test
