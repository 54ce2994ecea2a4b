#include "formatter/forms/wizard.h"

namespace corvelle::formatter::test {
namespace {

class AddToModule : public Wizard {
  protected:
    /// Presses "&Add to Module", which must fail and say so.
    void addInVain(FrmFormatter& dialog) {
        desktop.answerNextBox(forms::answer::ok, [&] {
            EXPECT_EQ(status(dialog), " Status: Error while writing to the code module..");
            EXPECT_EQ(picture(dialog), 1);
        });
        EXPECT_TRUE(desktop.click(dialog.CmdAdd));
        EXPECT_EQ(lastBox(), "Corvelle|0|errors occured while adding code to module..");
        EXPECT_FALSE(dialog.CmdFmt.enabled());
        EXPECT_TRUE(dialog.CmdAdd.enabled()); // the formatted lines are still there
        expectPassAtRest(dialog);
    }
    void add(FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.click(dialog.CmdAdd));
        EXPECT_EQ(status(dialog), " Status: Formatted code written to the code module..");
        EXPECT_EQ(process(dialog), " No Process..");
        EXPECT_EQ(picture(dialog), 2);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        EXPECT_FALSE(dialog.CmdFmt.enabled()); // until the next backup
        EXPECT_EQ(code(), formattedSample());
        expectPassAtRest(dialog);
    }
};

TEST_F(AddToModule, ReplacesTheModuleLineByLineAfterOneDelete) {
    code() = {"Sub A()", "x = 1", "", "End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        calls.forget();
        EXPECT_TRUE(desktop.click(dialog.CmdAdd));
    });
    EXPECT_EQ(code(), (Lines{"Sub A()", "  x = 1", "End Sub"}));
    Lines writes;
    for (const auto& call : calls.all()) {
        if (call.find("Insert") != std::string::npos || call.find("Delete") != std::string::npos)
            writes.push_back(call);
    }
    EXPECT_EQ(writes,
              (Lines{"CodeModule.DeleteLines(1, 4)", "CodeModule.InsertLines(1, \"Sub A()\")",
                     "CodeModule.InsertLines(2, \"  x = 1\")", "CodeModule.InsertLines(3, \"End Sub\")"}));
}

TEST_F(AddToModule, ReplacesAModuleThatIsFormattedAlready) {
    code() = formattedSample();
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        add(dialog);
    });
    EXPECT_EQ(calls.count("CodeModule.DeleteLines"), 1);
    EXPECT_EQ(calls.count("CodeModule.InsertLines"), static_cast<int>(formattedSample().size()));
}

TEST_F(AddToModule, ReplacesAModuleOfASingleLine) {
    code() = {"\tx = 1"};
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        EXPECT_TRUE(desktop.click(dialog.CmdAdd));
        EXPECT_EQ(picture(dialog), 2);
    });
    EXPECT_EQ(code(), Lines{"x = 1"});
}

TEST_F(AddToModule, SaysSoAndAsksNothingAfterwards) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        add(dialog);
    });
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(AddToModule, TellsHowFarItIs) {
    code() = {"Sub A()", "End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        for (int line = 1; line <= 2; ++line) {
            desktop.atYield([&, line] {
                EXPECT_EQ(process(dialog), " In Line: " + std::to_string(line) + " of 2");
                EXPECT_EQ(status(dialog), " Status: Please Wait writing to code module..");
                EXPECT_EQ(static_cast<int>(code().size()), line - 1);
                EXPECT_EQ(picture(dialog), 3);
                EXPECT_TRUE(indicatorRuns(dialog));
                EXPECT_FALSE(dialog.CmdFmt.enabled());
            });
        }
        desktop.click(dialog.CmdAdd);
    });
}

TEST_F(AddToModule, ASecondRunReadsTheFormattedText) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        add(dialog);
        dialog.CmdFmt.setEnabled(true); // as a saved backup does
        format(dialog);
        EXPECT_EQ(results(dialog), "      Module contains 8 Lines | Formatted code contains:  8 Lines");
        EXPECT_TRUE(dialog.CmdAdd.enabled());
        leaveAnyway(dialog); // what the second run made has not been added
    });
    EXPECT_EQ(desktop.boxes().size(), 1U);
}

TEST_F(AddToModule, AnUnsetModuleIsReported) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        dialog.FmtCodeModule.reset();
        desktop.answerNextBox(forms::answer::ok);
        addInVain(dialog);
        ASSERT_EQ(desktop.boxes().size(), 2U);
        EXPECT_EQ(desktop.boxes()[0].text, "Error while accessing object.. Aborting.");
        EXPECT_EQ(desktop.boxes()[0].flags, 48);
        EXPECT_EQ(desktop.boxes()[0].title, "Object variable not set..");
        leaveAnyway(dialog);
    });
    EXPECT_EQ(code(), sample());
}

TEST_F(AddToModule, WritesNothingWithoutARun) {
    inDialog([&](FrmFormatter& dialog) {
        dialog.CmdAdd.setEnabled(true); // no user can
        addInVain(dialog);
        dialog.CmdFmt.setEnabled(true);
        format(dialog);
        dialog.InitBtns();
        dialog.CmdAdd.setEnabled(true);
        addInVain(dialog);
    });
    EXPECT_EQ(code(), sample());
    EXPECT_EQ(calls.count("CodeModule.DeleteLines"), 0);
}

TEST_F(AddToModule, FillsAModuleThatHasBecomeEmpty) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        code().clear();
        add(dialog);
    });
    EXPECT_EQ(calls.count("CodeModule.DeleteLines"), 0); // there is nothing to delete
}

// Whichever write fails: the module keeps its old code, and the formatted lines can be added afterwards.
TEST_F(AddToModule, PutsTheOldCodeBackWhenAnyWriteFails) {
    code().insert(code().begin(), ""); // first and last line empty
    code().push_back("");
    const Lines before = code();
    const auto failAt = [&](const std::string& member, int n) {
        code() = before;
        inDialog([&](FrmFormatter& dialog) {
            format(dialog);
            calls.fail(member, n, disaster);
            addInVain(dialog);
            EXPECT_EQ(code(), before) << member << " " << n;
            calls.failNoMore();
            add(dialog);
        });
        module->dirty = false;
        desktop.answerNextBox(forms::answer::yes); // format the same module again
    };
    failAt("CodeModule.CountOfLines", 1);
    failAt("CodeModule.Lines", 1);
    failAt("CodeModule.DeleteLines", 1);
    for (int n = 1; n <= static_cast<int>(formattedSample().size()); ++n) failAt("CodeModule.InsertLines", n);
    inDialog([](FrmFormatter&) {});
}

TEST_F(AddToModule, TakesNothingAwayWhereTheOldCodeCannotBePutBack) {
    for (int n = 1; n <= static_cast<int>(formattedSample().size()); ++n) {
        openModule("Module" + std::to_string(n), sample());
        inDialog([&](FrmFormatter& dialog) {
            format(dialog);
            calls.failForGood("CodeModule.InsertLines", n, disaster);
            addInVain(dialog);
            const Lines whole = formattedSample();
            EXPECT_EQ(code(), Lines(whole.begin(), whole.begin() + (n - 1)));
            EXPECT_EQ(dialog.lineBuffer().maxIndx() + 1, static_cast<int>(whole.size()));
            calls.failNoMore();
            add(dialog); // nothing but the module's own text was lost, and the user can try again
        });
    }
}

TEST_F(AddToModule, KeepsBothTextsWhereTheNewLinesCannotBeTakenOut) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        calls.fail("CodeModule.InsertLines", 3, disaster);
        calls.fail("CodeModule.DeleteLines", 2, disaster); // the one of the rescue
        addInVain(dialog);
        Lines both = sample();
        const Lines whole = formattedSample();
        both.insert(both.end(), whole.begin(), whole.begin() + 2);
        EXPECT_EQ(code(), both);
        leaveAnyway(dialog);
    });
}

TEST_F(AddToModule, WritesNothingAtAllWhereTheOldCodeCannotBeDeleted) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        calls.failForGood("CodeModule.DeleteLines", 1, disaster);
        addInVain(dialog);
        leaveAnyway(dialog);
    });
    EXPECT_EQ(code(), sample());
    EXPECT_EQ(calls.count("CodeModule.InsertLines"), 0);
}

TEST_F(AddToModule, AFailureIsNotTakenForAdded) {
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        calls.fail("CodeModule.InsertLines", 1, disaster);
        addInVain(dialog);
        desktop.answerNextBox(forms::answer::no);
        desktop.click(dialog.CmdBack);
        EXPECT_TRUE(dialog.visible());
        add(dialog);
    });
}

} // namespace
} // namespace corvelle::formatter::test
