#include "base/run_time_error.h"
#include "forms/recording_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::forms {
namespace {

using testing::ElementsAre;

class FormLoad : public testing::Test {
  protected:
    HeadlessDesktop desktop;
    std::shared_ptr<RecordingForm> form = std::make_shared<RecordingForm>(desktop);
};

TEST_F(FormLoad, AnObjectExistsUnloaded) {
    EXPECT_FALSE(form->isLoaded());
    EXPECT_FALSE(form->visible());
    EXPECT_FALSE(form->enabled());
    EXPECT_EQ(form->peer(), nullptr);
    EXPECT_THAT(form->log, ElementsAre());
}

TEST_F(FormLoad, APublicVariableDoesNotLoadIt) {
    form->publicVariable = 3;
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormLoad, AskingWhetherItIsVisibleDoesNotLoadIt) {
    form->visible();
    form->enabled();
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormLoad, LoadingOnceRunsDesignThenLoad) {
    form->load();
    EXPECT_TRUE(form->isLoaded());
    EXPECT_FALSE(form->visible());
    form->load();
    EXPECT_THAT(form->log, ElementsAre("surface Reset", "design", "surface Resize", "Load"));
}

TEST_F(FormLoad, TheDesignRaisesNoEvent) {
    form->load();
    for (const std::string event : {"check Click", "text Change", "combo Click", "list Click",
                                    "slider Change", "tabs Click", "Resize"}) {
        EXPECT_EQ(form->count(event), 0) << event;
    }
}

TEST_F(FormLoad, TheUseThatLoadsTakesEffectAfterLoad) {
    std::string seen;
    form->inLoad = [&] {
        seen = form->label.caption();
        form->label.setCaption("by Load");
    };
    form->label.setCaption("by the user of the form");
    EXPECT_EQ(seen, "");
    EXPECT_EQ(form->label.caption(), "by the user of the form");
    EXPECT_EQ(form->count("Load"), 1);
}

TEST_F(FormLoad, AReadThatLoadsSeesWhatLoadWrote) {
    form->inLoad = [&] { form->text.setText("by Load"); };
    EXPECT_EQ(form->text.text(), "by Load");
}

// Every member that is a control's or the window's.
class FirstTouch
    : public testing::TestWithParam<std::pair<const char*, std::function<void(RecordingForm&)>>> {};

TEST_P(FirstTouch, LoadsTheForm) {
    HeadlessDesktop desktop;
    const auto form = std::make_shared<RecordingForm>(desktop);
    GetParam().second(*form);
    EXPECT_EQ(form->count("Load"), 1);
}

using Touch = std::pair<const char*, std::function<void(RecordingForm&)>>;
INSTANTIATE_TEST_SUITE_P(
    Members, FirstTouch,
    testing::Values(
        Touch{"Caption", [](RecordingForm& form) { form.caption(); }},
        Touch{"SetCaption", [](RecordingForm& form) { form.setCaption("x"); }},
        Touch{"Icon", [](RecordingForm& form) { form.icon(); }},
        Touch{"SetIcon", [](RecordingForm& form) { form.setIcon(Picture("x")); }},
        Touch{"MousePointer", [](RecordingForm& form) { form.mousePointer(); }},
        Touch{"SetMousePointer", [](RecordingForm& form) { form.setMousePointer(MousePointer::Hourglass); }},
        Touch{"Size", [](RecordingForm& form) { form.size(); }},
        Touch{"SetSize",
              [](RecordingForm& form) {
                  form.setSize({1, 1});
              }},
        Touch{"Show", [](RecordingForm& form) { form.show(); }},
        Touch{"Hide", [](RecordingForm& form) { form.hide(); }},
        Touch{"ActiveControl", [](RecordingForm& form) { form.activeControl(); }},
        Touch{"Bounds", [](RecordingForm& form) { form.button.bounds(); }},
        Touch{"SetBounds",
              [](RecordingForm& form) {
                  form.button.setBounds({1, 1, 1, 1});
              }},
        Touch{"Enabled", [](RecordingForm& form) { form.button.enabled(); }},
        Touch{"SetEnabled", [](RecordingForm& form) { form.button.setEnabled(false); }},
        Touch{"Visible", [](RecordingForm& form) { form.button.visible(); }},
        Touch{"SetVisible", [](RecordingForm& form) { form.button.setVisible(false); }},
        Touch{"Tag", [](RecordingForm& form) { form.button.tag(); }},
        Touch{"SetTag", [](RecordingForm& form) { form.button.setTag("x"); }},
        Touch{"HelpContextID", [](RecordingForm& form) { form.button.helpContextID(); }},
        Touch{"SetHelpContextID", [](RecordingForm& form) { form.button.setHelpContextID(1); }},
        Touch{"WhatsThisHelpID", [](RecordingForm& form) { form.button.whatsThisHelpID(); }},
        Touch{"SetWhatsThisHelpID", [](RecordingForm& form) { form.button.setWhatsThisHelpID(1); }},
        Touch{"BackColor", [](RecordingForm& form) { form.button.backColor(); }},
        Touch{"SetBackColor", [](RecordingForm& form) { form.button.setBackColor(1); }},
        Touch{"ForeColor", [](RecordingForm& form) { form.button.foreColor(); }},
        Touch{"SetForeColor", [](RecordingForm& form) { form.button.setForeColor(1); }},
        Touch{"Font", [](RecordingForm& form) { form.button.font(); }},
        Touch{"SetFont",
              [](RecordingForm& form) {
                  form.button.setFont({"x", 9, true});
              }},
        Touch{"SetFocus", [](RecordingForm& form) { form.button.setFocus(); }},
        Touch{"Reachable", [](RecordingForm& form) { form.button.reachable(); }},
        Touch{"ButtonCaption", [](RecordingForm& form) { form.button.caption(); }},
        Touch{"CheckValue", [](RecordingForm& form) { form.check.value(); }},
        Touch{"SetCheckValue", [](RecordingForm& form) { form.check.setValue(0); }},
        Touch{"Text", [](RecordingForm& form) { form.text.text(); }},
        Touch{"SetText", [](RecordingForm& form) { form.text.setText("x"); }},
        Touch{"Locked", [](RecordingForm& form) { form.text.locked(); }},
        Touch{"MultiLine", [](RecordingForm& form) { form.text.multiLine(); }},
        Touch{"ListCount", [](RecordingForm& form) { form.list.listCount(); }},
        Touch{"ListIndex", [](RecordingForm& form) { form.list.listIndex(); }},
        Touch{"Items", [](RecordingForm& form) { form.list.items(); }},
        Touch{"AddItem", [](RecordingForm& form) { form.combo.addItem("x"); }},
        Touch{"Clear", [](RecordingForm& form) { form.combo.clear(); }},
        Touch{"ComboText", [](RecordingForm& form) { form.combo.text(); }},
        Touch{"SliderValue", [](RecordingForm& form) { form.slider.value(); }},
        Touch{"SetSliderValue", [](RecordingForm& form) { form.slider.setValue(1); }},
        Touch{"Range", [](RecordingForm& form) { form.slider.range(); }},
        Touch{"Tabs", [](RecordingForm& form) { form.tabs.tabs(); }},
        Touch{"SetTabs", [](RecordingForm& form) { form.tabs.setTabs({"x"}); }},
        Touch{"Select", [](RecordingForm& form) { form.tabs.select(1); }},
        Touch{"Picture", [](RecordingForm& form) { form.image.picture(); }},
        Touch{"SetPicture", [](RecordingForm& form) { form.image.setPicture(Picture("x")); }},
        Touch{"Transparent", [](RecordingForm& form) { form.label.setTransparent(true); }},
        Touch{"Canvas", [](RecordingForm& form) { form.surface.canvas(); }},
        Touch{"Refresh", [](RecordingForm& form) { form.surface.refresh(); }}),
    [](const auto& info) { return info.param.first; });

TEST_F(FormLoad, AnErrorInLoadIsShownAndTheFormIsLoaded) {
    form->inLoad = [] { throw base::RunTimeError(base::ErrorNumber::FileNotFound); };
    desktop.answerNextBox(answer::ok);
    form->show();
    ASSERT_EQ(desktop.boxes().size(), 1U);
    EXPECT_EQ(desktop.boxes()[0].text, "File not found");
    EXPECT_TRUE(form->visible());
}

TEST_F(FormLoad, AFormWhoseDesignFailsIsNotLoadedAndCanBeLoadedAgain) {
    form->inDesign = [] { throw base::RunTimeError(base::ErrorNumber::OutOfMemory); };
    EXPECT_THROW(form->load(), base::RunTimeError);
    EXPECT_FALSE(form->isLoaded());
    form->inDesign = nullptr;
    form->forget();
    form->load();
    EXPECT_EQ(form->count("Load"), 1);
}

class NoWindows : public HeadlessDesktop {
  public:
    std::unique_ptr<FormPeer> makePeer(Form&) override {
        throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
    }
};

TEST(FormWithoutWindow, IsNotLoaded) {
    NoWindows desktop;
    const auto form = std::make_shared<RecordingForm>(desktop);
    EXPECT_THROW(form->show(), base::RunTimeError);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->count("Load"), 0);
}

TEST_F(FormLoad, AFormUnloadedInItsLoadIsNotShown) {
    form->inLoad = [&] { form->unload(); };
    form->show();
    EXPECT_FALSE(form->isLoaded());
    EXPECT_TRUE(desktop.windows().empty());
    EXPECT_EQ(form->count("Activate"), 0);
    form->showModal();
    EXPECT_TRUE(desktop.modals().empty());
    form->hide();
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(FormLoad, AFormUnloadedInASurfacesResizeIsNotLoaded) {
    form->surface.onResize = [&] { form->unload(); };
    form->load();
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->peer(), nullptr);
    EXPECT_EQ(form->count("Load"), 0);
}

TEST_F(FormLoad, ASurfacesResizeMayUseTheForm) {
    form->surface.onResize = [&] {
        form->label.setCaption("seen");
        form->show();
    };
    form->load();
    EXPECT_TRUE(form->isLoaded());
    EXPECT_FALSE(form->visible());
    EXPECT_EQ(form->label.caption(), "seen");
    EXPECT_EQ(form->count("Load"), 1);
}

TEST_F(FormLoad, ShownInItsLoadItIsVisibleOnce) {
    form->inLoad = [&] { form->show(); };
    form->show();
    EXPECT_EQ(form->count("Load"), 1);
    EXPECT_EQ(form->count("Activate"), 1);
    EXPECT_EQ(desktop.windows().size(), 1U);
}

TEST_F(FormLoad, ALoadThatLetsGoOfTheFormEndsFirst) {
    bool ended = false;
    form->inLoad = [&] {
        form.reset();
        ended = true;
    };
    Form& object = *form;
    object.load();
    EXPECT_TRUE(ended);
    EXPECT_EQ(form, nullptr);
}

} // namespace
} // namespace corvelle::forms
