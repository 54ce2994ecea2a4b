#include "ide/workspace/member_path.h"

#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

constexpr const char* onTheNetwork = "a path on the network";
constexpr const char* ofADevice = "a device's path";

std::string_view why(std::string_view written, const char* folder = "C:/Work") {
    return whyNotLookedAt(written, folder);
}

TEST(MemberPath, OfAFileMayLeadAnywhereOnTheDisks) {
    for (const char* written : {"a.bas", "..\\a.bas", "sub/dir\\a.bas", "D:\\a.bas", "C:a.bas", "\\a.bas",
                                "/a.bas", "", ".", "..", "?", "console.bas", "com.bas", "COM10.bas",
                                "lpt.bas", "nulls.bas", "xcon.bas", "a.con.bas", "\xE9.bas"}) {
        EXPECT_EQ(why(written), "") << written;
    }
}

TEST(MemberPath, OnTheNetworkIsNotLookedAt) {
    for (const char* written :
         {"\\\\server\\share\\a.bas", "//server/share/a.bas", "\\/server\\share\\a.bas",
          "\\\\server@SSL@443\\a.bas", "\\\\\\server\\share\\a.bas", "\\\\", "\\\\server"}) {
        EXPECT_EQ(why(written), onTheNetwork) << written;
    }
}

TEST(MemberPath, OfADeviceIsNotLookedAt) {
    for (const char* written :
         {"\\\\.\\pipe\\x.bas", "\\\\?\\C:\\a.bas", "//?/UNC/server/share/a.bas", "\\??\\C:\\a.bas", "CON",
          "nul.bas", "sub\\Aux.frm", "aux\\a.bas", "COM1.bas", "lpt9", "com\xB9.bas", "PRN .bas", "conin$",
          "CON:", "a.bas:b.bas", "C:\\a.bas:b.bas", ":a.bas"}) {
        EXPECT_EQ(why(written), ofADevice) << written;
    }
}

TEST(MemberPath, OnTheProjectsOwnShareIsLookedAt) {
    EXPECT_EQ(why("\\\\Server\\Share\\x\\a.bas", "//server/share/y"), "");
    EXPECT_EQ(why("\\\\server\\other\\a.bas", "//server/share/y"), onTheNetwork);
    EXPECT_EQ(why("\\\\other\\share\\a.bas", "//server/share"), onTheNetwork);
    EXPECT_EQ(why("\\\\server", "//server/share"), onTheNetwork);
    EXPECT_EQ(why("\\\\?\\C:\\a.bas", "//?/C:/x"), "");
    EXPECT_EQ(why("\\\\?\\D:\\a.bas", "//?/C:/x"), ofADevice);
    EXPECT_EQ(why("\\\\?\\UNC\\a\\b\\x.bas", "//?/UNC/a/b"), "");
    EXPECT_EQ(why("\\\\?\\UNC\\c\\b\\x.bas", "//?/UNC/a/b"), ofADevice);
    EXPECT_EQ(why("\\\\server\\share\\nul.bas", "//server/share"), ofADevice);
}

} // namespace
} // namespace corvelle::workspace
