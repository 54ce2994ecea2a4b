// What the files that `corvelle index` writes may replace.
#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace corvelle::cli {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::string form =
    "VERSION 5.00\r\nBegin VB.Form frmMain \r\n   Begin VB.CommandButton cmdOK \r\n   End\r\n"
    "End\r\nAttribute VB_Name = \"frmMain\"\r\n";
const std::string project = "Type=Exe\r\nForm=frmMain.frm\r\nName=\"Proj\"\r\n";

class IndexOutputs : public testing::Test {
  protected:
    IndexOutputs() {
        folder.write("p.vbp", project);
        folder.write("frmMain.frm", form);
    }
    // With all outputs, but for those that are named.
    test::Outcome run(std::map<std::string, std::string> named = {},
                      const std::vector<std::string>& more = {}) const {
        named.insert({{"--header", "o/a.h"},
                      {"--config", "o/a.hcnf"},
                      {"--module", "modHelp"},
                      {"--module-file", "o/a.bas"},
                      {"--text", "o/a.txt"},
                      {"--report", "o/a.log"},
                      {"--project-file", "o/a.icp"}});
        std::vector<std::string> arguments{"index", "p.vbp"};
        for (const auto& [option, value] : named) arguments.insert(arguments.end(), {option, value});
        arguments.insert(arguments.end(), more.begin(), more.end());
        fs::create_directory(folder.path() / "o");
        test::Surroundings surroundings;
        surroundings.folder = folder.path();
        return test::runCorvelle(arguments, surroundings);
    }
    std::vector<std::string> outputs() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.path() / "o"))
            names.push_back(entry.path().filename().string());
        return names;
    }

    const std::vector<std::string> options{"--header", "--config", "--module-file",
                                           "--text",   "--report", "--project-file"};
    test::TemporaryFolder folder;
};

TEST_F(IndexOutputs, ReplaceNoForeignFile) {
    const std::map<std::string, std::string> foreign{
        {"other.frm", form},
        {"main.c", "int main() { return 0; }\n"},
        {"notes.txt", "Do not forget\r\n"},
        {"resource.h", "#define IDC_OK  1\r\n"},
        {"mixed.h", "#define IDH_AAAA  1000\r\n#define IDH_PRINT  5000\r\n"},
        {"topics.txt", ".topic  IDH_PRINT\r\nPrints.\r\n"},
        {"other.bas", "Attribute VB_Name = \"modHelp\"\r\nPublic Sub Main()\r\nEnd Sub\r\n"},
        {"data.bin", std::string(100, '\0')}};
    for (const auto& [name, bytes] : foreign) {
        folder.write(name, bytes);
        for (const auto& option : options) {
            const auto result = run({{option, name}});
            EXPECT_EQ(result.status, 2) << option << " " << name;
            EXPECT_THAT(result.err, StartsWith(option + ": " + name + " is no "));
            EXPECT_THAT(result.err, HasSubstr("--overwrite"));
            EXPECT_EQ(result.out, "");
            EXPECT_THAT(outputs(), IsEmpty()) << option << " " << name;
            EXPECT_EQ(folder.read(name), bytes);
            EXPECT_EQ(folder.read("p.vbp"), project);
        }
    }
}

TEST_F(IndexOutputs, ReplaceAnyFileWhenToldTo) {
    for (const auto& option : options) {
        folder.write("notes.txt", "Do not forget\r\n");
        folder.write("p.vbp", project);
        fs::remove_all(folder.path() / "o");
        const auto result = run({{option, "notes.txt"}}, {"--overwrite"});
        EXPECT_EQ(result.status, 0) << option << result.err;
        EXPECT_NE(folder.read("notes.txt"), "Do not forget\r\n") << option;
    }
}

TEST_F(IndexOutputs, ReplaceNothingOfTheProjectEvenWhenToldTo) {
    folder.write("frmMain.frx", "binary");
    for (const auto& option : options) {
        for (const std::string name : {"frmMain.frm", "p.vbp", "frmMain.frx", "p.vbw"}) {
            EXPECT_EQ(run({{option, name}}, {"--overwrite"}).status, 2) << option << " " << name;
            EXPECT_THAT(outputs(), IsEmpty());
        }
    }
    EXPECT_EQ(folder.read("frmMain.frm"), form);
    EXPECT_EQ(folder.read("p.vbp"), project);
    EXPECT_EQ(folder.read("frmMain.frx"), "binary");
}

TEST_F(IndexOutputs, ReplaceWhatARunHasWrittenAndEmptyFiles) {
    for (const auto* name : {"o/a.h", "o/a.hcnf", "o/a.bas", "o/a.txt", "o/a.log", "o/a.icp"})
        folder.write(name, "");
    ASSERT_EQ(run().status, 0);
    EXPECT_EQ(run({}, {"--replace-module", "--autoload"}).status, 0);
    EXPECT_EQ(run({}, {"--replace-module"}).status, 0);
}

TEST_F(IndexOutputs, AreFilesOfTheirOwn) {
    folder.write("one.txt", "");
    fs::create_hard_link(folder.path() / "one.txt", folder.path() / "hard.txt");
    const auto expectSame = [&](const std::string& a, const std::string& b) {
        const auto result = run({{"--text", a}, {"--report", b}}, {"--overwrite"});
        EXPECT_EQ(result.status, 2) << a << " " << b;
        EXPECT_THAT(result.err, HasSubstr("--report and --text: the same file"));
        EXPECT_THAT(outputs(), IsEmpty());
    };
    expectSame("one.txt", "one.txt");
    expectSame("one.txt", "hard.txt");
    expectSame("new.txt", "o/../new.txt");
#ifdef _WIN32
    expectSame("one.txt", "ONE.TXT");
    expectSame("new.txt", "NEW.TXT");
#else
    fs::create_symlink("one.txt", folder.path() / "link.txt");
    expectSame("one.txt", "link.txt");
#endif
    EXPECT_EQ(folder.read("one.txt"), "");
}

TEST_F(IndexOutputs, HoldNothingThatIsNoName) {
    folder.write("p.vbp", project + "Form=odd.frm\r\n");
    folder.write("odd.frm",
                 "VERSION 5.00\r\nBegin VB.Form odd \r\nEnd\r\nAttribute VB_Name = \"odd</P>\"\r\n");
    folder.write("frmMain.frm",
                 "VERSION 5.00\r\nBegin VB.Form frmMain \r\n   Begin VB.Label a.Caption=Kill \r\n   End\r\n"
                 "   Begin VB.Label </C> \r\n   End\r\n   Begin VB.Label \x1B[2J \r\n   End\r\n"
                 "   Begin VB.<P> x \r\n   End\r\n   Begin VB.Label 1st \r\n   End\r\n"
                 "   Begin VB.Label Gr\xFC\xDF"
                 "e_1 \r\n   End\r\n"
                 "End\r\nAttribute VB_Name = \"frmMain\"\r\n");
    const auto result = run({}, {"--autoload", "--numbering", "classic"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "frmMain: a.Caption=Kill: its name or its class is no name; it is left out\n"
                          "frmMain: </C>: its name or its class is no name; it is left out\n"
                          "frmMain: \\x1B[2J: its name or its class is no name; it is left out\n"
                          "frmMain: x: its name or its class is no name; it is left out\n"
                          "frmMain: 1st: its name or its class is no name; it is left out\n"
                          "odd</P>: this is no name; the designer is left out\n");
    EXPECT_EQ(folder.read("o/a.hcnf"), "<P>frmMain</P>\r\n<C>Gr\xFC\xDF"
                                       "e_1 Label IDH_AAAB</C>\r\n");
    EXPECT_EQ(folder.read("o/a.h"), "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n");
    EXPECT_EQ(folder.read("o/a.bas"), "Attribute VB_Name = \"modHelp\"\r\nPublic Const IDH_AAAB = 1001\r\n"
                                      "Public Sub Load_HelpID_frmMain ()\r\n\tWith frmMain\r\n\t\t.Gr\xFC\xDF"
                                      "e_1.HelpContextID = IDH_AAAB\r\n"
                                      "\tEnd With\r\nEnd Sub\r\n");
}

} // namespace
} // namespace corvelle::cli
