#include "base/error_of.h"
#include "com/object.h"
#include "com/scripted_object.h"
#include "com/variant.h"

#include <gtest/gtest.h>
#include <limits>

namespace corvelle::com {
namespace {

using base::ErrorNumber;
using test::error;
using test::errorOf;

VARIANT valueOf(VARTYPE type) {
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = type;
    return value;
}

VARIANT date(DATE value) {
    VARIANT result = valueOf(VT_DATE);
    V_DATE(&result) = value;
    return result;
}

VARIANT real(double value) {
    VARIANT result = valueOf(VT_R8);
    V_R8(&result) = value;
    return result;
}

TEST(Variant, IsTextAsVbConvertsIt) {
    EXPECT_EQ(textOf(Variant(std::string_view("a\0b", 3))), std::string("a\0b", 3));
    EXPECT_EQ(textOf(Variant(true)), "True");
    EXPECT_EQ(textOf(Variant(false)), "False");
    EXPECT_EQ(textOf(Variant(-7)), "-7");
    EXPECT_EQ(textOf(Variant()), "");
    EXPECT_EQ(textOf(real(1.5)), "1.5");
    EXPECT_EQ(textOf(real(1e15)), "1E+15");
    EXPECT_EQ(textOf(date(2.5)), "1/1/1900 12:00:00 PM");
    EXPECT_EQ(textOf(date(2)), "1/1/1900");
    VARIANT money = valueOf(VT_CY);
    V_CY(&money).int64 = 12500;
    EXPECT_EQ(textOf(money), "1.25");
    EXPECT_EQ(textOf(valueOf(VT_BSTR)), "");
}

TEST(Variant, HasNoTextWhereVbHasNone) {
    EXPECT_EQ(errorOf([] { textOf(valueOf(VT_NULL)); }), error(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorOf([] { textOf(Variant(missing)); }), error(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorOf([] { textOf(Variant(static_cast<IDispatch*>(nullptr))); }).number, 13);
    EXPECT_EQ(errorOf([] { textOf(Variant(static_cast<IUnknown*>(nullptr))); }).number, 13);
    EXPECT_EQ(errorOf([] { textOf(valueOf(VT_UNKNOWN)); }).number, 13);
    EXPECT_EQ(errorOf([] { textOf(valueOf(0x0FFF)); }).number, 13);
}

TEST(Variant, IsTextThroughAReference) {
    Bstr text{std::string_view("referred")};
    BSTR pointer = text.get();
    VARIANT value = valueOf(VT_BYREF | VT_BSTR);
    V_BSTRREF(&value) = &pointer;
    EXPECT_EQ(textOf(value), "referred");
}

TEST(Variant, IsANumber) {
    EXPECT_EQ(longOf(Variant(5)), 5);
    EXPECT_EQ(longOf(Variant("12")), 12);
    EXPECT_EQ(longOf(real(2.5)), 2); // to the even one
    EXPECT_EQ(longOf(Variant(true)), -1);
    EXPECT_EQ(errorOf([] { longOf(real(3e9)); }), error(ErrorNumber::Overflow));
    EXPECT_EQ(errorOf([] { longOf(Variant("x")); }), error(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorOf([] { longOf(valueOf(VT_NULL)); }), error(ErrorNumber::TypeMismatch));
}

TEST(Variant, IsABoolean) {
    EXPECT_TRUE(booleanOf(Variant(true)));
    EXPECT_TRUE(booleanOf(Variant(2)));
    EXPECT_FALSE(booleanOf(Variant()));
    EXPECT_EQ(errorOf([] { booleanOf(Variant("maybe")); }), error(ErrorNumber::TypeMismatch));
}

TEST(Variant, IsAnObjectOrNothing) {
    const auto object = make<test::ScriptedObject>();
    EXPECT_EQ(objectOf(Variant(object)).get(), object.get());
    EXPECT_EQ(objectOf(Variant(static_cast<IUnknown*>(object.get()))).get(), object.get());
    EXPECT_FALSE(objectOf(Variant()));
    EXPECT_FALSE(objectOf(valueOf(VT_NULL)));
    EXPECT_FALSE(objectOf(Variant(static_cast<IDispatch*>(nullptr))));
    EXPECT_FALSE(objectOf(Variant(static_cast<IUnknown*>(nullptr))));
    EXPECT_EQ(errorOf([] { objectOf(Variant(1)); }), error(ErrorNumber::ObjectRequired));
    EXPECT_EQ(errorOf([] { objectOf(Variant("object")); }), error(ErrorNumber::ObjectRequired));
}

TEST(Variant, HoldsItsObjectAsLongAsItLives) {
    const auto before = objectCount();
    {
        Variant first(make<test::ScriptedObject>());
        Variant second = first;
        first = Variant(1);
        const Variant third = std::move(second);
        EXPECT_EQ(objectCount(), before + 1);
    }
    EXPECT_EQ(objectCount(), before);
}

} // namespace
} // namespace corvelle::com
