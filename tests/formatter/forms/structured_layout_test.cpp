#include "base/temporary_folder.h"
#include "formatter/forms/wizard.h"

#include <gmock/gmock.h>

// The dialog over a module of which an .editorconfig above its file says how it is laid out.
namespace corvelle::formatter::test {
namespace {

using testing::HasSubstr;

const std::string threeBlanks = "corvelle_layout = structured\nindent_style = space\nindent_size = 3\n"
                                "corvelle_procedure = indent\ncorvelle_case = indent\n";

// What the classic layout would put at wrong depths.
Lines nested() {
    return {"Sub A(x)",   "Select Case x", "Case 1", "Select Case y", "Case 2", "b",
            "End Select", "Case 3",        "c",      "End Select",    "",       "End Sub"};
}

Lines laidOut() {
    return {"Sub A(x)",
            "   Select Case x",
            "      Case 1",
            "         Select Case y",
            "            Case 2",
            "               b",
            "         End Select",
            "      Case 3",
            "         c",
            "   End Select",
            "End Sub"};
}

class StructuredDialog : public Wizard {
  protected:
    static Lines bufferOf(const FrmFormatter& dialog) {
        Lines lines;
        for (std::int32_t i = 0; i <= dialog.lineBuffer().maxIndx(); ++i) {
            lines.push_back(dialog.lineBuffer().line(i));
        }
        return lines;
    }
    /// The rows of the error list that Format Code shows.
    Lines errorsOf(FrmFormatter& dialog) {
        Lines rows;
        desktop.inNextModal([&](forms::Form& form) {
            auto& list = dynamic_cast<FrmError&>(form);
            rows = list.List1.items();
            EXPECT_EQ(list.lblCaption.caption(),
                      "Total " + std::to_string(rows.size()) + " errors detected..");
            desktop.close(form);
        });
        EXPECT_TRUE(desktop.click(dialog.CmdFmt));
        return rows;
    }
    /// The dialog works as it does without any settings.
    void expectClassic() {
        code() = sample();
        inDialog([&](FrmFormatter& dialog) {
            EXPECT_EQ(dialog.Slider1.value(), 2);
            EXPECT_EQ(dialog.lblTab.caption(), "2");
            format(dialog);
            EXPECT_EQ(bufferOf(dialog), formattedSample());
            leaveAnyway(dialog);
        });
        manager->disconnect();
    }
};

TEST_F(StructuredDialog, LaysTheModuleOutByItsBlocks) {
    followSettings(threeBlanks);
    code() = nested();
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), laidOut());
        EXPECT_EQ(code(), nested());
        EXPECT_EQ(status(dialog), " Status: Formatting completed successfully...");
        EXPECT_EQ(process(dialog), " No Process..");
        EXPECT_EQ(results(dialog), "      Module contains 12 Lines | Formatted code contains:  11 Lines");
        EXPECT_TRUE(dialog.CmdAdd.enabled());
        expectPassAtRest(dialog);
        EXPECT_TRUE(desktop.click(dialog.CmdAdd));
        EXPECT_EQ(code(), laidOut());
        EXPECT_EQ(status(dialog), " Status: Formatted code written to the code module..");
    });
}

TEST_F(StructuredDialog, TellsHowFarItIs) {
    followSettings(threeBlanks);
    code() = {"Sub A()", "", "x = 1", "End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        Lines texts;
        for (int i = 0; i < 8; ++i) {
            desktop.atYield([&] {
                texts.push_back(status(dialog) + " |" + process(dialog));
                EXPECT_EQ(picture(dialog), 3);
                EXPECT_TRUE(indicatorRuns(dialog) || texts.size() == 5);
            });
        }
        format(dialog);
        EXPECT_EQ(texts, (Lines{
                             " Status: Reading Module Pane.. | LN: 1",
                             " Status: Reading Module Pane.. | LN: 2",
                             " Status: Reading Module Pane.. | LN: 3",
                             " Status: Reading Module Pane.. | LN: 4",
                             " Status: Reading Module Pane.. | LN: 4", // the indicator stops
                             " Status: Formating... | No Process..",
                             " Status: Formating... | In Line: 0 of 2",
                             " Status: Formating... | In Line: 1 of 2",
                         }));
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, StartsTheSliderAtTheIndentSizeAndFollowsIt) {
    followSettings(threeBlanks);
    code() = nested();
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.Slider1.value(), 3);
        EXPECT_EQ(dialog.lblTab.caption(), "3");
        desktop.drag(dialog.Slider1, 5);
        format(dialog);
        EXPECT_EQ(bufferOf(dialog)[2], "          Case 1");
        desktop.drag(dialog.Slider1, 0); // leaves the width to the settings
        EXPECT_EQ(dialog.lblTab.caption(), "0");
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), laidOut());
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, StartsTheSliderAtTheModulesOwnWidthWhereNoneIsSaid) {
    followSettings("corvelle_layout = structured\n");
    code() = {"Sub A()", "   If x Then", "   y = 1", "      End If", "End Sub", "Sub B()", "   z", "End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.Slider1.value(), 3);
        format(dialog);
        EXPECT_EQ(bufferOf(dialog)[2], "      y = 1");
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, WritesBlanksWhereTheSettingsSayTabs) {
    followSettings(threeBlanks + "indent_style = tab\nindent_size = tab\ntab_width = 8\n");
    code() = nested();
    code()[1] = "\tSelect Case x";
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(dialog.Slider1.value(), 8);
        format(dialog);
        EXPECT_EQ(bufferOf(dialog)[1], "        Select Case x");
        EXPECT_EQ(bufferOf(dialog)[2], "                Case 1");
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, TakesAwayWhatTheOptionsSayByTheLanguage) {
    followSettings(threeBlanks);
    code() = {"Sub A()", "", "x = \"'\" ' note", "Rem gone", "End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        desktop.click(dialog.ChkNoEmpty); // off
        desktop.click(dialog.ChkNoCmnt);
        desktop.click(dialog.ChkNoAll);
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), (Lines{"Sub A()", "", "   x = \"'\"", "End Sub"}));
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, HasNothingToAddWhereNoLineIsLeft) {
    followSettings(threeBlanks);
    code() = {"", " "};
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_TRUE(desktop.click(dialog.CmdFmt));
        EXPECT_EQ(picture(dialog), 1);
        EXPECT_EQ(status(dialog), " Status: Code Module Successfully loaded ..");
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        expectPassAtRest(dialog);
    });
}

TEST_F(StructuredDialog, ListsFaultsByTheirPositions) {
    followSettings(threeBlanks);
    code() = {"", "Sub A()", "If x Then", "End Sub", "", "Sub B()", "Next", "End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        EXPECT_EQ(errorsOf(dialog), (Lines{"Tab On Line: 1", "Tab On Line: 4"}));
        EXPECT_EQ(status(dialog), " Status: Formatting was not successful.2 errors detected..");
        EXPECT_EQ(results(dialog), "      Module contains 8 Lines | Formatted code contains:  6 Lines");
        EXPECT_EQ(picture(dialog), 1);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        code() = nested();
        format(dialog);
        EXPECT_TRUE(dialog.CmdAdd.enabled());
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, ListsWhatTheSafetyCheckFindsAndSaysItInTheStatus) {
    followSettings(threeBlanks);
    code() = nested();
    inDialog([&](FrmFormatter& dialog) {
        const auto layOut = dialog.LayOutStructured;
        dialog.LayOutStructured = [&](const ModuleCode& module,
                                      const structured::StructuredOptions& options) {
            auto formatted = layOut(module, options);
            formatted.unsafe.push_back({5, "the name b"});
            formatted.unsafe.push_back({11, "End"});
            return formatted;
        };
        EXPECT_EQ(errorsOf(dialog), (Lines{"Tab On Line: 5", "Tab On Line: 10"}));
        EXPECT_EQ(status(dialog), " Status: Formatting was not successful.2 errors detected.. "
                                  "Tab On Line: 5: the name b Tab On Line: 10: End");
        EXPECT_EQ(picture(dialog), 1);
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        dialog.LayOutStructured = layOut;
        format(dialog);
        EXPECT_EQ(status(dialog), " Status: Formatting completed successfully...");
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, SaysInTheStatusWhichLineHasNoRoomToMoveAndStillOffersToAdd) {
    followSettings(threeBlanks);
    const std::string noRoom = "x = \"" + std::string(1016, 'a') + "\"";
    code() = {"", "Sub A()", noRoom, "y", "End Sub"};
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), (Lines{"Sub A()", noRoom, "   y", "End Sub"}));
        const std::string remark =
            " Tab On Line: 1: CV302 the line would have 1025 bytes, the IDE takes 1023; it stays where it is";
        EXPECT_EQ(status(dialog), " Status: Formatting completed successfully..." + remark);
        EXPECT_EQ(picture(dialog), 2);
        EXPECT_TRUE(dialog.CmdAdd.enabled());
        code().push_back("Next");
        EXPECT_EQ(errorsOf(dialog), (Lines{"Tab On Line: 4"}));
        EXPECT_EQ(status(dialog), " Status: Formatting was not successful.1 errors detected.." + remark);
        code() = nested();
        format(dialog);
        EXPECT_EQ(status(dialog), " Status: Formatting completed successfully...");
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, ChangesNoLineWhenItIsStopped) {
    followSettings(threeBlanks);
    code() = nested();
    inDialog([&](FrmFormatter& dialog) {
        desktop.atYield([&] { dialog.DisableProc(); }, 13 + 4); // 12 lines, the indicator's stop, 4 lines
        EXPECT_TRUE(desktop.click(dialog.CmdFmt));
        EXPECT_EQ(status(dialog), " Status: Formatting was aborted by user..");
        EXPECT_EQ(picture(dialog), 0);
        EXPECT_EQ(bufferOf(dialog), nested());
        EXPECT_FALSE(dialog.CmdAdd.enabled());
        expectPassAtRest(dialog);
    });
    EXPECT_EQ(code(), nested());
}

TEST_F(StructuredDialog, BacksUpTheModuleAsItIs) {
    const corvelle::test::TemporaryFolder folder;
    followSettings(threeBlanks);
    code() = nested();
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        desktop.chooseNextFile((folder.path() / "Account_bak.bas").string());
        EXPECT_TRUE(desktop.click(dialog.CmdFile));
        EXPECT_EQ(folder.read("Account_bak.bas"), asFile(nested()));
        leaveAnyway(dialog);
    });
}

TEST_F(StructuredDialog, IsClassicUnlessTheSettingsSayStructured) {
    for (const char* settings :
         {"", "indent_size = 8\n", "corvelle_case = flush\n", "corvelle_case = wrong\n",
          "corvelle_layout = classic\nindent_size = 8\n", "corvelle_layout = OFF\ncorvelle_case = wrong\n",
          "corvelle_layout = structured\ncorvelle_layout = unset\n"}) {
        SCOPED_TRACE(settings);
        followSettings(settings);
        expectClassic();
    }
}

TEST_F(StructuredDialog, IsClassicForAModuleThatWasNeverSaved) {
    followSettings(threeBlanks);
    module->fileName.clear();
    expectClassic();
}

TEST_F(StructuredDialog, IsClassicWhereTheIdeDoesNotTellTheFile) {
    followSettings(threeBlanks);
    calls.failForGood("VBComponent.FileNames", 1, disaster);
    expectClassic();
    EXPECT_EQ(lastBox().substr(0, 14), "Add code ..?|3"); // and nothing else is said
}

TEST_F(StructuredDialog, DoesNotFormatByWrongSettings) {
    for (const auto& [settings, words] :
         {std::pair{"corvelle_layout = structured\ncorvelle_case = wrong\n",
                    ".editorconfig:4: corvelle_case"},
          std::pair{"corvelle_layout = structural\n", ".editorconfig:3: corvelle_layout"}}) {
        followSettings(settings);
        inDialog([&](FrmFormatter& dialog) {
            desktop.answerNextBox(forms::answer::ok);
            EXPECT_TRUE(desktop.click(dialog.CmdFmt));
            EXPECT_THAT(lastBox(), HasSubstr(words));
            EXPECT_EQ(picture(dialog), 1);
            EXPECT_FALSE(dialog.CmdAdd.enabled());
            EXPECT_EQ(dialog.Slider1.value(), 2);
            expectPassAtRest(dialog);
        });
        manager->disconnect();
    }
    EXPECT_EQ(calls.count("CodeModule.Lines"), 0);
}

TEST_F(StructuredDialog, ReadsTheSettingsFromTheDisk) {
    const corvelle::test::TemporaryFolder folder;
    folder.write(".editorconfig", "root = true\n[*.bas]\n" + threeBlanks);
    module->fileName = (folder.path() / "Account.bas").string();
    code() = nested();
    inDialog([&](FrmFormatter& dialog) {
        format(dialog);
        EXPECT_EQ(bufferOf(dialog), laidOut());
        leaveAnyway(dialog);
    });
}

} // namespace
} // namespace corvelle::formatter::test
