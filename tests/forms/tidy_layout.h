#pragma once

#include "forms/form.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>

namespace corvelle::test {

/// Every control of the form can be seen: it lies inside its container and over no other control.
inline void expectTidy(const forms::Form& form) {
    const auto& controls = form.controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        SCOPED_TRACE(controls[i]->name());
        const forms::Control* const frame = controls[i]->container();
        const forms::Size room =
            frame ? forms::Size{frame->bounds().width, frame->bounds().height} : form.size();
        const auto& a = controls[i]->bounds();
        EXPECT_GE(a.left, 0);
        EXPECT_GE(a.top, 0);
        EXPECT_GT(a.width, 0);
        EXPECT_GT(a.height, 0);
        EXPECT_LE(a.left + a.width, room.width);
        EXPECT_LE(a.top + a.height, room.height);
        for (std::size_t j = 0; j < i; ++j) {
            if (controls[j]->container() != frame) continue;
            const auto& b = controls[j]->bounds();
            EXPECT_FALSE(a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
                         b.top < a.top + a.height)
                << "over " << controls[j]->name();
        }
    }
}

/// The text has room in the control, by an average character's size.
inline void expectRoomFor(const std::string& text, const forms::Control& control) {
    constexpr int characterWidth = 90, lineHeight = 195;
    const auto& room = control.bounds();
    ASSERT_GT(room.width, 0) << control.name();
    const int lines = (static_cast<int>(text.size()) * characterWidth + room.width - 1) / room.width;
    EXPECT_LE(lines * lineHeight, room.height) << control.name() << ": " << text;
}

} // namespace corvelle::test
