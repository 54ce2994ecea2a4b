// Runs the program, which is found in CORVELLE_BINARY: numbers that stay.
#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"
#include "places.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace corvelle::cli {
namespace {

namespace fs = std::filesystem;
using test::Outcome;
using test::TemporaryFolder;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::vector<std::string> stockroom{"Stockroom/Stockroom.vbp", "--header", "o/a.h", "--config",
                                         "o/a.hcnf"};
const std::vector<std::string> withTexts{"--text", "o/a.txt", "--project-file", "o/a.icp"};

std::string replaced(std::string text, const std::string& old, const std::string& fresh) {
    const auto at = text.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return at == std::string::npos ? text : text.replace(at, old.size(), fresh);
}

// Paths as POSIX systems write them.
std::string withSlashes(std::string text) {
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

class StableIndexes : public testing::Test {
  protected:
    StableIndexes() {
        fs::copy(fs::path(EXAMPLES_DIR) / "Stockroom", folder.path() / "Stockroom");
        fs::create_directory(folder.path() / "o");
    }

    Outcome run(std::vector<std::string> arguments) const {
        test::Surroundings surroundings;
        surroundings.folder = folder.path();
        return test::runCorvelle(arguments, surroundings);
    }
    Outcome index(std::vector<std::string> more = {}, bool texts = true) const {
        std::vector<std::string> arguments{"index"};
        arguments.insert(arguments.end(), stockroom.begin(), stockroom.end());
        if (texts) arguments.insert(arguments.end(), withTexts.begin(), withTexts.end());
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    Outcome text(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"text", "o/a.icp"});
        return run(arguments);
    }
    void edit(const std::string& file, const std::string& old, const std::string& fresh) {
        folder.write(file, replaced(folder.read(file), old, fresh));
    }
    // Of "DESIGNER\tCONTROL" what the index says, "IDH_AAAB\tits text"; of elements of an array one below the
    // other.
    std::map<std::string, std::string> entries() const {
        std::map<std::string, std::string> result;
        std::istringstream lines(text({"list"}).out);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream parts(line);
            std::string designer, control, className, rest;
            std::getline(parts, designer, '\t');
            std::getline(parts, control, '\t');
            std::getline(parts, className, '\t');
            std::getline(parts, rest);
            result[designer + "\t" + control] += rest + "\n";
        }
        return result;
    }
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> result;
        for (const auto& entry : fs::directory_iterator(folder.path() / "o"))
            result[entry.path().filename().string()] = folder.read("o" / entry.path().filename());
        return result;
    }
    std::map<std::string, std::string> numbers() const {
        std::map<std::string, std::string> result;
        std::istringstream lines(folder.read("o/a.h"));
        for (std::string word, name, number; lines >> word;) {
            if (word == "#define" && lines >> name >> number) result[name] = number;
        }
        return result;
    }

    TemporaryFolder folder;
};

TEST_F(StableIndexes, KeepEveryNumberAndTextWithItsControl) {
    ASSERT_EQ(index().status, 0);
    ASSERT_EQ(text({"set", "frmPart", "chkDiscontinued", "No more of it is ordered."}).status, 0);
    ASSERT_EQ(text({"set", "frmOrder", "cmdAction#2", "Prints the order."}).status, 0);
    ASSERT_EQ(text({"set", "frmOrder", "cboSupplier", "Who delivers it."}).status, 0);
    ASSERT_EQ(text({"set", "frmParts", "txtFind", "Finds a part."}).status, 0);
    const auto before = entries();
    const auto numbersBefore = numbers();

    edit(
        "Stockroom/frmOrder.frm", "   Begin VB.PictureBox picTop ",
        "   Begin VB.CommandButton cmdNew \r\n      Height          =   375\r\n      Width           =   375\r\n"
        "   End\r\n   Begin VB.PictureBox picTop ");
    edit("Stockroom/frmPart.frm", "VB.CheckBox chkDiscontinued", "VB.CheckBox chkGone");
    edit("Stockroom/Stockroom.vbp", "Form=frmParts.frm\r\n", "");
    const auto again = index({"--renames"});
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_THAT(again.err,
                HasSubstr("Renamed: frmPart: chkDiscontinued (IDH_AACE 1052) is now frmPart: chkGone: "
                          "IDH_AACE 1052\n"));
    EXPECT_THAT(again.err, HasSubstr("Gone: frmParts: txtFind (TextBox): IDH_AABE 210\n"));
    EXPECT_THAT(again.err, Not(HasSubstr("New")));
    EXPECT_THAT(again.err, Not(HasSubstr("chkGone (CheckBox)")));

    const auto after = entries();
    auto expected = before;
    for (auto entry = expected.begin(); entry != expected.end();)
        entry = entry->first.rfind("frmParts\t", 0) == 0 ? expected.erase(entry) : std::next(entry);
    expected["frmPart\tchkGone"] = expected["frmPart\tchkDiscontinued"];
    expected.erase("frmPart\tchkDiscontinued");
    expected["frmOrder\tcmdNew"] = "IDH_AACZ\t\n";
    EXPECT_EQ(after, expected);
    EXPECT_THAT(after.at("frmPart\tchkGone"), HasSubstr("No more of it is ordered."));
    for (const auto& [name, number] : numbers()) {
        if (name == "IDH_AACZ")
            EXPECT_EQ(number, "1070"); // above all
        else
            EXPECT_EQ(number, numbersBefore.at(name)) << name;
    }
    // The text of what went is there until it is taken out.
    EXPECT_THAT(folder.read("o/a.txt"), HasSubstr(".topic  IDH_AABE\r\nFinds a part.\r\n"));

    const auto settled = files();
    EXPECT_EQ(index().status, 0);
    EXPECT_EQ(files(), settled);
}

TEST_F(StableIndexes, AreTheClassicOnesInAnEmptyFolderOverFormsWithoutNumbers) {
    for (const auto& entry : fs::directory_iterator(folder.path() / "Stockroom")) {
        const auto name = "Stockroom" / entry.path().filename();
        auto bytes = folder.read(name);
        for (auto at = bytes.find("HelpContextID"); at != std::string::npos;
             at = bytes.find("HelpContextID", at + 1))
            bytes.replace(at, 13, "Tag          ");
        folder.write(name, bytes);
    }
    ASSERT_EQ(index().status, 0);
    auto stable = files();
    fs::remove_all(folder.path() / "o");
    fs::create_directory(folder.path() / "o");
    ASSERT_EQ(index({"--numbering", "classic"}).status, 0);
    const auto classic = files();
    EXPECT_EQ(stable["a.hcnf"], classic.at("a.hcnf"));
    EXPECT_EQ(stable["a.txt"], classic.at("a.txt"));
    EXPECT_EQ(stable["a.h"].substr(0, classic.at("a.h").size()), classic.at("a.h"));
    EXPECT_THAT(stable["a.h"].substr(classic.at("a.h").size()), StartsWith("// @memory 1\r\n"));
}

TEST_F(StableIndexes, ChangeNoByteInASecondRun) {
    const std::vector<std::string> module{"--module",      "modHelp",          "--module-file",
                                          "o/modHelp.bas", "--replace-module", "--autoload"};
    ASSERT_EQ(index(module).status, 0);
    const auto first = files();
    const auto project = folder.read("Stockroom/Stockroom.vbp");
    const auto again = index(module);
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(files(), first);
    EXPECT_EQ(folder.read("Stockroom/Stockroom.vbp"), project);
    EXPECT_THAT(again.out, testing::EndsWith("Total Controls: 76\n")); // nothing was written
}

TEST_F(StableIndexes, StayAsVersionControlHasThem) {
    ASSERT_EQ(index().status, 0);
    for (const auto& [name, bytes] : files()) {
        std::string text;
        std::copy_if(bytes.begin(), bytes.end(), std::back_inserter(text), [](char c) { return c != '\r'; });
        folder.write("o/" + name, text);
    }
    const auto before = files();
    EXPECT_THAT(index({"--check"}).out, Not(HasSubstr("Would change")));
    EXPECT_EQ(index().status, 0);
    EXPECT_EQ(files(), before);
    // What does change is written as ever.
    EXPECT_EQ(index({"--designers"}).status, 0);
    EXPECT_THAT(folder.read("o/a.h"), StartsWith("#define IDH_AAAA  1000\r\n"));
    EXPECT_EQ(numbers().size(), 81U);
}

TEST_F(StableIndexes, TakeOverAClassicOne) {
    ASSERT_EQ(index({"--numbering", "classic"}).status, 0);
    const auto classic = files();
    const auto taken = index();
    EXPECT_EQ(taken.status, 0);
    EXPECT_EQ(folder.read("o/a.hcnf"), classic.at("a.hcnf"));
    EXPECT_EQ(folder.read("o/a.txt"), classic.at("a.txt"));
    EXPECT_THAT(folder.read("o/a.h"), StartsWith(classic.at("a.h") + "// @memory 1\r\n"));
    // The file's own number is told, the index's stays.
    EXPECT_THAT(withSlashes(taken.err),
                HasSubstr("Other number in the file: Stockroom/frmParts.frm:90: frmParts: txtFind: "
                          "HelpContextID is 210, in the index IDH_AABE 1030\n"));
}

TEST_F(StableIndexes, OfferARenameUntilItIsSettled) {
    ASSERT_EQ(index().status, 0);
    ASSERT_EQ(text({"set", "frmPart", "chkDiscontinued", "No more of it is ordered."}).status, 0);
    edit("Stockroom/frmPart.frm", "VB.CheckBox chkDiscontinued", "VB.CheckBox chkGone");
    const auto offered = index();
    EXPECT_EQ(offered.status, 1);
    EXPECT_THAT(offered.err, HasSubstr("Perhaps renamed: frmPart: chkDiscontinued (IDH_AACE 1052) is perhaps "
                                       "frmPart: chkGone: IDH_AACZ 1070\n"));
    EXPECT_THAT(offered.err, HasSubstr("--renames"));
    EXPECT_EQ(entries()["frmPart\tchkGone"], "IDH_AACZ\t\n");
    const auto undecided = files();
    EXPECT_EQ(index().status, 1); // still
    EXPECT_EQ(files(), undecided);
    EXPECT_EQ(index({"--renames"}).status, 0);
    EXPECT_EQ(entries()["frmPart\tchkGone"], "IDH_AACE\tNo more of it is ordered.\n");
    EXPECT_EQ(numbers()["IDH_AACE"], "1052");
    EXPECT_EQ(numbers().count("IDH_AACZ"), 0U);
    EXPECT_EQ(index().status, 0);

    edit("Stockroom/frmPart.frm", "VB.CheckBox chkGone", "VB.CheckBox chkOther");
    EXPECT_EQ(index({"--no-renames"}).status, 0);
    EXPECT_EQ(entries()["frmPart\tchkOther"],
              "IDH_AADA\t\n"); // the name that was given in between is not reused
    EXPECT_EQ(numbers()["IDH_AADA"], "1071");
    EXPECT_EQ(index({"--renames"}).status, 0);
    EXPECT_EQ(entries()["frmPart\tchkOther"], "IDH_AADA\t\n");
}

TEST_F(StableIndexes, LeaveOutWhatTheAuthorDeletedUntilItIsRestored) {
    ASSERT_EQ(index().status, 0);
    const auto first = numbers();
    ASSERT_EQ(text({"set", "frmPart", "txtNotes", "Notes."}).status, 0);
    ASSERT_EQ(text({"delete", "frmPart", "txtField#2"}).status, 0); // txtField(3)
    ASSERT_EQ(text({"delete", "frmOrder", "cboSupplier"}).status, 0);
    ASSERT_EQ(text({"default", "frmPart", "cboSupplier"}).status, 0);
    EXPECT_EQ(index().status, 0);
    EXPECT_EQ(entries().count("frmOrder\tcboSupplier"), 0U);
    EXPECT_EQ(entries()["frmPart\tcboSupplier"],
              "IDH_AAAA\tNo help information is available for this control.\n");
    EXPECT_EQ(entries()["frmPart\ttxtField"], "IDH_AABY\t\nIDH_AACA\t\nIDH_AACG\t\nIDH_AACH\t\n");
    EXPECT_THAT(folder.read("o/a.h"),
                HasSubstr("// @control txtField(3) TextBox fraStock IDH_AABZ 1047 deleted\r\n"));
    EXPECT_EQ(index({"--restore"}).status, 0);
    auto restored = first;
    restored.erase("IDH_AACF"); // still on the default
    EXPECT_EQ(numbers(), restored);
    EXPECT_EQ(entries()["frmPart\ttxtField"], "IDH_AABY\t\nIDH_AABZ\t\nIDH_AACA\t\nIDH_AACG\t\nIDH_AACH\t\n");
}

TEST_F(StableIndexes, KeepTheNumbersOfWhatTheOptionsLeaveOut) {
    ASSERT_EQ(index().status, 0);
    const auto first = files();
    EXPECT_EQ(index({"--exclude", "labels,menus", "--components", "forms"}).status, 0);
    EXPECT_THAT(folder.read("o/a.hcnf"), Not(HasSubstr(" Label ")));
    EXPECT_EQ(index().status, 0);
    EXPECT_EQ(folder.read("o/a.h"), first.at("a.h"));
    EXPECT_EQ(folder.read("o/a.hcnf"), first.at("a.hcnf"));
}

TEST_F(StableIndexes, AreCheckedWithoutAByteWritten) {
    EXPECT_EQ(index({"--check"}).status, 1);
    EXPECT_THAT(files(), IsEmpty());
    ASSERT_EQ(index({}, false).status, 0);
    const auto good = index({"--check"}, false);
    EXPECT_EQ(good.status, 0) << good.out;
    EXPECT_EQ(good.out, "");
    ASSERT_EQ(index().status, 0);
    folder.write("o/a.txt", folder.read("o/a.txt") + ".topic  IDH_OLDE\r\nx\r\n.topic  IDH_AAAB\r\ny\r\n");
    edit("Stockroom/frmParts.frm", "HelpContextID   =   210", "HelpContextID   =   211");
    edit("Stockroom/frmPart.frm", "HelpContextID   =   310", "HelpContextID   =   312");
    edit("Stockroom/frmOrder.frm", "VB.TextBox txtCell", "VB.ComboBox cboCell");
    const auto before = files();
    const auto report = index({"--check", "--report", "o/a.log"});
    EXPECT_EQ(report.status, 1);
    EXPECT_EQ(report.err, "");
    for (
        const auto* line : {
            "New: frmOrder: cboCell (ComboBox): IDH_AACZ 1070\n",
            "Gone: frmOrder: txtCell (TextBox): IDH_AACS 1064\n",
            "Other number in the file: Stockroom/frmParts.frm:90: frmParts: txtFind: HelpContextID is 211, in the "
            "index IDH_AABE 210\n",
            "Text missing: frmMain: dlgFile: IDH_AAAC\n",
            "Text left over: IDH_OLDE\n",
            "Text left over: IDH_AACS\n",
            "Topic there twice: IDH_AAAB\n",
            "Would change: o/a.h\n",
            "Would change: o/a.hcnf\n",
        })
        EXPECT_THAT(withSlashes(report.out), HasSubstr(line));
    EXPECT_EQ(files(), before);
}

TEST_F(StableIndexes, TellWhereANumberIsShared) {
    edit("Stockroom/frmPart.frm", "HelpContextID   =   310", "HelpContextID   =   312");
    const auto run = index();
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(withSlashes(run.err),
                HasSubstr("Shared number: 312: Stockroom/frmPart.frm:173: frmPart: cboSupplier: IDH_AACF\n"
                          "Shared number: 312: Stockroom/frmPart.frm:190: frmPart: txtField(0): IDH_AACH\n"));
    EXPECT_EQ(numbers()["IDH_AACF"], "312");
    EXPECT_EQ(numbers()["IDH_AACH"], "312");
}

TEST_F(StableIndexes, GiveReadableNamesAndDesignersTheirEntries) {
    EXPECT_EQ(index({"--names", "readable", "--designers", "--components", "forms,mdi,controls"}).status, 0);
    const auto given = numbers();
    for (const auto* name : {"IDH_frmOrder", "IDH_frmMain", "IDH_StockGauge", "IDH_frmOrder_cboSupplier",
                             "IDH_frmOrder_cmdAction_2"})
        EXPECT_EQ(given.count(name), 1U) << name;
    EXPECT_THAT(folder.read("o/a.hcnf"),
                HasSubstr("<P>frmOrder</P>\r\n<C>frmOrder Form IDH_frmOrder</C>\r\n"));
    // Names once given stay, new ones are as they are wanted now.
    edit("Stockroom/frmOrder.frm", "   Begin VB.PictureBox picTop ",
         "   Begin VB.CommandButton cmdNew \r\n   End\r\n   Begin VB.PictureBox picTop ");
    EXPECT_EQ(index({"--designers", "--components", "forms,mdi,controls"}).status, 0);
    auto more = numbers();
    EXPECT_EQ(more.erase("IDH_AAAB"), 1U);
    EXPECT_EQ(more, given);
}

TEST_F(StableIndexes, RefuseWhatTheyCannotTakeUp) {
    ASSERT_EQ(index().status, 0);
    const auto good = files();
    const auto expectRefused = [&](const std::string& file, const std::string& old, const std::string& fresh,
                                   const std::string& words) {
        for (const auto& [name, bytes] : good) folder.write("o/" + name, bytes);
        edit(file, old, fresh);
        const auto before = files();
        const auto result = index();
        EXPECT_EQ(result.status, 2) << fresh;
        EXPECT_THAT(result.err, HasSubstr(words)) << fresh;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(files(), before);
    };
    expectRefused("o/a.h", "#define IDH_AAAC  1002\r\n", "", "the header's memory has IDH_AAAC");
    expectRefused("o/a.h", "#define IDH_AAAC  1002", "#define IDH_AAAC  1003",
                  "IDH_AAAC is 1003 in the header");
    expectRefused("o/a.h", "#define IDH_AAAC  1002", "#define IDH_AAAB  1002",
                  "the header has IDH_AAAB twice");
    expectRefused("o/a.h", "#define IDH_AAAC  1002", "#define IDH_AAAC  99999999999", "line 3 of the header");
    expectRefused("o/a.h", "#define IDH_AAAC  1002", "#include \"more.h\"", "line 3 of the header");
    expectRefused("o/a.h", "// @end ", "// @End ", "this is no line of the memory");
    expectRefused("o/a.h", "// @control tbrMain Toolbar - IDH_AAAD 1003\r\n", "", "");
    expectRefused("o/a.hcnf", "IDH_AAAC</C>", "IDH_AAAD</C>", "IDH_AAAD is the name of another control");
    expectRefused("o/a.hcnf", "IDH_AAAC</C>", "IDH_QQQQ</C>", "no control of the name IDH_QQQQ");
    expectRefused("o/a.hcnf", "<P>frmPart</P>\r\n", "", "");
    expectRefused("o/a.hcnf", "CommonDialog IDH_AAAC</C>", "CommonDialog</C>", "is not whole");
    for (const auto* gone : {"o/a.h", "o/a.hcnf"}) {
        for (const auto& [name, bytes] : good) folder.write("o/" + name, bytes);
        fs::remove(folder.path() / gone);
        EXPECT_EQ(index().status, 2) << gone;
        EXPECT_FALSE(fs::exists(folder.path() / gone));
    }
    // Who insists begins anew.
    EXPECT_EQ(index({"--overwrite"}).status, 0);
    EXPECT_EQ(files(), good);
}

TEST_F(StableIndexes, RefuseTheIndexOfAnotherProject) {
    ASSERT_EQ(index().status, 0);
    const auto before = files();
    fs::copy(fs::path(EXAMPLES_DIR) / "Labels", folder.path() / "Labels");
    folder.write("Labels/Labels.vbp", "Type=Exe\r\nForm=frmLabels.frm\r\nName=\"Labels\"\r\n");
    const std::vector<std::string> other{"index", "Labels/Labels.vbp", "--header",
                                         "o/a.h", "--config",          "o/a.hcnf"};
    const auto refused = run(other);
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("none of its designers is in this project"));
    EXPECT_EQ(files(), before);
    auto insisting = other;
    insisting.emplace_back("--overwrite");
    EXPECT_EQ(run(insisting).status, 0);
    EXPECT_THAT(folder.read("o/a.h"), Not(HasSubstr("retired")));
}

TEST_F(StableIndexes, KnowWrongUsage) {
    for (const auto* option : {"--renames", "--no-renames", "--restore", "--designers", "--check"}) {
        const auto result = index({"--numbering", "classic", option});
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.err, HasSubstr(std::string(option) + ": only with --numbering stable"));
    }
    EXPECT_EQ(index({"--numbering", "classic", "--names", "readable"}).status, 2);
    EXPECT_EQ(index({"--names", "short"}).status, 2);
    EXPECT_EQ(index({"--renames", "--no-renames"}).status, 2);
    EXPECT_EQ(index({"--numbering", "other"}).status, 2);
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(StableIndexes, WriteAModuleThatCompiles) {
    ASSERT_EQ(index({"--components", "forms,mdi,controls", "--designers", "--module", "modHelp",
                     "--module-file", "o/modHelp.bas", "--autoload"})
                  .status,
              0);
    const auto code = folder.read("o/modHelp.bas");
    EXPECT_THAT(code,
                HasSubstr("Public Sub Load_HelpID_frmOrder(ByVal target As frmOrder)\r\n\tWith target\r\n"
                          "\t\t.HelpContextID = "));
    EXPECT_THAT(code, HasSubstr("\t\t.cmdAction(2).HelpContextID = "));
    for (const auto* without :
         {".lblStatus", ".linBottom", ".tmrRefresh", ".dlgFile", "Load_HelpID_StockGauge"})
        EXPECT_THAT(code, Not(HasSubstr(without)));
}

TEST_F(StableIndexes, ListTheirFindingsInTheReport) {
    ASSERT_EQ(index().status, 0);
    edit("Stockroom/frmOrder.frm", "VB.TextBox txtCell", "VB.ComboBox cboCell");
    EXPECT_EQ(index({"--report", "o/a.log"}).status, 0);
    EXPECT_THAT(folder.read("o/a.log"),
                HasSubstr("\r\n** New **\r\nfrmOrder: cboCell (ComboBox): IDH_AACZ 1070\r\n"
                          "** Gone **\r\nfrmOrder: txtCell (TextBox): IDH_AACS 1064\r\n"));
}

class TextTables : public StableIndexes {
  protected:
    TextTables() {
        EXPECT_EQ(index().status, 0);
        EXPECT_EQ(text({"set", "frmOrder", "cmdAction#2", "Prints \"it\",\nall of it.\xE4"}).status, 0);
        EXPECT_EQ(text({"default", "frmPart", "cboSupplier"}).status, 0);
        EXPECT_EQ(text({"delete", "frmPart", "txtNotes"}).status, 0);
    }
};

TEST_F(TextTables, GoOutAndComeInAgain) {
    folder.write("o/a.txt", folder.read("o/a.txt") + ".topic  IDH_OLDE\r\nlost\r\n");
    const auto exported = text({"export", "t.csv"});
    EXPECT_EQ(exported.status, 0) << exported.err;
    const auto table = folder.read("t.csv");
    EXPECT_THAT(table, StartsWith("\xEF\xBB\xBF"
                                  "designer,control,index,class,caption,name,number,text,state\r\n"));
    for (
        const auto* row : {
            "\r\nfrmOrder,cmdAction,1,CommandButton,Sa&ve,IDH_AACU,1066,\"Prints \"\"it\"\",\nall of it.\xC3\xA4\","
            "own text\r\n",
            "\r\nfrmPart,cboSupplier,,ComboBox,,IDH_AACF,312,No help information is available for this "
            "control.,default\r\n",
            "\r\nfrmPart,txtNotes,,TextBox,,IDH_AABV,1043,,deleted\r\n",
            "\r\n,,,,,IDH_OLDE,,lost,left over\r\n",
        })
        EXPECT_THAT(table, HasSubstr(row));
    const auto before = files();
    EXPECT_EQ(text({"import", "t.csv"}).out, "0 texts were changed.\n");
    EXPECT_EQ(files(), before);

    folder.write("t.csv",
                 replaced(table, "IDH_AACT,1065,,no text", "IDH_AACT,1065,\"Cancels,\r\nthen closes.\",x"));
    EXPECT_EQ(text({"import", "t.csv"}).out, "1 texts were changed.\n");
    EXPECT_EQ(folder.read("o/a.txt"), replaced(before.at("a.txt"), ".topic  IDH_AACT\r\n\r\n",
                                               ".topic  IDH_AACT\r\nCancels,\r\nthen closes.\r\n"));
}

TEST_F(TextTables, ChangeNothingUnlessAllRowsHaveAPlace) {
    const auto before = files();
    const std::string table = "designer;control;index;text\n"
                              "frmOrder;cmdAction;1;new\n"
                              "frmOrder;cmdAction;7;x\n"
                              "frmNone;cmdAction;0;x\n"
                              "frmPart;cboSupplier;;x\n"
                              "frmPart;txtNotes;;x\n"
                              "frmOrder;cmdAction;1;other\n"
                              "frmOrder;cmdAction;2;.topic x\n"
                              "frmOrder;cmdAction;0;\xD0\x96\n"
                              ";;;x\n"
                              "frmOrder;cmdAction;1\n"
                              "frmOrder;cmdAction;0;x; y\n";
    folder.write("t.csv", table);
    const auto refused = text({"import", "t.csv"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "");
    for (const auto* line : {
             "t.csv:3: frmOrder: cmdAction: the index has no such control",
             "t.csv:4: frmNone: cmdAction: the index has no such control",
             "t.csv:5: frmPart: cboSupplier: the control shows the default text",
             "t.csv:6: frmPart: txtNotes: the control is deleted from the index",
             "t.csv:7: frmOrder: cmdAction: another row has another text for the control",
             "t.csv:8: frmOrder: cmdAction: a line of the text that begins with .topic",
             "t.csv:9: frmOrder: cmdAction: the column text has a character",
             "t.csv:10: : : it names no designer",
             "t.csv:11: frmOrder: cmdAction: it ends before the column text",
             "t.csv:12: frmOrder: cmdAction: it has more cells than the first row",
             "t.csv: 10 rows have no place",
         })
        EXPECT_THAT(refused.err, HasSubstr(line));
    EXPECT_EQ(files(), before);
    const auto partial = text({"import", "t.csv", "--partial"});
    EXPECT_EQ(partial.status, 1);
    EXPECT_EQ(partial.out, "1 texts were changed.\n");
    EXPECT_THAT(folder.read("o/a.txt"), HasSubstr(".topic  IDH_AACU\r\nnew\r\n"));
    EXPECT_THAT(folder.read("o/a.txt"), HasSubstr(".topic  IDH_AACV\r\n\r\n"));
    folder.write("t.csv", "control,text\nx,y\n");
    EXPECT_EQ(text({"import", "t.csv"}).status, 1);
    folder.write("t.csv", "designer,control,text\n\"x\n");
    EXPECT_EQ(text({"import", "t.csv"}).status, 1);
    EXPECT_EQ(text({"import", "none.csv"}).status, 2);
}

TEST_F(TextTables, HaveNoTextThatASpreadsheetWouldReckon) {
    ASSERT_EQ(text({"set", "frmOrder", "lblStatus", "- or \n=2"}).status, 0);
    ASSERT_EQ(text({"export", "t.csv"}).status, 0);
    EXPECT_THAT(folder.read("t.csv"), HasSubstr(",\"'- or \n=2\",own text\r\n"));
    const auto before = files();
    EXPECT_EQ(text({"import", "t.csv"}).out, "0 texts were changed.\n");
    EXPECT_EQ(files(), before);
}

// Without a memory nobody knows which element of an array a row is of; as long as it says what they all have,
// that does not matter.
TEST_F(TextTables, ComeInUnchangedWhereSeveralControlsOfANameAreOnTheDefault) {
    folder.write("o/a.h", "#define IDH_AAAA  1000\r\n");
    folder.write("o/a.hcnf", "<P>frmOrder</P>\r\n<C>l Label IDH_AAAA</C>\r\n<C>l Label IDH_AAAA</C>\r\n");
    folder.write("o/a.txt", ".topic  IDH_AAAA\r\nNothing.\r\n");
    ASSERT_EQ(text({"export", "t.csv"}).status, 0);
    EXPECT_EQ(text({"import", "t.csv"}).status, 0);
    edit("t.csv", "Nothing.", "Something.");
    EXPECT_EQ(text({"import", "t.csv"}).status, 1);
}

TEST_F(TextTables, TellAndTakeOutWhatIsLeftOver) {
    edit("Stockroom/frmOrder.frm", "VB.CommandButton cmdAction", "VB.CommandButton cmdOther");
    ASSERT_EQ(index({"--no-renames"}).status, 0);
    EXPECT_THAT(text({"missing"}).out, HasSubstr("frmOrder\tcmdOther(2)\tCommandButton\tIDH_AACZ\n"));
    EXPECT_THAT(text({"missing"}).out, Not(HasSubstr("txtNotes")));
    const auto before = folder.read("o/a.txt");
    EXPECT_EQ(text({"left-over"}).out, "IDH_AACT\t\n");
    EXPECT_EQ(text({"prune"}).status, 0);
    EXPECT_EQ(folder.read("o/a.txt"), replaced(before, ".topic  IDH_AACT\r\n\r\n", ""));
    EXPECT_EQ(text({"left-over"}).out, "");
    EXPECT_EQ(text({"prune"}).status, 0);
}

TEST_F(TextTables, WriteOverNoOtherFile) {
    folder.write("notes.csv", "mine\r\n");
    for (const auto* file : {"o/a.h", "o/a.txt", "o/a.icp", "notes.csv", "Stockroom/Stockroom.vbp"}) {
        const auto before = folder.read(file);
        EXPECT_EQ(text({"export", file}).status, 2) << file;
        EXPECT_EQ(folder.read(file), before);
    }
    EXPECT_EQ(text({"export", "t.csv"}).status, 0);
    EXPECT_EQ(text({"export", "t.csv"}).status, 0); // its own
}

TEST_F(TextTables, KeepTheTextsOfWhatTheOptionsLeaveOut) {
    ASSERT_EQ(text({"set", "frmOrder", "lblStatus", "Its state."}).status, 0);
    ASSERT_EQ(index({"--exclude", "labels"}).status, 0);
    EXPECT_EQ(text({"left-over"}).out, "");
    EXPECT_EQ(text({"prune"}).status, 0);
    ASSERT_EQ(index().status, 0);
    EXPECT_EQ(entries()["frmOrder\tlblStatus"], "IDH_AACR\tIts state.\n");
}

} // namespace
} // namespace corvelle::cli
