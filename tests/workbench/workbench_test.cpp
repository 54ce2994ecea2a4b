#include "workbench/workbench_test.h"

#include "places.h"
#include "workbench/resource.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace corvelle::workbench::tests {

namespace {

constexpr DWORD patience = 15000; // milliseconds

BOOL CALLBACK findMain(HWND window, LPARAM result) {
    char name[64] = {};
    GetClassNameA(window, name, sizeof name);
    if (std::string(name) != "Workbench.Main" || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

BOOL CALLBACK findOpenMenu(HWND window, LPARAM result) {
    constexpr UINT askForMenu = 0x01E1; // MN_GETHMENU
    char name[64] = {};
    GetClassNameA(window, name, sizeof name);
    if (std::string(name) == "#32768" && IsWindowVisible(window) &&
        SendMessageA(window, askForMenu, 0, 0) != 0)
        *reinterpret_cast<bool*>(result) = true;
    return TRUE;
}

struct Titled {
    std::string title;
    bool found;
};

BOOL CALLBACK findTitled(HWND window, LPARAM wanted) {
    char name[64] = {};
    GetClassNameA(window, name, sizeof name);
    char text[256] = {};
    GetWindowTextA(window, text, sizeof text);
    auto& titled = *reinterpret_cast<Titled*>(wanted);
    if (std::string(name) == "#32770" && IsWindowVisible(window) && text == titled.title) titled.found = true;
    return !titled.found;
}

std::string quoted(const std::string& argument) {
    return "\"" + argument + "\"";
}

// The entry of the add-ins' DLL with that name.
void callDll(const char* name) {
    const HMODULE dll = LoadLibraryA(CORVELLE_DLL);
    if (!dll) throw std::runtime_error("the DLL could not be loaded");
    const auto entry =
        reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(reinterpret_cast<void (*)()>(GetProcAddress(dll, name)));
    const HRESULT result = entry ? entry() : E_FAIL;
    FreeLibrary(dll);
    if (FAILED(result)) throw std::runtime_error(std::string(name) + " failed");
}

} // namespace

WorkbenchTest::WorkbenchTest() {
    std::filesystem::copy(std::filesystem::path(EXAMPLES_DIR) / "Stockroom", folder.path());
    SetCursorPos(0, 0);
}

WorkbenchTest::~WorkbenchTest() {
    end();
}

void WorkbenchTest::end() {
    if (!process_.hProcess) return;
    if (isRunning()) {
        TerminateProcess(process_.hProcess, 99);
        WaitForSingleObject(process_.hProcess, patience);
    }
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    process_ = {};
    window_ = nullptr;
}

void WorkbenchTest::start(const std::vector<std::string>& switches, const std::string& file) {
    end();
    std::string line = quoted(WORKBENCH_BINARY);
    for (const auto& one : switches) line += " " + quoted(one);
    if (!file.empty()) line += " " + quoted((folder.path() / file).string());
    STARTUPINFOA how{};
    how.cb = sizeof how;
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.path().string().c_str(), &how, &process_)) {
        throw std::runtime_error("the program could not be started");
    }
    User::waitUntil("the main window", [this] {
        EnumThreadWindows(process_.dwThreadId, findMain, reinterpret_cast<LPARAM>(&window_));
        return window_ || !isRunning();
    });
    if (!isRunning()) throw std::runtime_error("the program has ended");
}

bool WorkbenchTest::isRunning() const {
    return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

DWORD WorkbenchTest::waitForEnd() const {
    if (WaitForSingleObject(process_.hProcess, patience) != WAIT_OBJECT_0)
        throw std::runtime_error("the program does not end");
    DWORD status = 0;
    GetExitCodeProcess(process_.hProcess, &status);
    return status;
}

void WorkbenchTest::chooseFromAddIns(int row) const {
    bringForward(window_);
    ask(window_, WM_NULL); // what is under way ends
    DWORD last = 0;
    User::waitUntil("the menu", [&] {
        constexpr DWORD again = 2000; // a change of windows under way closes it
        if (last == 0 || GetTickCount() - last > again) {
            PostMessageA(window_, WM_SYSCOMMAND, SC_KEYMENU, 'i');
            last = GetTickCount();
        }
        bool isOpen = false;
        EnumThreadWindows(process_.dwThreadId, findOpenMenu, reinterpret_cast<LPARAM>(&isOpen));
        return isOpen;
    });
    for (int i = 0; i < row; ++i) PostMessageA(window_, WM_KEYDOWN, VK_DOWN, 1);
    PostMessageA(window_, WM_KEYDOWN, VK_RETURN, 1);
}

void WorkbenchTest::press(WORD key, const std::vector<WORD>& modifiers) {
    std::vector<INPUT> inputs;
    const auto add = [&inputs](WORD pressed, DWORD flags) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = pressed;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(pressed, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = flags;
        inputs.push_back(input);
    };
    for (const WORD modifier : modifiers) add(modifier, 0);
    add(key, 0);
    add(key, KEYEVENTF_KEYUP);
    for (auto it = modifiers.rbegin(); it != modifiers.rend(); ++it) add(*it, KEYEVENTF_KEYUP);
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof inputs[0]);
}

void WorkbenchTest::bringForward(HWND window) {
    User::waitUntil("the window in front", [window] {
        SetForegroundWindow(window);
        return GetForegroundWindow() == window;
    });
}

HWND WorkbenchTest::tree() const {
    return User::controls(window_, "SysTreeView32").at(0);
}

HWND WorkbenchTest::child(const std::string& caption) const {
    for (const HWND one : User::controls(window_, "Workbench.Child")) {
        if (User::text(one) == caption) return one;
    }
    return nullptr;
}

// What is typed into the tree is one search until a while has passed without a key, and nothing tells of it.
constexpr DWORD forgets = 1100;

HWND WorkbenchTest::openCode(const std::string& name) const {
    command(IDM_TREE);
    type(tree(), name);
    command(IDM_CODE);
    HWND found = nullptr;
    User::waitUntil("the code of " + name, [&] { return (found = child(name + " (Code)")) != nullptr; });
    Sleep(forgets);
    return found;
}

HWND WorkbenchTest::openDesigner(const std::string& name, const std::string& caption) const {
    command(IDM_TREE);
    type(tree(), name);
    command(IDM_OBJECT);
    HWND found = nullptr;
    User::waitUntil("the designer " + caption, [&] { return (found = child(caption)) != nullptr; });
    Sleep(forgets);
    return found;
}

LRESULT WorkbenchTest::ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, patience, &result) == 0)
        throw std::runtime_error("the program does not answer message " + std::to_string(message));
    return static_cast<LRESULT>(result);
}

std::string WorkbenchTest::allText(HWND window) {
    std::string text(static_cast<std::size_t>(ask(window, WM_GETTEXTLENGTH)) + 1, '\0');
    const LRESULT copied = ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

void WorkbenchTest::type(HWND edit, const std::string& text) {
    for (const char c : text) PostMessageA(edit, WM_CHAR, static_cast<unsigned char>(c), 1);
}

void WorkbenchTest::waitForTitle(const std::string& title) const {
    User::waitUntil("the title " + title, [&] { return User::text(window_) == title; });
}

bool WorkbenchTest::seesBox(const std::string& title) const {
    Titled wanted{title, false};
    EnumThreadWindows(process_.dwThreadId, findTitled, reinterpret_cast<LPARAM>(&wanted));
    return wanted.found;
}

void WorkbenchTest::clickUntil(HWND form, const std::string& button, const std::string& what,
                               const std::function<bool()>& isSo) const {
    constexpr DWORD again = 1500;
    const HWND pressed = User::control(form, "Button", button);
    DWORD last = 0;
    User::waitUntil(what, [&] {
        if (isSo()) return true;
        if (IsWindowEnabled(form) && IsWindowEnabled(pressed) &&
            (last == 0 || GetTickCount() - last > again)) {
            PostMessageA(pressed, BM_CLICK, 0, 0);
            last = GetTickCount();
        }
        return false;
    });
}

void WorkbenchTest::takePicture(const std::string& name) {
    const std::filesystem::path folder = SCREENS_DIR;
    std::filesystem::create_directories(folder);
    const HDC screen = GetDC(nullptr);
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    const HDC copy = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ before = SelectObject(copy, bitmap);
    BitBlt(copy, 0, 0, width, height, screen, 0, 0, SRCCOPY);
    SelectObject(copy, before);
    BITMAPINFOHEADER format{};
    format.biSize = sizeof format;
    format.biWidth = width;
    format.biHeight = height;
    format.biPlanes = 1;
    format.biBitCount = 24;
    const std::size_t row = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    std::vector<char> pixels(row * static_cast<std::size_t>(height));
    GetDIBits(copy, bitmap, 0, static_cast<UINT>(height), pixels.data(),
              reinterpret_cast<BITMAPINFO*>(&format), DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(copy);
    ReleaseDC(nullptr, screen);
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42; // "BM"
    header.bfOffBits = sizeof header + sizeof format;
    header.bfSize = static_cast<DWORD>(header.bfOffBits + pixels.size());
    std::ofstream file(folder / (name + ".bmp"), std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(&format), sizeof format);
    file.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
}

void WithAddIns::SetUpTestSuite() {
    callDll("DllRegisterServer");
}

void WithAddIns::TearDownTestSuite() {
    callDll("DllUnregisterServer");
}

void WithAddIns::startBoth(const std::string& file) {
    start({"/addin:Corvelle.CodeFormatter", "/addin:Corvelle.ContextHelpIndexer"}, file);
}

void WithAddIns::chooseUntil(int row, const std::string& what, const std::function<bool()>& isThere) const {
    constexpr DWORD again = 3000; // a change of windows under way may close the menu
    DWORD last = 0;
    User::waitUntil(what, [&] {
        if (isThere()) return true;
        if (last == 0 || GetTickCount() - last > again) {
            chooseFromAddIns(row);
            last = GetTickCount();
        }
        return false;
    });
}

HWND WithAddIns::openManager() const {
    chooseUntil(0, "the manager", [this] { return seesBox("Add-In Manager"); });
    return user().box("Add-In Manager");
}

HWND WithAddIns::openFromAddIns(int row, const std::string& button) const {
    chooseUntil(row, "a window with " + button, [&] { return user().sees(button); });
    return user().windowWith(button);
}

void WithAddIns::toggle(HWND manager, const std::string& progId, int box) {
    const HWND list = GetDlgItem(manager, IDC_ADD_INS);
    ask(list, LB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(progId.c_str()));
    ask(manager, WM_COMMAND, MAKEWPARAM(IDC_ADD_INS, LBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
    ask(GetDlgItem(manager, box), BM_CLICK);
}

void WithAddIns::accept(HWND manager) {
    PostMessageA(manager, WM_COMMAND, IDOK, 0);
    User::waitUntil("the manager to go", [manager] { return !IsWindow(manager); });
}

void WithAddIns::toggleLoaded(const std::string& progId) const {
    const HWND manager = openManager();
    toggle(manager, progId, IDC_LOADED);
    accept(manager);
}

std::string WithAddIns::autoShow() {
    char value[8] = {};
    DWORD size = sizeof value - 1;
    HKEY key = nullptr;
    RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\VB and VBA Program Settings\\Corvelle\\Settings", 0, KEY_READ,
                  &key);
    RegQueryValueExA(key, "AutoShow", nullptr, nullptr, reinterpret_cast<BYTE*>(value), &size);
    RegCloseKey(key);
    return value;
}

} // namespace corvelle::workbench::tests
