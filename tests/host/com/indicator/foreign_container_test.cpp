// The control in containers that are not ours: the system's own host window, and a script.

#include "expected_picture.h"
#include "test_container.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace corvelle::host {
namespace {

/// The DLL in the registry for as long as this lives.
class Registered {
  public:
    Registered() { EXPECT_EQ(callModule("DllRegisterServer"), S_OK); }
    ~Registered() { EXPECT_EQ(callModule("DllUnregisterServer"), S_OK); }
};

template <class Function>
Function* systemFunction(const char* name) {
    static const HMODULE module = LoadLibraryA("atl.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

class HostWindow : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        ASSERT_TRUE(systemFunction<BOOL WINAPI()>("AtlAxWinInit")());
    } // once only
    void SetUp() override {
        frame = CreateWindowExA(WS_EX_TOPMOST, "STATIC", "", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 60, 60,
                                300, 200, nullptr, nullptr, nullptr, nullptr);
    }
    void TearDown() override {
        DestroyWindow(frame);
        EXPECT_EQ(livingObjects(), before);
    }
    // A host window that makes what the text names.
    HWND makeHost(const char* text) {
        return CreateWindowA("AtlAxWin", text, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 10, 10, 70, 25, frame,
                             nullptr, nullptr, nullptr);
    }
    com::Ptr<_Indicator> controlOf(HWND host) {
        com::Ptr<IUnknown> control;
        systemFunction<HRESULT WINAPI(HWND, IUnknown**)>("AtlAxGetControl")(host, control.receive());
        return control.query<_Indicator>();
    }
    static HWND windowOf(const com::Ptr<_Indicator>& control) {
        HWND window = nullptr;
        control.query<IOleInPlaceObject>()->GetWindow(&window);
        return window;
    }
    // Shows, resizes and closes.
    void work(HWND host) {
        ASSERT_NE(host, nullptr);
        auto control = controlOf(host);
        ASSERT_TRUE(control);
        const HWND window = windowOf(control);
        ASSERT_TRUE(IsWindowVisible(window));
        EXPECT_TRUE(IsChild(host, window));
        paintWith(*control, 1, 2);
        pump(20);
        control->StartNow();
        EXPECT_EQ(screenOf(window), firstFrame(70, 25, 1, 2));
        EXPECT_EQ(viewOf(control, 70, 25), firstFrame(70, 25, 1, 2));
        control->stopNow();
        MoveWindow(host, 20, 20, 110, 40, TRUE);
        pump(20);
        control->put_VisualEffect(0);
        control->StartNow();
        EXPECT_EQ(screenOf(window), firstFrame(110, 40, 0, 2));
        DestroyWindow(host);
        EXPECT_FALSE(IsWindow(window));
        control.reset();
        EXPECT_EQ(livingObjects(), before);
    }

    const long before = livingObjects();
    HWND frame = nullptr;
};

TEST_F(HostWindow, MakesItByItsName) {
    const Registered registered;
    work(makeHost("Corvelle.Indicator"));
    CoFreeUnusedLibraries();
}

TEST_F(HostWindow, MakesItByItsClass) {
    const Registered registered;
    work(makeHost("{435CCC43-251D-4D82-91FC-F439ECF3F35C}"));
    CoFreeUnusedLibraries();
}

TEST_F(HostWindow, TakesAControlThatIsThere) {
    const HWND host = makeHost("");
    auto control = makeControl();
    com::Ptr<IUnknown> container;
    ASSERT_EQ((systemFunction<HRESULT WINAPI(IUnknown*, HWND, IUnknown**)>("AtlAxAttachControl")(
                  control.get(), host, container.receive())),
              S_OK);
    control.reset();
    container.reset();
    work(host);
}

TEST_F(HostWindow, MayDestroyItWhileItTicks) {
    const HWND host = makeHost("");
    auto control = makeControl();
    ASSERT_EQ((systemFunction<HRESULT WINAPI(IUnknown*, HWND, IUnknown**)>("AtlAxAttachControl")(
                  control.get(), host, nullptr)),
              S_OK);
    auto indicator = control.query<_Indicator>();
    control.reset();
    indicator->put_RaiseTicK(VARIANT_TRUE);
    indicator->put_VisualEffect(1);
    indicator->put_Interval(10);
    const auto sink = com::make<TickSink>();
    com::Connection connection(indicator.get(), __uuidof(__Indicator), sink.get());
    sink->doing = [&] {
        connection = com::Connection();
        indicator.reset();
        DestroyWindow(host);
    };
    indicator->StartNow();
    EXPECT_TRUE(pumpUntil([&] { return !indicator; }));
    pump(50);
    EXPECT_EQ(sink->ticks, 1);
    sink->doing = nullptr;
}

// Scripts

/// Runs the script; its exit status.
DWORD runScript(const std::string& text) {
    char folder[MAX_PATH], file[MAX_PATH];
    GetTempPathA(MAX_PATH, folder);
    GetTempFileNameA(folder, "ind", 0, file);
    const std::string script = std::string(file) + ".vbs";
    std::ofstream(script) << text;
    std::string command = "cscript //nologo \"" + script + "\"";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    DWORD status = 0;
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process)) {
        if (WaitForSingleObject(process.hProcess, 60000) == WAIT_OBJECT_0) {
            GetExitCodeProcess(process.hProcess, &status);
        } else {
            TerminateProcess(process.hProcess, 1);
        }
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    std::remove(script.c_str());
    std::remove(file);
    return status;
}

TEST(ControlInAScript, EveryPropertyIsReadAndWritten) {
    const Registered registered;
    // A script that stops at an error of its own ends with 0.
    EXPECT_EQ(runScript(R"vbs(
Dim c, n
n = 0
Sub Check(ok)
  n = n + 1
  If Not ok Then WScript.Quit n
End Sub
Set c = CreateObject("Corvelle.Indicator")
Check TypeName(c) = "_Indicator"
Check c.RaiseTicK = False
Check c.FillColor = 0
Check c.ForeColor = &H80000012
Check c.Interval = 120
Check c.DotColor = &HFF0000
Check c.VisualEffect = 0
Check c.ScrollColor = &HFF0000
Check c.BorderStyle = 0
Check c.Backcolor = &H8000000F
Check c.BorderColor = &H80000002
Check c.RunTimeInterval = 0
c.RaiseTicK = True
c.FillColor = &H8000000D
c.ForeColor = 255
c.Interval = 50
c.DotColor = &H123456
c.VisualEffect = 1
c.ScrollColor = "&HFF00"
c.BorderStyle = 3
c.Backcolor = -1
c.BorderColor = 0
Check c.RaiseTicK = True
Check c.FillColor = &H8000000D
Check c.ForeColor = 255
Check c.Interval = 50
Check c.DotColor = &H123456
Check c.VisualEffect = 1
Check c.ScrollColor = &HFF00&
Check c.BorderStyle = 3
Check c.Backcolor = -1
Check c.BorderColor = 0
c.StartNow
c.PauseNow
c.ResumeNow
c.stopNow
On Error Resume Next
c.Interval = 65536
Check Err.Number <> 0
Check Err.Description = "Invalid property value"
Err.Clear
c.RunTimeInterval = 1
Check Err.Number <> 0
On Error GoTo 0
Check c.Interval = 50
Set c = Nothing
WScript.Quit 42
)vbs"),
              42U);
}

// What is in the registry

std::string registryText(const std::string& path, const char* name = "") {
    char value[400];
    LONG size = sizeof value;
    HKEY key = nullptr;
    std::string text = "(none)";
    if (RegOpenKeyExA(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return text;
    DWORD bytes = static_cast<DWORD>(size);
    if (RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(value), &bytes) ==
        ERROR_SUCCESS)
        text = value;
    RegCloseKey(key);
    return text;
}

TEST(ControlInTheRegistry, SaysWhatContainersLookFor) {
    const std::string path = "CLSID\\{435CCC43-251D-4D82-91FC-F439ECF3F35C}";
    {
        const Registered registered;
        EXPECT_EQ(registryText(path), "Busy Indicator");
        EXPECT_EQ(registryText(path + "\\Control"), "");
        EXPECT_EQ(registryText(path + "\\MiscStatus"), "0");
        EXPECT_EQ(registryText(path + "\\MiscStatus\\1"), "131473");
        EXPECT_EQ(registryText(path + "\\ProgID"), "Corvelle.Indicator");
        EXPECT_EQ(registryText(path + "\\TypeLib"), "{62F4B4DD-0200-11D9-B84C-9DC4C37C905E}");
        EXPECT_EQ(registryText(path + "\\Version"), "8.0");
        EXPECT_EQ(registryText(path + "\\InprocServer32", "ThreadingModel"), "Apartment");
        EXPECT_EQ(registryText(path + "\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}"),
                  "");
        EXPECT_EQ(registryText("Corvelle.Indicator\\CLSID"), "{435CCC43-251D-4D82-91FC-F439ECF3F35C}");

        const std::string bitmap = registryText(path + "\\ToolboxBitmap32");
        const auto comma = bitmap.rfind(", ");
        ASSERT_NE(comma, std::string::npos);
        const HMODULE module =
            LoadLibraryExA(bitmap.substr(0, comma).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        const auto number = static_cast<WORD>(std::stoi(bitmap.substr(comma + 2)));
        const HANDLE picture =
            LoadImageA(module, MAKEINTRESOURCEA(number), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
        BITMAP size{};
        EXPECT_NE(GetObjectA(picture, sizeof size, &size), 0);
        EXPECT_EQ(size.bmWidth, 16);
        EXPECT_EQ(size.bmHeight, 15);
        DeleteObject(picture);
        FreeLibrary(module);
    }
    EXPECT_EQ(registryText(path), "(none)");
    EXPECT_EQ(registryText("Corvelle.Indicator\\CLSID"), "(none)");
}

} // namespace
} // namespace corvelle::host
