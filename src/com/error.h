#pragma once

#include "base/run_time_error.h"

#include <exception>
#include <ole2.h>
#include <type_traits>

namespace corvelle::com {

/// A failure that has no run-time error's number: the HRESULT goes to the caller as it is.
class HresultError : public std::exception {
  public:
    explicit HresultError(HRESULT result) : result_(result) {}
    HRESULT result() const { return result_; }
    const char* what() const noexcept override { return "HRESULT"; }

  private:
    HRESULT result_;
};

/// What a failed call of an object means to its caller. 0x800A0000 + n is error n, and the well-known results
/// of Automation are the errors that VB6 makes of them (438 for an unknown member, 13 for a mismatch, ...);
/// any other keeps its HRESULT as number, with the system's text for it.
base::RunTimeError runTimeError(HRESULT result);
/// The same for IDispatch::Invoke: for DISP_E_EXCEPTION the object's own number and description. Empties the
/// information.
base::RunTimeError runTimeError(HRESULT result, EXCEPINFO& information);

/// Throws the RunTimeError of a call that failed.
inline void runTimeErrorIfFailed(HRESULT result) {
    if (FAILED(result)) throw runTimeError(result);
}

/// Throws the HresultError of a call that failed: for a caller who wants the HRESULT itself.
inline void hresultErrorIfFailed(HRESULT result) {
    if (FAILED(result)) throw HresultError(result);
}

/// Throws the HresultError of a system's call that gives an error number, ERROR_SUCCESS for none.
inline void hresultErrorUnlessSuccess(LONG error) {
    if (error != ERROR_SUCCESS) throw HresultError(HRESULT_FROM_WIN32(static_cast<DWORD>(error)));
}

/// The HRESULT that carries the error: 0x800A0000 + number; a number that is a failed HRESULT already stays.
HRESULT hresultOf(const base::RunTimeError& error);

/// What a caught exception becomes at the edge of a COM method: a run-time error is described through the
/// thread's IErrorInfo too, std::bad_alloc is E_OUTOFMEMORY, an HresultError itself, everything else
/// E_UNEXPECTED.
HRESULT reportCurrentException() noexcept;
/// The same for IDispatch::Invoke: a run-time error is DISP_E_EXCEPTION and fills the information in, which
/// may be null.
HRESULT reportCurrentException(EXCEPINFO* information) noexcept;

/// Runs the body of a COM method, which returns an HRESULT or nothing, and lets no exception out of it.
template <class Body>
HRESULT guarded(Body&& body) noexcept {
    try {
        if constexpr (std::is_void_v<decltype(body())>) {
            body();
            return S_OK;
        } else {
            return body();
        }
    } catch (...) {
        return reportCurrentException();
    }
}

} // namespace corvelle::com
