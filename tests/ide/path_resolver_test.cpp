#include "base/temporary_folder.h"
#include "ide/workspace/path_resolver.h"

#include <gtest/gtest.h>

namespace corvelle::workspace {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

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

TEST(PathInProject, TurnsBackslashes) {
    EXPECT_EQ(pathInProject("dir", "..\\Common\\x.bas"), fs::path("dir/../Common/x.bas"));
    EXPECT_EQ(pathInProject("", "a\\x.bas"), fs::path("a/x.bas"));
}

TEST(PathResolver, FindsFilesWithBackslashesInTheirPaths) {
    const TemporaryFolder folder;
    folder.write("Common/X.bas", "");
    folder.write("App/p.vbp", "");
    PathResolver resolver;
    const auto app = folder.path() / "App";
    EXPECT_TRUE(fs::equivalent(*resolver.resolve(app, "..\\Common\\X.bas"), folder.path() / "Common/X.bas"));
    EXPECT_TRUE(fs::equivalent(*resolver.resolve(app, "..\\COMMON\\x.BAS"), folder.path() / "Common/X.bas"));
    EXPECT_EQ(resolver.resolve(app, "X.bas"), std::nullopt);
    EXPECT_EQ(resolver.resolve(app, ""), std::nullopt);
}

// Windows knows letter case, drives and shares by itself.
#ifndef _WIN32

TEST(PathResolver, TakesTheExactNameFirst) {
    const TemporaryFolder folder;
    folder.write("Module1.bas", "");
    folder.write("MODULE1.BAS", "");
    PathResolver resolver;
    EXPECT_EQ(resolver.resolve(folder.path(), "Module1.bas"), folder.path() / "Module1.bas");
    EXPECT_EQ(resolver.resolve(folder.path(), "MODULE1.BAS"), folder.path() / "MODULE1.BAS");
}

TEST(PathResolver, TakesTheExactFolderEvenWhereAnotherHoldsTheFile) {
    const TemporaryFolder folder;
    folder.write("Code/a.bas", "");
    folder.write("code/b.bas", "");
    PathResolver resolver;
    EXPECT_EQ(resolver.resolve(folder.path(), "Code\\a.bas"), folder.path() / "Code/a.bas");
    EXPECT_EQ(resolver.resolve(folder.path(), "Code\\b.bas"), std::nullopt);
}

TEST(PathResolver, ElseTheOnlyNameInAnotherCase) {
    const TemporaryFolder folder;
    folder.write("Forms/FrmMain.Frm", "");
    PathResolver resolver;
    EXPECT_EQ(resolver.resolve(folder.path(), "FORMS\\frmmain.frm"), folder.path() / "Forms/FrmMain.Frm");
    EXPECT_EQ(resolver.resolve(folder.path(), "Forms\\frmmain.frm"), folder.path() / "Forms/FrmMain.Frm");
    EXPECT_EQ(resolver.resolve(folder.path(), "Forms/FrmMain.Frm"), folder.path() / "Forms/FrmMain.Frm");
}

TEST(PathResolver, DoesNotChooseBetweenTwo) {
    const TemporaryFolder folder;
    folder.write("A.bas", "");
    folder.write("a.BAS", "");
    EXPECT_EQ(PathResolver().resolve(folder.path(), "a.bas"), std::nullopt);
}

TEST(PathResolver, FoldsAsciiLettersOnly) {
    const TemporaryFolder folder;
    folder.write("\xC4.bas", "");
    PathResolver resolver;
    EXPECT_EQ(resolver.resolve(folder.path(), "\xC4.BAS"), folder.path() / "\xC4.bas");
    EXPECT_EQ(resolver.resolve(folder.path(), "\xE4.bas"), std::nullopt);
}

TEST(PathResolver, GoesOutsideTheFolder) {
    const TemporaryFolder folder;
    folder.write("Common/X.bas", "");
    folder.write("App/p.vbp", "");
    EXPECT_EQ(PathResolver().resolve(folder.path() / "App", "..\\COMMON\\x.bas"),
              folder.path() / "App/../Common/X.bas");
    EXPECT_EQ(PathResolver().resolve(folder.path() / "App", ".\\..\\\\Common\\X.bas"),
              folder.path() / "App/../Common/X.bas");
}

TEST(PathResolver, FindsSymbolicLinks) {
    const TemporaryFolder folder;
    folder.write("real/a.bas", "");
    fs::create_symlink("real", folder.path() / "Link");
    fs::create_symlink("nowhere", folder.path() / "Dangling.bas");
    PathResolver resolver;
    EXPECT_EQ(resolver.resolve(folder.path(), "LINK\\A.BAS"), folder.path() / "Link/a.bas");
    EXPECT_EQ(resolver.resolve(folder.path(), "dangling.bas"), folder.path() / "Dangling.bas");
}

TEST(PathResolver, MissesWhatIsNotThere) {
    const TemporaryFolder folder;
    folder.write("a.bas", "");
    PathResolver resolver;
    for (const char* written : {"b.bas", "none\\a.bas", "a.bas\\b", "", "\\\\server\\share\\a.bas",
                                "C:\\a.bas", "c:a.bas", "\\a.bas", "/a.bas"})
        EXPECT_EQ(resolver.resolve(folder.path(), written), std::nullopt) << written;
    EXPECT_EQ(resolver.resolve(folder.path() / "none", "a.bas"), std::nullopt);
}

TEST(PathResolver, LooksInTheCurrentFolder) {
    const TemporaryFolder folder;
    folder.write("Module1.bas", "");
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(PathResolver().resolve("", "MODULE1.bas"), fs::path("Module1.bas"));
    fs::current_path(before);
}

TEST(PathResolver, ListsAFolderOnce) {
    const TemporaryFolder folder;
    folder.write("A.bas", "");
    PathResolver resolver;
    EXPECT_TRUE(resolver.resolve(folder.path(), "a.bas"));
    fs::rename(folder.path() / "A.bas", folder.path() / "B.bas");
    EXPECT_FALSE(resolver.resolve(folder.path(), "b.bas")) << "listed again";
    EXPECT_TRUE(resolver.resolve(folder.path(), "B.bas"));
}

#endif

} // namespace
} // namespace corvelle::workspace
