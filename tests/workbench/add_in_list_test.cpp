#include "workbench/add_in_list.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <windows.h>

namespace corvelle::workbench::tests {

namespace {

const std::string listKey = "Software\\Microsoft\\Visual Basic\\6.0\\Addins\\";

/// Add-ins that are listed for the test only.
struct AddInListTest : testing::Test {
    ~AddInListTest() override {
        for (const char* progId : {"CorvelleTest.User", "CorvelleTest.Ini"})
            RegDeleteKeyA(HKEY_CURRENT_USER, (listKey + progId).c_str());
        RegDeleteKeyA(HKEY_LOCAL_MACHINE, (listKey + "CorvelleTest.Machine").c_str());
        RegDeleteKeyA(HKEY_CURRENT_USER, (listKey + "CorvelleTest.Machine").c_str());
        WritePrivateProfileStringA("Add-Ins32", "CorvelleTest.Ini", nullptr, "vbaddin.ini");
    }

    static void list(HKEY root, const std::string& progId, const char* name, DWORD behavior) {
        HKEY key = nullptr;
        RegCreateKeyExA(root, (listKey + progId).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
        RegSetValueExA(key, "FriendlyName", 0, REG_SZ, reinterpret_cast<const BYTE*>(name),
                       static_cast<DWORD>(lstrlenA(name) + 1));
        RegSetValueExA(key, "LoadBehavior", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&behavior),
                       sizeof behavior);
        RegCloseKey(key);
    }
    static ListedAddIn found(const std::string& progId) {
        const auto all = listAddIns();
        const auto it = std::find_if(all.begin(), all.end(),
                                     [&](const ListedAddIn& one) { return one.progId == progId; });
        return it == all.end() ? ListedAddIn{} : *it;
    }
    static DWORD behavior(HKEY root, const std::string& progId) {
        DWORD number = 99;
        DWORD size = sizeof number;
        HKEY key = nullptr;
        if (RegOpenKeyExA(root, (listKey + progId).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
            return number;
        RegQueryValueExA(key, "LoadBehavior", nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
        RegCloseKey(key);
        return number;
    }
    static int inIni() {
        return static_cast<int>(GetPrivateProfileIntA("Add-Ins32", "CorvelleTest.Ini", 99, "vbaddin.ini"));
    }
};

TEST_F(AddInListTest, HoldsWhatIsListedAnywhere) {
    list(HKEY_CURRENT_USER, "CorvelleTest.User", "A test", 5);
    list(HKEY_LOCAL_MACHINE, "CorvelleTest.Machine", "B test", 4);
    WritePrivateProfileStringA("Add-Ins32", "CorvelleTest.Ini", "1", "vbaddin.ini");
    EXPECT_EQ("A test", found("CorvelleTest.User").name);
    EXPECT_TRUE(found("CorvelleTest.User").onStartup);
    EXPECT_EQ("B test", found("CorvelleTest.Machine").name);
    EXPECT_FALSE(found("CorvelleTest.Machine").onStartup);
    EXPECT_EQ("CorvelleTest.Ini", found("CorvelleTest.Ini").name);
    EXPECT_TRUE(found("CorvelleTest.Ini").onStartup);
    EXPECT_EQ("", found("CorvelleTest.None").progId);
}

TEST_F(AddInListTest, KeepsTheChoiceWhereTheAddInIsListed) {
    list(HKEY_CURRENT_USER, "CorvelleTest.User", "A test", 5);
    setOnStartup("CorvelleTest.User", false);
    EXPECT_EQ(4U, behavior(HKEY_CURRENT_USER, "CorvelleTest.User")); // the command line's bit stays
    WritePrivateProfileStringA("Add-Ins32", "CorvelleTest.Ini", "0", "vbaddin.ini");
    setOnStartup("CorvelleTest.Ini", true);
    EXPECT_EQ(1, inIni());
    EXPECT_EQ(99U, behavior(HKEY_CURRENT_USER, "CorvelleTest.Ini"));
    EXPECT_TRUE(found("CorvelleTest.Ini").onStartup);
}

TEST_F(AddInListTest, LeavesTheMachinesPartAlone) {
    list(HKEY_LOCAL_MACHINE, "CorvelleTest.Machine", "B test", 4);
    setOnStartup("CorvelleTest.Machine", true);
    EXPECT_EQ(4U, behavior(HKEY_LOCAL_MACHINE, "CorvelleTest.Machine"));
    EXPECT_EQ(5U, behavior(HKEY_CURRENT_USER, "CorvelleTest.Machine"));
    EXPECT_TRUE(found("CorvelleTest.Machine").onStartup);
}

} // namespace

} // namespace corvelle::workbench::tests
