#include "workbench/indexer_road.h"

#include <vector>

namespace corvelle::workbench::tests {

namespace {

/// The registry value that remembers where the list of what is not indexed stands.
class ExcludeListSetting {
  public:
    ExcludeListSetting() {
        RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\VB and VBA Program Settings\\Trellis\\Indexer", 0,
                        nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    }
    ~ExcludeListSetting() { RegCloseKey(key_); }
    ExcludeListSetting(const ExcludeListSetting&) = delete;
    ExcludeListSetting& operator=(const ExcludeListSetting&) = delete;

    std::string read() const {
        std::vector<char> value(1024);
        auto size = static_cast<DWORD>(value.size() - 1);
        RegQueryValueExA(key_, name, nullptr, nullptr, reinterpret_cast<BYTE*>(value.data()), &size);
        return value.data();
    }
    void write(const std::string& value) const {
        RegSetValueExA(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>(value.size() + 1));
    }
    void erase() const { RegDeleteValueA(key_, name); }

  private:
    static constexpr const char* name = "ExcludeList_Path";
    HKEY key_ = nullptr;
};

} // namespace

IndexerRoad::IndexerRoad() {
    const ExcludeListSetting setting;
    excludeListBefore_ = setting.read();
    setting.erase();
}

IndexerRoad::~IndexerRoad() {
    const ExcludeListSetting setting;
    setting.erase();
    if (!excludeListBefore_.empty()) setting.write(excludeListBefore_);
}

void IndexerRoad::startIndexer(const std::string& file) {
    start({"/addin:Corvelle.ContextHelpIndexer"}, file);
}

HWND IndexerRoad::openStartMenu() const {
    return openFromAddIns(1, "&Create a New Index");
}

std::string IndexerRoad::askForExcludeList(HWND startMenu, int answer) const {
    clickUntil(startMenu, "&Create a New Index", "the question",
               [this] { return seesBox("File not found.."); });
    return user().answer("File not found..", answer);
}

HWND IndexerRoad::openWizard(HWND startMenu) const {
    askForExcludeList(startMenu, IDNO);
    return user().windowWith("&Analyse");
}

HWND IndexerRoad::openEditor(HWND startMenu) const {
    clickUntil(startMenu, "&Add Entry to previously created Index", "the editor",
               [this] { return user().sees("Set &Default"); });
    return user().windowWith("Set &Default");
}

void IndexerRoad::click(HWND form, const std::string& button) {
    const HWND pressed = User::control(form, "Button", button);
    User::waitUntil(button + " to take input",
                    [&] { return IsWindowEnabled(form) && IsWindowEnabled(pressed); });
    bringForward(form); // what the focus does meanwhile could take the press back
    ask(form, WM_NULL);
    PostMessageA(pressed, BM_CLICK, 0, 0);
}

void IndexerRoad::tick(HWND wizard, const std::string& option) {
    ask(User::control(wizard, "Button", option), BM_CLICK);
    User::waitUntil("a tick", [&] { return User::isChecked(wizard, option); });
}

void IndexerRoad::analyse(HWND wizard) {
    click(wizard, "&Analyse");
    User::waitUntil("the analysis", [wizard] { return User::isEnabled(wizard, "&Next"); });
}

void IndexerRoad::goToSecondStage(HWND wizard) {
    click(wizard, "&Next");
    User::waitUntil("the second stage",
                    [wizard] { return User::text(wizard) == "Help Context ID Indexer :Stage 2 of 4"; });
}

void IndexerRoad::chooseFile(HWND form, const std::string& button, const std::string& title,
                             const std::string& file) const {
    click(form, button);
    user().chooseFile(title, file);
}

std::string IndexerRoad::clickAndAnswer(HWND form, const std::string& button, const std::string& title,
                                        int answer) const {
    click(form, button);
    return user().answer(title, answer);
}

void IndexerRoad::chooseNext(HWND form, HWND list, const std::string& idhName) {
    User::press(list, VK_DOWN);
    User::waitForText(form, "Static", idhName);
}

void IndexerRoad::close(HWND form) {
    click(form, "&Close");
    User::waitUntil("the window to go", [form] { return !IsWindow(form); });
}

void IndexerRoad::takePictureOf(HWND form, const std::string& name) {
    SetWindowPos(form, nullptr, 330, 190, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    bringForward(form);
    Sleep(500); // nothing tells when all is on the screen
    takePicture(name);
}

} // namespace corvelle::workbench::tests
