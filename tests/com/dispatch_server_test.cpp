#include "base/error_of.h"
#include "com/dispatch.h"
#include "com/dispatch_server.h"

#include <gtest/gtest.h>

namespace corvelle::com {
namespace {

using base::ErrorNumber;
using test::error;
using test::errorOf;

class Counter : public DispatchServer<Counter> {
  public:
    std::int32_t value = 3;
    static const std::vector<Member<Counter>>& members();
};

const std::vector<Member<Counter>>& Counter::members() {
    static const std::vector<Member<Counter>> table{
        {L"Value", 0, propertyGet, 0, 0,
         [](Counter& self, const Arguments&) -> Variant { return self.value; }},
        {L"Value", 0, propertyPut, 1, 1,
         [](Counter& self, const Arguments& arguments) -> Variant {
             self.value = arguments.number(0);
             return {};
         }},
        {L"Add", 7, method, 1, 2,
         [](Counter& self, const Arguments& arguments) -> Variant {
             self.value += arguments.number(0) * (arguments.has(1) ? arguments.number(1) : 1);
             return self.value;
         }},
        {L"Fail", 8, method, 0, 0,
         [](Counter&, const Arguments&) -> Variant { throw base::RunTimeError(1234, "own words"); }},
        {L"Exhaust", 9, method, 0, 0, [](Counter&, const Arguments&) -> Variant { throw std::bad_alloc(); }},
        {L"Break", 10, method, 0, 0, [](Counter&, const Arguments&) -> Variant { throw 1; }},
    };
    return table;
}

struct DispatchServerTest : testing::Test {
    Ptr<Counter> counter = make<Counter>();
    Dispatch dispatch{counter};

    HRESULT invoke(DISPID id, WORD kind, DISPPARAMS parameters = {}) {
        Variant result;
        return counter->Invoke(id, IID_NULL, 0, kind, &parameters, result.receive(), nullptr, nullptr);
    }
};

TEST_F(DispatchServerTest, ReadsAndWritesAProperty) {
    dispatch.put(L"value", 9);
    EXPECT_EQ(longOf(dispatch.get(L"VALUE")), 9);
}

TEST_F(DispatchServerTest, TakesOptionalArguments) {
    EXPECT_EQ(longOf(dispatch.get(L"Add", 1)), 4);
    EXPECT_EQ(longOf(dispatch.get(L"Add", 1, 6)), 10);
    EXPECT_EQ(longOf(dispatch.get(L"Add", 1, missing)), 11);
    EXPECT_EQ(longOf(dispatch.get(L"Add", "2")), 13);
}

TEST_F(DispatchServerTest, RefusesWhatDoesNotFit) {
    EXPECT_EQ(invoke(99, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(7, DISPATCH_PROPERTYGET), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(7, DISPATCH_METHOD), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(0, DISPATCH_PROPERTYGET), S_OK);
    VARIANT values[3] = {Variant(1).release(), Variant(1).release(), Variant(1).release()};
    DISPID name = 5;
    EXPECT_EQ(invoke(7, DISPATCH_METHOD, {values, nullptr, 3, 0}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(7, DISPATCH_METHOD, {values, &name, 1, 1}), DISP_E_NONAMEDARGS);
    EXPECT_EQ(counter->value, 3);
    EXPECT_EQ(errorOf([&] { dispatch.call(L"Add", "many"); }), error(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorOf([&] { dispatch.call(L"Subtract"); }), error(ErrorNumber::MemberNotSupported));
}

TEST_F(DispatchServerTest, LetsNoExceptionOut) {
    EXPECT_EQ(errorOf([&] { dispatch.call(L"Fail"); }), (test::ErrorSeen{1234, "own words"}));
    EXPECT_EQ(invoke(9, DISPATCH_METHOD), E_OUTOFMEMORY);
    EXPECT_EQ(invoke(10, DISPATCH_METHOD), E_UNEXPECTED);
}

TEST_F(DispatchServerTest, KnowsNoNamesOfArguments) {
    wchar_t add[] = L"Add", what[] = L"What";
    LPOLESTR names[] = {add, what};
    DISPID ids[2] = {};
    EXPECT_EQ(counter->GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], 7);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST_F(DispatchServerTest, ToleratesTheCallWithoutParameters) {
    EXPECT_EQ(counter->Invoke(0, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(counter->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER);
}

} // namespace
} // namespace corvelle::com
