#pragma once

#include "bitmap_device.h"
#include "com/event_sink.h"
#include "com/object.h"
#include "indicator_under_test.h"

#include <functional>
#include <map>
#include <ocidl.h>
#include <oleidl.h>
#include <string>
#include <vector>

namespace corvelle::host {

/// A small container with a window. It notes every call of its control, answers as it is told and does in a
/// call what it is told to.
class TestContainer : public com::Object<IOleClientSite, IOleInPlaceSite, IOleInPlaceFrame, IOleControlSite,
                                         IAdviseSink, IPropertyNotifySink, IDispatch> {
  public:
    TestContainer();
    ~TestContainer() override;

    /// Makes the container the control's site, asks for it in place at `position`.
    void host(const com::Ptr<_Indicator>& control);
    HRESULT activate(LONG verb = OLEIVERB_INPLACEACTIVATE);
    /// Closes the control and leaves it.
    void leave();

    HWND window() const { return window_; }
    /// Has it done when messages are served next.
    void post(std::function<void()> action);
    /// The window of the control; null if it has none.
    HWND controlWindow() const;
    /// What the screen shows of the control.
    Rows screen() const;

    com::Ptr<_Indicator> control;
    RECT position{10, 20, 80, 45};
    RECT clip{0, 0, 300, 200};
    bool userMode = true;
    std::vector<std::string> calls;
    std::map<std::string, HRESULT> answers;
    std::map<std::string, std::function<void()>> doing;

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() override { return call("SaveObject"); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ShowObject() override { return call("ShowObject"); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(WINBOOL) override { return call("OnShowWindow"); }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }
    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
        *window = window_;
        return call("GetWindow");
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(WINBOOL) override { return E_NOTIMPL; }
    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return call("CanInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return call("OnInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return call("OnUIActivate"); }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               LPRECT place, LPRECT seen, LPOLEINPLACEFRAMEINFO) override {
        *frame = com::Ptr<IOleInPlaceFrame>(this).release();
        *document = nullptr;
        *place = position;
        *seen = clip;
        return call("GetWindowContext");
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(WINBOOL) override { return call("OnUIDeactivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return call("OnInPlaceDeactivate"); }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return call("OnPosRectChange"); }
    // IOleInPlaceFrame
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
        active = com::Ptr<IOleInPlaceActiveObject>(object);
        return call(object ? "SetActiveObject" : "SetNoActiveObject");
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnableModeless(WINBOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return E_NOTIMPL; }
    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(WINBOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, DWORD) override {
        return call("TranslateAccelerator");
    }
    HRESULT STDMETHODCALLTYPE OnFocus(WINBOOL here) override {
        return call(here ? "OnFocus" : "OnFocusLost");
    }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }
    // IAdviseSink
    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { call("OnViewChange"); }
    void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
    void STDMETHODCALLTYPE OnSave() override {}
    void STDMETHODCALLTYPE OnClose() override { call("OnClose"); }
    // IPropertyNotifySink
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID id) override {
        return call("OnChanged " + std::to_string(id));
    }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return S_OK; }
    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override;

    com::Ptr<IOleInPlaceActiveObject> active; // in the frame

  private:
    HRESULT call(const std::string& name);

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    std::function<void()> posted_;
};

/// An object that a control can be a part of.
class Aggregate : public com::Object<IOleClientSite> {
  public:
    explicit Aggregate(bool* gone = nullptr) : gone_(gone) {}
    ~Aggregate() override {
        if (gone_) *gone_ = true;
    }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override {
        if (SUCCEEDED(com::Object<IOleClientSite>::QueryInterface(iid, result))) return S_OK;
        return inner ? inner->QueryInterface(iid, result) : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ShowObject() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(WINBOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

    com::Ptr<IUnknown> inner; // the part's own unknown

  private:
    bool* gone_;
};

/// Counts the control's ticks and does what it is told to at each.
class TickSink : public com::EventSink {
  public:
    TickSink() : EventSink(__uuidof(__Indicator)) {}
    int ticks = 0;
    std::function<void()> doing;

  protected:
    void event(DISPID id, const com::Arguments& arguments) override {
        if (id == 1 && arguments.count() == 0) ++ticks;
        if (const auto now = doing) now();
    }
};

/// A container's property bag. Keys compare without regard to case.
class TestBag : public com::Object<IPropertyBag> {
  public:
    std::vector<std::string> asked;                           // keys in the order in which they are read
    std::vector<std::pair<std::string, com::Variant>> values; // and in which they are written

    void set(const std::string& key, com::Variant value) { values.emplace_back(key, std::move(value)); }
    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR key, VARIANT* value, IErrorLog*) override;
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR key, VARIANT* value) override;
};

/// What IViewObject2 draws, one pixel for one; as large as the extent says.
Rows viewOf(const com::Ptr<_Indicator>& control, int width, int height);
/// Gives the control so many pixels.
void setExtent(const com::Ptr<_Indicator>& control, int width, int height);

} // namespace corvelle::host
