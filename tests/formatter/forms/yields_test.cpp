#include "formatter/forms/wizard.h"

// Whatever happens while a pass or the write-back yields, at every single yield.
namespace corvelle::formatter::test {
namespace {

class Yielding : public Session {
  public:
    std::shared_ptr<FrmFormatter> dialog; ///< held by the test alone once it is closed
    using Session::calls;
    using Session::code;
    using Session::desktop;
    using Session::disaster;
    using Session::expectPassAtRest;
    using Session::followSettings;
    using Session::ide;
    using Session::manager;
    using Session::module;
    using Session::page;
    using Session::picture;
    using Session::showPage;
    using Session::status;

    /// Opens the dialog, formats if the command to try is the write-back, and presses the command with the
    /// event at its n-th yield. Whether the command yields so often.
    bool press(bool writeBack, int n, const std::function<void(Yielding&)>& event,
               const std::function<void(Yielding&)>& check) {
        bool happened = false;
        bool ended = false;
        desktop.inEveryModal = [&](forms::Form& form) {
            dialog = std::static_pointer_cast<FrmFormatter>(form.shared_from_this());
            if (writeBack) desktop.click(dialog->CmdFmt);
            desktop.inEveryModal = nullptr;
            const int before = desktop.yields();
            desktop.atYield(
                [&] {
                    if (ended) return;
                    happened = true;
                    event(*this);
                },
                n - 1);
            desktop.click(writeBack ? dialog->CmdAdd : dialog->CmdFmt);
            ended = true;
            EXPECT_GE(desktop.yields() - before, happened ? n : 0);
            if (happened) check(*this);
            if (dialog->visible() && !desktop.isQuitting()) {
                desktop.alwaysYes = true;
                desktop.click(dialog->CmdBack);
            }
            while (!desktop.scriptIsDone()) desktop.doEvents(); // the command did not yield so often
        };
        showPage();
        desktop.click(page().CmdNext);
        EXPECT_FALSE(dialog->isLoaded());
        return happened;
    }
};

// Tries the event at every yield of Format Code and of Add to Module, by the settings.
void atEveryYieldBy(const char* settings, const std::function<void(Yielding&)>& event,
                    const std::function<void(Yielding&, bool writeBack)>& check,
                    const std::function<void(Yielding&)>& afterwards) {
    for (const bool writeBack : {false, true}) {
        int n = 1;
        for (bool happened = true; happened; ++n) {
            SCOPED_TRACE((writeBack ? "write-back, yield " : "format, yield ") + std::to_string(n));
            Yielding session;
            if (*settings != 0) session.followSettings(settings);
            happened = session.press(writeBack, n, event, [&](Yielding& s) { check(s, writeBack); });
            EXPECT_TRUE(session.code() == sample() || session.code() == formattedSample());
            if (writeBack) {
                EXPECT_EQ(session.code(), formattedSample()); // a write-back is never left half-way
            }
            if (happened && afterwards) afterwards(session);
            if (testing::Test::HasFailure()) return;
        }
        EXPECT_GT(n, 9);
    }
}

// The same in both layouts.
void atEveryYield(const std::function<void(Yielding&)>& event,
                  const std::function<void(Yielding&, bool writeBack)>& check,
                  const std::function<void(Yielding&)>& afterwards = nullptr) {
    for (const char* settings : {"", structuredSample}) {
        SCOPED_TRACE(settings);
        atEveryYieldBy(settings, event, check, afterwards);
        if (testing::Test::HasFailure()) return;
    }
}

void expectFinished(Yielding& session, bool writeBack) {
    EXPECT_EQ(Yielding::picture(*session.dialog), 2);
    EXPECT_EQ(session.dialog->CmdAdd.enabled(), !writeBack);
    session.expectPassAtRest(*session.dialog);
    EXPECT_TRUE(session.desktop.boxes().empty());
    EXPECT_TRUE(session.desktop.fileDialogs().empty());
    EXPECT_EQ(session.desktop.modals().size(), 1U);
    const auto& buffer = session.dialog->lineBuffer();
    ASSERT_EQ(buffer.maxIndx() + 1, static_cast<int>(formattedSample().size()));
    for (std::int32_t i = 0; i <= buffer.maxIndx(); ++i) {
        EXPECT_EQ(buffer.line(i), formattedSample()[static_cast<std::size_t>(i)]);
    }
}

TEST(WhileYielding, TheCommandsDoNothing) {
    const auto press = [](forms::CommandButton FrmFormatter::*button) {
        atEveryYield([button](Yielding& s) { s.desktop.click((*s.dialog).*button); }, expectFinished);
    };
    press(&FrmFormatter::CmdFmt);
    press(&FrmFormatter::CmdAdd);
    press(&FrmFormatter::CmdFile);
}

TEST(WhileYielding, AProgramCannotPressThemEither) {
    const auto press = [](forms::CommandButton FrmFormatter::*button) {
        atEveryYield(
            [button](Yielding& s) {
                auto& control = (*s.dialog).*button;
                const bool enabled = control.enabled();
                control.setEnabled(true);
                control.userClicked();
                control.setEnabled(enabled);
            },
            expectFinished);
    };
    press(&FrmFormatter::CmdFmt);
    press(&FrmFormatter::CmdAdd);
    press(&FrmFormatter::CmdFile);
}

TEST(WhileYielding, HelpIsAnswered) {
    atEveryYield(
        [](Yielding& s) {
            s.desktop.answerNextBox(forms::answer::no);
            EXPECT_TRUE(s.desktop.click(s.dialog->CmdHelp));
            s.desktop.tabTo(s.dialog->Text1);
            s.desktop.press(*s.dialog, forms::keys::F1);
        },
        [](Yielding& s, bool) {
            EXPECT_EQ(s.desktop.boxes().size(), 1U);
            EXPECT_EQ(s.desktop.helps().size(), 1U);
            EXPECT_EQ(Yielding::picture(*s.dialog), 2);
        });
}

// The window closes when the command has ended: a pass is stopped, a write-back is complete. Only after the
// last line, where the indicator's two stops yield, is there formatted code to ask about.
void closes(bool wizard, const std::function<void(Yielding&)>& event) {
    std::size_t asked = 0;
    atEveryYield(
        [&](Yielding& s) {
            s.desktop.alwaysYes = true;
            event(s);
            EXPECT_TRUE(s.dialog->visible()); // the command still works on it
        },
        [&](Yielding& s, bool writeBack) {
            EXPECT_FALSE(s.dialog->isLoaded());
            const bool atEnd = asked % 2 != 0 && !writeBack;
            EXPECT_LE(s.desktop.boxes().size(), writeBack ? 0U : 1U);
            EXPECT_GE(s.desktop.boxes().size(), atEnd ? 1U : 0U);
            asked += s.desktop.boxes().size();
            s.desktop.alwaysYes = false;
        },
        [&](Yielding& s) {
            if (wizard) {
                EXPECT_EQ(s.manager->page, nullptr);
                EXPECT_TRUE(s.desktop.windows().empty());
            } else {
                ASSERT_NE(s.manager->page, nullptr);
                EXPECT_TRUE(s.page().visible());
                EXPECT_EQ(s.desktop.windows().size(), 1U);
            }
        });
    EXPECT_EQ(asked, 4U); // two in each layout
}

TEST(WhileYielding, BackWaitsForTheEnd) {
    closes(false, [](Yielding& s) { EXPECT_TRUE(s.desktop.click(s.dialog->CmdBack)); });
}

TEST(WhileYielding, TheCloseBoxWaitsForTheEnd) {
    closes(false, [](Yielding& s) { EXPECT_TRUE(s.desktop.close(*s.dialog)); });
}

TEST(WhileYielding, AnUnloadFromOutsideWaitsForTheEnd) {
    closes(false, [](Yielding& s) { EXPECT_FALSE(s.dialog->unload()); });
}

TEST(WhileYielding, CloseWaitsForTheEnd) {
    closes(true, [](Yielding& s) { EXPECT_TRUE(s.desktop.click(s.dialog->CmdClose)); });
}

TEST(WhileYielding, CloseAfterBackClosesTheWizard) {
    closes(true, [](Yielding& s) {
        s.desktop.click(s.dialog->CmdBack);
        s.desktop.click(s.dialog->CmdClose);
        s.desktop.click(s.dialog->CmdBack);
    });
}

TEST(WhileYielding, ADisconnectionTakesTheDialogAlongAtTheEnd) {
    closes(true, [](Yielding& s) { s.manager->disconnect(); });
}

TEST(WhileYielding, HidingTheAddInTakesTheDialogAlongAtTheEnd) {
    closes(true, [](Yielding& s) { s.manager->Hide(); });
}

TEST(WhileYielding, TheConnectObjectAndThePageMayGoAway) {
    closes(true, [](Yielding& s) {
        s.manager->disconnect();
        s.manager = std::make_shared<FakeManager>();
    });
}

TEST(WhileYielding, ThePageMayBeShownAgain) {
    closes(false, [](Yielding& s) {
        s.showPage();
        s.desktop.click(s.page().CmdNext);
        s.desktop.click(s.dialog->CmdBack);
    });
}

TEST(WhileYielding, AQuitEndsAPassAndCompletesAWriteBack) {
    atEveryYield([](Yielding& s) { s.desktop.quit(); },
                 [](Yielding& s, bool writeBack) {
                     const int shown = Yielding::picture(*s.dialog);
                     EXPECT_TRUE(shown == 2 || (!writeBack && shown != 3));
                 },
                 [](Yielding& s) {
                     EXPECT_FALSE(s.dialog->isLoaded());
                     EXPECT_TRUE(s.desktop.windows().empty()); // the page is not shown again
                     EXPECT_TRUE(s.desktop.boxes().empty());   // and nobody is asked
                     s.manager->disconnect();
                 });
}

TEST(WhileYielding, AQuitStopsThePassAtTheNextLine) {
    Yielding session;
    EXPECT_TRUE(session.press(
        false, 12, [](Yielding& s) { s.desktop.quit(); }, // 8 lines, the indicator's stop, the third line
        [](Yielding& s) {
            EXPECT_EQ(Yielding::picture(*s.dialog), 0);
            EXPECT_EQ(s.dialog->lineBuffer().line(2), "Dim n As Long ' count");
        }));
}

TEST(WhileYielding, ACloseOrAQuitEndsTheReadingAtTheNextLine) {
    for (const bool quit : {false, true}) {
        Yielding session;
        EXPECT_TRUE(session.press(
            false, 2,
            [quit](Yielding& s) { quit ? s.desktop.quit() : void(s.desktop.click(s.dialog->CmdBack)); },
            [](Yielding& s) { EXPECT_EQ(s.calls.count("CodeModule.Lines"), 3); })); // the second is empty
    }
}

TEST(WhileYielding, AQuitWhileClosingIsEnoughOfAnAnswer) {
    atEveryYield(
        [](Yielding& s) {
            s.desktop.click(s.dialog->CmdClose);
            s.desktop.quit();
        },
        [](Yielding& s, bool) { EXPECT_FALSE(s.dialog->isLoaded()); },
        [](Yielding& s) {
            EXPECT_TRUE(s.desktop.windows().empty());
            EXPECT_TRUE(s.desktop.boxes().empty());
        });
}

TEST(WhileYielding, AStopRequestIsForThePassAlone) {
    atEveryYield([](Yielding& s) { s.dialog->DisableProc(); },
                 [](Yielding& s, bool writeBack) {
                     const int shown = Yielding::picture(*s.dialog);
                     EXPECT_TRUE(shown == 2 || (!writeBack && shown == 0));
                     EXPECT_EQ(s.dialog->CmdAdd.enabled(), !writeBack && shown == 2);
                     s.expectPassAtRest(*s.dialog);
                 });
}

TEST(WhileYielding, TheLastRunIsNotForgottenUnderIt) {
    atEveryYield([](Yielding& s) { s.dialog->InitBtns(); }, expectFinished);
}

TEST(WhileYielding, TheDialogMayLoseItsModuleVariable) {
    atEveryYield(
        [](Yielding& s) {
            s.dialog->FmtCodeModule.reset();
            s.dialog->FmtCodePane.reset();
            s.ide->activate(nullptr);
        },
        [](Yielding& s, bool) {
            EXPECT_EQ(Yielding::picture(*s.dialog), 2);
            s.desktop.alwaysYes = true; // the page finds no module afterwards
        });
}

// The module object fails from that yield on. What can be lost then is only what was deleted before.
TEST(WhileYielding, TheModuleMayFail) {
    for (const bool writeBack : {false, true}) {
        int n = 1;
        for (bool happened = true; happened; ++n) {
            SCOPED_TRACE((writeBack ? "write-back, yield " : "format, yield ") + std::to_string(n));
            Yielding session;
            session.desktop.alwaysYes = true;
            happened = session.press(
                writeBack, n, [](Yielding& s) { s.calls.failForGood("", 1, Yielding::disaster); },
                [](Yielding& s) {
                    EXPECT_TRUE(Yielding::picture(*s.dialog) == 1 || Yielding::picture(*s.dialog) == 2);
                    s.expectPassAtRest(*s.dialog);
                    s.calls.failNoMore();
                    if (s.dialog->CmdAdd.enabled()) s.desktop.click(s.dialog->CmdAdd);
                });
            EXPECT_TRUE(session.code() == sample() || session.code() == formattedSample());
            if (testing::Test::HasFailure()) return;
        }
        EXPECT_GT(n, 9);
    }
}

} // namespace
} // namespace corvelle::formatter::test
