// What the control looks like, without and with a window of its own.

#include "expected_picture.h"
#include "test_container.h"

#include <gtest/gtest.h>
#include <tuple>

namespace corvelle::host {
namespace {

using Case = std::tuple<std::pair<int, int>, LONG, LONG>; // size, effect, border style

class IndicatorPicture : public testing::TestWithParam<Case> {
  protected:
    const int width = std::get<0>(GetParam()).first, height = std::get<0>(GetParam()).second;
    const LONG effect = std::get<1>(GetParam()), border = std::get<2>(GetParam());
    const com::Ptr<_Indicator> control = makeIndicator();
};

TEST_P(IndicatorPicture, WithoutAWindow) {
    setExtent(control, width, height);
    paintWith(*control, effect, border);
    EXPECT_EQ(viewOf(control, width, height), stopped(width, height, border));
    control->StartNow();
    EXPECT_EQ(viewOf(control, width, height), firstFrame(width, height, effect, border));
    control->stopNow();
    EXPECT_EQ(viewOf(control, width, height), stopped(width, height, border));
}

TEST_P(IndicatorPicture, OnTheScreen) {
    const auto container = com::make<TestContainer>();
    container->position = {10, 20, 10 + width, 20 + height};
    container->host(control);
    paintWith(*control, effect, border);
    ASSERT_EQ(container->activate(), S_OK);
    pump(20);
    control->StartNow();
    EXPECT_EQ(container->screen(), firstFrame(width, height, effect, border));
    EXPECT_EQ(viewOf(control, width, height), firstFrame(width, height, effect, border));
    container->leave();
}

INSTANTIATE_TEST_SUITE_P(Sizes, IndicatorPicture,
                         testing::Combine(testing::Values(std::pair{70, 25}, std::pair{15, 9},
                                                          std::pair{161, 20}),
                                          testing::Values(0, 1), testing::Values(0, 1, 2)));

class IndicatorDrawing : public testing::Test {
  protected:
    void SetUp() override {
        setExtent(control, 70, 25);
        paintWith(*control, 0, 2);
        control->StartNow();
    }
    HRESULT draw(HDC device, const RECTL* bounds, DWORD aspect = DVASPECT_CONTENT, LONG index = -1) {
        return control.query<IViewObject>()->Draw(aspect, index, nullptr, nullptr, nullptr, device, bounds,
                                                  nullptr, nullptr, 0);
    }
    const com::Ptr<_Indicator> control = makeIndicator();
    const Rows picture = firstFrame(70, 25, 0, 2);
};

TEST_F(IndicatorDrawing, GoesWhereTheBoundsSay) {
    const BitmapDevice device(100, 40);
    const RECTL bounds{20, 10, 90, 35};
    ASSERT_EQ(draw(device.device(), &bounds), S_OK);
    const Rows seen = rows(device);
    EXPECT_EQ(seen[9], std::string(100, 'x'));
    EXPECT_EQ(seen[35], std::string(100, 'x'));
    for (std::size_t y = 0; y < picture.size(); ++y)
        EXPECT_EQ(seen[y + 10], std::string(20, 'x') + picture[y] + std::string(10, 'x')) << y;
}

TEST_F(IndicatorDrawing, IsStretchedToTheBounds) {
    const BitmapDevice device(140, 75);
    const RECTL bounds{0, 0, 140, 75};
    ASSERT_EQ(draw(device.device(), &bounds), S_OK);
    const Rows seen = rows(device);
    for (std::size_t y = 0; y < seen.size(); ++y) {
        for (std::size_t x = 0; x < seen[y].size(); ++x)
            ASSERT_EQ(seen[y][x], picture[y / 3][x / 2]) << x << ',' << y;
    }
}

TEST_F(IndicatorDrawing, KnowsTheContainersUnits) {
    const BitmapDevice device(100, 40);
    SetMapMode(device.device(), MM_ANISOTROPIC);
    SetWindowExtEx(device.device(), 1000, 400, nullptr);
    SetViewportExtEx(device.device(), 100, -40, nullptr); // upwards
    SetViewportOrgEx(device.device(), 0, 40, nullptr);
    const RECTL bounds{200, 300, 900, 50};
    ASSERT_EQ(draw(device.device(), &bounds), S_OK);
    EXPECT_EQ(GetMapMode(device.device()), MM_ANISOTROPIC) << "they are left as they were";
    const Rows seen = rows(device);
    for (std::size_t y = 0; y < picture.size(); ++y)
        EXPECT_EQ(seen[y + 10], std::string(20, 'x') + picture[y] + std::string(10, 'x')) << y;
}

// Plays the picture where it was drawn, without the scaling that goes with the device's millimetres.
int CALLBACK playPicture(HDC, HANDLETABLE* handles, const ENHMETARECORD* record, int count, LPARAM device) {
    if (record->iType == EMR_STRETCHDIBITS) {
        PlayEnhMetaFileRecord(reinterpret_cast<HDC>(device), handles, record, static_cast<UINT>(count));
    }
    return 1;
}

TEST_F(IndicatorDrawing, CanBeKeptInAnEnhancedMetafile) {
    const HDC recording = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
    const RECTL bounds{0, 0, 70, 25};
    ASSERT_EQ(draw(recording, &bounds), S_OK);
    const HENHMETAFILE file = CloseEnhMetaFile(recording);
    ENHMETAHEADER header{};
    ASSERT_NE(GetEnhMetaFileHeader(file, sizeof header, &header), 0U);
    const BitmapDevice device(70, 25);
    EXPECT_EQ(header.rclBounds.right + 1 - header.rclBounds.left, 70);
    EXPECT_EQ(header.rclBounds.bottom + 1 - header.rclBounds.top, 25);
    EnumEnhMetaFile(nullptr, file, playPicture, reinterpret_cast<void*>(device.device()), nullptr);
    EXPECT_EQ(rows(device), picture);
    DeleteEnhMetaFile(file);
}

TEST_F(IndicatorDrawing, CanBeKeptInAMetafile) {
    const HDC recording = CreateMetaFileA(nullptr);
    const RECTL bounds{0, 0, 70, 25};
    ASSERT_EQ(draw(recording, &bounds), S_OK);
    const HMETAFILE file = CloseMetaFile(recording);
    const BitmapDevice device(70, 25);
    EXPECT_TRUE(PlayMetaFile(device.device(), file));
    EXPECT_EQ(rows(device), picture);
    DeleteMetaFile(file);
}

TEST_F(IndicatorDrawing, RefusesWhatItIsNot) {
    const BitmapDevice device(70, 25);
    const RECTL bounds{0, 0, 70, 25};
    EXPECT_EQ(draw(device.device(), &bounds, DVASPECT_ICON), DV_E_DVASPECT);
    EXPECT_EQ(draw(device.device(), &bounds, DVASPECT_CONTENT, 0), DV_E_LINDEX);
    EXPECT_EQ(draw(nullptr, &bounds), E_INVALIDARG);
    EXPECT_EQ(draw(device.device(), nullptr), E_INVALIDARG);
    EXPECT_EQ(rows(device), Rows(25, std::string(70, 'x')));
}

TEST_F(IndicatorDrawing, EveryFrameIsToldWhileThereIsNoWindow) {
    control->put_Interval(10);
    const auto container = com::make<TestContainer>();
    const auto view = control.query<IViewObject2>();
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, container.get()), S_OK);
    EXPECT_EQ(container->calls, (std::vector<std::string>{"OnViewChange"}));
    DWORD aspects = 0, flags = 0;
    com::Ptr<IAdviseSink> sink;
    EXPECT_EQ(view->GetAdvise(&aspects, &flags, sink.receive()), S_OK);
    EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
    EXPECT_EQ(sink.get(), static_cast<IAdviseSink*>(container.get()));
    EXPECT_TRUE(pumpUntil([&] { return container->calls.size() >= 3; }));
    view->SetAdvise(0, 0, nullptr);
    container->calls.clear();
    control->stopNow();
    EXPECT_TRUE(container->calls.empty());
    ASSERT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_ONLYONCE, container.get()), S_OK);
    control->put_Backcolor(0);
    control->put_Backcolor(1);
    EXPECT_EQ(container->calls, (std::vector<std::string>{"OnViewChange"}));
}

} // namespace
} // namespace corvelle::host
