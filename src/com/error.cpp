#include "com/error.h"

#include "com/bstr.h"
#include "com/ptr.h"

#include <new>
#include <utility>
#include <windows.h>

namespace corvelle::com {

namespace {

using base::ErrorNumber;
using base::RunTimeError;

constexpr std::uint32_t controlError = 0x800A0000;
constexpr std::uint32_t largestNumber = 0xFFFF;
const wchar_t source[] = L"Corvelle";

struct WellKnown {
    HRESULT result;
    ErrorNumber number;
};

constexpr WellKnown wellKnown[] = {
    {E_INVALIDARG, ErrorNumber::InvalidProcedureCall},
    {DISP_E_OVERFLOW, ErrorNumber::Overflow},
    {E_OUTOFMEMORY, ErrorNumber::OutOfMemory},
    {DISP_E_BADINDEX, ErrorNumber::SubscriptOutOfRange},
    {DISP_E_TYPEMISMATCH, ErrorNumber::TypeMismatch},
    {DISP_E_BADVARTYPE, ErrorNumber::TypeMismatch},
    {E_ACCESSDENIED, ErrorNumber::PermissionDenied},
    {DISP_E_UNKNOWNNAME, ErrorNumber::MemberNotSupported},
    {DISP_E_MEMBERNOTFOUND, ErrorNumber::MemberNotSupported},
    {DISP_E_UNKNOWNINTERFACE, ErrorNumber::MemberNotSupported},
};

std::string systemText(HRESULT result) {
    // What an IDE that is closing answers; not every system has the text.
    if (result == RPC_E_DISCONNECTED) return "The object invoked has disconnected from its clients.";
    wchar_t text[512];
    auto size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                               static_cast<DWORD>(result), 0, text, std::size(text), nullptr);
    while (size > 0 && (text[size - 1] == L'\r' || text[size - 1] == L'\n' || text[size - 1] == L' ')) --size;
    return messageOf({text, size});
}

RunTimeError numbered(std::int32_t number, std::string description) {
    return RunTimeError(number, description.empty() ? base::describeError(number) : std::move(description));
}

// The number that stands for the result; the result itself where none does.
std::int32_t numberOf(HRESULT result) {
    if ((static_cast<std::uint32_t>(result) & ~largestNumber) == controlError)
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(result) & largestNumber);
    for (const auto& known : wellKnown) {
        if (known.result == result) return static_cast<std::int32_t>(known.number);
    }
    return result;
}

Bstr describedBy(const RunTimeError& error) {
    try {
        return Bstr(std::string_view(error.description()));
    } catch (const RunTimeError&) {
        return Bstr(std::string_view(base::describeError(error.number())));
    }
}

void setErrorInfo(const RunTimeError& error) {
    const auto description = describedBy(error);
    Ptr<ICreateErrorInfo> created;
    if (FAILED(CreateErrorInfo(created.receive()))) return;
    created->SetDescription(description.get());
    Bstr name{std::wstring_view(source)};
    created->SetSource(name.get());
    if (const auto information = created.query<IErrorInfo>()) SetErrorInfo(0, information.get());
}

} // namespace

RunTimeError runTimeError(HRESULT result) {
    const auto number = numberOf(result);
    return numbered(number, number == result ? systemText(result) : std::string());
}

RunTimeError runTimeError(HRESULT result, EXCEPINFO& information) {
    if (result == DISP_E_EXCEPTION && information.pfnDeferredFillIn)
        information.pfnDeferredFillIn(&information);
    Bstr origin, description, help;
    *origin.receive() = std::exchange(information.bstrSource, nullptr);
    *description.receive() = std::exchange(information.bstrDescription, nullptr);
    *help.receive() = std::exchange(information.bstrHelpFile, nullptr);
    if (result != DISP_E_EXCEPTION) return runTimeError(result);

    auto text = messageOf({description.get() ? description.get() : L"", SysStringLen(description.get())});
    if (information.wCode != 0) return numbered(information.wCode, std::move(text));
    if (!FAILED(information.scode)) return numbered(result, std::move(text));
    if (text.empty()) return runTimeError(information.scode);
    return RunTimeError(numberOf(information.scode), std::move(text));
}

HRESULT hresultOf(const RunTimeError& error) {
    const auto number = static_cast<std::uint32_t>(error.number());
    if (error.number() > 0 && number <= largestNumber) return static_cast<HRESULT>(controlError | number);
    return error.number() < 0 ? error.number() : E_UNEXPECTED;
}

HRESULT reportCurrentException() noexcept {
    try {
        throw;
    } catch (const RunTimeError& error) {
        try {
            setErrorInfo(error);
        } catch (...) { // without a description then
        }
        return hresultOf(error);
    } catch (const HresultError& error) {
        return error.result();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

HRESULT reportCurrentException(EXCEPINFO* information) noexcept {
    try {
        throw;
    } catch (const RunTimeError& error) {
        if (information) {
            *information = {};
            information->scode = hresultOf(error);
            try {
                information->bstrDescription = describedBy(error).release();
                information->bstrSource = Bstr(std::wstring_view(source)).release();
            } catch (...) { // without a description then
            }
        }
        return DISP_E_EXCEPTION;
    } catch (...) {
        return reportCurrentException();
    }
}

} // namespace corvelle::com
