#include "formatter/win32/wizard_on_screen.h"

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <iterator>
#include <set>

namespace corvelle::formatter::tests {

namespace {

using Lines = std::vector<std::string>;

// Long enough that a pass is seen running.
Lines manyLines() {
    constexpr int procedures = 200000;
    Lines lines;
    for (int i = 0; i < procedures; ++i) {
        for (const char* line : {"Sub Main()", "If n > 0 Then", "n = n + 1", "End If", "End Sub"})
            lines.emplace_back(line);
    }
    return lines;
}

bool showsLine(HWND dialog, const std::string& start) {
    const std::vector<HWND> labels = User::controls(dialog, "Static");
    return std::any_of(labels.begin(), labels.end(),
                       [&start](HWND label) { return User::text(label).rfind(start, 0) == 0; });
}

// The busy indicator: the widest of the windows that draw themselves and are no wider than the results.
HWND indicator(HWND dialog) {
    const HWND panel = User::control(dialog, "Button", "Processing Results");
    HWND widest = nullptr;
    LONG width = 0;
    for (HWND child = GetWindow(panel, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        char name[64] = {};
        GetClassNameA(child, name, sizeof name);
        RECT place{};
        GetWindowRect(child, &place);
        if (std::string(name).rfind("Corvelle.Plain", 0) != 0 || place.right - place.left <= width) continue;
        width = place.right - place.left;
        widest = child;
    }
    return widest;
}

// What stands on the screen there.
std::vector<COLORREF> picture(HWND window) {
    RECT inside{};
    GetClientRect(window, &inside);
    const HDC device = GetDC(window);
    const HDC memory = CreateCompatibleDC(device);
    const HBITMAP bitmap = CreateCompatibleBitmap(device, inside.right, inside.bottom);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, inside.right, inside.bottom, device, 0, 0, SRCCOPY);
    std::vector<COLORREF> pixels;
    for (int x = 0; x < inside.right; ++x) {
        for (int y = 1; y < inside.bottom; y += 3) pixels.push_back(GetPixel(memory, x, y));
    }
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, device);
    return pixels;
}

TEST_F(WizardOnScreen, TheCloseBoxStopsARunningPassAtOnce) {
    const Lines lines = manyLines();
    openModule(lines);
    DWORD whole = 0;
    DWORD closing = 0;
    letUserWork([&](const User& user) {
        const HWND dialog = openDialog(user);
        user.click(dialog, "&Format Code");
        User::waitUntil("the indentation pass", [&] { return showsLine(dialog, " In Line: "); });
        const DWORD start = GetTickCount();
        User::waitForText(dialog, "Edit", status("Formatting completed successfully..."));
        whole = GetTickCount() - start;
        User::waitForText(dialog, "Static", " No Process..");

        user.click(dialog, "&Format Code");
        User::waitUntil("the next pass", [&] { return showsLine(dialog, " In Line: "); });
        const DWORD asked = GetTickCount();
        User::close(dialog);
        user.windowWith("&Next   >>");
        closing = GetTickCount() - asked;
        EXPECT_FALSE(IsWindow(dialog));
        EXPECT_FALSE(user.seesBox("Add code ..?"));
    });
    EXPECT_LT(closing, whole / 2) << "of " << whole << " ms";
    EXPECT_EQ(lines.size(), code().size());
    std::cout << "closed within " << closing << " ms; the pass takes " << whole << " ms\n";
}

TEST_F(WizardOnScreen, TheIndicatorMovesDuringAPass) {
    openModule(manyLines());
    std::set<std::vector<COLORREF>> pictures;
    letUserWork([&](const User& user) {
        const HWND dialog = openDialog(user);
        HWND surface = nullptr;
        User::waitUntil("the indicator", [&] { return (surface = indicator(dialog)) != nullptr; });
        const auto rests = [](const std::vector<COLORREF>& pixels) {
            return std::count(pixels.begin(), pixels.end(), pixels.front()) ==
                   static_cast<std::ptrdiff_t>(pixels.size());
        };
        user.click(dialog, "&Format Code");
        User::waitUntil("a pass", [&] { return showsLine(dialog, " LN: "); });
        User::waitUntil("the end of the pass", [&] {
            if (showsLine(dialog, " LN: ") || showsLine(dialog, " In Line: "))
                pictures.insert(picture(surface));
            return User::isEnabled(dialog, "&Add to Module");
        });
        User::waitUntil("the indicator to rest", [&] { return rests(picture(surface)); });
        for (auto it = pictures.begin(); it != pictures.end();)
            it = rests(*it) ? pictures.erase(it) : std::next(it);
        user.click(dialog, "<< Go &Back");
        user.answer("Add code ..?", IDYES);
        user.windowWith("&Next   >>");
    });
    EXPECT_GE(pictures.size(), 3U);
}

} // namespace

} // namespace corvelle::formatter::tests
