#include "com/connection_point.h"
#include "com/scripted_object.h"
#include "forms/win32/registry_settings.h"
#include "host/com/dll.h"
#include "host/com/steps.h"
#include "ide/automation/served_ide.h"

#include <corvelle.h>
#include <gmock/gmock.h>
#include <vbide.h>

namespace corvelle::host::test {
namespace {

using com::Dispatch;
using com::Variant;
using testing::ElementsAre;
using testing::IsEmpty;

const char* const page = "Trellis [Proj]";
const char* const startMenu = "Help ID Indexer";
const char* const editor = "Help ID Indexer: Create /Modify Text Entries";
const char* const nothing = "&Nothing .. Just Exit";

constexpr auto external = vbext_cm_External;
constexpr auto startup = vbext_cm_Startup;

/// The DLL's connect objects before an IDE of Automation objects. At the end nobody holds anything any more.
class Connection : public corvelle::test::ServedIde {
  protected:
    Connection() {
        program->ide->setActiveCodePane(&component(2)); // modMain
        settings.save("Trellis", "Indexer", "ExcludeList_Path", folder.write("exclude.lst", "\r\n").string());
    }
    ~Connection() override {
        object.reset();
        extensibility.reset();
        forget("Corvelle\\Settings", "AutoShow");
        forget("Trellis\\Configurations", "Help File"); // the DLL's folder has one
        forget("Trellis\\Indexer", "ExcludeList_Path");
        EXPECT_EQ(dll.canUnloadNow(), S_OK);
    }

    static void forget(const std::string& section, const char* name) {
        HKEY key = nullptr;
        const std::string path = "Software\\VB and VBA Program Settings\\" + section;
        if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_WRITE, &key) != ERROR_SUCCESS) return;
        RegDeleteValueA(key, name);
        RegCloseKey(key);
    }
    std::string autoShow() { return settings.get("Corvelle", "Settings", "AutoShow", "none"); }

    void make(REFCLSID id) {
        const auto made = dll.make(id);
        object = made.query<IDispatch>();
        extensibility = made.query<IDTExtensibility>();
    }
    HRESULT connect(vbext_ConnectMode mode) {
        return extensibility->OnConnection(served.get(), mode, nullptr, nullptr);
    }
    HRESULT disconnect() { return extensibility->OnDisconnection(vbext_dm_UserClosed, nullptr); }
    void release() {
        object.reset();
        extensibility.reset();
    }
    bool isLoaded() { return com::booleanOf(Dispatch(object).get(L"IsLoaded")); }
    std::vector<std::string> commands() {
        std::vector<std::string> captions;
        for (const auto& command : program->menuModel.addIns().commands())
            captions.push_back(command->caption());
        return captions;
    }
    void clickCommand() {
        const auto command = program->menuModel.addIns().commands().back();
        command->Execute();
    }
    /// Serves what waits.
    static void settle() {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }

    Apartment apartment;
    Dll dll;
    forms::RegistrySettings settings;
    com::Ptr<IDispatch> object;
    com::Ptr<IDTExtensibility> extensibility;
};

TEST_F(Connection, AddsTheCommandAndRemovesItAgain) {
    for (const CLSID& id : {formatterClass, indexerClass}) {
        for (const auto mode : {vbext_cm_AfterStartup, startup}) {
            make(id);
            EXPECT_EQ(connect(mode), S_OK);
            EXPECT_THAT(commands(), ElementsAre(id == formatterClass ? "Code Formatter" : "Help ID Indexer"));
            EXPECT_EQ(extensibility->OnAddInsUpdate(nullptr), S_OK);
            EXPECT_EQ(extensibility->OnStartupComplete(nullptr), S_OK);
            EXPECT_FALSE(isLoaded());
            EXPECT_EQ(disconnect(), S_OK);
            EXPECT_THAT(commands(), IsEmpty());
            EXPECT_EQ(autoShow(), "0");
            release();
            EXPECT_EQ(dll.canUnloadNow(), S_OK);
        }
    }
}

TEST_F(Connection, IsMadeLateBoundToo) {
    make(formatterClass);
    Dispatch connection{com::Ptr<IDispatch>(extensibility.get())};
    connection.call(L"OnConnection", Variant(served), std::int32_t(startup), Variant(), Variant());
    EXPECT_THAT(commands(), ElementsAre("Code Formatter"));
    connection.call(L"OnAddInsUpdate", Variant());
    connection.call(L"onstartupcomplete", Variant());
    connection.call(L"OnDisconnection", std::int32_t(0), Variant());
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_THROW(connection.call(L"Show"), base::RunTimeError);
}

TEST_F(Connection, TakesItsArgumentsAsLateBoundCallersHaveThem) {
    com::Ptr<IDispatch> ide = served;
    IDispatch* pointer = ide.get();
    std::int32_t mode = startup;
    VARIANTARG byReference[4]{}, shortNumber[4]{}; // the last argument first
    byReference[3].vt = VT_DISPATCH | VT_BYREF;
    byReference[3].ppdispVal = &pointer;
    byReference[2].vt = VT_I4 | VT_BYREF;
    byReference[2].plVal = reinterpret_cast<LONG*>(&mode);
    shortNumber[3].vt = VT_DISPATCH;
    shortNumber[3].pdispVal = pointer;
    shortNumber[2].vt = VT_I2;
    shortNumber[2].iVal = startup;
    for (VARIANTARG* arguments : {byReference, shortNumber}) {
        make(formatterClass);
        DISPPARAMS parameters{arguments, nullptr, 4, 0};
        EXPECT_EQ(
            extensibility->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
            S_OK);
        EXPECT_THAT(commands(), ElementsAre("Code Formatter"));
        disconnect();
        EXPECT_THAT(commands(), IsEmpty());
    }
}

TEST_F(Connection, EndsAlikeWithTheIdeAndByTheUser) {
    for (const auto how : {vbext_dm_HostShutdown, vbext_dm_UserClosed}) {
        make(formatterClass);
        connect(startup);
        clickCommand();
        EXPECT_EQ(extensibility->OnDisconnection(how, nullptr), S_OK);
        EXPECT_THAT(commands(), IsEmpty());
        EXPECT_EQ(Steps::window(page), nullptr);
        EXPECT_FALSE(isLoaded());
        EXPECT_EQ(autoShow(), "1");
        settings.save("Corvelle", "Settings", "AutoShow", "none");
    }
}

TEST_F(Connection, GivesTheIdesOwnObjects) {
    make(formatterClass);
    connect(startup);
    com::Ptr<_CodeFormatter> direct = object.query<_CodeFormatter>();
    com::Ptr<_CommandBarControlEvents> events;
    ASSERT_EQ(direct->get_MenuEvents(events.receive()), S_OK);
    EXPECT_TRUE(events.query<IConnectionPointContainer>());
    com::Ptr<CommandBarControl> command;
    ASSERT_EQ(direct->AddMyMenu(com::Bstr(std::string_view("Mine")).get(), command.receive()), S_OK);
    EXPECT_THAT(commands(), ElementsAre("Code Formatter", "Mine"));
    Dispatch mine{com::Ptr<IDispatch>(command.get())};
    EXPECT_EQ(com::textOf(mine.get(L"Caption")), "Mine");
    mine.call(L"Delete");
    disconnect();
    ASSERT_EQ(direct->get_MenuEvents(events.receive()), S_OK);
    EXPECT_FALSE(events);
    EXPECT_EQ(direct->get_MenuEvents(nullptr), E_POINTER);
    EXPECT_EQ(direct->get_IsLoaded(nullptr), E_POINTER);
    EXPECT_EQ(direct->AddMyMenu(nullptr, nullptr), E_POINTER);
}

TEST_F(Connection, RefusesWhatCannotBeText) {
    make(formatterClass);
    connect(startup);
    com::Ptr<CommandBarControl> command;
    const com::Bstr japanese(std::wstring_view(L"\u65E5"));
    EXPECT_EQ(object.query<_CodeFormatter>()->AddMyMenu(japanese.get(), command.receive()),
              static_cast<HRESULT>(0x800A000D));
    com::Ptr<IErrorInfo> information;
    ASSERT_EQ(GetErrorInfo(0, information.receive()), S_OK);
    com::Bstr description;
    information->GetDescription(description.receive());
    EXPECT_EQ(com::textOf(description.get()),
              "The text has a character that is not in the system's code page");
    EXPECT_THAT(commands(), ElementsAre("Code Formatter"));
    disconnect();
}

TEST_F(Connection, AnExternalOneShowsThePage) {
    make(formatterClass);
    EXPECT_EQ(connect(external), S_OK);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_NE(Steps::window(page), nullptr);
    EXPECT_TRUE(isLoaded());
    EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
    disconnect();
    EXPECT_EQ(Steps::window(page), nullptr);
    EXPECT_FALSE(isLoaded());
    EXPECT_EQ(autoShow(), "1");
}

TEST_F(Connection, ClicksShowOnePage) {
    make(formatterClass);
    connect(startup);
    clickCommand();
    const HWND shown = Steps::window(page);
    ASSERT_NE(shown, nullptr);
    clickCommand();
    EXPECT_EQ(Steps::window(page), shown);
    EXPECT_TRUE(isLoaded());
    SendMessageA(shown, WM_SYSCOMMAND, SC_CLOSE, 0);
    settle();
    EXPECT_EQ(Steps::window(page), nullptr);
    EXPECT_FALSE(isLoaded());
    clickCommand();
    EXPECT_NE(Steps::window(page), nullptr);
    Dispatch(object).call(L"Hide");
    EXPECT_EQ(Steps::window(page), nullptr);
    disconnect();
    EXPECT_EQ(autoShow(), "0");
}

TEST_F(Connection, ReleasedWithoutDisconnectionThePageGoesAtItsClose) {
    make(formatterClass);
    connect(startup);
    clickCommand();
    release();
    EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
    SendMessageA(Steps::window(page), WM_SYSCOMMAND, SC_CLOSE, 0);
    settle();
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
    program->menuModel.addIns().commands().back()->Delete(); // what nobody has disconnected
}

TEST_F(Connection, TheStartMenuWaitsForItsCommands) {
    make(indexerClass);
    connect(startup);
    Steps steps;
    steps.then("the start menu", [&] { return Steps::window(startMenu) != nullptr; });
    steps.then("closing it", [&] {
        const HWND menu = Steps::window(startMenu);
        EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
        EXPECT_EQ(GetWindowLongA(menu, GWL_STYLE) & WS_SYSMENU, 0);
        SendMessageA(menu, WM_CLOSE, 0, 0);
        SendMessageA(menu, WM_SYSCOMMAND, SC_CLOSE, 0);
        PostMessageA(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
        PostMessageA(GetFocus(), WM_KEYUP, VK_ESCAPE, 0xC0000001);
        return true;
    });
    steps.then("a second click", [&] {
        const HWND menu = Steps::window(startMenu);
        EXPECT_NE(menu, nullptr);
        clickCommand(); // comes back at once
        EXPECT_EQ(Steps::window(startMenu), menu);
        return true;
    });
    steps.thenPress(startMenu, nothing);
    clickCommand();
    EXPECT_EQ(Steps::window(startMenu), nullptr);
    EXPECT_TRUE(com::booleanOf(Dispatch(object).get(L"bOK")));
    EXPECT_FALSE(isLoaded());
    disconnect();
}

TEST_F(Connection, TheAboutBoxComesBackToTheWaitingStartMenu) {
    make(indexerClass);
    connect(startup);
    Steps steps;
    steps.thenPress(startMenu, "&About..?");
    steps.then("the about box", [&] {
        const HWND box = Steps::window("About");
        if (!box) return false;
        EXPECT_FALSE(IsWindowEnabled(Steps::window(startMenu)));
        PostMessageA(box, WM_LBUTTONDOWN, 0, MAKELPARAM(3, 3));
        PostMessageA(box, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
        return true;
    });
    steps.thenPress(startMenu, nothing);
    clickCommand();
    disconnect();
}

TEST_F(Connection, ADisconnectionDuringTheWaitEndsItAndTheObject) {
    make(indexerClass);
    connect(startup);
    Steps steps;
    steps.then("the disconnection", [&] {
        if (!Steps::window(startMenu)) return false;
        disconnect();
        release();
        EXPECT_EQ(Steps::window(startMenu), nullptr);
        EXPECT_EQ(dll.canUnloadNow(), S_FALSE); // it is still on the stack
        return true;
    });
    clickCommand();
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
    EXPECT_THAT(commands(), IsEmpty());
    EXPECT_EQ(autoShow(), "0");
}

TEST_F(Connection, AnExternalOneMayEndWhileItWaits) {
    make(indexerClass);
    Steps steps;
    steps.then("the disconnection", [&] {
        if (!Steps::window(startMenu)) return false;
        disconnect();
        release();
        return true;
    });
    const auto connection = extensibility.get(); // the caller's last reference goes meanwhile
    EXPECT_EQ(connection->OnConnection(served.get(), external, nullptr, nullptr), S_OK);
}

TEST_F(Connection, TheProgramsEndEndsTheWaitAndIsToldOn) {
    make(indexerClass);
    connect(startup);
    Steps steps;
    steps.then("the end", [&] {
        if (!Steps::window(startMenu)) return false;
        PostQuitMessage(7);
        return true;
    });
    clickCommand();
    EXPECT_FALSE(isLoaded());
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
    // Only a loop of the IDE's ended.
    steps.thenPress(startMenu, nothing);
    clickCommand();
    EXPECT_TRUE(com::booleanOf(Dispatch(object).get(L"bOK")));
    disconnect();
}

TEST_F(Connection, TheEditorOutlivesTheAddIn) {
    make(indexerClass);
    connect(startup);
    Steps steps;
    steps.thenPress(startMenu, "&Add Entry to previously created Index");
    clickCommand();
    EXPECT_TRUE(isLoaded());
    EXPECT_NE(Steps::window(editor), nullptr);
    disconnect();
    EXPECT_EQ(autoShow(), "1");
    release();
    ASSERT_NE(Steps::window(editor), nullptr);
    EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
    SendMessageA(Steps::window(editor), WM_SYSCOMMAND, SC_CLOSE, 0);
    settle();
    EXPECT_EQ(Steps::window(editor), nullptr);
}

BOOL CALLBACK addEditor(HWND window, LPARAM found) {
    char title[100] = "";
    GetWindowTextA(window, title, sizeof title);
    if (std::string(title) == editor && IsWindowVisible(window)) {
        reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
    }
    return TRUE;
}

TEST_F(Connection, EveryAddEntryOpensAnEditorOfItsOwn) {
    make(indexerClass);
    connect(startup);
    for (int i = 0; i < 2; ++i) {
        Steps steps;
        steps.thenPress(startMenu, "&Add Entry to previously created Index");
        clickCommand();
    }
    std::vector<HWND> editors;
    EnumThreadWindows(GetCurrentThreadId(), addEditor, reinterpret_cast<LPARAM>(&editors));
    ASSERT_EQ(editors.size(), 2U);
    EXPECT_TRUE(isLoaded());
    SendMessageA(editors[0], WM_SYSCOMMAND, SC_CLOSE, 0);
    settle();
    EXPECT_FALSE(IsWindow(editors[0]));
    EXPECT_TRUE(IsWindowVisible(editors[1]));
    EXPECT_FALSE(isLoaded());
    SendMessageA(editors[1], WM_SYSCOMMAND, SC_CLOSE, 0);
    settle();
    EXPECT_FALSE(IsWindow(editors[1]));
    disconnect();
}

// The IDE's main window, which owns those of the add-ins.
HWND makeOwner() {
    const HWND owner = CreateWindowExA(0, "STATIC", "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400,
                                       300, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    SetActiveWindow(owner);
    return owner;
}

BOOL CALLBACK typeIntoLines(HWND control, LPARAM) {
    char name[16] = "";
    GetClassNameA(control, name, sizeof name);
    if (lstrcmpiA(name, "Edit") != 0 || (GetWindowLongA(control, GWL_STYLE) & ES_MULTILINE) == 0) return TRUE;
    SendMessageA(control, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>("typed"));
    return TRUE;
}

TEST_F(Connection, ThePageGoesWithTheIdesWindow) {
    const HWND owner = makeOwner();
    make(formatterClass);
    connect(startup);
    clickCommand();
    ASSERT_EQ(GetWindow(Steps::window(page), GW_OWNER), owner);
    EXPECT_TRUE(isLoaded());
    DestroyWindow(owner);
    EXPECT_EQ(Steps::window(page), nullptr);
    EXPECT_FALSE(isLoaded());
    clickCommand(); // a page anew
    EXPECT_NE(Steps::window(page), nullptr);
    disconnect();
    release();
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
}

TEST_F(Connection, TheIndexersWindowsGoWithTheIdesWindow) {
    const HWND owner = makeOwner();
    make(indexerClass);
    connect(startup);
    {
        Steps steps;
        steps.thenPress(startMenu, "&Create a New Index");
        clickCommand();
    }
    {
        Steps steps;
        steps.thenPress(startMenu, "&Add Entry to previously created Index");
        clickCommand();
    }
    EXPECT_NE(Steps::window(editor), nullptr);
    disconnect();
    release();
    EXPECT_EQ(dll.canUnloadNow(), S_FALSE); // the editor is open
    EnumChildWindows(Steps::window(editor), typeIntoLines, 0);
    Steps steps;
    steps.thenPress("Save ?", "&No");
    DestroyWindow(owner);
    EXPECT_EQ(Steps::window(editor), nullptr);
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
}

TEST_F(Connection, TheIdesWindowMayGoDuringTheWait) {
    const HWND owner = makeOwner();
    make(indexerClass);
    connect(startup);
    Steps steps;
    steps.then("the end", [&] {
        if (!Steps::window(startMenu)) return false;
        DestroyWindow(owner);
        EXPECT_EQ(Steps::window(startMenu), nullptr);
        disconnect();
        release();
        return true;
    });
    clickCommand();
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
}

TEST_F(Connection, EndsTheWizardThatIsOpen) {
    make(indexerClass);
    connect(startup);
    Steps steps;
    steps.thenPress(startMenu, "&Create a New Index");
    clickCommand();
    EXPECT_TRUE(isLoaded());
    EXPECT_EQ(dll.canUnloadNow(), S_FALSE);
    disconnect();
    EXPECT_EQ(autoShow(), "1");
    release();
    settle();
    EXPECT_EQ(dll.canUnloadNow(), S_OK);
}

TEST_F(Connection, MadeTwiceThereIsOneCommand) {
    make(formatterClass);
    connect(startup);
    connect(startup);
    EXPECT_THAT(commands(), ElementsAre("Code Formatter"));
    disconnect();
    EXPECT_THAT(commands(), IsEmpty());
}

TEST_F(Connection, EndedWithoutHavingBegun) {
    make(formatterClass);
    EXPECT_EQ(disconnect(), S_OK);
    make(indexerClass);
    EXPECT_EQ(disconnect(), S_OK);
    EXPECT_EQ(autoShow(), "0");
}

TEST_F(Connection, ListensToAnySourceOfClicks) {
    make(formatterClass);
    connect(startup);
    auto direct = object.query<_CodeFormatter>();
    com::Ptr<_CommandBarControlEvents> events;
    direct->get_MenuEvents(events.receive());
    EXPECT_EQ(direct->putref_MenuEvents(nullptr), S_OK);
    clickCommand();
    EXPECT_EQ(Steps::window(page), nullptr);
    EXPECT_EQ(direct->putref_MenuEvents(events.get()), S_OK);
    clickCommand();
    EXPECT_NE(Steps::window(page), nullptr);
    disconnect();
}

// An IDE that fails in every way

TEST_F(Connection, TellsOfEveryFailureAndReturnsNone) {
    struct Row {
        HRESULT result;
        const char* description;
    };
    const Row rows[] = {{E_OUTOFMEMORY, "Out of memory"},
                        {DISP_E_MEMBERNOTFOUND, "Object doesn't support this property or method"},
                        {static_cast<HRESULT>(0x800A0009), "Subscript out of range"}};
    for (const CLSID& id : {formatterClass, indexerClass}) {
        for (const auto& [result, description] : rows) {
            const auto hostile = com::make<corvelle::test::ScriptedObject>();
            for (const wchar_t* name : {L"CommandBars", L"Events"}) hostile->fails(name, result);
            make(id);
            Steps steps;
            steps.then("the message box", [&, text = std::string(description)] {
                const HWND box = Steps::window("Corvelle");
                if (!box) return false;
                EXPECT_NE(Steps::button(box, "The following error occurred:\r\n" + text), nullptr);
                PostMessageA(box, WM_COMMAND, IDOK, 0);
                return true;
            });
            EXPECT_EQ(extensibility->OnConnection(hostile.get(), startup, nullptr, nullptr), S_OK);
            EXPECT_EQ(disconnect(), S_OK);
        }
    }
}

// What goes over to the menu: nothing but what has to be said, the rest is left out.
TEST_F(Connection, SpeaksToTheMenuInFewWords) {
    using corvelle::test::ScriptedObject;
    const auto ide = com::make<ScriptedObject>(), bars = com::make<ScriptedObject>(),
               bar = com::make<ScriptedObject>(), controls = com::make<ScriptedObject>(),
               command = com::make<ScriptedObject>(), events = com::make<ScriptedObject>();
    std::vector<std::string> said;
    const auto expect = [&said](const std::string& words, const Variant& answer, VARTYPE type = VT_EMPTY) {
        return [=, &said](ScriptedObject::Call& call) {
            EXPECT_EQ(call.parameters.cArgs, type == VT_EMPTY ? 0U : 1U) << words;
            if (call.parameters.cArgs == 1) {
                EXPECT_EQ(V_VT(&call.parameters.rgvarg[0]), type) << words;
            }
            std::string argument;
            if (type == VT_BSTR) argument = " " + call.arguments.text(0);
            if (type == VT_I4) argument = " " + std::to_string(call.arguments.number(0));
            said.push_back(words + argument);
            call.result = answer;
            return S_OK;
        };
    };
    ide->answers(L"CommandBars", Variant(bars));
    bars->members[L"Item"] = expect("Item", Variant(bar), VT_BSTR);
    bar->answers(L"Controls", Variant(controls));
    controls->members[L"Add"] = expect("Add", Variant(command), VT_I4);
    command->members[L"Caption"] = expect("Caption", Variant(), VT_BSTR);
    command->members[L"Delete"] = expect("Delete", Variant());
    ide->answers(L"Events", Variant(events));
    events->members[L"CommandBarEvents"] = [&](ScriptedObject::Call& call) {
        EXPECT_EQ(call.parameters.cArgs, 1U);
        EXPECT_TRUE(com::isSameObject(com::Ptr<IUnknown>(call.arguments.object(0).get()),
                                      com::Ptr<IUnknown>(static_cast<IDispatch*>(command.get()))));
        said.emplace_back("CommandBarEvents");
        return DISP_E_EXCEPTION;
    };
    make(indexerClass);
    Steps steps;
    steps.then("the message box", [&] {
        const HWND box = Steps::window("Corvelle");
        if (box) PostMessageA(box, WM_COMMAND, IDOK, 0);
        return box != nullptr;
    });
    EXPECT_EQ(extensibility->OnConnection(ide.get(), startup, nullptr, nullptr), S_OK);
    EXPECT_EQ(disconnect(), S_OK); // takes the command away all the same
    EXPECT_THAT(
        said, ElementsAre("Item Add-Ins", "Add 1", "Caption Help ID Indexer", "CommandBarEvents", "Delete"));
}

TEST_F(Connection, SurvivesObjectsOfTheWrongKind) {
    const auto odd = com::make<corvelle::test::ScriptedObject>();
    odd->answers(L"CommandBars", std::int32_t(7));
    odd->answers(L"Events", Variant(odd));
    odd->answers(L"CommandBarEvents", Variant(odd)); // which has no clicks
    make(formatterClass);
    Steps steps;
    steps.then("the message box", [&] {
        const HWND box = Steps::window("Corvelle");
        if (box) PostMessageA(box, WM_COMMAND, IDOK, 0);
        return box != nullptr;
    });
    EXPECT_EQ(extensibility->OnConnection(odd.get(), startup, nullptr, nullptr), S_OK);
    EXPECT_EQ(disconnect(), S_OK);
    EXPECT_EQ(extensibility.query<IDTExtensibility>()->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr,
                                                              nullptr, nullptr, nullptr),
              DISP_E_TYPEMISMATCH); // without the IDE that it has to be given
    odd->members.clear();           // it holds itself
}

/// A copy of the DLL beside the manual and an exclusion list, as the set-up leaves them.
class FirstStart : public Connection {
  protected:
    FirstStart() {
        CopyFileW(Dll::path().c_str(), (folder.path() / "Corvelle.dll").c_str(), FALSE);
        folder.write("FormatterHelp.chm", "");
        folder.write("exclude.lst", "");
        forget("Trellis\\Indexer", "ExcludeList_Path");
        forget("Trellis\\Configurations", "Help File");
    }
    void start() {
        const Dll copy(folder.path() / "Corvelle.dll");
        const auto extensibility = copy.make(formatterClass).query<IDTExtensibility>();
        EXPECT_EQ(extensibility->OnConnection(served.get(), startup, nullptr, nullptr), S_OK);
        EXPECT_EQ(extensibility->OnDisconnection(vbext_dm_UserClosed, nullptr), S_OK);
    }
    std::string helpFile() { return settings.get("Trellis", "Configurations", "Help File", "none"); }
    std::string excludeList() { return settings.get("Trellis", "Indexer", "ExcludeList_Path", "none"); }
    std::string path(const char* name) { return (folder.path() / name).string(); }
};

TEST_F(FirstStart, EntersTheFilesBesideTheDllInTheUsersSettings) {
    start();
    EXPECT_EQ(helpFile(), path("FormatterHelp.chm"));
    EXPECT_EQ(excludeList(), path("exclude.lst"));
}

TEST_F(FirstStart, EntersNoFileThatIsNotThere) {
    std::filesystem::remove(folder.path() / "exclude.lst");
    start();
    EXPECT_EQ(excludeList(), "none");
}

TEST_F(FirstStart, LeavesWhatTheUserHasChosen) {
    settings.save("Trellis", "Indexer", "ExcludeList_Path", "D:\\mine.lst");
    folder.write("other/FormatterHelp.chm", "");
    settings.save("Trellis", "Configurations", "Help File", path("other\\FormatterHelp.chm"));
    start();
    EXPECT_EQ(excludeList(), "D:\\mine.lst");
    EXPECT_EQ(helpFile(), path("other\\FormatterHelp.chm"));
}

TEST_F(FirstStart, FindsTheFilesThatHaveMovedWithTheNewVersion) {
    settings.save("Trellis", "Configurations", "Help File", path("older\\FormatterHelp.chm"));
    start();
    EXPECT_EQ(helpFile(), path("FormatterHelp.chm"));
}

} // namespace
} // namespace corvelle::host::test
