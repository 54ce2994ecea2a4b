// What else may stand where a module is meant: it is told and left alone, and stops nobody.

#include "cli/format_fixture.h"

#ifndef _WIN32
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#endif

namespace corvelle::test {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::HasSubstr;

class OddFiles : public FormatTest {};

TEST_F(OddFiles, WithReturnsAloneAsLineEndsAreLeftAlone) {
    const std::string old = "Sub a()\rb\rEnd Sub\r";
    folder.write("a.bas", old);
    for (const char* option : {"--quiet", "--force"}) {
        const Outcome outcome = format({option, "a.bas"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, "a.bas: its lines end in a carriage return alone; left as it is\n");
        EXPECT_EQ(folder.read("a.bas"), old);
    }
    EXPECT_EQ(format({"--check", "--quiet", "a.bas"}).out, "");
    EXPECT_EQ(pass(old).out, "");
}

TEST_F(OddFiles, OfNothingButNulBytesAreNoModules) {
    folder.write("a.bas", std::string(5000, '\0'));
    const Outcome outcome = format({"a.bas"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "a.bas: this is nothing but NUL bytes, not a module\n");
}

TEST_F(OddFiles, ThatAProjectNamesAreSkippedWithoutAModulesEnding) {
    folder.write("p/p.vbp", "Module=A; ..\\Makefile\r\nModule=B; b.bas\r\nForm=notes.txt\r\n");
    folder.write("Makefile", "all:\n\tcc a.c\n");
    folder.write("p/notes.txt", untidy);
    folder.write("p/b.bas", untidy);
    const Outcome outcome = format({"--quiet", "p/p.vbp"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "p/../Makefile: skipped: no module's ending (named in p/p.vbp)\n"
                           "p/notes.txt: skipped: no module's ending (named in p/p.vbp)\n");
    EXPECT_EQ(folder.read("Makefile"), "all:\n\tcc a.c\n");
    EXPECT_EQ(folder.read("p/notes.txt"), untidy);
    EXPECT_EQ(folder.read("p/b.bas"), tidy);
}

TEST_F(OddFiles, ThatAProjectNamesAreFormattedWhereverTheyStand) {
    folder.write("p/q/p.vbp", "Module=A; ..\\..\\far\\a.bas\r\n");
    folder.write("far/a.bas", untidy);
    EXPECT_EQ(format({"--quiet", "p/q/p.vbp"}).status, 0);
    EXPECT_EQ(folder.read("far/a.bas"), tidy);
}

TEST_F(OddFiles, OnTheNetworkOrOfDevicesAreNotLookedAt) {
    folder.write("all.vbg", "Project=\\\\server\\share\\p.vbp\r\nProject=p.vbp\r\nProject=Makefile\r\n");
    folder.write("p.vbp",
                 "Module=A; \\\\server\\share\\a.bas\r\nModule=B; \\\\.\\pipe\\b.bas\r\nModule=C; NUL.bas\r\n"
                 "Module=D; d.bas\r\n");
    folder.write("d.bas", untidy);
    const Outcome outcome = format({"--quiet", "all.vbg"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "\\\\server\\share\\p.vbp: skipped: a path on the network (named in all.vbg)\n"
                           "\\\\server\\share\\a.bas: skipped: a path on the network (named in p.vbp)\n"
                           "\\\\.\\pipe\\b.bas: skipped: a device's path (named in p.vbp)\n"
                           "NUL.bas: skipped: a device's path (named in p.vbp)\n"
                           "Makefile: skipped: no project's ending (named in all.vbg)\n");
    EXPECT_EQ(folder.read("d.bas"), tidy);
}

#ifndef _WIN32

TEST_F(OddFiles, ThatAreNoFilesAreToldAndStopNobody) {
    folder.write("d/m.bas", untidy);
    const auto in = [&](const char* name) { return (folder.path() / "d" / name).string(); };
    ASSERT_EQ(mkfifo(in("a.bas").c_str(), 0600), 0);
    const int socketNumber = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, in("b.bas").c_str(), sizeof address.sun_path - 1);
    ASSERT_EQ(bind(socketNumber, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    fs::create_symlink("/dev/zero", in("c.bas"));
    folder.write("p.vbp", "Module=A; d\\a.bas\r\nModule=C; d\\c.bas\r\n");
    const Outcome outcome = format({"--quiet", "d", "p.vbp"});
    close(socketNumber);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "d/a.bas: this is a FIFO, not a file\nd/b.bas: this is a socket, not a file\n"
                           "d/c.bas: skipped: a link that leads out of the directory\n"
                           "d/c.bas: skipped: a link that leads to no module\n");
    EXPECT_EQ(folder.read("d/m.bas"), tidy);
    EXPECT_EQ(format({"--quiet", in("c.bas")}).err, in("c.bas") + ": this is a device, not a file\n");
}

TEST_F(OddFiles, OfGigabytesWithoutTextAreToldAfterTheirFirstBlock) {
    const auto path = folder.write("a.bas", "");
    fs::resize_file(path, std::uintmax_t{3} << 30);
    folder.write("p.vbp", "");
    fs::resize_file(folder.path() / "p.vbp", std::uintmax_t{3} << 30);
    Surroundings little;
    little.largestMemory = std::uint64_t{512} << 20;
    const Outcome outcome = format({"a.bas", "p.vbp"}, little);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("a.bas: this is nothing but NUL bytes, not a module\n"));
    EXPECT_THAT(outcome.err, HasSubstr("p.vbp: this is nothing but NUL bytes, not a project or a group\n"));
}

TEST_F(OddFiles, WithOtherHardLinksAreLeftAloneUnlessTheyAreToBeBroken) {
    fs::create_hard_link(folder.write("a.bas", untidy), folder.path() / "other.txt");
    const Outcome outcome = format({"--quiet", "a.bas"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "a.bas: the file has other hard links\n");
    EXPECT_EQ(folder.read("a.bas"), untidy);
    EXPECT_EQ(format({"--quiet", "--break-links", "a.bas"}).status, 0);
    EXPECT_EQ(folder.read("a.bas"), tidy);
    EXPECT_EQ(folder.read("other.txt"), untidy);
}

TEST_F(OddFiles, OutsideADirectoryAreNotReachedByLinks) {
    const std::string script = "if a:\n\tb()\n";
    folder.write("run.py", script);
    folder.write("out.bas", untidy);
    folder.write("d/in/real.bas", untidy);
    fs::create_symlink("../run.py", folder.path() / "d/evil.bas");
    fs::create_symlink("../out.bas", folder.path() / "d/out.bas");
    fs::create_symlink("in/real.bas", folder.path() / "d/own.bas");
    folder.write("d/notes.txt", untidy);
    fs::create_symlink("notes.txt", folder.path() / "d/x.bas");
    const Outcome outcome = format({"--quiet", "d"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "d/evil.bas: skipped: a link that leads out of the directory\n"
                           "d/out.bas: skipped: a link that leads out of the directory\n"
                           "d/x.bas: skipped: a link that leads to no module\n");
    EXPECT_EQ(folder.read("run.py"), script);
    EXPECT_EQ(folder.read("out.bas"), untidy);
    EXPECT_EQ(folder.read("d/notes.txt"), untidy);
    EXPECT_EQ(folder.read("d/in/real.bas"), tidy);
}

TEST_F(OddFiles, ThatAProjectReachesByALinkMustBeModules) {
    folder.write("run.py", "if a:\n\tb()\n");
    folder.write("common/real.bas", untidy);
    folder.write("p/p.vbp", "Module=A; evil.bas\r\nModule=B; good.bas\r\n");
    fs::create_symlink("../run.py", folder.path() / "p/evil.bas");
    fs::create_symlink("../common/real.bas", folder.path() / "p/good.bas");
    const Outcome outcome = format({"--quiet", "p/p.vbp"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "p/evil.bas: skipped: a link that leads to no module\n");
    EXPECT_EQ(folder.read("run.py"), "if a:\n\tb()\n");
    EXPECT_EQ(folder.read("common/real.bas"), tidy);
}

TEST_F(OddFiles, WithControlCharactersInTheirNamesAreShownOnOneLine) {
    const std::string name = "a\x1B]0;x\x07\n\xC2\x9B.bas";
    const std::string shownName = "a\\x1B]0;x\\x07\\x0A\\xC2\\x9B.bas";
    folder.write("d/" + name, untidy);
    EXPECT_EQ(format({"--check", "--quiet", "d"}).out, "d/" + shownName + "\n");
    EXPECT_THAT(format({"--diff", "--quiet", "d"}).out,
                testing::Not(testing::AnyOf(HasSubstr("\x1B"), HasSubstr("\x07"))));
    EXPECT_EQ(format({"--check", "d"}).err, summary("d/" + shownName, 5, 5));
    folder.write("d/" + name, "End Sub\r\n");
    EXPECT_EQ(format({"--quiet", "d"}).err, tabError("d/" + shownName + ":1", 0, "End Sub"));
    EXPECT_THAT(format({"gone\x1B.bas"}).err, HasSubstr("gone\\x1B.bas: File not found\n"));
    EXPECT_THAT(format({"--wrong\x1B[2J", "a.bas"}).err, HasSubstr("--wrong\\x1B[2J"));
    folder.write(
        "p.vbp",
        "Title=\"A title that is so long that two control characters are few\"\r\nModule=A; \x1B[2J.bas\r\nModule=B; x\x07\r\n");
    EXPECT_EQ(format({"--quiet", "p.vbp"}).err, "\\x1B[2J.bas: File not found (named in p.vbp)\n"
                                                "x\\x07: skipped: no module's ending (named in p.vbp)\n");
}

#endif

} // namespace
} // namespace corvelle::test
