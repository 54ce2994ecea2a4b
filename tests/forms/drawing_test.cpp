#include "forms/drawing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace corvelle::forms {
namespace {

using testing::ElementsAre;

/// A canvas of dots (colour 0) to draw on with letters for colours.
class CanvasTest : public testing::Test {
  protected:
    void SetUp() override { canvas.resize(7, 5, '.'); }

    static std::vector<std::string> rows(const Canvas& canvas) {
        std::vector<std::string> rows;
        for (int y = 0; y < canvas.height(); ++y) {
            rows.emplace_back();
            for (int x = 0; x < canvas.width(); ++x) rows.back() += static_cast<char>(canvas.pixel(x, y));
        }
        return rows;
    }

    Canvas canvas;
};

TEST_F(CanvasTest, HasOneColourAfterResizeAndClear) {
    EXPECT_THAT(rows(canvas), ElementsAre(".......", ".......", ".......", ".......", "......."));
    canvas.clear('c');
    EXPECT_THAT(rows(canvas), ElementsAre("ccccccc", "ccccccc", "ccccccc", "ccccccc", "ccccccc"));
    canvas.resize(2, 1, 'r');
    EXPECT_THAT(rows(canvas), ElementsAre("rr"));
    EXPECT_THAT(canvas.pixels(), ElementsAre('r', 'r'));
}

TEST_F(CanvasTest, NoSizeIsBelow0) {
    canvas.resize(-3, 4, 'r');
    EXPECT_EQ(canvas.width(), 0);
    EXPECT_EQ(canvas.height(), 4);
    EXPECT_TRUE(canvas.pixels().empty());
    canvas.fillBox(0, 0, 10, 10, 'x');
    canvas.frameBox(0, 0, 10, 10, 'x');
    canvas.clear('x');
}

TEST_F(CanvasTest, TheFarEdgeDoesNotBelongToABox) {
    canvas.fillBox(1, 1, 4, 3, 'x');
    EXPECT_THAT(rows(canvas), ElementsAre(".......", ".xxx...", ".xxx...", ".......", "......."));
}

TEST_F(CanvasTest, ABoxHasCornersInAnyOrder) {
    canvas.fillBox(4, 3, 1, 1, 'x');
    EXPECT_THAT(rows(canvas), ElementsAre(".......", ".xxx...", ".xxx...", ".......", "......."));
}

TEST_F(CanvasTest, ABoxWithoutWidthOrHeightIsNothing) {
    canvas.fillBox(2, 2, 2, 4, 'x');
    canvas.fillBox(2, 2, 4, 2, 'x');
    canvas.frameBox(2, 2, 2, 4, 'x');
    canvas.frameBox(2, 2, 4, 2, 'x');
    canvas.outlineBox(2, 2, 2, 4, 'x', 'y');
    EXPECT_THAT(rows(canvas), ElementsAre(".......", ".......", ".......", ".......", "......."));
}

TEST_F(CanvasTest, WhatLiesOutsideIsLeftOut) {
    canvas.fillBox(-5, -5, 2, 1, 'a');
    canvas.fillBox(5, 3, 50, 50, 'b');
    canvas.fillBox(-9, -9, -1, -1, 'c');
    canvas.fillBox(7, 0, 9, 5, 'd');
    EXPECT_THAT(rows(canvas), ElementsAre("aa.....", ".......", ".......", ".....bb", ".....bb"));
}

TEST_F(CanvasTest, AnOutlineLiesInsideTheBox) {
    canvas.outlineBox(1, 0, 6, 4, 'o', 'f');
    EXPECT_THAT(rows(canvas), ElementsAre(".ooooo.", ".offfo.", ".offfo.", ".ooooo.", "......."));
}

TEST_F(CanvasTest, AnOutlinedBoxWithCornersSwapped) {
    canvas.outlineBox(6, 4, 1, 0, 'o', 'f');
    EXPECT_THAT(rows(canvas), ElementsAre(".ooooo.", ".offfo.", ".offfo.", ".ooooo.", "......."));
}

TEST_F(CanvasTest, AThinOutlinedBoxIsAllOutline) {
    canvas.outlineBox(0, 0, 1, 5, 'o', 'f');
    canvas.outlineBox(2, 0, 4, 2, 'o', 'f');
    canvas.outlineBox(3, 4, 7, 5, 'o', 'f');
    EXPECT_THAT(rows(canvas), ElementsAre("o.oo...", "o.oo...", "o......", "o......", "o..oooo"));
}

TEST_F(CanvasTest, AnOutlineIsCutAtTheCanvas) {
    canvas.outlineBox(-1, -1, 3, 3, 'o', 'f');
    EXPECT_THAT(rows(canvas), ElementsAre("ffo....", "ffo....", "ooo....", ".......", "......."));
}

TEST_F(CanvasTest, AFrameLeavesTheInside) {
    canvas.frameBox(2, 1, 6, 5, 'o');
    EXPECT_THAT(rows(canvas), ElementsAre(".......", "..oooo.", "..o..o.", "..o..o.", "..oooo."));
}

TEST_F(CanvasTest, PicturesAreCopiedAndCut) {
    Canvas picture;
    picture.resize(3, 2, 'p');
    picture.fillBox(0, 0, 1, 1, 'q');
    canvas.put(picture, 1, 1);
    canvas.put(picture, 5, 4);
    canvas.put(picture, -1, -1);
    canvas.put(picture, 100, 100);
    canvas.put(picture, -100, 0);
    EXPECT_THAT(rows(canvas), ElementsAre("pp.....", ".qpp...", ".ppp...", ".......", ".....qp"));
}

} // namespace
} // namespace corvelle::forms
