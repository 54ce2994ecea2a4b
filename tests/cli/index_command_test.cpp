// Runs the program, which is found in CORVELLE_BINARY.
#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"
#include "places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>

namespace corvelle::cli {
namespace {

namespace fs = std::filesystem;
using test::Outcome;
using test::TemporaryFolder;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAre;

const std::string form =
    "VERSION 5.00\r\nBegin VB.Form frmMain \r\n   Begin VB.CommandButton cmdOK \r\n   End\r\n"
    "   Begin VB.TextBox txtName \r\n   End\r\n   Begin VB.Label lbl \r\n   End\r\nEnd\r\n"
    "Attribute VB_Name = \"frmMain\"\r\n";
const std::string project =
    "Type=Exe\r\nForm=frmMain.frm\r\nModule=Module1; Module1.bas\r\nName=\"Proj\"\r\n";
const std::string files = "index p.vbp --header o/a.h --config o/a.hcnf ";
const std::string classic = files + "--numbering classic ";
const std::string module = "--module modHelp --module-file o/modHelp.bas ";

// With "#" in the place of date and time.
std::string withoutTime(const std::string& text) {
    static const std::regex time("[0-9]+/[0-9]+/[0-9]+ [0-9]+:[0-9][0-9]:[0-9][0-9] [AP]M");
    return std::regex_replace(text, time, "#");
}

class IndexCommand : public testing::Test {
  protected:
    IndexCommand() {
        folder.write("p.vbp", project);
        folder.write("frmMain.frm", form);
        folder.write("Module1.bas", "Attribute VB_Name = \"Module1\"\r\n");
        fs::create_directory(folder.path() / "o");
    }

    // The arguments are words; blanks in quotes ' are part of one.
    Outcome run(const std::string& arguments, test::Surroundings surroundings = {}) const {
        surroundings.folder = folder.path();
        return test::runCorvelle(wordsOf(arguments), surroundings);
    }
    static std::vector<std::string> wordsOf(const std::string& arguments) {
        std::vector<std::string> words;
        bool quoted = false, inWord = false;
        for (const char c : arguments) {
            const bool blank = c == ' ' && !quoted;
            if (!blank && !inWord) words.emplace_back();
            inWord = !blank;
            if (c == '\'')
                quoted = !quoted;
            else if (!blank)
                words.back() += c;
        }
        return words;
    }
    std::vector<std::string> outputs() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.path() / "o"))
            names.push_back(entry.path().filename().string());
        return names;
    }
    // Wrong usage or a refusal: nothing is written, nothing printed but what is wrong.
    void expectRefused(const std::string& arguments, int status, const std::string& words) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, status) << arguments;
        EXPECT_THAT(result.err, HasSubstr(words)) << arguments;
        EXPECT_EQ(result.out, "") << arguments;
        EXPECT_THAT(outputs(), IsEmpty()) << arguments;
        EXPECT_EQ(folder.read("p.vbp"), project);
    }

    TemporaryFolder folder;
};

TEST_F(IndexCommand, WritesTheHeaderAndTheConfiguration) {
    const auto result = run(classic);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "Project Name: Proj\nProject has been saved: True\nMDI form: 0\nVB Forms: 1\n"
              "ActiveX Controls: 0\nProperty pages: 0\nActiveX Documents: 0\nMs Forms: 0\nDesigners: 0\n"
              "Total Controls: 3\no/a.h\no/a.hcnf\n");
    EXPECT_EQ(folder.read("o/a.h"),
              "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n#define IDH_AAAC  1002\r\n"
              "#define IDH_AAAD  1003\r\n");
    EXPECT_EQ(folder.read("o/a.hcnf"), "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                                       "<C>txtName TextBox IDH_AAAC</C>\r\n<C>lbl Label IDH_AAAD</C>\r\n");
    EXPECT_THAT(outputs(), UnorderedElementsAre("a.h", "a.hcnf"));
    EXPECT_EQ(folder.read("p.vbp"), project);
}

TEST_F(IndexCommand, AddsTheMappingModuleToTheProject) {
    const auto result = run(classic + module + "--autoload --exclude labels");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, EndsWith("Total Controls: 3\no/a.h\no/a.hcnf\no/modHelp.bas\np.vbp\n"));
    EXPECT_EQ(
        folder.read("o/modHelp.bas"),
        "Attribute VB_Name = \"modHelp\"\r\nPublic Const IDH_AAAB = 1001\r\nPublic Const IDH_AAAC = 1002\r\n"
        "Public Sub Load_HelpID_frmMain ()\r\n\tWith frmMain\r\n\t\t.cmdOK.HelpContextID = IDH_AAAB\r\n"
        "\t\t.txtName.HelpContextID = IDH_AAAC\r\n\tEnd With\r\nEnd Sub\r\n");
    EXPECT_EQ(folder.read("p.vbp"), "Type=Exe\r\nForm=frmMain.frm\r\nModule=Module1; Module1.bas\r\n"
                                    "Module=modHelp; o\\modHelp.bas\r\nName=\"Proj\"\r\n");
}

TEST_F(IndexCommand, RefusesTheNameOfItsOwnModuleUnlessItIsToBeReplaced) {
    ASSERT_EQ(run(files + module).status, 0);
    const auto afterFirst = folder.read("p.vbp");
    const auto first = folder.read("o/modHelp.bas");
    const auto refused = run(files + module + "--exclude labels");
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, StartsWith("The module name 'modHelp' is invalid. \nEither it is"));
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(folder.read("o/modHelp.bas"), first);
    const auto replaced = run(files + module + "--exclude labels --replace-module");
    EXPECT_EQ(replaced.status, 0);
    EXPECT_THAT(replaced.out, EndsWith("o/a.hcnf\no/modHelp.bas\n"));
    EXPECT_NE(folder.read("o/modHelp.bas"), first);
    EXPECT_EQ(folder.read("p.vbp"), afterFirst);
    EXPECT_EQ(run(files + module + "--replace-module").status, 0);
    EXPECT_EQ(folder.read("o/modHelp.bas"), first);
    // One that was deleted meanwhile is made again.
    fs::remove(folder.path() / "o" / "modHelp.bas");
    EXPECT_EQ(run(files + module + "--replace-module").status, 0);
    EXPECT_EQ(folder.read("o/modHelp.bas"), first);
    EXPECT_EQ(folder.read("p.vbp"), afterFirst);
}

TEST_F(IndexCommand, ReplacesNoModuleOfAnotherFileOrKind) {
    folder.write("p.vbp", project + "Class=modHelp; c.cls\r\n");
    folder.write("c.cls", "VERSION 1.0 CLASS\r\nBEGIN\r\nEND\r\nAttribute VB_Name = \"modHelp\"\r\n");
    EXPECT_EQ(run(files + module + "--replace-module").status, 1);
    EXPECT_EQ(run(files + "--module Module1 --module-file o/other.bas --replace-module").status, 1);
    EXPECT_THAT(outputs(), IsEmpty());
    const auto ownFile = run(files + "--module modHelp --module-file Module1.bas --replace-module");
    EXPECT_EQ(ownFile.status, 2);
    EXPECT_THAT(ownFile.err, HasSubstr("--module-file: Module1.bas is a module of the project"));
    EXPECT_EQ(folder.read("Module1.bas"), "Attribute VB_Name = \"Module1\"\r\n");
}

TEST_F(IndexCommand, RefusesNames) {
    expectRefused(files + "--module 'mod Help' --module-file o/m.bas --autoload --text o/a.txt "
                          "--report o/a.log --project-file o/a.icp",
                  1, "The module name 'mod Help' is invalid.");
    expectRefused(files + "--module MODULE1 --module-file o/m.bas", 1,
                  "The module name 'MODULE1' is invalid.");
    expectRefused(files + "--module 1a --module-file o/m.bas", 1, "The module name '1a' is invalid.");
    expectRefused(files + "--module mod.Help --module-file o/m.bas", 1, "Invalid property value");
    expectRefused(files + "--module '' --module-file o/m.bas", 1, "Invalid property value");
    expectRefused(files + "--module proj --module-file o/m.bas", 1, "Name conflicts");
}

TEST_F(IndexCommand, TrimsTheModulesNameAsTheWizardsBoxDoes) {
    EXPECT_EQ(run(files + "--module ' modHelp ' --module-file o/m.bas --project-file o/a.icp").status, 0);
    EXPECT_THAT(folder.read("o/m.bas"), StartsWith("Attribute VB_Name = \"modHelp\"\r\n"));
    EXPECT_THAT(folder.read("o/a.icp"), HasSubstr("\r\nModule Name= modHelp\r\n"));
}

TEST_F(IndexCommand, WritesTheTextsAndKeepsThoseOfAnOlderFile) {
    auto result = run(classic + "--text o/a.txt --exclude labels");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, EndsWith("o/a.hcnf\no/a.txt\n"));
    EXPECT_EQ(folder.read("o/a.txt"),
              ".topic  IDH_AAAA\r\nNo help information is available for this control.\r\n\r\n"
              ".topic  IDH_AAAB\r\n\r\n.topic  IDH_AAAC\r\n\r\n");
    folder.write("o/a.txt",
                 ".topic  IDH_AAAA\r\nOld\r\n.topic  IDH_AAAC\r\nThe\r\nname.\r\n.topic  IDH_ZZZZ\r\nx\r\n");
    result = run(classic + "--text o/a.txt --default-text 'Ask\nus' --exclude labels");
    EXPECT_EQ(result.status, 0);
    const std::string wanted =
        ".topic  IDH_AAAA\r\nAsk\r\nus\r\n.topic  IDH_AAAB\r\n\r\n.topic  IDH_AAAC\r\n The name.\r\n";
    EXPECT_EQ(folder.read("o/a.txt"), wanted);
    // An empty line is read as one space, from then on nothing changes.
    run(classic + "--text o/a.txt --default-text 'Ask\nus' --exclude labels");
    const auto settled = folder.read("o/a.txt");
    EXPECT_EQ(settled,
              ".topic  IDH_AAAA\r\nAsk\r\nus\r\n.topic  IDH_AAAB\r\n \r\n.topic  IDH_AAAC\r\n The name.\r\n");
    run(classic + "--text o/a.txt --default-text 'Ask\nus' --exclude labels");
    EXPECT_EQ(folder.read("o/a.txt"), settled);
}

TEST_F(IndexCommand, SavesTheReportLastOfAll) {
    const auto result =
        run(classic + module + "--text o/a.txt --project-file o/a.icp --report o/a.log --exclude menus");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, EndsWith("o/modHelp.bas\np.vbp\no/a.txt\no/a.icp\no/a.log\n"));
    const auto report = folder.read("o/a.log");
    EXPECT_THAT(withoutTime(report),
                StartsWith("Indexing initiated by ContextHElpID Indexer\r\n#\r\nProject Name: Proj\r\n"
                           "Project has been saved: True\r\nMDI form: 0\r\n"));
    EXPECT_THAT(report, HasSubstr("Menu = True\r\n"));
    EXPECT_THAT(
        report,
        EndsWith("***** Indexing Started *******\r\nAdded module :modHelp\r\nCreated header file: o/a.h\r\n"
                 "Created Configuration file: o/a.hcnf\r\nModule Path= o/modHelp.bas\r\nModule saved\r\n"
                 "*** Indexing done ***\r\nCreated Text file: o/a.txt\r\n"));
    EXPECT_EQ(withoutTime(folder.read("o/a.icp")),
              "Indexer project file :#\r\nVB Project Name= Proj\r\nProject File= p.vbp\r\n"
              "Header file= o/a.h\r\nConfiguration File= o/a.hcnf\r\nText File= o/a.txt\r\n"
              "Module Name= modHelp\r\nModule File= o/modHelp.bas\r\n");
}

TEST_F(IndexCommand, WarnsOfAnIndexerProjectWithoutTexts) {
    const auto result = run(files + "--project-file o/a.icp");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "o/a.icp: warning: without --text this indexer project cannot be opened\n");
    EXPECT_THAT(result.out, EndsWith("o/a.hcnf\no/a.icp\n"));
    EXPECT_THAT(folder.read("o/a.icp"), HasSubstr("Text File= \r\nModule Name= \r\nModule File= \r\n"));
}

TEST_F(IndexCommand, PresetsTheComponentsByTheProjectsType) {
    folder.write("c.ctl",
                 "VERSION 5.00\r\nBegin VB.UserControl c \r\n   Begin VB.TextBox t \r\n   End\r\nEnd\r\n");
    const auto all = project + "UserControl=c.ctl\r\n";
    folder.write("p.vbp", all);
    run(classic);
    EXPECT_THAT(folder.read("o/a.hcnf"), Not(HasSubstr("<P>c</P>")));
    run(classic + "--components controls,forms");
    EXPECT_THAT(folder.read("o/a.hcnf"), EndsWith("<P>c</P>\r\n<C>t TextBox IDH_AAAE</C>\r\n"));
    run(classic + "--components controls");
    EXPECT_EQ(folder.read("o/a.hcnf"), "<P>c</P>\r\n<C>t TextBox IDH_AAAB</C>\r\n");
    const auto none = run(classic + "--components ''");
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(folder.read("o/a.hcnf"), "");
    EXPECT_THAT(none.out, HasSubstr("VB Forms: 1\nActiveX Controls: 1\n"));
    EXPECT_THAT(none.out, HasSubstr("Total Controls: 0\n"));
    folder.write("p.vbp", std::string("Type=Control\r\n").append(all, 10));
    run(classic);
    EXPECT_THAT(folder.read("o/a.hcnf"), HasSubstr("<P>c</P>"));
    folder.write("d.dob", "VERSION 5.00\r\nBegin VB.UserDocument d \r\nEnd\r\n");
    folder.write("m.frm", "VERSION 5.00\r\nBegin VB.MDIForm m \r\nEnd\r\nAttribute VB_Name = \"m\"\r\n");
    for (const std::string type : {"OleDll", "OleExe", "Exe"}) {
        folder.write("p.vbp",
                     "Type=" + type + "\r\n" + all.substr(10) + "UserDocument=d.dob\r\nForm=m.frm\r\n");
        EXPECT_EQ(run(classic).status, 0);
        const auto mappings = folder.read("o/a.hcnf");
        EXPECT_THAT(mappings, HasSubstr("<P>frmMain</P>")) << type;
        EXPECT_EQ(mappings.find("<P>d</P>") != std::string::npos, type != "Exe");
        EXPECT_EQ(mappings.find("<P>m</P>") != std::string::npos, type == "Exe");
        EXPECT_THAT(mappings, Not(HasSubstr("<P>c</P>")));
    }
}

TEST_F(IndexCommand, ReadsTheExclusionList) {
    folder.write("list", "label  textbox\r\nCommandButton\r\n");
    EXPECT_EQ(run(files + "--exclude-list list").status, 0);
    EXPECT_EQ(folder.read("o/a.hcnf"), "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n");
    fs::remove(folder.path() / "o/a.h");
    fs::remove(folder.path() / "o/a.hcnf");
    expectRefused(files + "--exclude-list none", 2, "none: File not found");
    expectRefused(files + "--exclude-list o", 2, "o: this is a folder, not a file");
}

TEST_F(IndexCommand, KnowsWrongUsage) {
    expectRefused("index p.vbp --header o/a.h", 2, "--config is required");
    expectRefused("index p.vbp --config o/a.hcnf", 2, "--header is required");
    expectRefused("index --header o/a.h --config o/b", 2, "PROJECT.vbp is required");
    expectRefused(files + "--components forms,labels", 2, "\"labels\" is none of forms, mdi");
    expectRefused(files + "--exclude forms", 2, "\"forms\" is none of labels, frames");
    expectRefused(files + "--exclude labels,", 2, "\"\" is none of labels");
    expectRefused(files + "--module m", 2, "--module and --module-file: only together");
    expectRefused(files + "--module-file o/m.bas", 2, "--module and --module-file: only together");
    expectRefused(files + "--autoload", 2, "--autoload: needs --module");
    expectRefused(files + "--replace-module", 2, "--replace-module: needs --module");
    expectRefused(files + "--default-text x", 2, "--default-text: needs --text");
    expectRefused(files + "--text o/a.txt --default-text 'a\n .TOPIC x'", 2, "--default-text: a line");
    expectRefused(files + "--text ''", 2, "a file's name is empty");
    expectRefused(files + "--nonsense", 2, "--nonsense");
    expectRefused(files + "q.vbp", 2, "q.vbp");
}

TEST_F(IndexCommand, WritesOverNoFileThatItReadsAndNoneTwice) {
    folder.write("list", "label\r\n");
    expectRefused("index p.vbp --header o/a --config o/a", 2, "--config and --header: the same file, o/a");
    expectRefused(files + "--report ./o/../o/a.h", 2, "the same file");
    expectRefused("index p.vbp --header p.vbp --config o/a", 2, "--header and the project: the same file");
    expectRefused(files + "--text frmMain.frm", 2, "--text: frmMain.frm is a module of the project");
    expectRefused(files + "--report Module1.bas", 2, "--report: Module1.bas is a module of the project");
    expectRefused(files + "--module m --module-file frmMain.frm", 2, "is a module of the project");
    expectRefused(files + "--exclude-list list --project-file list", 2, "--exclude-list: the same file");
#ifndef _WIN32
    fs::create_symlink(folder.path() / "frmMain.frm", folder.path() / "link");
    expectRefused(files + "--text link", 2, "--text: link is a module of the project");
#endif
    EXPECT_EQ(folder.read("frmMain.frm"), form);
}

TEST_F(IndexCommand, WritesOverNothingThatBelongsToTheProject) {
    folder.write("sub/c.ctl", "VERSION 5.00\r\nBegin VB.UserControl c \r\nEnd\r\n");
    folder.write("p.vbp", project + "UserControl=sub\\c.ctl\r\nResFile32=\"sub\\App.res\"\r\n"
                                    "RelatedDoc=notes.txt\r\nResFile32=\"none.res\"\r\n");
    for (const std::string name :
         {"frmMain.frx", "FRMMAIN.FRX", "o/../frmMain.frx", "sub/c.ctx", "sub/c.pgx", "sub/c.dox",
          "frmMain.dsx", "p.vbw", "P.VBW", "sub/App.res", "notes.txt"}) {
        folder.write(name, "binary");
        for (const std::string option : {"--text ", "--report ", "--project-file "}) {
            const auto result = run(files + option + name);
            EXPECT_EQ(result.status, 2) << name;
            EXPECT_THAT(result.err, HasSubstr(name + " belongs to a file of the project"));
        }
        EXPECT_EQ(folder.read(name), "binary");
    }
    EXPECT_THAT(outputs(), IsEmpty());
    EXPECT_EQ(run(files + "--report none.res").status, 2) << "not there yet";
    EXPECT_FALSE(fs::exists(folder.path() / "none.res"));
    EXPECT_EQ(run("index p.vbp --config o/a.hcnf --header frmMain.frx").status, 2);
#ifndef _WIN32
    fs::create_symlink(folder.path() / "frmMain.frx", folder.path() / "link.txt");
    fs::create_symlink(folder.path() / "Module1.frx", folder.path() / "dangling.txt");
    fs::create_hard_link(folder.path() / "sub/c.ctx", folder.path() / "hard.txt");
    fs::create_symlink(folder.path() / "elsewhere.txt", folder.path() / "sub/c.frx");
    folder.write("elsewhere.txt", "binary");
    for (const std::string name : {"link.txt", "dangling.txt", "hard.txt", "elsewhere.txt"})
        EXPECT_EQ(run(files + "--text " + name).status, 2) << name;
#endif
    // Other files may have these endings and names.
    EXPECT_EQ(run(files + "--text o/frmMain.frx --report c.ctx --project-file frmMain.txt").status, 0);
}

TEST_F(IndexCommand, WritesOverNoTextsThatItCannotRead) {
    const std::string utf16("\xFF\xFE.\0t\0o\0p\0i\0c\0 \0", 16);
    folder.write("t.txt", utf16);
    expectRefused(files + "--text t.txt", 2, "t.txt is no text file that corvelle has written");
    EXPECT_EQ(folder.read("t.txt"), utf16);
#ifndef _WIN32
    folder.write("o.txt", ".topic  IDH_AAAB\r\nkept\r\n");
    fs::permissions(folder.path(), fs::perms(0777));
    fs::permissions(folder.path() / "o", fs::perms(0777));
    fs::permissions(folder.path() / "o.txt", fs::perms(0222));
    test::Surroundings nobody;
    nobody.asNobody = true;
    const auto result = run(files + "--text o.txt", nobody);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "o.txt: Permission denied\n");
    EXPECT_THAT(outputs(), IsEmpty());
    fs::permissions(folder.path() / "o.txt", fs::perms(0644));
    EXPECT_EQ(folder.read("o.txt"), ".topic  IDH_AAAB\r\nkept\r\n");
#endif
}

TEST_F(IndexCommand, WritesOverNoOtherProjectsModule) {
    const std::string other = "Attribute VB_Name = \"modText\"\r\nOption Explicit\r\n";
    folder.write("shared.bas", other);
    folder.write("notes.txt", "Notes\r\n");
    expectRefused(files + "--module modHelp --module-file shared.bas", 2,
                  "shared.bas is no module named modHelp");
    expectRefused(files + "--module modHelp --module-file notes.txt", 2,
                  "notes.txt is no module named modHelp");
    EXPECT_EQ(folder.read("shared.bas"), other);
    // What an earlier run has left is replaced.
    folder.write("o/modHelp.bas", "Attribute VB_Name = \"MODHELP\"\r\nPublic Const IDH_OLDE = 7\r\n");
    EXPECT_EQ(run(files + module).status, 0);
    EXPECT_THAT(folder.read("o/modHelp.bas"), Not(HasSubstr("OLDE")));
}

TEST_F(IndexCommand, WritesNothingWhenADesignerCannotBeRead) {
    const auto withMember = [&](const std::string& line) { folder.write("p.vbp", project + line + "\r\n"); };
    const auto expectFailed = [&](const std::string& words) {
        const auto result = run(files + module + "--text o/t --report o/r");
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.err, HasSubstr(words));
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(outputs(), IsEmpty());
    };
    withMember("Form=sub\\gone.frm");
    expectFailed("sub/gone.frm: File not found");
    withMember("UserControl=c.ctl"); // not even selected
    expectFailed("c.ctl: File not found");
    folder.write("c.ctl", "VERSION 5.00\r\nBegin VB.UserControl c \r\n");
    expectFailed("c.ctl:2: The header never ends");
    folder.write("c.ctl", "");
    expectFailed("c.ctl: there is no designer section");
    folder.write("c.ctl", std::string("\xFF\xFE") + std::string("V\0E\0R\0S\0I\0O\0N\0 \0005\0\r\0\n\0", 22));
    expectFailed("c.ctl: this is UTF-16 text");
    withMember("Designer=sub");
    fs::create_directory(folder.path() / "sub");
    expectFailed("sub: Path/File access error");
}

TEST_F(IndexCommand, GoesOnWithoutAModuleButTellsOfIt) {
    fs::remove(folder.path() / "Module1.bas");
    const auto result = run(files);
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("Module1.bas: File not found"));
    EXPECT_THAT(outputs(), UnorderedElementsAre("a.h", "a.hcnf"));
    EXPECT_EQ(run(files + "--module Module1 --module-file o/m.bas").status, 2);
    EXPECT_THAT(outputs(), UnorderedElementsAre("a.h", "a.hcnf")); // the name is taken
}

TEST_F(IndexCommand, TellsOfAProjectThatCannotBeRead) {
    expectRefused("index none.vbp --header o/a --config o/b", 2, "none.vbp: File not found");
    expectRefused("index Module1.bas --header o/a --config o/b", 2, "Module1.bas: not a project");
    folder.write("bin.vbp", std::string(100, '\1'));
    expectRefused("index bin.vbp --header o/a --config o/b", 2, "bin.vbp: this is a binary file");
}

TEST_F(IndexCommand, TellsWhichFileCouldNotBeWritten) {
    auto result = run("index p.vbp --header none/a.h --config o/a.hcnf --text o/t");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("Path not found"));
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(outputs(), IsEmpty());
    result = run(files + "--text none/t --project-file none/p --report none/r");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "none/t: Path not found: none\n");
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(outputs(), IsEmpty());
    result = run(files + "--module m --module-file none/m.bas");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "none/m.bas: Path not found: none\n");
    EXPECT_EQ(folder.read("p.vbp"), project);
    EXPECT_THAT(outputs(), IsEmpty());
}

#ifndef _WIN32
TEST_F(IndexCommand, LeavesAllFilesAloneWhenTheDiskIsFull) {
    const auto texts = std::string(".topic  IDH_AAAA\r\n").append(3000, 'x').append("\r\n");
    folder.write("o/a.txt", texts);
    test::Surroundings fullDisk;
    fullDisk.largestFile = 1000;
    const auto result = run(files + "--text o/a.txt", fullDisk);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "o/a.txt: the file would be too large\n");
    EXPECT_EQ(folder.read("o/a.txt"), texts);
    EXPECT_THAT(outputs(), UnorderedElementsAre("a.txt"));
}
#endif

TEST_F(IndexCommand, LeavesAReadOnlyProjectAlone) {
    fs::permissions(folder.path() / "p.vbp", fs::perms(0444));
    const auto result = run(files + module);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "p.vbp: the file is read-only\n");
    EXPECT_EQ(folder.read("p.vbp"), project);
    EXPECT_THAT(outputs(), IsEmpty());
}

#ifndef _WIN32
TEST_F(IndexCommand, TellsThatNobodyGetsItsOutput) {
    test::Surroundings fullDisk;
    fullDisk.outputTo = "/dev/full";
    const auto result = run(files, fullDisk);
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(outputs(), UnorderedElementsAre("a.h", "a.hcnf"));
}
#endif

TEST_F(IndexCommand, RefusesAModuleThatTheIDECouldNotHold) {
    std::string large = "VERSION 5.00\r\nBegin VB.Form frmMain \r\n";
    for (int i = 0; i < 65535; ++i) large += "   Begin VB.TextBox t \r\n   End\r\n";
    folder.write("frmMain.frm", large + "End\r\nAttribute VB_Name = \"frmMain\"\r\n");
    expectRefused(files + module, 1, "The mapping module would have 65535 lines; the IDE takes 65534");
    EXPECT_EQ(run(files).status, 0);
}

TEST_F(IndexCommand, WritesAModuleNearTheIDEsLimit) {
    std::string large = "VERSION 5.00\r\nBegin VB.Form frmMain \r\n";
    for (int i = 0; i < 32765; ++i) large += "   Begin VB.TextBox t \r\n   End\r\n";
    folder.write("frmMain.frm", large + "End\r\nAttribute VB_Name = \"frmMain\"\r\n");
    EXPECT_EQ(run(classic + module + "--autoload").status, 0);
    const auto code = folder.read("o/modHelp.bas");
    EXPECT_EQ(std::count(code.begin(), code.end(), '\n'), 65535); // and the hidden line
    const auto procedures = code.find("Public Sub");
    EXPECT_EQ(code.find("Public Const", procedures), std::string::npos);
    EXPECT_THAT(code.substr(0, procedures), EndsWith("Public Const IDH_BWMF = 33765\r\n"));
}

TEST_F(IndexCommand, TellsThatItRanOutOfNames) {
    std::string large = "VERSION 5.00\r\nBegin VB.Form frmMain \r\n";
    for (int i = 0; i < 26 * 26 * 26 * 26; ++i) large += "   Begin VB.TextBox t \r\n   End\r\n";
    folder.write("frmMain.frm", large + "End\r\nAttribute VB_Name = \"frmMain\"\r\n");
    const auto result = run(classic);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "You need to reset the IDGen\n");
    EXPECT_THAT(result.out, EndsWith("o/a.h\no/a.hcnf\n"));
    EXPECT_THAT(folder.read("o/a.hcnf"), EndsWith("IDH_ZZZZ</C>\r\n<C>t TextBox </C>\r\n"));
}

TEST_F(IndexCommand, TakesPathsWithLettersBeyondASCII) {
    // One letter that both code pages have.
#ifdef _WIN32
    const std::string letters = "\xE4\xF6";
#else
    const std::string letters = "\xC3\xA4\xC3\xB6";
#endif
    const auto result =
        run("index p.vbp --header o/" + letters + ".h --config o/" + letters + ".hcnf --text o/" + letters +
            ".txt --project-file o/" + letters + ".icp --module modHelp --module-file o/" + letters + ".bas");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(folder.read("p.vbp"), HasSubstr("\r\nModule=modHelp; o\\" + letters + ".bas\r\n"));
    const auto wide = fs::path(u8"\u00E4\u00F6");
    EXPECT_THAT(folder.read("o" / fs::path(wide) += ".icp"),
                HasSubstr("\r\nText File= o/" + letters + ".txt\r\n"));
    EXPECT_THAT(run("text o/" + letters + ".icp list").out,
                StartsWith("frmMain\tcmdOK\tCommandButton\tIDH_AAAB\t\n"));
    EXPECT_EQ(run("text o/" + letters + ".icp set frmMain cmdOK new").status, 0);
    EXPECT_THAT(folder.read("o" / fs::path(wide) += ".txt"), HasSubstr(".topic  IDH_AAAB\r\nnew\r\n"));
}

TEST_F(IndexCommand, HasHelp) {
    const auto result = run("index --help");
    EXPECT_EQ(result.status, 0);
    for (const char* option : {"--header FILE",
                               "--config FILE",
                               "--components LIST",
                               "--exclude LIST",
                               "--exclude-list FILE",
                               "--module NAME",
                               "--module-file FILE",
                               "--replace-module",
                               "--autoload",
                               "--text FILE",
                               "--default-text TEXT",
                               "--report FILE",
                               "--project-file FILE",
                               "--numbering stable|classic",
                               "--names sequence|readable",
                               "--designers",
                               "--renames",
                               "--no-renames",
                               "--restore",
                               "--check"})
        EXPECT_THAT(result.out, HasSubstr(option));
}

TEST_F(IndexCommand, IndexesTheExamples) {
    fs::copy(EXAMPLES_DIR, folder.path() / "examples", fs::copy_options::recursive);
    const auto result =
        run("index examples/Stockroom/Stockroom.vbp --components forms,mdi,controls --exclude menus "
            "--exclude-list examples/exclude.lst --header o/a.h --config o/a.hcnf " +
            module + "--autoload --text o/a.txt --report o/a.log --project-file o/a.icp");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "Without a procedure, since no module reaches its controls: StockGauge\n");
    EXPECT_THAT(folder.read("o/a.hcnf"), HasSubstr("<C>tbrMain Toolbar IDH_AAAB</C>\r\n"));
    EXPECT_THAT(folder.read("examples/Stockroom/Stockroom.vbp"),
                HasSubstr("\r\nModule=modHelp; ..\\..\\o\\modHelp.bas\r\n"));
    const auto again =
        run("index examples/Stockroom/Stockroom.vbp --header o/b.h --config o/b.hcnf --components "
            "forms,mdi,controls --exclude menus --exclude-list examples/exclude.lst");
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(folder.read("o/b.h"), folder.read("o/a.h"));
}

} // namespace
} // namespace corvelle::cli
