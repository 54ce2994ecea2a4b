#include "test_container.h"

#include "host/com/indicator/himetric.h"

#include <gtest/gtest.h>
#include <olectl.h>
#include <utility>

namespace corvelle::host {

namespace {

int screenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

std::string narrow(const wchar_t* text) {
    const std::wstring wide(text);
    return {wide.begin(), wide.end()};
}

} // namespace

TestContainer::TestContainer() {
    window_ = CreateWindowExA(WS_EX_TOPMOST, "STATIC", "", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 50, 50,
                              300, 200, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

TestContainer::~TestContainer() {
    DestroyWindow(window_);
}

void TestContainer::host(const com::Ptr<_Indicator>& hosted) {
    control = hosted;
    EXPECT_EQ(control.query<IOleObject>()->SetClientSite(this), S_OK);
}

HRESULT TestContainer::activate(LONG verb) {
    return control.query<IOleObject>()->DoVerb(verb, nullptr, this, 0, window_, &position);
}

void TestContainer::leave() {
    const auto object = control.query<IOleObject>();
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    control.reset();
}

void TestContainer::post(std::function<void()> action) {
    posted_ = std::move(action);
    PostMessageA(window_, WM_APP, 0, 0);
}

LRESULT CALLBACK TestContainer::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<TestContainer*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message != WM_APP) return DefWindowProcA(window, message, wParam, lParam);
    if (const auto action = std::exchange(self->posted_, nullptr)) action();
    return 0;
}

HWND TestContainer::controlWindow() const {
    HWND window = nullptr;
    control.query<IOleInPlaceObject>()->GetWindow(&window);
    return window;
}

Rows TestContainer::screen() const {
    return screenOf(controlWindow());
}

HRESULT TestContainer::call(const std::string& name) {
    calls.push_back(name);
    if (const auto found = doing.find(name); found != doing.end()) {
        const auto now = found->second;
        now();
    }
    const auto answer = answers.find(name);
    return answer == answers.end() ? S_OK : answer->second;
}

HRESULT TestContainer::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                              UINT*) {
    if (id == DISPID_AMBIENT_USERMODE) {
        *result = com::Variant(userMode).release();
    } else if (id == DISPID_AMBIENT_BACKCOLOR) {
        *result = com::Variant(std::int32_t{0x123456}).release();
    } else {
        return DISP_E_MEMBERNOTFOUND;
    }
    return S_OK;
}

HRESULT TestBag::Read(LPCOLESTR key, VARIANT* value, IErrorLog*) {
    const std::string name = narrow(key);
    asked.push_back(name);
    for (const auto& [stored, kept] : values) {
        if (_stricmp(stored.c_str(), name.c_str()) != 0) continue;
        *value = com::Variant(kept).release();
        return S_OK;
    }
    return E_INVALIDARG;
}

HRESULT TestBag::Write(LPCOLESTR key, VARIANT* value) {
    values.emplace_back(narrow(key), com::Variant(*value));
    return S_OK;
}

Rows viewOf(const com::Ptr<_Indicator>& control, int width, int height) {
    const BitmapDevice picture(width, height);
    const RECTL all{0, 0, width, height};
    EXPECT_EQ(control.query<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                                  picture.device(), &all, nullptr, nullptr, 0),
              S_OK);
    return rows(picture);
}

void setExtent(const com::Ptr<_Indicator>& control, int width, int height) {
    SIZEL extent = toHimetric(width, height, screenDpi());
    EXPECT_EQ(control.query<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
}

} // namespace corvelle::host
