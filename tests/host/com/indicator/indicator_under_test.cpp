#include "indicator_under_test.h"

#include "com/error.h"
#include "com/object.h"
#include "places.h"

#include <gtest/gtest.h>
#include <memory>

namespace corvelle::host {

namespace {

FARPROC entryPoint(const char* name) {
    static const HMODULE module = LoadLibraryA(CORVELLE_DLL);
    return GetProcAddress(module, name);
}

/// OLE for the whole program.
class Ole : public testing::Environment {
    void SetUp() override { ASSERT_EQ(OleInitialize(nullptr), S_OK); }
    void TearDown() override { OleUninitialize(); }
};

[[maybe_unused]] testing::Environment* const ole =
    testing::AddGlobalTestEnvironment(std::make_unique<Ole>().release());

} // namespace

com::Ptr<IClassFactory> controlFactory() {
    using Function = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto function =
        reinterpret_cast<Function>(reinterpret_cast<void*>(entryPoint("DllGetClassObject")));
    void* found = nullptr;
    com::runTimeErrorIfFailed(function(__uuidof(Indicator), IID_IClassFactory, &found));
    return com::Ptr<IClassFactory>::take(static_cast<IClassFactory*>(found));
}

com::Ptr<IUnknown> makeControl(IUnknown* outer) {
    void* made = nullptr;
    com::runTimeErrorIfFailed(controlFactory()->CreateInstance(outer, IID_IUnknown, &made));
    return com::Ptr<IUnknown>::take(static_cast<IUnknown*>(made));
}

com::Ptr<_Indicator> makeIndicator() {
    return makeControl().query<_Indicator>();
}

HRESULT callModule(const char* function) {
    using Function = HRESULT(WINAPI*)();
    return reinterpret_cast<Function>(reinterpret_cast<void*>(entryPoint(function)))();
}

long livingObjects() {
    return com::objectCount() + (callModule("DllCanUnloadNow") == S_OK ? 0 : 1);
}

void pump(unsigned milliseconds) {
    const DWORD start = GetTickCount();
    for (DWORD passed = 0; passed <= milliseconds; passed = GetTickCount() - start) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
    }
}

} // namespace corvelle::host
