#include "base/error_of.h"
#include "com/dispatch.h"
#include "com/scripted_object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::com {
namespace {

using base::ErrorNumber;
using test::error;
using test::errorOf;
using test::ErrorSeen;
using test::ScriptedObject;
using testing::ElementsAre;

struct DispatchTest : testing::Test {
    Ptr<ScriptedObject> object = make<ScriptedObject>();
    Dispatch dispatch{object};
};

TEST_F(DispatchTest, LooksANameUpOnce) {
    object->answers(L"Name", "x");
    object->answers(L"Other", 1);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(textOf(dispatch.get(L"Name")), "x");
    dispatch.get(L"Other");
    dispatch.put(L"Name", 2);
    EXPECT_THAT(object->lookups, ElementsAre(L"Name", L"Other"));
}

TEST_F(DispatchTest, LooksANameUpAgainThatWasNotThere) {
    EXPECT_EQ(errorOf([&] { dispatch.get(L"Name"); }), error(ErrorNumber::MemberNotSupported));
    object->answers(L"Name", "x");
    EXPECT_EQ(textOf(dispatch.get(L"Name")), "x");
}

TEST_F(DispatchTest, SaysHowAMemberIsMeant) {
    object->answers(L"M", 1);
    dispatch.get(L"M");
    dispatch.call(L"M");
    dispatch.put(L"M", 1);
    dispatch.putRef(L"M", object);
    EXPECT_THAT(object->kinds, ElementsAre(DISPATCH_METHOD | DISPATCH_PROPERTYGET, DISPATCH_METHOD,
                                           DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF));
}

TEST_F(DispatchTest, HandsPlainArgumentsOverInTheirOrder) {
    object->members[L"M"] = [](ScriptedObject::Call& call) {
        EXPECT_EQ(call.parameters.cArgs, 4U);
        EXPECT_EQ(call.parameters.cNamedArgs, 0U);
        EXPECT_EQ(V_VT(&call.parameters.rgvarg[3]), VT_I4);
        EXPECT_EQ(V_VT(&call.parameters.rgvarg[2]), VT_ERROR);
        EXPECT_EQ(V_VT(&call.parameters.rgvarg[1]), VT_BSTR);
        EXPECT_EQ(V_VT(&call.parameters.rgvarg[0]), VT_DISPATCH);
        EXPECT_EQ(call.arguments.number(0), 1);
        EXPECT_FALSE(call.arguments.has(1));
        EXPECT_EQ(call.arguments.text(2), "two");
        call.result = call.arguments.object(3);
        return S_OK;
    };
    EXPECT_EQ(objectOf(dispatch.get(L"M", 1, missing, "two", object)).get(), object.get());
}

TEST_F(DispatchTest, NamesTheValueOfAProperty) {
    object->members[L"P"] = [](ScriptedObject::Call& call) {
        EXPECT_EQ(call.parameters.cNamedArgs, 1U);
        EXPECT_EQ(call.parameters.rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
        EXPECT_EQ(call.arguments.text(0), "new");
        return S_OK;
    };
    dispatch.put(L"P", "new");
    EXPECT_EQ(object->kinds.size(), 1U);
}

TEST_F(DispatchTest, RaisesWhatTheObjectRaises) {
    object->members[L"M"] = [](ScriptedObject::Call& call) {
        call.information->scode = static_cast<HRESULT>(0x800A0032);
        call.information->bstrDescription = SysAllocString(L"Sorry");
        return DISP_E_EXCEPTION;
    };
    EXPECT_EQ(errorOf([&] { dispatch.call(L"M"); }), (ErrorSeen{50, "Sorry"}));
    object->fails(L"M", DISP_E_BADINDEX);
    EXPECT_EQ(errorOf([&] { dispatch.get(L"M", 1); }), error(ErrorNumber::SubscriptOutOfRange));
}

TEST_F(DispatchTest, RaisesError91OnNothing) {
    Dispatch nothing;
    EXPECT_EQ(errorOf([&] { nothing.get(L"M"); }), error(ErrorNumber::ObjectVariableNotSet));
    EXPECT_EQ(errorOf([&] { nothing.put(L"M", 1); }), error(ErrorNumber::ObjectVariableNotSet));
}

} // namespace
} // namespace corvelle::com
