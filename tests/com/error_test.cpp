#include "base/error_of.h"
#include "com/bstr.h"
#include "com/error.h"
#include "com/ptr.h"

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

namespace corvelle::com {
namespace {

using base::ErrorNumber;
using base::RunTimeError;
using test::error;
using test::errorOf;
using test::ErrorSeen;

ErrorSeen seen(const RunTimeError& error) {
    return {error.number(), error.description()};
}

HRESULT hresult(std::uint32_t value) {
    return static_cast<HRESULT>(value);
}

TEST(ComError, IsTheRunTimeErrorOfAResult) {
    EXPECT_EQ(seen(runTimeError(hresult(0x800A0009))), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(seen(runTimeError(DISP_E_UNKNOWNNAME)), error(ErrorNumber::MemberNotSupported));
    EXPECT_EQ(seen(runTimeError(DISP_E_MEMBERNOTFOUND)), error(ErrorNumber::MemberNotSupported));
    EXPECT_EQ(seen(runTimeError(DISP_E_TYPEMISMATCH)), error(ErrorNumber::TypeMismatch));
    EXPECT_EQ(seen(runTimeError(DISP_E_OVERFLOW)), error(ErrorNumber::Overflow));
    EXPECT_EQ(seen(runTimeError(DISP_E_BADINDEX)), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(seen(runTimeError(E_OUTOFMEMORY)), error(ErrorNumber::OutOfMemory));
    EXPECT_EQ(seen(runTimeError(E_INVALIDARG)), error(ErrorNumber::InvalidProcedureCall));
    EXPECT_EQ(seen(runTimeError(E_ACCESSDENIED)), error(ErrorNumber::PermissionDenied));
    EXPECT_EQ(seen(runTimeError(hresult(0x800A1234))),
              (ErrorSeen{0x1234, "Application-defined or object-defined error"}));
}

TEST(ComError, KeepsAResultOfTheSystemsWithItsText) {
    const auto notFound = runTimeError(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(notFound.number(), hresult(0x80070002));
    EXPECT_NE(notFound.description(), "");
    EXPECT_NE(notFound.description(), "Application-defined or object-defined error");
    EXPECT_EQ(notFound.description().find_first_of("\r\n"), std::string::npos);
    EXPECT_EQ(seen(runTimeError(RPC_E_DISCONNECTED)),
              (ErrorSeen{RPC_E_DISCONNECTED, "The object invoked has disconnected from its clients."}));
    EXPECT_EQ(seen(runTimeError(hresult(0x8FFF1234))),
              (ErrorSeen{hresult(0x8FFF1234), "Application-defined or object-defined error"}));
}

TEST(ComError, TakesTheObjectsOwnNumberAndDescription) {
    EXCEPINFO information{};
    information.scode = hresult(0x800A0032);
    information.bstrDescription = SysAllocString(L"Can't \u00FC");
    information.bstrSource = SysAllocString(L"IDE");
    EXPECT_EQ(seen(runTimeError(DISP_E_EXCEPTION, information)), (ErrorSeen{50, "Can't \xFC"}));
    EXPECT_EQ(information.bstrDescription, nullptr); // taken over
    EXPECT_EQ(information.bstrSource, nullptr);

    information = {};
    information.wCode = 1004;
    EXPECT_EQ(seen(runTimeError(DISP_E_EXCEPTION, information)),
              (ErrorSeen{1004, "Application-defined or object-defined error"}));

    information = {};
    information.scode = E_OUTOFMEMORY;
    EXPECT_EQ(seen(runTimeError(DISP_E_EXCEPTION, information)), error(ErrorNumber::OutOfMemory));

    information = {};
    EXPECT_EQ(runTimeError(DISP_E_EXCEPTION, information).number(), DISP_E_EXCEPTION);
}

HRESULT STDAPICALLTYPE fillIn(EXCEPINFO* information) {
    information->scode = hresult(0x800A0046);
    information->bstrDescription = SysAllocString(L"late");
    return S_OK;
}

TEST(ComError, AsksForADeferredDescription) {
    EXCEPINFO information{};
    information.pfnDeferredFillIn = fillIn;
    EXPECT_EQ(seen(runTimeError(DISP_E_EXCEPTION, information)), (ErrorSeen{70, "late"}));
}

TEST(ComError, LeavesNothingOutOfAGuardedMethod) {
    EXPECT_EQ(guarded([] {}), S_OK);
    EXPECT_EQ(guarded([] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(guarded([] { throw RunTimeError(ErrorNumber::FileNotFound); }), hresult(0x800A0035));
    EXPECT_EQ(guarded([] { throw RunTimeError(RPC_E_DISCONNECTED, "gone"); }), RPC_E_DISCONNECTED);
    EXPECT_EQ(guarded([] { throw RunTimeError(70000, "large"); }), E_UNEXPECTED);
    EXPECT_EQ(guarded([] { throw HresultError(E_NOINTERFACE); }), E_NOINTERFACE);
    EXPECT_EQ(guarded([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(guarded([] { throw std::runtime_error("other"); }), E_UNEXPECTED);
    EXPECT_EQ(guarded([] { throw 5; }), E_UNEXPECTED);
}

TEST(ComError, DescribesTheErrorOfAGuardedMethod) {
    guarded([] { throw RunTimeError(53, "No \xE4 there"); });
    Ptr<IErrorInfo> information;
    ASSERT_EQ(GetErrorInfo(0, information.receive()), S_OK);
    Bstr description, source;
    information->GetDescription(description.receive());
    information->GetSource(source.receive());
    EXPECT_EQ(textOf(description.get()), "No \xE4 there");
    EXPECT_EQ(textOf(source.get()), "Corvelle");
}

TEST(ComError, GoesThroughBothEnds) {
    EXCEPINFO information{};
    HRESULT result = S_OK;
    try {
        throw RunTimeError(32813, "Name conflicts");
    } catch (...) {
        result = reportCurrentException(&information);
    }
    EXPECT_EQ(result, DISP_E_EXCEPTION);
    EXPECT_EQ(seen(runTimeError(result, information)), (ErrorSeen{32813, "Name conflicts"}));
}

TEST(ComError, NeedsNobodyToTakeTheDescription) {
    try {
        throw RunTimeError(ErrorNumber::DiskFull);
    } catch (...) {
        EXPECT_EQ(reportCurrentException(nullptr), DISP_E_EXCEPTION);
    }
}

} // namespace
} // namespace corvelle::com
