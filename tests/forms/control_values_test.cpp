#include "base/error_of.h"
#include "base/run_time_error.h"
#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace corvelle::forms {
namespace {

using test::errorNumberOf;
using testing::ElementsAre;

class ControlValues : public testing::Test {
  protected:
    void SetUp() override {
        form->show();
        form->forget();
    }

    HeadlessDesktop desktop;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop);
};

TEST_F(ControlValues, ACheckBoxClicksWhenItsValueBecomesAnother) {
    form->check.setValue(1);
    EXPECT_THAT(form->log, ElementsAre());
    form->check.setValue(0);
    EXPECT_THAT(form->log, ElementsAre("check Click"));
}

TEST_F(ControlValues, TheUsersClickTurnsACheckBoxRound) {
    std::vector<int> seen;
    form->check.onClick = [&] { seen.push_back(form->check.value()); };
    desktop.click(form->check);
    desktop.click(form->check);
    EXPECT_THAT(seen, ElementsAre(0, 1));
}

TEST_F(ControlValues, ATextBoxChangesWhenItsTextBecomesAnother) {
    form->text.setText("designed text");
    EXPECT_THAT(form->log, ElementsAre());
    form->text.setText("new");
    EXPECT_THAT(form->log, ElementsAre("text Change"));
    EXPECT_TRUE(desktop.type(form->text, "new"));
    EXPECT_EQ(form->count("text Change"), 1);
    EXPECT_TRUE(desktop.type(form->text, "typed"));
    EXPECT_EQ(form->count("text Change"), 2);
    EXPECT_EQ(form->text.text(), "typed");
}

TEST_F(ControlValues, AKeyInABoxIsToldBeforeTheChangeAndWithoutOne) {
    desktop.tabTo(form->text);
    form->forget();
    EXPECT_TRUE(desktop.type(form->text, "typed"));
    EXPECT_TRUE(desktop.type(form->text, "typed")); // a key that changes nothing
    EXPECT_THAT(form->log, ElementsAre("text KeyPress", "text Change", "text KeyPress"));
    form->text.setText("by code");
    EXPECT_EQ(form->count("text KeyPress"), 2);
}

TEST_F(ControlValues, AKeyInAListIsToldAndLeftToTheList) {
    EXPECT_TRUE(desktop.press(form->combo, 40));
    EXPECT_EQ(form->count("combo KeyDown 40"), 1);
    form->combo.setEnabled(false);
    EXPECT_FALSE(desktop.press(form->combo, 40));
}

TEST_F(ControlValues, ALockedBoxIsWrittenByCodeOnly) {
    form->text.setLocked(true);
    EXPECT_FALSE(desktop.type(form->text, "typed"));
    form->text.setText("by code");
    EXPECT_EQ(form->text.text(), "by code");
}

template <class List>
void listClicksWhenARowIsChosen(RecordingForm& form, List& list, const std::string& click) {
    list.setListIndex(0);
    EXPECT_EQ(form.count(click), 1);
    EXPECT_EQ(list.text(), "a");
    list.setListIndex(-1);
    EXPECT_EQ(form.count(click), 1) << "no row is chosen";
    EXPECT_EQ(list.text(), "");
    list.setListIndex(2);
    EXPECT_EQ(form.count(click), 2);
}

TEST_F(ControlValues, AComboBoxClicksWhenARowIsChosen) {
    listClicksWhenARowIsChosen(*form, form->combo, "combo Click");
}

TEST_F(ControlValues, AListTakesManyRowsAtOnce) {
    form->combo.clear();
    form->combo.addItems({"a", "b"});
    form->combo.addItems({});
    form->combo.addItems({"c"});
    EXPECT_THAT(form->combo.items(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(form->combo.listIndex(), -1);
}

TEST_F(ControlValues, AListBoxClicksWhenARowIsChosen) {
    listClicksWhenARowIsChosen(*form, form->list, "list Click");
}

TEST_F(ControlValues, TheUsersChoiceClicks) {
    EXPECT_TRUE(desktop.choose(form->list, 0));
    EXPECT_EQ(form->list.listIndex(), 0);
    EXPECT_EQ(form->count("list Click"), 1);
    EXPECT_FALSE(desktop.choose(form->list, 3));
    EXPECT_FALSE(desktop.choose(form->list, -1));
    EXPECT_EQ(form->list.listIndex(), 0);
}

TEST_F(ControlValues, ClearEmptiesAndChoosesNothingWithoutClick) {
    form->combo.clear();
    EXPECT_EQ(form->combo.listCount(), 0);
    EXPECT_EQ(form->combo.listIndex(), -1);
    EXPECT_EQ(form->combo.text(), "");
    EXPECT_THAT(form->log, ElementsAre());
}

TEST_F(ControlValues, AddItemAppendsAndChoosesNothing) {
    form->list.clear();
    form->list.addItem("x");
    form->list.addItem("y");
    EXPECT_EQ(form->list.listIndex(), -1);
    EXPECT_THAT(form->list.items(), ElementsAre("x", "y"));
    EXPECT_EQ(form->list.list(1), "y");
    EXPECT_THAT(form->log, ElementsAre());
    form->list.setListIndex(0);
    form->list.addItem("z");
    EXPECT_EQ(form->list.listIndex(), 0);
}

TEST_F(ControlValues, ARowThatIsNotThereIsAnInvalidPropertyValue) {
    EXPECT_EQ(errorNumberOf([&] { form->combo.setListIndex(3); }), 380);
    EXPECT_EQ(errorNumberOf([&] { form->combo.setListIndex(-2); }), 380);
    EXPECT_EQ(errorNumberOf([&] { form->combo.list(3); }), 380);
    EXPECT_EQ(errorNumberOf([&] { form->combo.list(-1); }), 380);
    EXPECT_EQ(form->combo.listIndex(), 1);
}

TEST_F(ControlValues, ASliderChangesWhenItsValueBecomesAnother) {
    form->slider.setValue(40);
    EXPECT_THAT(form->log, ElementsAre());
    form->slider.setValue(41);
    EXPECT_THAT(form->log, ElementsAre("slider Change"));
}

TEST_F(ControlValues, ASliderScrollsOnlyWhileTheUserDrags) {
    desktop.tabTo(form->slider);
    form->forget();
    EXPECT_TRUE(desktop.drag(form->slider, 50));
    EXPECT_THAT(form->log, ElementsAre("slider Scroll", "slider Change"));
    EXPECT_TRUE(desktop.drag(form->slider, 50));
    EXPECT_EQ(form->log.size(), 2U);
    EXPECT_FALSE(desktop.drag(form->slider, 101));
    EXPECT_EQ(form->slider.value(), 50);
}

TEST_F(ControlValues, ASlidersValueStaysInItsRange) {
    EXPECT_EQ(errorNumberOf([&] { form->slider.setValue(101); }), 380);
    EXPECT_EQ(errorNumberOf([&] { form->slider.setValue(-1); }), 380);
    EXPECT_EQ(errorNumberOf([&] { form->slider.setRange({5, 4, 1, 1}); }), 380);
    EXPECT_EQ(form->slider.value(), 40);
    form->slider.setRange({50, 60, 1, 5});
    EXPECT_EQ(form->slider.value(), 50);
    form->slider.setRange({0, 10, 1, 5});
    EXPECT_EQ(form->slider.value(), 10);
    EXPECT_EQ(form->count("slider Change"), 2);
}

TEST_F(ControlValues, ATabStripClicksWhenAnotherTabIsSelected) {
    form->tabs.select(2);
    EXPECT_THAT(form->log, ElementsAre());
    form->tabs.select(1);
    EXPECT_THAT(form->log, ElementsAre("tabs Click"));
    EXPECT_TRUE(desktop.choose(form->tabs, 2));
    EXPECT_EQ(form->count("tabs Click"), 2);
    EXPECT_FALSE(desktop.choose(form->tabs, 3));
    EXPECT_EQ(errorNumberOf([&] { form->tabs.select(0); }), 380);
    EXPECT_EQ(errorNumberOf([&] { form->tabs.select(3); }), 380);
    form->tabs.setTabs({"x", "y", "z"});
    EXPECT_EQ(form->tabs.selected(), 1);
}

TEST_F(ControlValues, HandlersNest) {
    form->check.onClick = [&] {
        form->log.emplace_back("check begins");
        form->combo.setListIndex(0);
        form->log.emplace_back("check ends");
    };
    form->combo.onClick = [&] {
        form->log.emplace_back("combo begins");
        form->text.setText("nested");
        form->log.emplace_back("combo ends");
    };
    form->check.setValue(0);
    EXPECT_THAT(form->log,
                ElementsAre("check begins", "combo begins", "text Change", "combo ends", "check ends"));
}

TEST_F(ControlValues, AHandlerMayWriteItsOwnControl) {
    form->text.onChange = [&] {
        if (form->text.text().size() < 4) form->text.setText(form->text.text() + "x");
    };
    form->text.setText("x");
    EXPECT_EQ(form->text.text(), "xxxx");
}

TEST_F(ControlValues, AHandlerMayReplaceItself) {
    form->check.onClick = [&] {
        form->log.emplace_back("old");
        form->check.onClick = [&] { form->log.emplace_back("new"); };
        form->log.emplace_back("still old");
    };
    form->check.setValue(0);
    form->check.setValue(1);
    EXPECT_THAT(form->log, ElementsAre("old", "still old", "new"));
}

TEST_F(ControlValues, AcceleratorsStayInCaptions) {
    EXPECT_EQ(form->button.caption(), "&Press && go");
    form->label.setCaption("&Name:");
    EXPECT_EQ(form->label.caption(), "&Name:");
}

TEST_F(ControlValues, TextBoxesAndListsHaveTheWindowsColours) {
    for (const Control* control : std::vector<const Control*>{&form->text, &form->combo, &form->list}) {
        EXPECT_EQ(control->backColor(), colours::windowBackground) << control->name();
        EXPECT_EQ(control->foreColor(), colours::windowText) << control->name();
    }
    for (const Control* control : std::vector<const Control*>{&form->label, &form->check, &form->surface}) {
        EXPECT_EQ(control->backColor(), colours::buttonFace) << control->name();
        EXPECT_EQ(control->foreColor(), colours::buttonText) << control->name();
    }
}

// Errors

TEST_F(ControlValues, AnErrorThatLeavesAHandlerBecomesABox) {
    form->check.onClick = [] { throw base::RunTimeError(base::ErrorNumber::Overflow); };
    desktop.answerNextBox(answer::ok);
    EXPECT_NO_THROW(form->check.setValue(0));
    ASSERT_EQ(desktop.boxes().size(), 1U);
    EXPECT_EQ(desktop.boxes()[0].text, "Overflow");
    EXPECT_EQ(desktop.boxes()[0].flags, 0);
    EXPECT_EQ(desktop.boxes()[0].title, "Corvelle");
    EXPECT_EQ(form->check.value(), 0);
}

TEST_F(ControlValues, AnErrorEndsOnlyTheInnerHandler) {
    form->combo.onClick = [] { throw base::RunTimeError(base::ErrorNumber::Overflow); };
    form->check.onClick = [&] {
        form->combo.setListIndex(0);
        form->log.emplace_back("goes on");
    };
    desktop.answerNextBox(answer::ok);
    desktop.click(form->check);
    EXPECT_EQ(form->count("goes on"), 1);
}

TEST_F(ControlValues, RunningOutOfMemoryIsAnErrorToo) {
    form->button.onClick = [] { throw std::bad_alloc(); };
    desktop.answerNextBox(answer::ok);
    desktop.click(form->button);
    EXPECT_EQ(desktop.boxes().back().text, "Out of memory");
}

TEST_F(ControlValues, AnErrorOfTheLibrariesGetsNoFurtherEither) {
    form->button.onClick = [] { throw std::length_error("too long"); };
    desktop.answerNextBox(answer::ok);
    EXPECT_NO_THROW(desktop.click(form->button));
    EXPECT_EQ(desktop.boxes().back().text, "too long");
}

TEST_F(ControlValues, AnErrorWithItsRaisersWordsIsShownInThem) {
    form->inClick = [] { throw base::RunTimeError(1004, "The module is in use."); };
    desktop.answerNextBox(answer::ok);
    desktop.click(*form);
    EXPECT_EQ(desktop.boxes().back().text, "The module is in use.");
}

TEST_F(ControlValues, AnErrorInActivateOrResizeBecomesABox) {
    const auto other = std::make_shared<RecordingForm>(desktop, "other");
    other->inResize = [] { throw base::RunTimeError(base::ErrorNumber::Overflow); };
    other->inActivate = [] { throw base::RunTimeError(base::ErrorNumber::TypeMismatch); };
    desktop.answerNextBox(answer::ok);
    desktop.answerNextBox(answer::ok);
    other->show();
    ASSERT_EQ(desktop.boxes().size(), 2U);
    EXPECT_EQ(desktop.boxes()[0].text, "Overflow");
    EXPECT_EQ(desktop.boxes()[1].text, "Type mismatch");
    EXPECT_TRUE(other->visible());
}

} // namespace
} // namespace corvelle::forms
