#include "forms/headless/headless_desktop.h"
#include "ui/frm_abt.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

using testing::ElementsAre;

class FrmAbt : public testing::Test {
  protected:
    forms::HeadlessDesktop desktop;
};

TEST_F(FrmAbt, LoadsWithThePackagesNameAndVersion) {
    const auto box = frmAbt::defaultInstance(desktop);
    EXPECT_FALSE(box->isLoaded());
    box->load();
    EXPECT_EQ(box->Label1[0].caption(), "Trellis");
    EXPECT_EQ(box->Label1[1].caption(), "Trellis");
    EXPECT_EQ(box->Label2.caption(), "Version 1.0.7");
    EXPECT_FALSE(box->LblWarn.visible());
    EXPECT_TRUE(box->Img.picture().empty());
}

TEST_F(FrmAbt, TakesNameAndVersionFromTheApplication) {
    desktop.application.productName = "Other";
    desktop.application.major = 2;
    desktop.application.minor = 30;
    desktop.application.revision = 456;
    const auto box = frmAbt::defaultInstance(desktop);
    EXPECT_EQ(box->Label1[0].caption(), "Other");
    EXPECT_EQ(box->Label1[1].caption(), "Other");
    EXPECT_EQ(box->Label2.caption(), "Version 2.30.456");
}

TEST_F(FrmAbt, IsDesignedForThePackage) {
    struct Designed : frmAbt {
        using frmAbt::frmAbt;
        void Form_Load() override {} // which has texts of its own
    };
    desktop.application.productName = "Other";
    const auto box = std::make_shared<Designed>(desktop);
    EXPECT_EQ(box->Label1[0].caption(), "Trellis");
    EXPECT_EQ(box->Label1[1].caption(), "Trellis");
    EXPECT_EQ(box->Label2.caption(), "Version 1.1");
}

TEST_F(FrmAbt, TheCreditBlockIsThreeLines) {
    const auto box = frmAbt::defaultInstance(desktop);
    const std::string& block = box->Label3.caption();
    EXPECT_EQ(std::count(block.begin(), block.end(), '\r'), 2);
    EXPECT_EQ(block.find('\n'), std::string::npos);
    EXPECT_EQ(block.find("\r\r"), std::string::npos);
    EXPECT_NE(block.front(), '\r');
    EXPECT_NE(block.back(), '\r');
}

TEST_F(FrmAbt, HasItsControlsInOrder) {
    const auto box = frmAbt::defaultInstance(desktop);
    EXPECT_THAT(box->controls(), ElementsAre(&box->LblWarn, &box->Label3, &box->Img, &box->Label2,
                                             &box->Label1[0], &box->Label1[1]));
    EXPECT_EQ(box->name(), "frmAbt");
    EXPECT_EQ(box->Label1[1].name(), "Label1");
}

TEST_F(FrmAbt, SetTitleFillsBoth) {
    const auto box = frmAbt::defaultInstance(desktop);
    box->setTitle("Help ID Indexer");
    EXPECT_EQ(box->Label1[0].caption(), "Help ID Indexer");
    EXPECT_EQ(box->Label1[1].caption(), "Help ID Indexer");
    EXPECT_EQ(box->Label2.caption(), "Version 1.0.7");
}

TEST_F(FrmAbt, SetVersionReplacesTheLine) {
    const auto box = frmAbt::defaultInstance(desktop);
    box->setVersion("Version 1.1");
    EXPECT_EQ(box->Label2.caption(), "Version 1.1");
}

TEST_F(FrmAbt, SetWarningShowsAColouredStrip) {
    const auto box = frmAbt::defaultInstance(desktop);
    box->setWarning(" Warning: mind the step.", 0x800080, 0xFFFFFF);
    EXPECT_TRUE(box->LblWarn.visible());
    EXPECT_EQ(box->LblWarn.caption(), " Warning: mind the step.");
    EXPECT_EQ(box->LblWarn.backColor(), 0x800080U);
    EXPECT_EQ(box->LblWarn.foreColor(), 0xFFFFFFU);
}

TEST_F(FrmAbt, AnEmptyWarningHidesTheStripAndChangesNothingElse) {
    const auto box = frmAbt::defaultInstance(desktop);
    box->setWarning("text", 0x800080, 0xFFFFFF);
    box->setWarning("", 0x000001, 0x000002);
    EXPECT_FALSE(box->LblWarn.visible());
    EXPECT_EQ(box->LblWarn.caption(), "text");
    EXPECT_EQ(box->LblWarn.backColor(), 0x800080U);
    EXPECT_EQ(box->LblWarn.foreColor(), 0xFFFFFFU);
}

TEST_F(FrmAbt, AboutPictureIsTheImages) {
    const auto box = frmAbt::defaultInstance(desktop);
    box->setAboutPicture(forms::Picture("formatter"));
    EXPECT_EQ(box->Img.picture(), forms::Picture("formatter"));
}

// Every member that fills the box in loads it first, so that the load does not overwrite what is filled in.
TEST_F(FrmAbt, EachFirstCallTakesEffectAfterTheLoad) {
    const auto first = std::make_shared<frmAbt>(desktop);
    first->setTitle("title");
    EXPECT_EQ(first->Label1[1].caption(), "title");
    const auto second = std::make_shared<frmAbt>(desktop);
    second->setVersion("version");
    EXPECT_EQ(second->Label2.caption(), "version");
    const auto third = std::make_shared<frmAbt>(desktop);
    third->setWarning("warning", 1, 2);
    EXPECT_TRUE(third->LblWarn.visible());
    const auto fourth = std::make_shared<frmAbt>(desktop);
    fourth->setAboutPicture(forms::Picture("p"));
    EXPECT_EQ(fourth->Img.picture().name(), "p");
    const auto fifth = std::make_shared<frmAbt>(desktop);
    fifth->setWarning("", 1, 2);
    EXPECT_TRUE(fifth->isLoaded());
}

TEST_F(FrmAbt, AClickOnAnyOfItsSurfacesClosesIt) {
    using Click = std::function<bool(frmAbt&)>;
    const std::vector<std::pair<const char*, Click>> clicks{
        {"form", [&](frmAbt& box) { return desktop.click(box); }},
        {"Img", [&](frmAbt& box) { return desktop.click(box.Img); }},
        {"LblWarn", [&](frmAbt& box) { return desktop.click(box.LblWarn); }},
        {"Label1(0)", [&](frmAbt& box) { return desktop.click(box.Label1[0]); }},
        {"Label1(1)", [&](frmAbt& box) { return desktop.click(box.Label1[1]); }},
        {"Label2", [&](frmAbt& box) { return desktop.click(box.Label2); }},
        {"Label3", [&](frmAbt& box) { return desktop.click(box.Label3); }},
    };
    for (const auto& [name, click] : clicks) {
        const auto box = frmAbt::defaultInstance(desktop);
        box->setWarning("warning", 1, 2);
        desktop.inNextModal([&, click = click](forms::Form& shown) {
            EXPECT_EQ(&shown, box.get());
            EXPECT_TRUE(click(*box));
        });
        box->showModal();
        EXPECT_FALSE(box->isLoaded()) << name;
        EXPECT_NE(frmAbt::defaultInstance(desktop), box) << name;
    }
}

TEST_F(FrmAbt, NoKeyClosesIt) {
    const auto box = frmAbt::defaultInstance(desktop);
    desktop.inNextModal([&](forms::Form& shown) {
        EXPECT_FALSE(desktop.pressEnter(shown));
        EXPECT_FALSE(desktop.pressEscape(shown));
        desktop.press(shown, 27);
        EXPECT_TRUE(shown.visible());
        desktop.click(shown);
    });
    box->showModal();
    EXPECT_TRUE(desktop.scriptIsDone());
}

TEST_F(FrmAbt, EveryUseStartsFromAFreshLoad) {
    {
        const auto box = frmAbt::defaultInstance(desktop);
        box->setTitle("Help ID Indexer");
        box->setVersion("Version 9");
        box->setWarning("warning", 1, 2);
        box->setAboutPicture(forms::Picture("p"));
        desktop.inNextModal([&](forms::Form& shown) { desktop.click(shown); });
        box->showModal();
    }
    const auto box = frmAbt::defaultInstance(desktop);
    EXPECT_FALSE(box->isLoaded());
    EXPECT_EQ(box->Label1[0].caption(), "Trellis");
    EXPECT_EQ(box->Label2.caption(), "Version 1.0.7");
    EXPECT_FALSE(box->LblWarn.visible());
    EXPECT_TRUE(box->Img.picture().empty());
}

TEST_F(FrmAbt, TheCloseBoxMakesTheNextUseFreshToo) {
    const auto box = frmAbt::defaultInstance(desktop);
    box->setTitle("title");
    desktop.inNextModal([&](forms::Form& shown) { desktop.close(shown); });
    box->showModal();
    EXPECT_EQ(frmAbt::defaultInstance(desktop)->Label1[0].caption(), "Trellis");
}

TEST_F(FrmAbt, ThereIsOneDefaultInstance) {
    const auto box = frmAbt::defaultInstance(desktop);
    EXPECT_EQ(frmAbt::defaultInstance(desktop), box);
    const auto own = std::make_shared<frmAbt>(desktop);
    own->show();
    desktop.click(*own);
    EXPECT_EQ(frmAbt::defaultInstance(desktop), box) << "another box's click does not release it";
}

TEST_F(FrmAbt, AnotherDesktopHasItsOwn) {
    const auto box = frmAbt::defaultInstance(desktop);
    forms::HeadlessDesktop other;
    EXPECT_NE(frmAbt::defaultInstance(other), box);
    EXPECT_EQ(&frmAbt::defaultInstance(other)->desktop(), &other);
}

TEST_F(FrmAbt, ABoxThatWasNeverShownIsGoneWithItsCaller) {
    frmAbt::defaultInstance(desktop)->setTitle("title");
    EXPECT_EQ(frmAbt::defaultInstance(desktop)->Label1[0].caption(), "Trellis");
}

TEST_F(FrmAbt, TheTitlesAreInAFixedPitchAndOneIsTheOthersShadow) {
    const auto box = frmAbt::defaultInstance(desktop);
    EXPECT_EQ(box->Label1[0].font().name, "Courier New");
    EXPECT_EQ(box->Label1[0].font(), box->Label1[1].font());
    const auto shadow = box->Label1[0].bounds(), title = box->Label1[1].bounds();
    EXPECT_GT(title.left, shadow.left);
    EXPECT_LT(title.left, shadow.left + 60);
    EXPECT_GT(title.top, shadow.top);
    EXPECT_LT(title.top, shadow.top + 60);
    EXPECT_EQ(title.width, shadow.width);
    EXPECT_EQ(title.height, shadow.height);
    EXPECT_NE(box->Label1[0].foreColor(), box->Label1[1].foreColor());
    EXPECT_TRUE(box->Label1[0].transparent());
}

void expectApart(const frmAbt* box) {
    const std::vector<const forms::Control*> controls{&box->LblWarn, &box->Label3, &box->Img, &box->Label2,
                                                      &box->Label1[0]};
    for (const forms::Control* control : controls) {
        const forms::Bounds& at = control->bounds();
        EXPECT_GE(at.left, 120);
        EXPECT_GE(at.top, 120);
        EXPECT_LE(at.left + at.width, box->size().width - 120);
        EXPECT_LE(at.top + at.height, box->size().height - 120);
        for (const forms::Control* other : controls) {
            if (other == control) continue;
            const forms::Bounds& there = other->bounds();
            const bool apart = at.left + at.width <= there.left || there.left + there.width <= at.left ||
                               at.top + at.height <= there.top || there.top + there.height <= at.top;
            EXPECT_TRUE(apart) << control->name() << " and " << other->name();
        }
    }
}

TEST_F(FrmAbt, NothingButTheTitlesOverlapsOrLeavesTheForm) {
    const auto box = frmAbt::defaultInstance(desktop);
    expectApart(box.get());
    box->setAboutPicture(forms::Picture("icon102"));
    expectApart(box.get());
}

TEST_F(FrmAbt, ShowsATallPictureWhole) {
    desktop.pictureSizes["page"] = {1800, 3540};
    const auto box = frmAbt::defaultInstance(desktop);
    const auto before = box->size();
    box->setAboutPicture(forms::Picture("page"));
    EXPECT_EQ(box->Img.bounds().width, 1800);
    EXPECT_EQ(box->Img.bounds().height, 3540);
    expectApart(box.get());
    box->setAboutPicture(forms::Picture("icon102"));
    EXPECT_EQ(box->Img.bounds().width, 480);
    EXPECT_EQ(box->size(), before);
}

} // namespace
} // namespace corvelle::ui
