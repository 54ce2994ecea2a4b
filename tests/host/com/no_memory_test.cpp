#include "com/error.h"
#include "com/scripted_object.h"
#include "host/com/class_factory.h"
#include "host/com/dll.h"
#include "host/com/module.h"
#include "host/com/module_desktop.h"

#include <corvelle.h>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <vbide.h>

namespace {

// The allocation that fails, counted down; none while it is not positive.
long failing = 0;
bool failed = false;

void* allocate(std::size_t size) {
    if (failing > 0 && --failing == 0) {
        failed = true;
        throw std::bad_alloc();
    }
    if (void* const memory = std::malloc(size > 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace corvelle::host::test {
namespace {

using corvelle::test::ScriptedObject;

/// The parts of the DLL, in this program, where an allocation can be made to fail.
class NoMemory : public testing::Test {
  protected:
    NoMemory() { setModuleInstance(dll.module()); }
    ~NoMemory() override { EXPECT_TRUE(releaseDesktop()); }

    /// Runs the action once for each of its allocations, which fails then; nothing may be thrown, and at last
    /// nothing fails.
    static void failEach(const char* what, const std::function<void()>& action) {
        int allocation = 0;
        do {
            ++allocation;
            failed = false;
            failing = allocation;
            try {
                action();
            } catch (...) {
                failing = 0;
                ADD_FAILURE() << what << " throws when allocation " << allocation << " fails";
            }
            failing = 0;
        } while (failed && allocation < 10000);
        EXPECT_GT(allocation, 1) << what;
    }

    static const ComClass& entry(REFCLSID id) {
        for (const ComClass& one : classTable()) {
            if (IsEqualCLSID(one.id, id)) return one;
        }
        throw std::logic_error("no such class");
    }

    /// An IDE with a menu, no project and no events.
    static com::Ptr<ScriptedObject> makeIde() {
        const auto command = com::make<ScriptedObject>();
        command->answers(L"Caption", com::Variant());
        command->answers(L"Delete", com::Variant());
        const auto controls = com::make<ScriptedObject>();
        controls->answers(L"Add", com::Variant(command));
        const auto bar = com::make<ScriptedObject>();
        bar->answers(L"Controls", com::Variant(controls));
        const auto bars = com::make<ScriptedObject>();
        bars->answers(L"Item", com::Variant(bar));
        auto ide = com::make<ScriptedObject>();
        ide->answers(L"CommandBars", com::Variant(bars));
        return ide;
    }

    Apartment apartment;
    Dll dll;
};

_ContextHelpIndexer* waiting = nullptr; // for its start menu

/// A user that answers every message box and chooses of every start menu its first command.
class Answering {
  public:
    Answering() : timer_(SetTimer(nullptr, 0, 10, answer)) {}
    ~Answering() {
        KillTimer(nullptr, timer_);
        waiting = nullptr;
    }
    Answering(const Answering&) = delete;
    Answering& operator=(const Answering&) = delete;

  private:
    static void CALLBACK answer(HWND, UINT, UINT_PTR, DWORD) {
        if (const HWND box = FindWindowA("#32770", nullptr)) PostMessageA(box, WM_COMMAND, IDOK, 0);
        if (waiting) waiting->put_bOK(VARIANT_TRUE);
    }

    UINT_PTR timer_;
};

TEST_F(NoMemory, MakingAnObjectOnlyFails) {
    for (const CLSID& id : {formatterClass, indexerClass}) {
        const auto factory = com::make<ClassFactory>(entry(id));
        failEach("CreateInstance", [&] {
            com::Ptr<IUnknown> made;
            const HRESULT result =
                factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(made.receive()));
            EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
            EXPECT_EQ(static_cast<bool>(made), SUCCEEDED(result));
        });
    }
}

TEST_F(NoMemory, NoMethodOfTheFormatterThrows) {
    const Answering answering;
    const auto ide = makeIde();
    const auto made = entry(formatterClass).make();
    const auto object = made.query<_CodeFormatter>();
    const auto extensibility = made.query<IDTExtensibility>();
    failEach("OnConnection",
             [&] { extensibility->OnConnection(ide.get(), vbext_cm_Startup, nullptr, nullptr); });
    const com::Bstr caption(std::string_view("Mine, with a caption that needs memory of its own"));
    failEach("AddMyMenu", [&] {
        com::Ptr<CommandBarControl> command;
        object->AddMyMenu(caption.get(), command.receive());
    });
    failEach("putref_MenuEvents",
             [&] { object->putref_MenuEvents(reinterpret_cast<_CommandBarControlEvents*>(ide.get())); });
    failEach("Show", [&] {
        object->Show();
        object->Hide();
    });
    failEach("OnDisconnection", [&] {
        extensibility->OnConnection(ide.get(), vbext_cm_Startup, nullptr, nullptr);
        extensibility->OnDisconnection(vbext_dm_UserClosed, nullptr);
    });
    VARIANTARG arguments[4]{};
    arguments[3].vt = VT_DISPATCH;
    arguments[3].pdispVal = ide.get();
    arguments[2].vt = VT_I4;
    DISPPARAMS parameters{arguments, nullptr, 4, 0};
    failEach("Invoke", [&] {
        extensibility->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
        extensibility->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    });
}

/// A source of clicks with one listener.
class Clicks : public com::Object<IConnectionPointContainer, IConnectionPoint> {
  public:
    com::Ptr<IDispatch> listener;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID, IConnectionPoint** point) override {
        *point = com::Ptr<IConnectionPoint>(this).release();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
        *cookie = 1;
        return sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(listener.receive()));
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override {
        listener.reset();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
};

TEST_F(NoMemory, NoClickThrows) {
    const Answering answering;
    const auto ide = makeIde();
    const auto source = com::make<Clicks>();
    const auto events = source.query<IConnectionPointContainer>();
    VARIANT_BOOL handled = VARIANT_FALSE, cancelDefault = VARIANT_FALSE;
    VARIANTARG arguments[3]{}; // the last argument first
    arguments[2].vt = VT_DISPATCH;
    arguments[2].pdispVal = ide.get();
    arguments[1].vt = arguments[0].vt = VT_BOOL | VT_BYREF;
    arguments[1].pboolVal = &handled;
    arguments[0].pboolVal = &cancelDefault;
    DISPPARAMS parameters{arguments, nullptr, 3, 0};
    const auto clickEach = [&](const auto& object) {
        auto* const given = reinterpret_cast<_CommandBarControlEvents*>(events.get());
        failEach("putref_MenuEvents", [&] { object->putref_MenuEvents(given); });
        ASSERT_EQ(object->putref_MenuEvents(given), S_OK);
        int shown = 0;
        failEach("a click", [&] {
            const auto listener = source->listener;
            listener->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
            VARIANT_BOOL loaded = VARIANT_FALSE;
            object->get_IsLoaded(&loaded);
            if (loaded != VARIANT_FALSE) ++shown;
            object->Hide();
        });
        EXPECT_GT(shown, 0);
        EXPECT_EQ(object->putref_MenuEvents(nullptr), S_OK);
        EXPECT_FALSE(source->listener);
    };
    clickEach(entry(formatterClass).make().query<_CodeFormatter>());
    const auto indexer = entry(indexerClass).make().query<_ContextHelpIndexer>();
    waiting = indexer.get();
    clickEach(indexer);
}

TEST_F(NoMemory, NoMethodOfTheIndexerThrows) {
    const Answering answering;
    const auto ide = makeIde();
    const auto made = entry(indexerClass).make();
    const auto object = made.query<_ContextHelpIndexer>();
    const auto extensibility = made.query<IDTExtensibility>();
    failEach("OnConnection",
             [&] { extensibility->OnConnection(ide.get(), vbext_cm_Startup, nullptr, nullptr); });
    waiting = object.get();
    failEach("Show", [&] {
        object->Show();
        object->Hide();
    });
    failEach("OnDisconnection", [&] {
        extensibility->OnConnection(ide.get(), vbext_cm_Startup, nullptr, nullptr);
        extensibility->OnDisconnection(vbext_dm_UserClosed, nullptr);
    });
}

/// A bag of properties that has them all and takes them all.
class Bag : public com::Object<IPropertyBag> {
  public:
    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR, VARIANT* value, IErrorLog*) override {
        value->vt = VT_I4;
        value->lVal = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return S_OK; }
};

TEST_F(NoMemory, NoMethodOfTheControlThrows) {
    const CLSID indicatorClass = {
        0x435CCC43, 0x251D, 0x4D82, {0x91, 0xFC, 0xF4, 0x39, 0xEC, 0xF3, 0xF3, 0x5C}};
    failEach("make", [&] { com::guarded([&] { entry(indicatorClass).make(); }); });
    const auto made = entry(indicatorClass).make();
    const auto control = made.query<_Indicator>();
    failEach("IDispatch", [&] {
        wchar_t name[] = L"Interval";
        LPOLESTR names[] = {name};
        DISPID id = 0;
        control->GetIDsOfNames(IID_NULL, names, 1, 0, &id);
        VARIANTARG tooMuch{};
        tooMuch.vt = VT_I4;
        tooMuch.lVal = 65536;
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&tooMuch, &put, 1, 1};
        EXPECT_TRUE(FAILED(
            control->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr)));
    });
    failEach("the methods", [&] {
        control->put_VisualEffect(1);
        control->put_Interval(10);
        control->put_RaiseTicK(VARIANT_TRUE);
        control->StartNow();
        control->PauseNow();
        control->ResumeNow();
        control->stopNow();
    });
    const auto object = control.query<IOleObject>();
    failEach("IOleObject", [&] {
        SIZEL size{2000, 500};
        object->SetExtent(DVASPECT_CONTENT, &size);
        object->GetExtent(DVASPECT_CONTENT, &size);
        LPOLESTR name = nullptr;
        if (SUCCEEDED(object->GetUserType(USERCLASSTYPE_FULL, &name))) CoTaskMemFree(name);
        com::Ptr<IEnumOLEVERB> verbs;
        object->EnumVerbs(verbs.receive());
        object->SetClientSite(nullptr);
        object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr);
        object->Close(OLECLOSE_NOSAVE);
    });
    const auto view = control.query<IViewObject2>();
    const HDC device = CreateCompatibleDC(nullptr);
    failEach("IViewObject", [&] {
        control->put_DotColor(1); // not drawn yet
        const RECTL bounds{0, 0, 60, 20};
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, device, &bounds, nullptr, nullptr, 0);
        SIZEL size{};
        view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &size);
        control->put_DotColor(2);
    });
    DeleteDC(device);
    const auto bag = com::make<Bag>();
    const auto properties = control.query<IPersistPropertyBag>();
    failEach("IPersistPropertyBag", [&] {
        properties->Save(bag.get(), TRUE, TRUE);
        properties->Load(bag.get(), nullptr);
    });
    const auto streamed = control.query<IPersistStreamInit>();
    failEach("IPersistStreamInit", [&] {
        com::Ptr<IStream> stream;
        if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()))) return;
        streamed->Save(stream.get(), TRUE);
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
        streamed->Load(stream.get());
        streamed->InitNew();
    });
    const auto points = control.query<IConnectionPointContainer>();
    failEach("IConnectionPointContainer", [&] {
        com::Ptr<IEnumConnectionPoints> all;
        points->EnumConnectionPoints(all.receive());
        com::Ptr<IConnectionPoint> point;
        if (FAILED(points->FindConnectionPoint(__uuidof(__Indicator), point.receive()))) return;
        DWORD cookie = 0;
        if (SUCCEEDED(point->Advise(made.get(), &cookie))) point->Unadvise(cookie);
        com::Ptr<IEnumConnections> connections;
        point->EnumConnections(connections.receive());
    });
}

} // namespace
} // namespace corvelle::host::test
