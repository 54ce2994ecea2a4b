#include "base/temporary_folder.h"
#include "host/com/outside_libraries.h"
#include "host/com/registered.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

namespace corvelle::host::test {
namespace {

/// The default value of a key; "(none)" if there is no such value.
std::wstring value(const std::wstring& path, const wchar_t* name = nullptr) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return L"(none)";
    wchar_t text[1024] = L"";
    DWORD size = sizeof text - sizeof(wchar_t);
    const LONG result = RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(key);
    return result == ERROR_SUCCESS ? text : L"(none)";
}

void set(const std::wstring& path, const std::wstring& text) {
    RegSetValueW(HKEY_CLASSES_ROOT, path.c_str(), REG_SZ, text.c_str(),
                 static_cast<DWORD>(text.size() * sizeof(wchar_t)));
}

class Registration : public testing::Test {
  protected:
    Apartment apartment;
};

TEST_F(Registration, EntersTheClassesAndTheLibraryAndTakesAllOutAgain) {
    const Registered registered;
    struct Row {
        std::wstring id, progId, description;
    };
    const Row rows[] = {{L"{62F4B4DF-0200-11D9-B84C-9DC4C37C905E}", L"Corvelle.CodeFormatter", L"Trellis"},
                        {L"{07C23A6F-E632-4DEC-B20D-1FA0D767854A}", L"Corvelle.ContextHelpIndexer",
                         L"VB6 Help Context ID Indexer"}};
    for (const auto& [id, progId, description] : rows) {
        const std::wstring key = L"CLSID\\" + id;
        EXPECT_EQ(value(key), description);
        EXPECT_EQ(value(key + L"\\InprocServer32"), Dll::path());
        EXPECT_EQ(value(key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
        EXPECT_EQ(value(key + L"\\ProgID"), progId);
        EXPECT_EQ(value(key + L"\\TypeLib"), L"{62F4B4DD-0200-11D9-B84C-9DC4C37C905E}");
        EXPECT_EQ(value(key + L"\\Version"), L"8.0");
        EXPECT_EQ(value(progId), description);
        EXPECT_EQ(value(progId + L"\\CLSID"), id);
    }
    const std::wstring library = L"TypeLib\\{62F4B4DD-0200-11D9-B84C-9DC4C37C905E}\\8.0";
    EXPECT_EQ(value(library), L"Trellis");
    EXPECT_EQ(value(library + L"\\409\\win32"), Dll::path());
}

TEST_F(Registration, ComMakesTheClasses) {
    const Registered registered;
    for (const wchar_t* progId : {L"Corvelle.CodeFormatter", L"Corvelle.ContextHelpIndexer"}) {
        CLSID id;
        ASSERT_EQ(CLSIDFromProgID(progId, &id), S_OK);
        com::Ptr<IDispatch> object;
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                   reinterpret_cast<void**>(object.receive())),
                  S_OK);
    }
}

TEST_F(Registration, MayBeDoneTwice) {
    const Registered registered;
    EXPECT_EQ(registered.dll().registerServer(), S_OK);
    EXPECT_EQ(registered.dll().unregisterServer(), S_OK);
    EXPECT_TRUE(Registered::traces().empty());
    EXPECT_EQ(registered.dll().unregisterServer(), S_OK);
}

TEST_F(Registration, LeavesWhatAnotherCopyHasEntered) {
    const std::wstring server = L"CLSID\\{62F4B4DF-0200-11D9-B84C-9DC4C37C905E}\\InprocServer32";
    {
        const Registered registered;
        set(server, L"C:\\Other\\Corvelle.dll");
        EXPECT_EQ(registered.dll().unregisterServer(), S_OK);
        EXPECT_EQ(value(server), L"C:\\Other\\Corvelle.dll");
        EXPECT_NE(value(L"Corvelle.CodeFormatter"), L"(none)");
        EXPECT_EQ(value(L"Corvelle.ContextHelpIndexer"), L"(none)");
        set(server, Dll::path());
    }
}

TEST_F(Registration, KnowsItsOwnEntryByAShortPathToo) {
    const std::wstring server = L"CLSID\\{62F4B4DF-0200-11D9-B84C-9DC4C37C905E}\\InprocServer32";
    const corvelle::test::TemporaryFolder folder;
    const auto copy = folder.path() / "A folder with a long name" / "Corvelle.dll";
    std::filesystem::create_directory(copy.parent_path());
    ASSERT_TRUE(CopyFileW(Dll::path().c_str(), copy.c_str(), TRUE));
    wchar_t shortPath[MAX_PATH] = L"";
    ASSERT_NE(GetShortPathNameW(copy.c_str(), shortPath, MAX_PATH), 0U);
    ASSERT_NE(copy.wstring(), shortPath);
    const Dll dll(copy.wstring());
    EXPECT_EQ(dll.registerServer(), S_OK);
    set(server, shortPath);
    EXPECT_EQ(dll.unregisterServer(), S_OK);
    EXPECT_TRUE(Registered::traces().empty());
}

// A script of an independent client.

// Its lines, each of which ends the script if it fails: with 100, and telling where and why.
std::string reporting(std::initializer_list<const char*> lines) {
    std::string body = "On Error Resume Next\r\n";
    for (const char* line : lines) {
        std::string quoted;
        for (const char* c = line; *c != '\0'; ++c) quoted += *c == '"' ? "\"\"" : std::string(1, *c);
        body += std::string(line) + "\r\nIf Err.Number <> 0 Then\r\nWScript.Echo \"" + quoted +
                ": \" & Err.Number & \" \" & Err.Description\r\nWScript.Quit 100\r\nEnd If\r\n";
    }
    return body;
}

std::string script(const std::string& body) {
    return "Dim f, i\r\n"
           "Set f = CreateObject(\"Corvelle.CodeFormatter\")\r\n"
           "Set i = CreateObject(\"Corvelle.ContextHelpIndexer\")\r\n" +
           body + "WScript.Quit 42\r\n";
}

DWORD run(const std::string& body) {
    corvelle::test::TemporaryFolder folder;
    const auto file = folder.write("test.vbs", script(body)).string();
    std::string command = "cscript.exe //nologo \"" + file + "\"";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process)) {
        return 0;
    }
    constexpr DWORD longEnough = 60000;
    DWORD code = 0;
    if (WaitForSingleObject(process.hProcess, longEnough) == WAIT_OBJECT_0) {
        GetExitCodeProcess(process.hProcess, &code);
    } else {
        TerminateProcess(process.hProcess, 1);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

constexpr DWORD reachedTheEnd = 42;

TEST_F(Registration, ScriptsReadAndWriteTheProperties) {
    const OutsideLibraries outside;
    const Registered registered;
    EXPECT_EQ(run(reporting({
                  "If TypeName(f) <> \"_CodeFormatter\" Then WScript.Quit 1",
                  "If TypeName(i) <> \"_ContextHelpIndexer\" Then WScript.Quit 2",
                  "If f.IsLoaded <> False Or VarType(f.IsLoaded) <> 11 Then WScript.Quit 3",
                  "f.IsLoaded = True",
                  "If f.IsLoaded <> True Or i.IsLoaded <> False Then WScript.Quit 4",
                  "i.bOK = True",
                  "If i.bOK <> True Then WScript.Quit 5",
                  "If Not f.MenuEvents Is Nothing Then WScript.Quit 6",
                  "Set f.MenuEvents = Nothing",
                  "f.Hide",
                  "i.Hide",
                  "If f.IsLoaded Then WScript.Quit 7",
                  "If Not f.AddMyMenu(\"Mine\") Is Nothing Then WScript.Quit 8",
              })),
              reachedTheEnd);
}

TEST_F(Registration, ScriptsFindNoMembersButTheInterfaces) {
    const OutsideLibraries outside;
    const Registered registered;
    EXPECT_EQ(run("On Error Resume Next\r\n"
                  "f.bOK = True\r\n"
                  "If Err.Number <> 438 Then WScript.Quit 1\r\n"
                  "Err.Clear\r\n"
                  "f.OnDisconnection 0, Nothing\r\n"
                  "If Err.Number <> 438 Then WScript.Quit 2\r\n"
                  "Err.Clear\r\n"
                  "Set f.MenuEvents = i\r\n" // which has no clicks
                  "If Err.Number = 0 Then WScript.Quit 3\r\n"
                  "Err.Clear\r\n"),
              reachedTheEnd);
}

} // namespace
} // namespace corvelle::host::test
