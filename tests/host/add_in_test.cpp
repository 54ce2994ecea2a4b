#include "base/run_time_error.h"
#include "host/code_formatter.h"
#include "host/connected.h"
#include "host/context_help_indexer.h"

#include <gmock/gmock.h>

namespace corvelle::host::test {
namespace {

using base::RunTimeError;
using testing::ElementsAre;
using testing::IsEmpty;

const RunTimeError disaster(1004, "The bar is busy");
const char* const disasterBox = "The following error occurred:\r\nThe bar is busy";

/// What holds for both connect classes alike.
template <class Class>
class EveryAddIn : public testing::Test, public Connected {
  protected:
    EveryAddIn() { addIn = std::make_shared<Class>(desktop); }

    const std::string caption = std::is_same_v<Class, CodeFormatter> ? "Code Formatter" : "Help ID Indexer";
};

using Classes = testing::Types<CodeFormatter, ContextHelpIndexer>;
TYPED_TEST_SUITE(EveryAddIn, Classes);

TYPED_TEST(EveryAddIn, AppendsItsCommandAndListens) {
    this->connect();
    EXPECT_THAT(this->ide->calls->all(),
                ElementsAre("VBE.CommandBars", "CommandBars.Item(\"Add-Ins\")", "CommandBar.Controls",
                            "CommandBarControls.Add(1)",
                            "CommandBarControl.setCaption(\"" + this->caption + "\")", "VBE.Events",
                            "Events.CommandBarEvents", "CommandBarEvents.setClick"));
    ASSERT_EQ(this->ide->sources.size(), 1U);
    EXPECT_EQ(this->ide->sources[0]->control, this->ide->bars[0]->commands[0]);
    EXPECT_EQ(this->addIn->MenuEvents(), this->ide->sources[0]);
}

TYPED_TEST(EveryAddIn, EveryConnectionButTheExternalShowsNothing) {
    for (const std::int32_t mode : {connect_mode::AfterStartup, connect_mode::Startup, 3, 5, -1}) {
        this->connect(mode);
        EXPECT_THAT(this->commands(), ElementsAre(this->caption));
        EXPECT_THAT(this->windows(), IsEmpty());
        EXPECT_FALSE(this->addIn->IsLoaded());
        this->disconnect();
        EXPECT_THAT(this->commands(), IsEmpty());
    }
}

TYPED_TEST(EveryAddIn, ShowsNothingOnAccountOfWhatItRemembers) {
    this->connect();
    this->addIn->setIsLoaded(true);
    this->disconnect();
    ASSERT_EQ(this->autoShow(), "1");
    for (const std::int32_t mode : {connect_mode::AfterStartup, connect_mode::Startup}) {
        this->connect(mode);
        EXPECT_THAT(this->windows(), IsEmpty());
        EXPECT_FALSE(this->addIn->IsLoaded());
    }
    this->disconnect();
    EXPECT_EQ(this->desktop.map().values.size(), 2U); // this setting and the one that the test begins with
}

TYPED_TEST(EveryAddIn, WithoutTheBarThereIsNoCommandAndNoMessage) {
    this->ide->bars.clear();
    this->connect();
    EXPECT_TRUE(this->desktop.boxes().empty());
    EXPECT_EQ(this->addIn->AddMyMenu("Other"), nullptr);
}

TYPED_TEST(EveryAddIn, AsksForTheClicksOfNoCommandToo) {
    this->ide->bars.clear();
    this->connect();
    ASSERT_EQ(this->ide->sources.size(), 1U);
    EXPECT_EQ(this->ide->sources[0]->control, nullptr);
    // An IDE that refuses has its error told.
    this->ide->calls->fail("Events.CommandBarEvents", 1, disaster);
    this->desktop.answerNextBox(1);
    this->connect();
    EXPECT_EQ(this->desktop.boxes().back().text, disasterBox);
}

TYPED_TEST(EveryAddIn, AFailureOfTheMenuLeavesNoCommandAndNoMessage) {
    for (const char* member : {"VBE.CommandBars", "CommandBars.Item", "CommandBar.Controls",
                               "CommandBarControls.Add", "CommandBarControl.setCaption"}) {
        this->ide->calls->fail(member, 1, disaster);
        this->connect();
        EXPECT_THAT(this->commands(), IsEmpty()) << member;
        this->ide->calls->fail(member, 1, disaster);
        EXPECT_EQ(this->addIn->AddMyMenu("Other"), nullptr) << member;
        this->ide->calls->failNoMore();
        this->disconnect();
    }
    EXPECT_TRUE(this->desktop.boxes().empty());
}

TYPED_TEST(EveryAddIn, AFailureOfTheEventsIsTold) {
    int boxes = 0;
    for (const char* member : {"VBE.Events", "Events.CommandBarEvents", "CommandBarEvents.setClick"}) {
        this->ide->calls->fail(member, 1, disaster);
        this->desktop.answerNextBox(1);
        this->connect();
        ASSERT_EQ(this->desktop.boxes().size(), static_cast<std::size_t>(++boxes)) << member;
        const auto& box = this->desktop.boxes().back();
        EXPECT_EQ(box.text, disasterBox);
        EXPECT_EQ(box.flags, 64);
        EXPECT_EQ(box.title, "Corvelle");
        EXPECT_EQ(this->addIn->MenuEvents(), nullptr);
        EXPECT_THAT(this->commands(), ElementsAre(this->caption)); // as far as it got
        this->disconnect();
        EXPECT_THAT(this->commands(), IsEmpty());
    }
}

TYPED_TEST(EveryAddIn, TellsOfMissingMemoryAndOfAMissingIde) {
    this->ide->calls->onCall = [this](const std::string& member) {
        if (member == "VBE.Events") this->ide->calls->failWithoutMemory();
    };
    this->desktop.answerNextBox(1);
    this->connect();
    EXPECT_EQ(this->desktop.boxes().back().text, "The following error occurred:\r\nOut of memory");
    this->ide->calls->onCall = nullptr;

    this->desktop.answerNextBox(1);
    this->addIn->IDTExtensibility_OnConnection(nullptr, connect_mode::Startup);
    EXPECT_EQ(this->desktop.boxes().back().text,
              "The following error occurred:\r\nObject variable or With block variable not set");
}

TYPED_TEST(EveryAddIn, ConnectedTwiceItHasOneCommand) {
    this->connect();
    this->connect();
    EXPECT_THAT(this->commands(), ElementsAre(this->caption));
    ASSERT_EQ(this->ide->sources.size(), 2U);
    EXPECT_FALSE(this->ide->sources[0]->click());
    EXPECT_NE(this->ide->sources[1]->handler, nullptr);
    this->disconnect();
    EXPECT_THAT(this->commands(), IsEmpty());
}

TYPED_TEST(EveryAddIn, DisconnectionTakesTheCommandAwayAndListensNoMore) {
    this->connect();
    this->disconnect();
    EXPECT_TRUE(this->ide->bars[0]->commands[0]->deleted);
    EXPECT_FALSE(this->clickCommand());
    EXPECT_EQ(this->addIn->MenuEvents(), nullptr);
    EXPECT_EQ(this->ide.use_count(), 1);
    EXPECT_EQ(this->autoShow(), "0");
}

TYPED_TEST(EveryAddIn, DisconnectionRemembersWhetherItWasShowing) {
    this->connect();
    this->addIn->setIsLoaded(true);
    this->disconnect();
    EXPECT_EQ(this->autoShow(), "1");
    EXPECT_FALSE(this->addIn->IsLoaded());
    this->disconnect();
    EXPECT_EQ(this->autoShow(), "0");
}

TYPED_TEST(EveryAddIn, DisconnectionDeletesTheCommandBeforeItSavesTheSetting) {
    this->connect();
    this->addIn->setIsLoaded(true);
    std::string savedBefore;
    this->ide->calls->onCall = [&](const std::string& member) {
        if (member == "CommandBarControl.Delete") savedBefore = this->autoShow();
    };
    this->disconnect();
    this->ide->calls->onCall = nullptr;
    EXPECT_EQ(savedBefore, "none");
    EXPECT_EQ(this->autoShow(), "1");
}

TYPED_TEST(EveryAddIn, TheSettingIsUnderTheApplicationsTitle) {
    this->desktop.application.title = "Other";
    this->connect();
    this->disconnect();
    EXPECT_EQ(this->autoShow(), "none");
    EXPECT_EQ(this->desktop.settings().get("Other", "Settings", "AutoShow", ""), "0");
}

TYPED_TEST(EveryAddIn, DisconnectionWithoutConnectionOnlySavesTheSetting) {
    this->disconnect();
    EXPECT_THAT(this->ide->calls->all(), IsEmpty());
    EXPECT_EQ(this->autoShow(), "0");
}

TYPED_TEST(EveryAddIn, DisconnectionGoesOnAfterEachFailure) {
    this->connect();
    this->addIn->setIsLoaded(true);
    this->ide->calls->failForGood("", 1, disaster);
    this->disconnect();
    EXPECT_EQ(this->autoShow(), "1");
    EXPECT_EQ(this->addIn->MenuEvents(), nullptr);
    EXPECT_TRUE(this->desktop.boxes().empty());
}

TYPED_TEST(EveryAddIn, AnyOneFailureLeavesNothingBehindButWhatCannotBeDeleted) {
    constexpr int deletion = 9; // the calls before it: see above
    bool failed = true;
    for (int n = 1; failed; ++n) {
        this->addIn = std::make_shared<TypeParam>(this->desktop);
        this->ide->calls->forget();
        this->ide->calls->failNoMore();
        this->ide->calls->fail("", n, disaster);
        this->desktop.onUnexpected = [](const std::string&) {}; // the message box
        this->connect();
        this->disconnect();
        failed = this->ide->calls->anyFailed();
        // The one call that takes it away.
        EXPECT_THAT(this->commands().size(), n == deletion ? 1U : 0U) << n;
        EXPECT_EQ(this->addIn->MenuEvents(), nullptr) << n;
        EXPECT_EQ(this->autoShow(), "0") << n;
        this->ide->bars[0]->commands.clear();
    }
}

TYPED_TEST(EveryAddIn, ReleasedWhileConnectedItListensNoMore) {
    this->connect();
    this->addIn.reset();
    EXPECT_FALSE(this->clickCommand());
}

TYPED_TEST(EveryAddIn, ListensToTheSourceThatItIsGiven) {
    this->connect();
    const auto other = std::make_shared<corvelle::test::FakeCommandBarEvents>(
        this->ide->calls, this->ide->bars[0]->commands[0]);
    this->addIn->setMenuEvents(other);
    EXPECT_EQ(this->addIn->MenuEvents(), other);
    EXPECT_NE(other->handler, nullptr);
    EXPECT_FALSE(this->clickCommand());                               // of the former source
    this->ide->calls->fail("CommandBarEvents.setClick", 2, disaster); // 1: the former source
    EXPECT_THROW(this->addIn->setMenuEvents(this->ide->sources[0]), RunTimeError);
    EXPECT_EQ(this->addIn->MenuEvents(), nullptr);
    EXPECT_EQ(other->handler, nullptr);
}

TYPED_TEST(EveryAddIn, MayBeConnectedAgain) {
    this->connect();
    this->disconnect();
    this->connect();
    EXPECT_THAT(this->commands(), ElementsAre(this->caption));
}

} // namespace
} // namespace corvelle::host::test
