#include "indexer/stable/help_properties.h"

#include <gtest/gtest.h>

namespace corvelle::indexer::stable {
namespace {

TEST(HelpProperties, AreThoseOfTheClass) {
    EXPECT_TRUE(helpPropertiesOf("VB", "CommandButton").helpContextID);
    EXPECT_TRUE(helpPropertiesOf("VB", "CommandButton").whatsThisHelpID);
    for (const auto* className : {"Label", "Image"}) {
        EXPECT_FALSE(helpPropertiesOf("VB", className).helpContextID) << className;
        EXPECT_TRUE(helpPropertiesOf("VB", className).whatsThisHelpID) << className;
    }
    for (const auto* className : {"Line", "Shape", "Timer"}) {
        EXPECT_FALSE(helpPropertiesOf("vb", className).helpContextID) << className;
        EXPECT_FALSE(helpPropertiesOf("VB", className).whatsThisHelpID) << className;
    }
    EXPECT_TRUE(helpPropertiesOf("VB", "MENU").helpContextID);
    EXPECT_FALSE(helpPropertiesOf("VB", "Menu").whatsThisHelpID);
    EXPECT_FALSE(helpPropertiesOf("MSComDlg", "CommonDialog").helpContextID);
}

TEST(HelpProperties, OfOtherMakersVisibleControlsAreBothButNobodyHasLooked) {
    const auto has = helpPropertiesOf("TabDlg", "SSTab");
    EXPECT_TRUE(has.helpContextID && has.whatsThisHelpID);
    EXPECT_FALSE(has.isVerified);
    EXPECT_TRUE(helpPropertiesOf("Own", "Label").helpContextID); // one that only has the name
}

} // namespace
} // namespace corvelle::indexer::stable
