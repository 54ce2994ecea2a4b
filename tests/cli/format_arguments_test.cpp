// What may stand on the command line, and what the program says of anything else.

#include "cli/format_fixture.h"
#include "cli/format_settings.h"
#include "places.h"
#include "version.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <thread>

namespace corvelle::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class Arguments : public FormatTest {
  protected:
    // Wrong usage: status 2, a reason on standard error and nothing else anywhere.
    void expectWrong(const std::vector<std::string>& arguments, const std::string& reason) {
        folder.write("a.bas", untidy);
        const Outcome outcome = format(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr(reason));
        EXPECT_EQ(folder.read("a.bas"), untidy);
    }

    std::string stdoutOf(std::vector<std::string> options) {
        folder.write("a.bas", untidy);
        options.insert(options.end(), {"--stdout", "--quiet", "a.bas"});
        const Outcome outcome = format(options);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return outcome.out;
    }
};

TEST(Program, PrintsItsVersion) {
    const Outcome outcome = runCorvelle({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "corvelle " CORVELLE_VERSION "\n");
    EXPECT_EQ(outcome.err, "");
}

TEST(Program, NamesAnUnknownCommandAndOffersTheNearest) {
    const auto told = [](const std::vector<std::string>& arguments) {
        const Outcome outcome = runCorvelle(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        return outcome.err;
    };
    const std::string end = "\nRun with --help for more information.\n";
    EXPECT_EQ(told({"fromat", "a.bas"}), "unknown command 'fromat'; did you mean 'format'?" + end);
    EXPECT_EQ(told({"help"}), "unknown command 'help'; the commands are format, index, text" + end);
    EXPECT_EQ(told({""}), "unknown command ''; the commands are format, index, text" + end);
    EXPECT_EQ(told({"text", "a.icp", "lsit"}), "unknown command 'lsit'; did you mean 'list'?" + end);
    EXPECT_EQ(told({"a\x1B[2J"}), "unknown command 'a\\x1B[2J'; the commands are format, index, text" + end);
}

TEST(Program, ListsItsCommandsInItsHelp) {
    const Outcome outcome = runCorvelle({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, AllOf(HasSubstr("Usage: corvelle"), HasSubstr("\n  format  "),
                                   HasSubstr("\n  index  "), HasSubstr("\n  text  ")));
    EXPECT_EQ(outcome.err, "");
}

TEST(Program, HasHelpForEveryCommand) {
    for (const std::string command : {"format", "index", "text"}) {
        const Outcome outcome = runCorvelle({command, "--help"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, HasSubstr("Usage: corvelle " + command + " [OPTIONS] P"));
        EXPECT_EQ(outcome.err, "");
    }
}

#ifndef _WIN32
TEST(Program, NoticesThatNobodyCouldBeToldTheVersion) {
    Surroundings full;
    full.outputTo = "/dev/full";
    EXPECT_EQ(runCorvelle({"--version"}, full).status, 2);
    EXPECT_EQ(runCorvelle({"format", "--help"}, full).status, 2);
}
#endif

TEST(Program, WantsACommand) {
    const Outcome outcome = runCorvelle({});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("A command is required"));
}

TEST(Program, NamesACommandThatItDoesNotKnow) {
    const Outcome outcome = runCorvelle({"reformat", "a.bas"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("reformat"));
}

TEST_F(Arguments, AreAllInTheHelp) {
    const Outcome outcome = format({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const char* option :
         {"PATH", "--tab-width N", "--remove-empty-lines", "--remove-comment-lines",
          "--remove-trailing-comments", "--check", "--diff", "--stdout", "--force", "--backup-dir DIR",
          "--stdin-name NAME", "--jobs N", "--quiet", "Exit status", ".vbp", ".vbg"}) {
        EXPECT_THAT(outcome.out, HasSubstr(option));
    }
}

// The manual's page of the command line names what the program's own help names.
TEST(Manual, NamesEveryOptionOfTheCommandLine) {
    std::ifstream file(HELP_DIR "/command_line.html", std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(page.empty());
    for (const char* command : {"format", "index", "text"}) {
        const std::string help = runCorvelle({command, "--help"}).out;
        const std::regex option("--[a-z][a-z-]+");
        for (std::sregex_iterator each(help.begin(), help.end(), option), end; each != end; ++each) {
            EXPECT_NE(page.find(each->str()), std::string::npos) << command << " " << each->str();
        }
    }
}

TEST_F(Arguments, WithoutAPathAreWrong) {
    expectWrong({}, "PATH is required");
}

TEST_F(Arguments, WithAnUnknownOptionAreWrong) {
    expectWrong({"--chek", "a.bas"}, "--chek");
}

TEST_F(Arguments, TakeATabWidthFromNoneToTen) {
    EXPECT_EQ(stdoutOf({"--tab-width", "0"}), untidy);
    EXPECT_THAT(stdoutOf({"--tab-width", "1"}), HasSubstr("\n If a Then\r\n  b\r\n"));
    EXPECT_THAT(stdoutOf({"--tab-width=10"}), HasSubstr("\n          If a Then\r\n"));
    expectWrong({"--tab-width", "11", "a.bas"}, "--tab-width: 11 is not a whole number from 0 to 10");
    expectWrong({"--tab-width", "-1", "a.bas"}, "--tab-width: -1 is not");
    expectWrong({"--tab-width", "2.5", "a.bas"}, "--tab-width: 2.5 is not");
    expectWrong({"--tab-width", "a.bas"}, "--tab-width: a.bas is not");
    expectWrong({"a.bas", "--tab-width"}, "--tab-width");
}

TEST_F(Arguments, TakeATabWidthOfTwoUnlessToldOtherwise) {
    EXPECT_EQ(stdoutOf({}), tidy);
}

TEST_F(Arguments, ReadALeadingZeroAsADecimalOne) {
    EXPECT_THAT(stdoutOf({"--tab-width", "08"}), HasSubstr("\n        If a Then\r\n"));
}

TEST_F(Arguments, TakeTheLastOfTwoTabWidths) {
    EXPECT_EQ(stdoutOf({"--tab-width", "7", "--tab-width", "2"}), tidy);
}

TEST_F(Arguments, MayRepeatAFlag) {
    folder.write("a.bas", "Sub a()\r\n\r\nEnd Sub\r\n");
    const Outcome outcome =
        format({"--remove-empty-lines", "--remove-empty-lines", "--stdout", "--stdout", "a.bas"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "Sub a()\r\nEnd Sub\r\n");
}

TEST_F(Arguments, TakeOneJobOrMore) {
    EXPECT_EQ(stdoutOf({"--jobs", "1"}), tidy);
    EXPECT_EQ(stdoutOf({"--jobs", "64"}), tidy);
    expectWrong({"--jobs", "0", "a.bas"}, "--jobs: 0 is not a whole number from 1 to ");
    expectWrong({"--jobs", "4294967297", "a.bas"}, "--jobs: 4294967297 is not");
    expectWrong({"--jobs", "two", "a.bas"}, "--jobs: two is not");
}

TEST_F(Arguments, TakeAsManyJobsAsThereAreProcessors) {
    EXPECT_EQ(cli::FormatSettings().jobs, std::max(1U, std::thread::hardware_concurrency()));
}

TEST_F(Arguments, DoNotMixTheFormattedFileWithOtherResults) {
    expectWrong({"--stdout", "--check", "a.bas"}, "--stdout");
    expectWrong({"--stdout", "--diff", "a.bas"}, "--stdout");
}

TEST_F(Arguments, WithSeveralModulesForStandardOutputAreWrong) {
    folder.write("b.bas", untidy);
    expectWrong({"--stdout", "a.bas", "b.bas"}, "--stdout: takes one module, not 2");
    expectWrong({"--stdout", "."}, "--stdout: takes one module, not 2");
}

TEST_F(Arguments, MayNameOneModuleTwiceForStandardOutput) {
    folder.write("a.bas", untidy);
    EXPECT_EQ(format({"--stdout", "a.bas", "./a.bas"}).out, tidy);
}

TEST_F(Arguments, MayFollowThePaths) {
    folder.write("a.bas", untidy);
    const Outcome outcome = format({"a.bas", "--check"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(folder.read("a.bas"), untidy);
}

TEST_F(Arguments, BehindTwoDashesAreNoOptions) {
    folder.write("--check", "");
    folder.write("-x.bas", untidy);
    EXPECT_EQ(format({"--quiet", "--", "-x.bas"}).status, 0);
    EXPECT_EQ(folder.read("-x.bas"), tidy);
}

TEST_F(Arguments, AreTakenAsTheyAreWritten) {
    std::vector<std::string> names{"[a.bas]", "[b,c].bas", "[d,e]",  "f g.bas",     "%%.bas",
                                   "i=1.bas", "@j.bas",    "format", "m\xE4rz.bas", "#1.bas"};
#ifndef _WIN32
    names.push_back("\"h\".bas"); // no name there holds a quote
#endif
    for (const std::string& name : names) {
        const std::string path = name.find(".bas") + 4 == name.size() ? name : name + "/x.bas";
        folder.write(path, untidy);
        const Outcome outcome = format({"--quiet", name});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(folder.read(path), tidy) << name;
    }
    const Outcome listed = format({"--check", "--stdin-name", "[x]", "-"});
    EXPECT_THAT(listed.err, StartsWith("[x]: "));
}

TEST_F(Arguments, DoNotNameABackupFolderOfNoName) {
    expectWrong({"--backup-dir", "", "a.bas"}, "--backup-dir");
}

} // namespace
} // namespace corvelle::test
