#include "formatter/key_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::formatter {
namespace {

using ::testing::ElementsAre;

TEST(KeyTables, startKeysStandInTheirOrder) {
    EXPECT_THAT(StartKeys,
                ElementsAre("Sub",              // 0
                            "Function",         // 1
                            "Property",         // 2
                            "Private Sub",      // 3
                            "Private Function", // 4
                            "Property",         // 5
                            "Public Sub",       // 6
                            "Public Function",  // 7
                            "Public Property",  // 8
                            "Friend Sub",       // 9
                            "Friend Function",  // 10
                            "Friend Property",  // 11
                            "For",              // 12
                            "Do",               // 13
                            "While",            // 14
                            "Select",           // 15
                            "Case",             // 16
                            "With",             // 17
                            "Do While",         // 18
                            "Begin",            // 19
                            "BeginProperty",    // 20
                            "Enum",             // 21
                            "Private Enum",     // 22
                            "Public Enum",      // 23
                            "Type",             // 24
                            "Private Type",     // 25
                            "Public Type",      // 26
                            " Then"));          // 27
}

TEST(KeyTables, endKeysStandInTheirOrder) {
    EXPECT_THAT(EndKeys, ElementsAre("End Sub",      // 0
                                     "End Function", // 1
                                     "End Property", // 2
                                     "Else",         // 3
                                     "Next",         // 4
                                     "Loop",         // 5
                                     "Wend",         // 6
                                     "End IF",       // 7
                                     "End Select",   // 8
                                     "End With",     // 9
                                     "EndProperty",  // 10
                                     "End",          // 11
                                     "ElseIF"));     // 12
}

TEST(KeyTables, opCharsStandInTheirOrder) {
    EXPECT_THAT(OpChars, ElementsAre(32, 43, 45, 47, 92, 42, 38, 61, 40, 41));
}

TEST(KeyTables, theLastSearchedKeysLeaveOutThen) {
    EXPECT_EQ(lastStartKey, 26);
    EXPECT_EQ(lastEndKey, 12);
}

} // namespace
} // namespace corvelle::formatter
