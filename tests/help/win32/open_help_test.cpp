// Windows' own viewer with the compiled help.

#include "forms/win32/html_help.h"
#include "places.h"

#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace corvelle::help {
namespace {

constexpr int tableOfContents = 1;
constexpr int contextNumber = 15;

/// A window of the viewer; its title once there is one.
bool viewerIsOpen(std::string* title = nullptr) {
    const HWND viewer = FindWindowA("HH Parent", nullptr);
    char text[100] = {};
    if (viewer) GetWindowTextA(viewer, text, sizeof text);
    if (title) *title = text;
    return viewer != nullptr;
}

TEST(CompiledHelp, OpensWithTheContents) {
    {
        forms::HtmlHelp help;
        help.show(nullptr, HELP_FILE, tableOfContents, 0);
        std::string title;
        EXPECT_TRUE(viewerIsOpen(&title));
        EXPECT_EQ(title, "Corvelle");
    }
    EXPECT_FALSE(viewerIsOpen());
}

TEST(CompiledHelp, OpensWithTheBackupBoxButNotWithANumberThatItDoesNotHave) {
    forms::HtmlHelp help;
    help.show(nullptr, HELP_FILE, contextNumber, 999);
    EXPECT_FALSE(viewerIsOpen());
    help.show(nullptr, HELP_FILE, contextNumber, 1000);
    EXPECT_TRUE(viewerIsOpen());
}

} // namespace
} // namespace corvelle::help
