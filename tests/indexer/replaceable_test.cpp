#include "indexer/replaceable.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::indexer {
namespace {

TEST(Recognise, KnowsTheHeaderByItsLines) {
    EXPECT_TRUE(isHeaderOfOurs("#define IDH_AAAA  1000\r\n"));
    EXPECT_TRUE(isHeaderOfOurs("#define IDH_AAAA  1000\n#define IDH_ZZZZ  457975\n\n"));
    EXPECT_TRUE(isHeaderOfOurs("#define IDH_AAAA  1000\r\n#define   457976\r\n")) << "out of names";
    EXPECT_FALSE(isHeaderOfOurs("#define IDH_AAAB  1001\r\n"));
    EXPECT_FALSE(isHeaderOfOurs("\r\n#define IDH_AAAA  1000\r\n"));
    EXPECT_FALSE(isHeaderOfOurs("#define IDH_AAAA 1000\r\n"));
    EXPECT_FALSE(isHeaderOfOurs("#define IDH_AAAA  10001\r\n"));
}

TEST(Recognise, TakesAHeaderWithForeignLinesForSomebodyElses) {
    for (const std::string line :
         {"#define IDH_PRINT  5000", "#define IDC_OK  1", "#define IDH_AAAB  1001 // mine", "#include <a.h>",
          "// mine", "#define IDH_aaab  1001", "#define IDH_AAABC  1001", "#define IDH_AAAB  ", "x"})
        EXPECT_FALSE(isHeaderOfOurs("#define IDH_AAAA  1000\r\n" + line + "\r\n#define IDH_AAAC  1002\r\n"))
            << line;
}

TEST(Recognise, KnowsTheConfigurationByItsMarks) {
    EXPECT_TRUE(isConfigurationOfOurs("<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"));
    EXPECT_TRUE(isConfigurationOfOurs(" <p></p> \n\n<C>t TextBox </C>"));
    EXPECT_FALSE(isConfigurationOfOurs("<P>frmMain</P>\r\nnotes\r\n"));
    EXPECT_FALSE(isConfigurationOfOurs("<P>frmMain"));
    EXPECT_FALSE(isConfigurationOfOurs("<P>"));
    EXPECT_FALSE(isConfigurationOfOurs("Option Explicit\r\n"));
}

TEST(Recognise, KnowsTheTextsByTheirFirstTopic) {
    EXPECT_TRUE(isTextFileOfOurs(".topic  IDH_AAAA\r\nNothing.\r\n.topic  IDH_PRINT\r\n"));
    EXPECT_TRUE(isTextFileOfOurs("a comment\n .TOPIC IDH_AAAA\n"));
    EXPECT_FALSE(isTextFileOfOurs(".topic  IDH_AAAB\r\n.topic  IDH_AAAA\r\n"));
    EXPECT_FALSE(isTextFileOfOurs(".topic\r\n.topic  IDH_AAAA\r\n"));
    EXPECT_FALSE(isTextFileOfOurs("Sub Main()\r\nEnd Sub\r\n"));
}

const std::string module =
    "Attribute VB_Name = \"modHelp\"\r\nPublic Const IDH_AAAB = 1001\r\nPublic Sub Load_HelpID_frmMain ()\r\n"
    "\tWith frmMain\r\n\t\t.cmdOK.HelpContextID = IDH_AAAB\r\n\tEnd With\r\nEnd Sub\r\n";

TEST(Recognise, KnowsTheMappingModuleByItsNameAndItsLines) {
    EXPECT_TRUE(isMappingModuleOfOurs(module, "modHelp"));
    EXPECT_TRUE(isMappingModuleOfOurs(module, "MODHELP"));
    EXPECT_TRUE(isMappingModuleOfOurs("Attribute VB_Name = \"modHelp\"\r\n", "modHelp")) << "no controls";
    EXPECT_TRUE(isMappingModuleOfOurs("Attribute VB_Name = \"m\"\nOption Explicit\n\n"
                                      "Public Const  = 457976\n.t.HelpContextID = \n",
                                      "m"));
    EXPECT_FALSE(isMappingModuleOfOurs(module, "modOther"));
    EXPECT_FALSE(isMappingModuleOfOurs("Public Const IDH_AAAB = 1001\r\n", "modHelp"));
    for (const std::string line :
         {"Private a As Long", "' mine", "Public Const Pi = 3", "Public Const IDH_AAAB = 1 + 1",
          "Public Sub Load_HelpID_frmMain (a)", ".cmdOK.Caption = IDH_AAAB",
          "Attribute VB_Name = \"modHelp\"", "Public Const IDH_AAAB = 1001: Kill f",
          ".a.HelpContextID = IDH_AAAB: Kill f"})
        EXPECT_FALSE(isMappingModuleOfOurs(module + line + "\r\n", "modHelp")) << line;
}

TEST(Recognise, KnowsTheMappingModuleAsTheIDEAndTheFormatterWriteIt) {
    EXPECT_TRUE(
        isMappingModuleOfOurs("Attribute VB_Name = \"modHelp\"\r\nPublic Const IDH_AAAB = 1001\r\n\r\n"
                              "Public Sub Load_HelpID_frmMain()\r\n  With frmMain\r\n"
                              "    .cmdOK.HelpContextID = IDH_AAAB\r\n  End With\r\nEnd Sub\r\n",
                              "modHelp"));
}

TEST(Recognise, KnowsReportAndProjectByTheirFirstLines) {
    EXPECT_TRUE(isReportOfOurs("Indexing initiated by ContextHElpID Indexer\r\n1/2/2026 1:00:00 AM\r\n"));
    EXPECT_FALSE(isReportOfOurs("Indexing initiated by ContextHelpID Indexer\r\n"));
    EXPECT_FALSE(isReportOfOurs("\r\nIndexing initiated by ContextHElpID Indexer\r\n"));
    EXPECT_TRUE(isProjectFileOfOurs("Indexer project file :1/2/2026 1:00:00 AM\r\n"));
    EXPECT_FALSE(isProjectFileOfOurs("Indexer project file\r\n"));
    EXPECT_FALSE(isProjectFileOfOurs("Type=Exe\r\n"));
}

TEST(Recognise, TakesAnEmptyFileForOurs) {
    EXPECT_TRUE(isHeaderOfOurs(""));
    EXPECT_TRUE(isConfigurationOfOurs(""));
    EXPECT_TRUE(isTextFileOfOurs(""));
    EXPECT_TRUE(isMappingModuleOfOurs("", "m"));
    EXPECT_TRUE(isReportOfOurs(""));
    EXPECT_TRUE(isProjectFileOfOurs(""));
}

} // namespace
} // namespace corvelle::indexer
