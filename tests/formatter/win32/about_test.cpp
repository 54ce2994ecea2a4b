#include "forms/win32/win32_desktop.h"
#include "forms/win32/win32_peer.h"
#include "ui/frm_abt.h"

#include <functional>
#include <gtest/gtest.h>

namespace corvelle::ui {
namespace {

// Most of the box's surfaces have no window of their own, and the title lies above its shadow.
TEST(AboutBoxOnScreen, AClickOnAnyOfItsSurfacesClosesIt) {
    forms::Win32Desktop desktop(GetModuleHandleA(nullptr));
    const auto clickedAt = [&](const char* surface,
                               const std::function<forms::Bounds(const frmAbt&)>& place) {
        const auto box = std::make_shared<frmAbt>(desktop);
        box->setWarning("warning", 0x800080, 0xFFFFFF);
        box->setAboutPicture(forms::Picture("page"));
        box->show();
        const auto bounds = place(*box);
        const HWND window = static_cast<forms::Win32Peer*>(box->peer())->formWindow()->window();
        POINT point{desktop.scale().pixels(bounds.left + bounds.width / 2),
                    desktop.scale().pixels(bounds.top + bounds.height / 2)};
        ClientToScreen(window, &point);
        const HWND under = WindowFromPoint(point); // the control's own where it has one
        ScreenToClient(under, &point);
        EXPECT_TRUE(under == window || IsChild(window, under)) << surface;
        PostMessageA(under, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
        PostMessageA(under, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
        desktop.doEvents();
        EXPECT_FALSE(box->isLoaded()) << surface;
        box->unload();
    };
    clickedAt("LblWarn", [](const frmAbt& box) { return box.LblWarn.bounds(); });
    clickedAt("Label3", [](const frmAbt& box) { return box.Label3.bounds(); });
    clickedAt("Img", [](const frmAbt& box) { return box.Img.bounds(); });
    clickedAt("Label2", [](const frmAbt& box) { return box.Label2.bounds(); });
    clickedAt("Label1", [](const frmAbt& box) { return box.Label1[1].bounds(); });
    clickedAt("the shadow's edge", [](const frmAbt& box) {
        const auto shadow = box.Label1[0].bounds();
        return forms::Bounds{shadow.left, shadow.top, 20, 20};
    });
}

TEST(AboutBoxOnScreen, NoKeyClosesIt) {
    forms::Win32Desktop desktop(GetModuleHandleA(nullptr));
    const auto box = std::make_shared<frmAbt>(desktop);
    box->setTitle("Keys");
    box->show();
    const HWND window = static_cast<forms::Win32Peer*>(box->peer())->formWindow()->window();
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE, VK_SPACE, VK_TAB, VK_F1}) {
        PostMessageA(window, WM_KEYDOWN, key, 1);
        PostMessageA(window, WM_KEYUP, key, 0xC0000001);
    }
    desktop.doEvents();
    EXPECT_TRUE(box->visible());
    EXPECT_EQ(box->Label1[0].caption(), "Keys");
    box->unload();
}

} // namespace
} // namespace corvelle::ui
