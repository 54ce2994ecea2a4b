// The members of the control, early and late bound, and what the type library tells of them.

#include "com/dispatch.h"
#include "com/error.h"
#include "test_container.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <olectl.h>

namespace corvelle::host {
namespace {

using testing::ElementsAre;

class IndicatorMembers : public testing::Test {
  protected:
    ~IndicatorMembers() override {
        late = com::Dispatch();
        control.reset();
        EXPECT_EQ(livingObjects(), before);
    }
    const long before = livingObjects();
    com::Ptr<_Indicator> control = makeIndicator();
    com::Dispatch late{control.query<IDispatch>()};
};

struct Property {
    const wchar_t* name;
    std::int32_t usual, written;
};

class IndicatorProperty : public IndicatorMembers, public testing::WithParamInterface<Property> {};

TEST_P(IndicatorProperty, IsReadAndWrittenLateBound) {
    const auto& [name, usual, written] = GetParam();
    const com::Variant value = late.get(name);
    EXPECT_EQ(value.type(), VT_I4) << "a VB Long";
    EXPECT_EQ(com::longOf(value), usual);
    late.put(name, written);
    EXPECT_EQ(com::longOf(late.get(name)), written);
}

INSTANTIATE_TEST_SUITE_P(
    All, IndicatorProperty,
    testing::Values(Property{L"FillColor", 0, static_cast<std::int32_t>(0x8000000D)},
                    Property{L"ForeColor", static_cast<std::int32_t>(0x80000012), 0x123456},
                    Property{L"Interval", 120, 65535}, Property{L"DotColor", 0xFF0000, 255},
                    Property{L"VisualEffect", 0, -5}, Property{L"ScrollColor", 0xFF0000, -1},
                    Property{L"BorderStyle", 0, 3},
                    Property{L"Backcolor", static_cast<std::int32_t>(0x8000000F), 1},
                    Property{L"BorderColor", static_cast<std::int32_t>(0x80000002), 0},
                    Property{L"VISUALEFFECT", 0, 2147483647}));

TEST_F(IndicatorMembers, ThoseThatAreNoLongs) {
    EXPECT_EQ(late.get(L"RaiseTicK").type(), VT_BOOL);
    EXPECT_FALSE(com::booleanOf(late.get(L"RaiseTicK")));
    late.put(L"RaiseTicK", true);
    EXPECT_TRUE(com::booleanOf(late.get(L"RaiseTicK")));
    late.put(L"RaiseTicK", std::int32_t{0});
    EXPECT_FALSE(com::booleanOf(late.get(L"RaiseTicK")));
    late.put(L"DotColor", "255");
    EXPECT_EQ(com::longOf(late.get(L"DotColor")), 255);
    VARIANT small{};
    V_VT(&small) = VT_I2; // as a script has its small numbers
    V_I2(&small) = -2;
    late.put(L"DotColor", com::Variant(small));
    EXPECT_EQ(com::longOf(late.get(L"DotColor")), -2);
    EXPECT_THROW(late.put(L"DotColor", "red"), base::RunTimeError);
    EXPECT_THROW(late.put(L"Interval", "soon"), base::RunTimeError);
}

TEST_F(IndicatorMembers, TheRunTimeCanOnlyBeRead) {
    EXPECT_EQ(com::longOf(late.get(L"RunTimeInterval")), 0);
    EXPECT_THROW(late.put(L"RunTimeInterval", std::int32_t{1}), base::RunTimeError);
}

TEST_F(IndicatorMembers, TheMethodsWorkLateBound) {
    late.put(L"Interval", std::int32_t{10});
    late.call(L"StartNow");
    const auto time = [this] { return com::longOf(late.get(L"RunTimeInterval")); };
    ASSERT_TRUE(pumpUntil([&] { return time() > 0; }));
    late.call(L"PauseNow");
    const auto then = time();
    pump(50);
    EXPECT_EQ(time(), then);
    late.call(L"ResumeNow");
    EXPECT_TRUE(pumpUntil([&] { return time() > then; }));
    late.call(L"stopNow");
    const auto last = time();
    pump(50);
    EXPECT_EQ(time(), last);
}

TEST_F(IndicatorMembers, AnErrorIsToldWithItsNumberAndWords) {
    EXPECT_EQ(control->put_Interval(65536), static_cast<HRESULT>(0x800A017C));
    com::Ptr<IErrorInfo> information;
    ASSERT_EQ(GetErrorInfo(0, information.receive()), S_OK);
    com::Bstr text;
    information->GetDescription(text.receive());
    EXPECT_EQ(com::textOf(text.get()), "Invalid property value");
    EXPECT_EQ(control.query<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(_Indicator)), S_OK);
    EXPECT_EQ(control.query<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(IID_IOleObject), S_FALSE);
    try {
        late.put(L"Interval", std::int32_t{-1});
        ADD_FAILURE();
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.description(), "Invalid property value");
    }
    EXPECT_EQ(com::longOf(late.get(L"Interval")), 120);
}

TEST_F(IndicatorMembers, NowhereToPutAValueIsAnError) {
    EXPECT_EQ(control->get_FillColor(nullptr), E_POINTER);
    EXPECT_EQ(control->get_RaiseTicK(nullptr), E_POINTER);
    EXPECT_EQ(control->get_RunTimeInterval(nullptr), E_POINTER);
    EXPECT_EQ(control->GetTypeInfo(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(control.query<IOleObject>()->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(control.query<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(control.query<IPersist>()->GetClassID(nullptr), E_POINTER);
    EXPECT_EQ(control.query<IConnectionPointContainer>()->FindConnectionPoint(IID_IUnknown, nullptr),
              E_POINTER);
}

TEST_F(IndicatorMembers, EveryInterfaceIsTheSameObjects) {
    const auto self = control.query<IUnknown>();
    for (const IID& iid :
         {__uuidof(_Indicator), IID_IDispatch, IID_IOleObject, IID_IOleWindow, IID_IOleInPlaceObject,
          IID_IOleInPlaceActiveObject, IID_IOleControl, IID_IViewObject, IID_IViewObject2, IID_IPersist,
          IID_IPersistStream, IID_IPersistStreamInit, IID_IPersistPropertyBag, IID_IConnectionPointContainer,
          IID_IProvideClassInfo, IID_IProvideClassInfo2, IID_ISupportErrorInfo}) {
        void* found = nullptr;
        ASSERT_EQ(control->QueryInterface(iid, &found), S_OK) << iid.Data1;
        EXPECT_TRUE(com::isSameObject(com::Ptr<IUnknown>::take(static_cast<IUnknown*>(found)), self))
            << iid.Data1;
    }
    void* none = &none;
    EXPECT_EQ(control->QueryInterface(IID_IMoniker, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
}

// The type library

TEST_F(IndicatorMembers, TheClassIsAControlWithItsEvents) {
    com::Ptr<ITypeInfo> information;
    ASSERT_EQ(control.query<IProvideClassInfo>()->GetClassInfo(information.receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_EQ(attributes->guid, __uuidof(Indicator));
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCONTROL);
    EXPECT_EQ(attributes->cImplTypes, 2);
    information->ReleaseTypeAttr(attributes);
    INT flags = 0;
    EXPECT_EQ(information->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
    EXPECT_EQ(information->GetImplTypeFlags(1, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
    GUID events{};
    EXPECT_EQ(control.query<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_EQ(events, __uuidof(__Indicator));
}

std::vector<std::string> namesOf(ITypeInfo& information) {
    std::vector<std::string> names;
    TYPEATTR* attributes = nullptr;
    information.GetTypeAttr(&attributes);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        information.GetFuncDesc(i, &function);
        com::Bstr name;
        UINT count = 0;
        information.GetNames(function->memid, name.receive(), 1, &count);
        // IDispatch's own come first.
        if (function->memid > 0 && function->memid < 1000 && function->invkind != INVOKE_PROPERTYPUT)
            names.push_back(com::textOf(name.get()));
        information.ReleaseFuncDesc(function);
    }
    information.ReleaseTypeAttr(attributes);
    return names;
}

TEST_F(IndicatorMembers, AreSpelledAsTheyAlwaysWere) {
    com::Ptr<ITypeInfo> information;
    ASSERT_EQ(control->GetTypeInfo(0, 0, information.receive()), S_OK);
    EXPECT_THAT(namesOf(*information),
                ElementsAre("RaiseTicK", "FillColor", "ForeColor", "Interval", "DotColor", "VisualEffect",
                            "ScrollColor", "BorderStyle", "Backcolor", "BorderColor", "RunTimeInterval",
                            "StartNow", "stopNow", "PauseNow", "ResumeNow"));
    com::Ptr<ITypeLib> library;
    UINT index = 0;
    ASSERT_EQ(information->GetContainingTypeLib(library.receive(), &index), S_OK);
    com::Ptr<ITypeInfo> events;
    ASSERT_EQ(library->GetTypeInfoOfGuid(__uuidof(__Indicator), events.receive()), S_OK);
    EXPECT_THAT(namesOf(*events), ElementsAre("Tick"));
}

// A properties window knows a colour by this type of OLE Automation's library.
constexpr GUID oleColor{0x66504301, 0xBE0F, 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};

TEST_F(IndicatorMembers, ColoursAreOleAutomationsColours) {
    com::Ptr<ITypeInfo> information;
    ASSERT_EQ(control->GetTypeInfo(0, 0, information.receive()), S_OK);
    for (const wchar_t* colour :
         {L"FillColor", L"ForeColor", L"DotColor", L"ScrollColor", L"Backcolor", L"BorderColor"}) {
        auto name = const_cast<LPOLESTR>(colour);
        MEMBERID id = 0;
        ASSERT_EQ(information->GetIDsOfNames(&name, 1, &id), S_OK);
        TYPEATTR* attributes = nullptr;
        information->GetTypeAttr(&attributes);
        const UINT count = attributes->cFuncs;
        information->ReleaseTypeAttr(attributes);
        int colours = 0;
        for (UINT i = 0; i < count; ++i) {
            FUNCDESC* function = nullptr;
            information->GetFuncDesc(i, &function);
            if (function->memid == id) {
                const TYPEDESC& type = function->invkind == INVOKE_PROPERTYPUT
                                           ? function->lprgelemdescParam[0].tdesc
                                           : function->elemdescFunc.tdesc;
                com::Ptr<ITypeInfo> alias;
                if (type.vt == VT_USERDEFINED &&
                    SUCCEEDED(information->GetRefTypeInfo(type.hreftype, alias.receive()))) {
                    alias->GetTypeAttr(&attributes);
                    colours += attributes->guid == oleColor ? 1 : 0;
                    alias->ReleaseTypeAttr(attributes);
                }
            }
            information->ReleaseFuncDesc(function);
        }
        EXPECT_EQ(colours, 2) << "to read and to write";
    }
}

// Aggregates

TEST_F(IndicatorMembers, ItCanBePartOfAnother) {
    {
        const auto outer = com::make<Aggregate>();
        outer->inner = makeControl(static_cast<IOleClientSite*>(outer.get()));
        const auto indicator = outer.query<_Indicator>();
        ASSERT_TRUE(indicator);
        EXPECT_TRUE(com::isSameObject(indicator, outer));
        EXPECT_TRUE(indicator.query<IOleClientSite>()) << "the outer one's";
        EXPECT_FALSE(com::isSameObject(outer->inner, outer));
        indicator->put_VisualEffect(1);
        indicator->put_Interval(10);
        EXPECT_EQ(indicator->StartNow(), S_OK);
        LONG time = 0;
        EXPECT_TRUE(pumpUntil([&] { return indicator->get_RunTimeInterval(&time), time > 0; }));
    }
    const auto outer = com::make<Aggregate>();
    void* result = nullptr;
    EXPECT_EQ(
        controlFactory()->CreateInstance(static_cast<IOleClientSite*>(outer.get()), IID_IDispatch, &result),
        CLASS_E_NOAGGREGATION);
    EXPECT_EQ(result, nullptr);
}

} // namespace
} // namespace corvelle::host
