// A form with more inside than the screen has room for: its window scrolls.

#include "forms/win32/form_window.h"
#include "forms/win32/win32_desktop.h"

#include <algorithm>

namespace corvelle::forms {

namespace {

// What the window's frame and title add to its inside.
SIZE outsideOf(HWND window, SIZE inside) {
    RECT outside{0, 0, inside.cx, inside.cy};
    AdjustWindowRectEx(&outside, static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrA(window, GWL_EXSTYLE)));
    return {outside.right - outside.left, outside.bottom - outside.top};
}

RECT workAreaOf(HWND window) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
    return screen.rcWork;
}

SIZE within(SIZE size, const RECT& area) {
    return {std::min(size.cx, area.right - area.left), std::min(size.cy, area.bottom - area.top)};
}

// How far to scroll so that a stretch of the window is seen, from its beginning if it is a long one.
LONG towards(LONG begin, LONG end, LONG room) {
    if (begin < 0) return begin;
    return end > room ? std::min(begin, end - room) : 0;
}

} // namespace

void FormWindow::setClientSize() {
    const Scale& scale = desktop_.scale();
    SIZE size = outsideOf(window_, {scale.pixels(form_->size().width), scale.pixels(form_->size().height)});
    if (state_.wasShown()) size = within(size, workAreaOf(window_));
    SetWindowPos(window_, nullptr, 0, 0, static_cast<int>(size.cx), static_cast<int>(size.cy),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (state_.wasShown()) fitScrollBars();
}

void FormWindow::placeOver(HWND owner) {
    RECT own{};
    GetWindowRect(window_, &own);
    const RECT area = workAreaOf(owner ? owner : window_);
    const SIZE size = within({own.right - own.left, own.bottom - own.top}, area);
    RECT over = area;
    if (owner && !IsIconic(owner)) GetWindowRect(owner, &over);
    LONG left = over.left + (over.right - over.left - size.cx) / 2;
    LONG top = over.top + (over.bottom - over.top - size.cy) / 2;
    left = std::max(std::min(left, area.right - size.cx), area.left);
    top = std::max(std::min(top, area.bottom - size.cy), area.top);
    SetWindowPos(window_, nullptr, static_cast<int>(left), static_cast<int>(top), static_cast<int>(size.cx),
                 static_cast<int>(size.cy), SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::limitSize(MINMAXINFO& limits) const {
    const Scale& scale = desktop_.scale();
    const Size& least = form_->leastSize();
    if (form_->borderStyle() != BorderStyle::Sizable || least == Size{}) return;
    const SIZE size = within(outsideOf(window_, {scale.pixels(least.width), scale.pixels(least.height)}),
                             workAreaOf(window_));
    limits.ptMinTrackSize = {size.cx, size.cy};
}

SIZE FormWindow::leastInside() const {
    const Scale& scale = desktop_.scale();
    const Size& size = form_->borderStyle() == BorderStyle::Sizable ? form_->leastSize() : form_->size();
    return {scale.pixels(size.width), scale.pixels(size.height)};
}

void FormWindow::fitScrollBars() {
    const auto style = static_cast<DWORD>(GetWindowLongPtrA(window_, GWL_STYLE));
    const LONG barWidth = GetSystemMetrics(SM_CXVSCROLL), barHeight = GetSystemMetrics(SM_CYHSCROLL);
    RECT inside{};
    GetClientRect(window_, &inside);
    const SIZE room{inside.right + ((style & WS_VSCROLL) != 0 ? barWidth : 0),
                    inside.bottom + ((style & WS_HSCROLL) != 0 ? barHeight : 0)};
    const SIZE all = leastInside();
    bool down = all.cy > room.cy;
    const bool across = all.cx > room.cx - (down ? barWidth : 0);
    down = down || all.cy > room.cy - (across ? barHeight : 0);
    if (!across && !down && (style & (WS_HSCROLL | WS_VSCROLL)) == 0) return;

    fitting_ = true; // the bars change the window's inside
    ShowScrollBar(window_, SB_HORZ, across);
    ShowScrollBar(window_, SB_VERT, down);
    GetClientRect(window_, &inside);
    const auto setBar = [this](int bar, LONG length, LONG page) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE;
        info.nMax = static_cast<int>(length - 1);
        info.nPage = static_cast<UINT>(page);
        SetScrollInfo(window_, bar, &info, TRUE);
    };
    if (across) setBar(SB_HORZ, all.cx, inside.right);
    if (down) setBar(SB_VERT, all.cy, inside.bottom);
    fitting_ = false;
    GetClientRect(window_, &inside);
    client_ = {inside.right, inside.bottom};
    scrollTo(scrolled_);
}

void FormWindow::scrollTo(POINT place) {
    const SIZE all = leastInside();
    place.x = std::max(std::min(place.x, all.cx - client_.cx), 0L);
    place.y = std::max(std::min(place.y, all.cy - client_.cy), 0L);
    const POINT by{scrolled_.x - place.x, scrolled_.y - place.y};
    if (by.x == 0 && by.y == 0) return;
    scrolled_ = place;
    ScrollWindowEx(window_, static_cast<int>(by.x), static_cast<int>(by.y), nullptr, nullptr, nullptr,
                   nullptr, SW_SCROLLCHILDREN);
    SetScrollPos(window_, SB_HORZ, static_cast<int>(place.x), TRUE);
    SetScrollPos(window_, SB_VERT, static_cast<int>(place.y), TRUE);
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::scrolled(int bar, int code) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (!GetScrollInfo(window_, bar, &info)) return;
    constexpr int lineInTwips = 240;
    const int line = desktop_.scale().pixels(lineInTwips);
    int place = info.nPos;
    switch (code) {
    case SB_LINEUP: // or to the left; so are the next ones
        place -= line;
        break;
    case SB_LINEDOWN:
        place += line;
        break;
    case SB_PAGEUP:
        place -= static_cast<int>(info.nPage);
        break;
    case SB_PAGEDOWN:
        place += static_cast<int>(info.nPage);
        break;
    case SB_TOP:
        place = 0;
        break;
    case SB_BOTTOM:
        place = info.nMax;
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        place = info.nTrackPos;
        break;
    default:
        return;
    }
    scrollTo(bar == SB_VERT ? POINT{scrolled_.x, place} : POINT{place, scrolled_.y});
}

void FormWindow::scrollIntoView(HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
    scrollTo({scrolled_.x + towards(place.left, place.right, client_.cx),
              scrolled_.y + towards(place.top, place.bottom, client_.cy)});
}

} // namespace corvelle::forms
