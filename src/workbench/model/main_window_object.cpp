#include "workbench/model/main_window_object.h"

#include <string>

namespace corvelle::workbench {

namespace {

using com::Arguments;
using com::Variant;

using TheWindow = MainWindowObject;

HWND windowOf(TheWindow& self) {
    return self.serving().host()->mainWindow();
}

// In pixels of the screen.
RECT placeOf(TheWindow& self) {
    RECT place{};
    GetWindowRect(windowOf(self), &place);
    return place;
}

com::Bstr captionOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int size = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return com::Bstr(std::wstring_view(text).substr(0, static_cast<std::size_t>(size)));
}

constexpr com::Member<TheWindow> table[] = {
    {L"Caption", 100, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant { return captionOf(windowOf(self)); }},
    {L"Left", 101, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant { return std::int32_t{placeOf(self).left}; }},
    {L"Top", 103, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant { return std::int32_t{placeOf(self).top}; }},
    {L"Width", 105, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant {
         return std::int32_t{placeOf(self).right - placeOf(self).left};
     }},
    {L"Visible", 106, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant { return IsWindowVisible(windowOf(self)) != FALSE; }},
    {L"Height", 107, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant {
         return std::int32_t{placeOf(self).bottom - placeOf(self).top};
     }},
    {L"SetFocus", 111, com::method, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant {
         SetForegroundWindow(windowOf(self));
         return {};
     }},
    {L"Type", 112, com::propertyGet, 0, 0,
     [](TheWindow&, const Arguments&) -> Variant { return std::int32_t{12}; }}, // the main window
    {L"HWnd", 120, com::propertyGet, 0, 0,
     [](TheWindow& self, const Arguments&) -> Variant {
         return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(windowOf(self)));
     }},
};

} // namespace

Members<MainWindowObject> MainWindowObject::members() {
    return table;
}

} // namespace corvelle::workbench
