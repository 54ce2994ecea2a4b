// The control in place: its window, its size, and containers that change their mind.

#include "expected_picture.h"
#include "test_container.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class IndicatorPlace : public testing::Test {
  protected:
    void SetUp() override {
        container->host(makeIndicator());
        object = container->control.query<IOleObject>();
        place = container->control.query<IOleInPlaceObject>();
    }
    void TearDown() override {
        if (container->control) container->leave();
        object.reset();
        place.reset();
        container.reset();
        EXPECT_EQ(livingObjects(), before);
    }
    RECT windowRect() const {
        RECT at{};
        GetWindowRect(container->controlWindow(), &at);
        MapWindowPoints(nullptr, container->window(), reinterpret_cast<POINT*>(&at), 2);
        return at;
    }
    RECT seenPart() const {
        const HRGN region = CreateRectRgn(0, 0, 0, 0);
        RECT box{-1, -1, -1, -1}; // no region: all is seen
        if (GetWindowRgn(container->controlWindow(), region) != 0) GetRgnBox(region, &box);
        DeleteObject(region);
        return box;
    }

    const long before = livingObjects();
    com::Ptr<TestContainer> container = com::make<TestContainer>();
    com::Ptr<IOleObject> object;
    com::Ptr<IOleInPlaceObject> place;
};

bool operator==(const RECT& a, const RECT& b) {
    return EqualRect(&a, &b);
}

TEST_F(IndicatorPlace, TellsWhatItIs) {
    DWORD status = 0;
    EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, 131473U);
    CLSID clsid{};
    EXPECT_EQ(object->GetUserClassID(&clsid), S_OK);
    EXPECT_EQ(clsid, __uuidof(Indicator));
    com::Ptr<IOleClientSite> site;
    EXPECT_EQ(object->GetClientSite(site.receive()), S_OK);
    EXPECT_EQ(site.get(), static_cast<IOleClientSite*>(container.get()));
    EXPECT_EQ(object->IsUpToDate(), S_OK);
    HWND window = nullptr;
    EXPECT_EQ(place->GetWindow(&window), E_FAIL);
}

TEST_F(IndicatorPlace, TheContainersColourIsNotItsOwn) {
    EXPECT_EQ(container->control.query<IPersistStreamInit>()->InitNew(), S_OK);
    OLE_COLOR colour = 0;
    EXPECT_EQ(container->control->get_Backcolor(&colour), S_OK);
    EXPECT_EQ(colour, 0x8000000FU);
}

TEST_F(IndicatorPlace, AsksTheContainerStepByStep) {
    ASSERT_EQ(container->activate(), S_OK);
    EXPECT_THAT(container->calls, ElementsAre("CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                              "GetWindowContext", "ShowObject"));
    EXPECT_EQ(GetParent(container->controlWindow()), container->window());
    EXPECT_TRUE(IsWindowVisible(container->controlWindow()));
    EXPECT_TRUE(windowRect() == container->position);
    container->calls.clear();
    EXPECT_EQ(container->activate(OLEIVERB_SHOW), S_OK);
    EXPECT_THAT(container->calls, IsEmpty());
    const HWND window = container->controlWindow();
    EXPECT_EQ(place->InPlaceDeactivate(), S_OK);
    EXPECT_THAT(container->calls, ElementsAre("OnInPlaceDeactivate"));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(place->InPlaceDeactivate(), S_OK);
}

TEST_F(IndicatorPlace, HidesAndShowsItsWindow) {
    ASSERT_EQ(container->activate(OLEIVERB_PRIMARY), S_OK);
    EXPECT_EQ(container->activate(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(IsWindowVisible(container->controlWindow()));
    EXPECT_EQ(container->activate(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(IsWindowVisible(container->controlWindow()));
}

TEST_F(IndicatorPlace, OfOtherVerbsItDoesWhatItCan) {
    EXPECT_EQ(container->activate(OLEIVERB_OPEN), E_NOTIMPL);
    EXPECT_EQ(container->activate(-99), E_NOTIMPL);
    EXPECT_EQ(container->controlWindow(), nullptr);
    EXPECT_EQ(container->activate(1), OLEOBJ_S_INVALIDVERB);
    EXPECT_NE(container->controlWindow(), nullptr);
}

TEST_F(IndicatorPlace, TakesTheFocusWhenItIsActivatedAsAWhole) {
    ASSERT_EQ(container->activate(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_THAT(container->calls,
                ElementsAre("CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext",
                            "ShowObject", "OnUIActivate", "SetActiveObject", "OnFocus"));
    EXPECT_EQ(GetFocus(), container->controlWindow());
    MSG key{container->controlWindow(), WM_KEYDOWN, VK_TAB, 0, 0, {}};
    EXPECT_EQ(container->active->TranslateAccelerator(&key), S_OK) << "the container takes its keys";
    EXPECT_EQ(container->calls.back(), "TranslateAccelerator");
    container->calls.clear();
    EXPECT_EQ(place->UIDeactivate(), S_OK);
    EXPECT_THAT(container->calls, ElementsAre("SetNoActiveObject", "OnUIDeactivate"));
    EXPECT_FALSE(container->active);
}

TEST_F(IndicatorPlace, APressActivatesItWhereTheUserWorks) {
    ASSERT_EQ(container->activate(), S_OK);
    container->userMode = false; // in the designer
    SendMessageA(container->controlWindow(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(container->window()),
                 MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_FALSE(container->active);
    container->userMode = true;
    SendMessageA(container->controlWindow(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(container->window()),
                 MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
    EXPECT_TRUE(container->active);
}

// Size

TEST_F(IndicatorPlace, ItsExtentIsThePicturesSizeBeforeItHasAWindow) {
    paintWith(*container->control, 0, 2);
    setExtent(container->control, 93, 31);
    container->control->StartNow();
    EXPECT_EQ(viewOf(container->control, 93, 31), firstFrame(93, 31, 0, 2));
    SIZEL extent{}, viewed{};
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(container->control.query<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &viewed),
              S_OK);
    EXPECT_EQ(extent.cx, MulDiv(93, 2540, 96));
    EXPECT_EQ(viewed.cy, MulDiv(31, 2540, 96));
}

TEST_F(IndicatorPlace, WithAWindowItsPlaceIsTheSize) {
    paintWith(*container->control, 0, 2);
    ASSERT_EQ(container->activate(), S_OK);
    setExtent(container->control, 93, 31);
    EXPECT_TRUE(windowRect() == container->position);
    const RECT larger{5, 6, 5 + 93, 6 + 31};
    ASSERT_EQ(place->SetObjectRects(&larger, &container->clip), S_OK);
    EXPECT_TRUE(windowRect() == larger);
    container->control->StartNow();
    EXPECT_EQ(container->screen(), firstFrame(93, 31, 0, 2));
    const RECT smaller{5, 6, 45, 26};
    ASSERT_EQ(place->SetObjectRects(&smaller, nullptr), S_OK);
    EXPECT_EQ(place->InPlaceDeactivate(), S_OK);
    paintWith(*container->control, 0, 2);
    container->control->stopNow();
    EXPECT_EQ(viewOf(container->control, 93, 31), stopped(93, 31, 2)) << "the extent again";
}

TEST_F(IndicatorPlace, AnotherSizeKeepsWhatIsDrawn) {
    paintWith(*container->control, 0, 0);
    ASSERT_EQ(container->activate(), S_OK);
    container->control->StartNow();
    container->control->PauseNow();
    const RECT wider{10, 20, 100, 45};
    ASSERT_EQ(place->SetObjectRects(&wider, &container->clip), S_OK);
    const Rows before = firstFrame(70, 25, 0, 0), after = viewOf(container->control, 90, 25);
    for (std::size_t y = 0; y < after.size(); ++y) EXPECT_EQ(after[y], before[y] + std::string(20, '.'));
}

TEST_F(IndicatorPlace, ShowsOnlyWhatTheClipLeaves) {
    ASSERT_EQ(container->activate(), S_OK);
    EXPECT_TRUE((seenPart() == RECT{-1, -1, -1, -1}));
    RECT clip{20, 0, 60, 30};
    ASSERT_EQ(place->SetObjectRects(&container->position, &clip), S_OK);
    EXPECT_TRUE(windowRect() == container->position) << "it keeps its place";
    EXPECT_TRUE((seenPart() == RECT{10, 0, 50, 10}));
    clip = {200, 100, 300, 200};
    ASSERT_EQ(place->SetObjectRects(&container->position, &clip), S_OK);
    EXPECT_TRUE((seenPart() == RECT{0, 0, 0, 0}));
    ASSERT_EQ(place->SetObjectRects(&container->position, &container->clip), S_OK);
    EXPECT_TRUE((seenPart() == RECT{-1, -1, -1, -1}));
}

TEST_F(IndicatorPlace, RefusesSizesThatNoWindowHas) {
    SIZEL before{}, after{}, extent{-1, 100};
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &before), S_OK);
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), E_INVALIDARG);
    extent = {2000000000, 2000000000};
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), E_INVALIDARG);
    EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &after), S_OK);
    EXPECT_EQ(before.cx, after.cx);
    EXPECT_EQ(before.cy, after.cy);
    extent = {500000, 500000}; // 18,898 pixels each way
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), E_OUTOFMEMORY);
    EXPECT_EQ(viewOf(container->control, 160, 20).size(), 20U) << "it can still be drawn";
    ASSERT_EQ(container->activate(), S_OK);
    const RECT inverse{50, 50, 10, 10};
    EXPECT_EQ(place->SetObjectRects(&inverse, &container->clip), E_INVALIDARG);
    EXPECT_EQ(place->SetObjectRects(nullptr, nullptr), E_POINTER);
    EXPECT_TRUE(windowRect() == container->position);
}

// Containers that say no, or change their mind inside a call

TEST_F(IndicatorPlace, WithoutASiteThereIsNoPlace) {
    object->SetClientSite(nullptr);
    EXPECT_EQ(container->activate(), E_FAIL);
    EXPECT_THAT(container->calls, IsEmpty());
}

class RefusedPlace : public IndicatorPlace, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedPlace, LeavesNoWindowBehind) {
    container->answers[GetParam()] = E_FAIL;
    EXPECT_EQ(container->activate(OLEIVERB_UIACTIVATE), E_FAIL);
    EXPECT_FALSE(container->active);
    if (GetParam() != std::string("OnUIActivate")) {
        EXPECT_EQ(container->controlWindow(), nullptr);
    }
    container->answers.clear();
    EXPECT_EQ(container->activate(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(container->active);
}

INSTANTIATE_TEST_SUITE_P(Calls, RefusedPlace,
                         testing::Values("CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                         "GetWindowContext", "OnUIActivate"));

class ChangedMind : public IndicatorPlace, public testing::WithParamInterface<const char*> {};

TEST_P(ChangedMind, ByDeactivatingIt) {
    container->doing[GetParam()] = [this] { place->InPlaceDeactivate(); };
    container->activate(OLEIVERB_UIACTIVATE);
    container->doing.clear();
    place->InPlaceDeactivate();
    EXPECT_EQ(container->controlWindow(), nullptr);
    EXPECT_FALSE(container->active);
    EXPECT_EQ(container->activate(OLEIVERB_UIACTIVATE), S_OK);
}

TEST_P(ChangedMind, ByLettingGoOfIt) {
    container->doing[GetParam()] = [this] {
        container->doing.clear();
        place.reset();
        object.reset();
        container->leave();
    };
    const auto hold = object; // the caller of a method has a reference
    hold->DoVerb(OLEIVERB_UIACTIVATE, nullptr, container.get(), 0, nullptr, nullptr);
    EXPECT_FALSE(container->control);
}

TEST_P(ChangedMind, ByDestroyingItsParent) {
    container->doing[GetParam()] = [this] { DestroyWindow(container->window()); };
    container->activate(OLEIVERB_UIACTIVATE);
    container->control->StartNow();
    pump(150);
    const RECT at{0, 0, 20, 20};
    place->SetObjectRects(&at, &at);
    EXPECT_EQ(container->controlWindow(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Calls, ChangedMind,
                         testing::Values("CanInPlaceActivate", "OnInPlaceActivate", "GetWindow",
                                         "GetWindowContext", "ShowObject", "OnUIActivate", "SetActiveObject",
                                         "OnFocus"));

TEST_F(IndicatorPlace, ADestroyedWindowIsMissedByNobody) {
    ASSERT_EQ(container->activate(), S_OK);
    DestroyWindow(container->controlWindow());
    pump(50);
    ValidateRect(container->window(), nullptr);
    container->control->put_BorderStyle(2);
    EXPECT_FALSE(GetUpdateRect(container->window(), nullptr, FALSE)) << "nothing else is drawn anew";
    EXPECT_EQ(container->activate(), S_OK);
    EXPECT_TRUE(IsWindowVisible(container->controlWindow())) << "it gets another";
}

TEST_F(IndicatorPlace, LeftWithoutAWordItGoesWithItsWindow) {
    ASSERT_EQ(container->activate(), S_OK);
    const HWND window = container->controlWindow();
    container->control->StartNow();
    object.reset();
    place.reset();
    container->control.reset();
    EXPECT_FALSE(IsWindow(window));
    pump(150);
}

TEST_F(IndicatorPlace, LosingItsSiteItLosesItsWindow) {
    ASSERT_EQ(container->activate(), S_OK);
    EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    EXPECT_EQ(container->calls.back(), "OnInPlaceDeactivate");
    EXPECT_EQ(container->controlWindow(), nullptr);
}

// Closing

TEST_F(IndicatorPlace, ClosingSavesWhatHasChangedAndEndsTheAnimation) {
    DWORD cookie = 0;
    ASSERT_EQ(object->Advise(container.get(), &cookie), S_OK);
    ASSERT_EQ(container->activate(), S_OK);
    container->control->StartNow();
    container->calls.clear();
    EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_THAT(container->calls, ElementsAre("SaveObject", "OnInPlaceDeactivate", "OnClose"));
    pump(200);
    LONG time = -1;
    EXPECT_EQ(container->control->get_RunTimeInterval(&time), S_OK);
    EXPECT_EQ(time, 0);
    object->Unadvise(cookie);
}

TEST_F(IndicatorPlace, ClosingSavesNothingThatIsSaved) {
    const auto bag = com::make<TestBag>();
    ASSERT_EQ(container->control.query<IPersistPropertyBag>()->Save(bag.get(), TRUE, FALSE), S_OK);
    EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_THAT(container->calls, IsEmpty());
}

} // namespace
} // namespace corvelle::host
