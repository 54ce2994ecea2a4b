#include "formatter/forms/frm_formatter.h"
#include "formatter/forms/frm_main.h"
#include "host/code_formatter.h"
#include "host/connected.h"
#include "host/poor_desktop.h"

#include <gmock/gmock.h>

namespace corvelle::host::test {
namespace {

using formatter::FrmFormatter;
using formatter::frmMain;
using testing::ElementsAre;
using testing::IsEmpty;

class FormatterAddIn : public testing::Test, public Connected {
  protected:
    FormatterAddIn() { addIn = std::make_shared<CodeFormatter>(desktop); }

    frmMain& page() const { return window<frmMain>(); }
};

TEST_F(FormatterAddIn, AnExternalConnectionShowsThePageAtOnceAndAddsNoCommand) {
    connect(connect_mode::External);
    EXPECT_THAT(windows(), ElementsAre("frmMain"));
    EXPECT_EQ(page().Text1.text(), " Account");
    EXPECT_TRUE(addIn->IsLoaded());
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_THAT(ide->sources, IsEmpty());
    disconnect();
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_EQ(autoShow(), "1");
}

TEST_F(FormatterAddIn, AClickShowsThePageAndLeavesTheAnswersAlone) {
    connect();
    for (const bool before : {false, true}) {
        bool handled = before, cancelDefault = before;
        ide->sources[0]->handler(*ide->bars[0]->commands[0], handled, cancelDefault);
        EXPECT_EQ(handled, before);
        EXPECT_EQ(cancelDefault, before);
    }
    EXPECT_THAT(windows(), ElementsAre("frmMain"));
    EXPECT_TRUE(addIn->IsLoaded());
}

TEST_F(FormatterAddIn, ASecondClickShowsTheSamePage) {
    connect();
    clickCommand();
    const frmMain* const first = &page();
    EXPECT_TRUE(clickCommand());
    EXPECT_THAT(windows(), ElementsAre("frmMain"));
    EXPECT_EQ(&page(), first);
}

TEST_F(FormatterAddIn, HideUnloadsThePage) {
    connect();
    clickCommand();
    const std::weak_ptr<forms::Form> former = page().weak_from_this();
    addIn->Hide();
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
    EXPECT_TRUE(former.expired());
    addIn->Hide(); // with nothing to hide
    clickCommand();
    EXPECT_THAT(windows(), ElementsAre("frmMain"));
    disconnect();
    EXPECT_EQ(autoShow(), "1");
}

TEST_F(FormatterAddIn, ThePagesOwnEndCountsAsHide) {
    connect();
    clickCommand();
    EXPECT_TRUE(desktop.click(page().cmdCancel));
    EXPECT_FALSE(addIn->IsLoaded());
    clickCommand();
    EXPECT_TRUE(desktop.close(page()));
    EXPECT_FALSE(addIn->IsLoaded());
    EXPECT_THAT(windows(), IsEmpty());
    disconnect();
    EXPECT_EQ(autoShow(), "0");
}

TEST_F(FormatterAddIn, DisconnectionBehindThePagesFirstMessageLeavesNothing) {
    ide->activate(nullptr);
    connect();
    desktop.answerNextBox(1, [&] { disconnect(); });
    clickCommand();
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_FALSE(addIn->IsLoaded());
}

TEST_F(FormatterAddIn, ShowsWithoutAnIdeToo) {
    desktop.answerNextBox(1);
    addIn->Show();
    EXPECT_THAT(windows(), ElementsAre("frmMain"));
    EXPECT_TRUE(addIn->IsLoaded());
}

TEST_F(FormatterAddIn, CountsAsShownWhereThePageCannotBe) {
    PoorDesktop poor;
    addIn = std::make_shared<CodeFormatter>(poor);
    connect();
    poor.impossible = "frmMain";
    EXPECT_TRUE(clickCommand());
    EXPECT_THAT(poor.windows(), IsEmpty());
    EXPECT_TRUE(poor.boxes().empty());
    EXPECT_TRUE(addIn->IsLoaded());
    poor.impossible.clear();
    EXPECT_TRUE(clickCommand());
    EXPECT_EQ(poor.windows().size(), 1U);
    addIn.reset();
}

TEST_F(FormatterAddIn, DisconnectionGoesOnWhereTheSettingCannotBeSaved) {
    PoorDesktop poor;
    addIn = std::make_shared<CodeFormatter>(poor);
    connect();
    clickCommand();
    ASSERT_EQ(poor.windows().size(), 1U);
    poor.settingsAreClosed = true;
    disconnect();
    EXPECT_FALSE(addIn->IsLoaded());
    EXPECT_THAT(poor.windows(), IsEmpty());
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_TRUE(poor.boxes().empty());
    addIn.reset();
}

TEST_F(FormatterAddIn, DisconnectionSavesTheSettingBeforeItUnloadsTheWindow) {
    connect();
    clickCommand();
    std::string savedBefore;
    desktop.inNextModal([&](forms::Form& form) {
        desktop.click(dynamic_cast<FrmFormatter&>(form).CmdFmt);
        // Its unload asks what becomes of the formatted code.
        desktop.answerNextBox(forms::answer::yes, [&] { savedBefore = autoShow(); });
        disconnect();
    });
    desktop.click(page().CmdNext);
    EXPECT_EQ(savedBefore, "1");
    EXPECT_THAT(windows(), IsEmpty());
}

TEST_F(FormatterAddIn, OutlivesItsDisconnectionDuringAPass) {
    connect();
    clickCommand();
    const std::weak_ptr<AddIn> object = addIn;
    desktop.inNextModal([&](forms::Form& form) {
        auto& dialog = dynamic_cast<FrmFormatter&>(form);
        desktop.atYield([&] {
            disconnect();
            addIn.reset();
        });
        desktop.click(dialog.CmdFmt);
    });
    desktop.click(page().CmdNext);
    EXPECT_TRUE(object.expired());
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(autoShow(), "1");
    EXPECT_THAT(ide->project->components[0]->code->lines, ElementsAre("Sub Main()", "End Sub"));
}

} // namespace
} // namespace corvelle::host::test
