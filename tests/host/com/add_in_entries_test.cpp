#include "forms/win32/registry_settings.h"
#include "host/com/dll.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::host::test {
namespace {

const char* const addIns = "Software\\Microsoft\\Visual Basic\\6.0\\Addins\\";
const char* const classes[] = {"Corvelle.CodeFormatter", "Corvelle.ContextHelpIndexer"};

std::string text(const std::string& key, const char* name) {
    char value[256] = "";
    DWORD size = sizeof value;
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, (addIns + key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
        return "(no key)";
    }
    RegQueryValueExA(opened, name, nullptr, nullptr, reinterpret_cast<BYTE*>(value), &size);
    RegCloseKey(opened);
    return value;
}

int number(const std::string& key, const char* name) {
    const std::string bytes = text(key, name);
    return bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
}

std::string line(const char* progId) {
    char value[32] = "";
    GetPrivateProfileStringA("Add-Ins32", progId, "(none)", value, sizeof value, "vbaddin.ini");
    return value;
}

/// The IDE's lists of add-ins, into which the DLL enters its own.
class AddInEntries : public testing::Test {
  protected:
    AddInEntries() { EXPECT_EQ(dll.install(false), S_OK); }
    ~AddInEntries() override {
        EXPECT_EQ(dll.install(false), S_OK);
        for (const char* progId : classes) {
            EXPECT_EQ(text(progId, "FriendlyName"), "(no key)");
            EXPECT_EQ(line(progId), "(none)");
        }
    }

    Dll dll;
};

TEST_F(AddInEntries, HasBothAddInsNotLoaded) {
    EXPECT_EQ(dll.install(true), S_OK);
    EXPECT_EQ(text(classes[0], "FriendlyName"), "Trellis");
    EXPECT_EQ(text(classes[1], "FriendlyName"), "VB6 Help Context ID Indexer");
    for (const char* progId : classes) {
        EXPECT_EQ(number(progId, "LoadBehavior"), 0);
        EXPECT_EQ(number(progId, "CommandLineSafe"), 0);
        EXPECT_EQ(line(progId), "0");
    }
    EXPECT_EQ(text("Corvelle.Indicator", "FriendlyName"), "(no key)"); // a control is no add-in
}

TEST_F(AddInEntries, KeepsTheUsersChoices) {
    dll.install(true);
    HKEY key = nullptr;
    RegOpenKeyExA(HKEY_CURRENT_USER, (std::string(addIns) + classes[0]).c_str(), 0, KEY_WRITE, &key);
    const DWORD atStartup = 1;
    RegSetValueExA(key, "LoadBehavior", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&atStartup),
                   sizeof atStartup);
    RegCloseKey(key);
    WritePrivateProfileStringA("Add-Ins32", classes[0], "1", "vbaddin.ini");
    EXPECT_EQ(dll.install(true), S_OK);
    EXPECT_EQ(number(classes[0], "LoadBehavior"), 1);
    EXPECT_EQ(line(classes[0]), "1");
}

TEST_F(AddInEntries, LeavesOtherAddInsAlone) {
    WritePrivateProfileStringA("Add-Ins32", "Other.AddIn", "1", "vbaddin.ini");
    dll.install(true);
    EXPECT_EQ(dll.install(false), S_OK);
    EXPECT_EQ(line("Other.AddIn"), "1");
    WritePrivateProfileStringA("Add-Ins32", "Other.AddIn", nullptr, "vbaddin.ini");
}

TEST_F(AddInEntries, LeavesTheSettingsOfWhoeverInstallsAlone) {
    forms::RegistrySettings settings;
    const auto helpFile = [&] { return settings.get("Trellis", "Configurations", "Help File", "(none)"); };
    EXPECT_EQ(helpFile(), "(none)");
    EXPECT_EQ(dll.install(true), S_OK);
    EXPECT_EQ(helpFile(), "(none)");
    settings.save("Trellis", "Configurations", "Help File", "D:\\Mine.chm");
    EXPECT_EQ(dll.install(false), S_OK);
    EXPECT_EQ(helpFile(), "D:\\Mine.chm");
    HKEY key = nullptr;
    RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\VB and VBA Program Settings\\Trellis\\Configurations", 0,
                  KEY_WRITE, &key);
    RegDeleteValueA(key, "Help File");
    RegCloseKey(key);
}

} // namespace
} // namespace corvelle::host::test
