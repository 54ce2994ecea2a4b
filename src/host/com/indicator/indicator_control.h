#pragma once

#include "com/connection_point.h"
#include "com/dispatch_object.h"
#include "com/error.h"
#include "forms/win32/win32_desktop.h"
#include "host/com/indicator/connection_points.h"
#include "host/com/indicator/control_home.h"
#include "host/com/indicator/indicator_window.h"
#include "ui/indicator.h"

#include <corvelle.h>
#include <memory>
#include <ocidl.h>
#include <oleidl.h>
#include <string>

namespace corvelle::host {

/// `Corvelle.Indicator`: the busy indicator as an OLE control. It keeps what is drawn, so that a container
/// may show it with or without a window. A container may let go of it, or take its window away, inside any
/// call that it gets from here.
class IndicatorControl final
    : public com::DispatchObject<
          com::Object<_Indicator, IOleObject, IOleInPlaceObject, IOleInPlaceActiveObject, IOleControl,
                      IViewObject2, IPersistStreamInit, IPersistPropertyBag, IConnectionPointContainer,
                      IProvideClassInfo2, ISupportErrorInfo>> {
  public:
    /// A new control's own unknown; with an `outer` one it is part of that aggregate. The library describes
    /// it; throws RunTimeError if it does not.
    static com::Ptr<IUnknown> make(HINSTANCE module, ITypeLib& library, IUnknown* outer);

    /// How a container is to treat the control (OLEMISC_...).
    static constexpr DWORD miscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                        OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                        OLEMISC_SETCLIENTSITEFIRST;

    IndicatorControl(HINSTANCE module, ITypeLib& library, IUnknown* outer);
    ~IndicatorControl() override;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // _Indicator
    HRESULT STDMETHODCALLTYPE get_RaiseTicK(VARIANT_BOOL* value) override;
    HRESULT STDMETHODCALLTYPE put_RaiseTicK(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_FillColor(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_FillColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_ForeColor(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_ForeColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_Interval(LONG* value) override;
    HRESULT STDMETHODCALLTYPE put_Interval(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_DotColor(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_DotColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_VisualEffect(LONG* value) override;
    HRESULT STDMETHODCALLTYPE put_VisualEffect(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_ScrollColor(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_ScrollColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_BorderStyle(LONG* value) override;
    HRESULT STDMETHODCALLTYPE put_BorderStyle(LONG value) override;
    HRESULT STDMETHODCALLTYPE get_Backcolor(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_Backcolor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_BorderColor(OLE_COLOR* value) override;
    HRESULT STDMETHODCALLTYPE put_BorderColor(OLE_COLOR value) override;
    HRESULT STDMETHODCALLTYPE get_RunTimeInterval(LONG* value) override;
    HRESULT STDMETHODCALLTYPE StartNow() override;
    HRESULT STDMETHODCALLTYPE stopNow() override;
    HRESULT STDMETHODCALLTYPE PauseNow() override;
    HRESULT STDMETHODCALLTYPE ResumeNow() override;

    // IOleObject
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR program, LPCOLESTR object) override;
    HRESULT STDMETHODCALLTYPE Close(DWORD save) override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) override;
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, WINBOOL creation, DWORD reserved) override;
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) override;
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                                     LPCRECT position) override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
    HRESULT STDMETHODCALLTYPE Update() override;
    HRESULT STDMETHODCALLTYPE IsUpToDate() override;
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* clsid) override;
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* name) override;
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advices) override;
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) override;

    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(WINBOOL enter) override;
    // IOleInPlaceObject
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override;
    // IOleInPlaceActiveObject
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(WINBOOL active) override;
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(WINBOOL active) override;
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window,
                                           WINBOOL frame) override;
    HRESULT STDMETHODCALLTYPE EnableModeless(WINBOOL enable) override;

    // IOleControl
    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* information) override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) override;
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID property) override;
    HRESULT STDMETHODCALLTYPE FreezeEvents(WINBOOL freeze) override;

    // IViewObject2
    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* optimisation, DVTARGETDEVICE* target,
                                   HDC targetDevice, HDC device, LPCRECTL bounds, LPCRECTL windowBounds,
                                   WINBOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR argument) override;
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* optimisation,
                                          DVTARGETDEVICE* target, HDC targetDevice,
                                          LOGPALETTE** colours) override;
    HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* optimisation, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* target,
                                        SIZEL* size) override;

    // IPersistStreamInit, which serves as IPersistStream too, and IPersistPropertyBag
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* clsid) override;
    HRESULT STDMETHODCALLTYPE InitNew() override;
    HRESULT STDMETHODCALLTYPE IsDirty() override;
    HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
    HRESULT STDMETHODCALLTYPE Save(IStream* stream, WINBOOL clearDirty) override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
    HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, WINBOOL clearDirty, WINBOOL all) override;

    // IConnectionPointContainer
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;
    // IProvideClassInfo2
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) override;
    // ISupportErrorInfo
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

  protected:
    void* find(REFIID iid) override;
    ITypeInfo* typeInformation() const override { return members_.get(); }
    HRESULT invoke(DISPID id, WORD kind, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* information,
                   UINT* wrong) override;

  private:
    /// The control's own unknown, for who aggregates it.
    class Inner : public IUnknown {
      public:
        explicit Inner(IndicatorControl& control) : control_(control) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
        ULONG STDMETHODCALLTYPE AddRef() override { return control_.Object::AddRef(); }
        ULONG STDMETHODCALLTYPE Release() override { return control_.Object::Release(); }

      private:
        IndicatorControl& control_;
    };

    /// Runs the body of a method, which may yield or call the container, with the control kept alive.
    template <class Body>
    HRESULT run(Body&& body) {
        const com::Ptr<IUnknown> self(static_cast<_Indicator*>(this));
        return com::guarded(body);
    }
    template <class Value, class Read>
    HRESULT get(Value* value, Read&& read) {
        if (!value) return E_POINTER;
        return run([&] { *value = static_cast<Value>(read()); });
    }

    void propertyChanged(const std::string& key);
    void pictureChanged();
    void setSize(SIZE pixels);
    int dpi() const { return desktop_.scale().dpi(); }

    HRESULT activate(bool ui);
    HRESULT activateInPlace();
    HRESULT makeWindow();
    HRESULT activateUI();
    void pressed();
    bool isUserMode() const;

    IUnknown* outer_;
    Inner inner_{*this};
    HINSTANCE module_;
    com::Ptr<ITypeInfo> members_, class_;
    forms::Win32Desktop desktop_; // of its own: its timer has to tick in the container's thread
    ControlHome home_;
    ui::Indicator indicator_;

    SIZEL extent_{}; // in hundredths of a millimetre, as the container last said
    com::Ptr<IOleClientSite> site_;
    com::Ptr<IOleAdviseHolder> advices_;
    ViewAdvice view_;
    com::Ptr<com::ConnectionPoint> ticks_;
    com::Ptr<PropertyNotifyPoint> changes_;
    bool dirty_ = true;
    unsigned frozen_ = 0;

    com::Ptr<IOleInPlaceSite> place_; // while active in place
    com::Ptr<IOleInPlaceFrame> frame_;
    com::Ptr<IOleInPlaceUIWindow> document_;
    std::unique_ptr<IndicatorWindow> window_;
    bool uiActive_ = false;
};

} // namespace corvelle::host
