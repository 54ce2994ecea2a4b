// A diff is right when `patch` makes of the file what formatting makes of it.
#ifndef _WIN32

#include "cli/format_fixture.h"

#include <random>

namespace corvelle::test {
namespace {

class Patches : public FormatTest {
  protected:
    // Makes the diff of a module, applies it and compares with the module formatted in place.
    void expectToApply(std::string_view module, std::vector<std::string> options = {},
                       const std::string& name = "a.bas") {
        folder.write(name, module);
        std::vector<std::string> toDiff = options;
        toDiff.insert(toDiff.end(), {"--force", "--diff", "--", name});
        const Outcome diff = format(toDiff);
        Surroundings surroundings;
        surroundings.folder = folder.path();
        surroundings.input = diff.out;
        const Outcome patched = runProgram("patch", {"-p0", "--binary", "--fuzz=0", "--posix"}, surroundings);
        const std::string byPatch = folder.read(name);

        folder.write(name, module);
        options.insert(options.end(), {"--force", "--", name});
        format(options);
        if (folder.read(name) == module) {
            EXPECT_EQ(diff.out, "");
            return;
        }
        EXPECT_EQ(patched.status, 0) << patched.out << patched.err << diff.out;
        EXPECT_EQ(patched.out.find("offset"), std::string::npos) << patched.out << diff.out;
        EXPECT_EQ(byPatch, folder.read(name)) << diff.out;
    }

    static std::string equalLines(int count) {
        std::string lines;
        for (int i = 0; i < count; ++i) lines += std::to_string(i) + "\n";
        return lines;
    }
};

TEST_F(Patches, ChangeTheOnlyLine) {
    expectToApply(" a\n");
}

TEST_F(Patches, ChangeTheFirstAndTheLastLine) {
    expectToApply(std::string(" a\n") + equalLines(20) + " b\n");
}

TEST_F(Patches, JoinOrPartChangesByTheLinesBetweenThem) {
    for (int gap = 0; gap <= 9; ++gap) expectToApply(std::string(" a\n") + equalLines(gap) + " b\n");
    for (int gap = 5; gap <= 8; ++gap) {
        expectToApply(equalLines(10) + std::string(" a\n") + equalLines(gap) + " b\n" + equalLines(gap) +
                      " c\n" + equalLines(10));
    }
}

TEST_F(Patches, RemoveLinesAtTheStartAndAtTheEnd) {
    expectToApply(std::string("\n\n\n") + equalLines(10) + "\n\n", {"--remove-empty-lines"});
    expectToApply(std::string("\n") + equalLines(2) + "\n", {"--remove-empty-lines"});
}

TEST_F(Patches, RemoveLinesAmongChanges) {
    expectToApply("Sub a()\n\nb\n\n\nc\nEnd Sub\n\n" + equalLines(7) + "\n d\n", {"--remove-empty-lines"});
}

TEST_F(Patches, RemoveEverythingButOneLine) {
    expectToApply("\n\n\n\nx\n\n\n\n\n", {"--remove-empty-lines"});
    expectToApply("' a\n' b\n' c\nx", {"--remove-comment-lines"});
}

TEST_F(Patches, EndALastLine) {
    expectToApply("a");
    expectToApply(" a");
    expectToApply(equalLines(10) + "a");
    expectToApply(equalLines(2) + " a\n\nb", {"--remove-empty-lines"});
    expectToApply("a\n\n\n", {"--remove-empty-lines"});
    expectToApply("a\n\n ", {"--remove-empty-lines"});
    expectToApply("Dim a\nAttribute a.VB_VarHelpID = -1");
    expectToApply("a\n\n\nDim b\nAttribute b.VB_VarHelpID = -1", {"--remove-empty-lines"});
}

TEST_F(Patches, ChangeLineEnds) {
    expectToApply("a\r\nb\nc\n");
    expectToApply("a\nb\nc\r\n");
    expectToApply("a\rb\r\nc\r\r\n d\r");
}

TEST_F(Patches, LeaveHiddenLinesAmongTheOthers) {
    expectToApply("VERSION 5.00\r\nBegin VB.Form F\r\nEnd\r\nAttribute VB_Name = \"F\"\r\nSub a()\r\n"
                  "Attribute a.VB_Description = \"x\"\r\nb\r\nEnd Sub\r\n",
                  {}, "f.frm");
}

TEST_F(Patches, KeepAByteOrderMarkInFrontOfItsLine) {
    const std::string mark = "\xEF\xBB\xBF";
    expectToApply(mark + " a\nb\n");
    expectToApply(mark + "a\n b\n");
    expectToApply(mark + "\na\n b\n", {"--remove-empty-lines"});
    expectToApply(mark + "\nAttribute b.VB_VarHelpID = -1\n b\n", {"--remove-empty-lines"});
    expectToApply(mark + "Attribute b.VB_VarHelpID = -1\n b\n");
    expectToApply(mark + "Attribute VB_Name = \"x\"\n b\n");
}

TEST_F(Patches, FindFilesOfAnyName) {
    for (const char* name :
         {"sub/two words.bas", "tab\there.bas", "quo\"te.bas", "back\\slash.bas", "m\xC3\xA4rz.bas"}) {
        expectToApply(untidy, {}, name);
    }
}

TEST_F(Patches, ApplyToModulesDrawnAtRandom) {
    std::mt19937 random(20);
    const char* const lines[] = {"a\n", "a\n", "a\n", "a\n", "b\r\n", " c\n", "\n", "' d\n"};
    for (int round = 0; round < 30; ++round) {
        std::string module;
        for (auto count = random() % 60; count > 0; --count) module += lines[random() % 8];
        if (random() % 2 == 0) module += "end";
        expectToApply(module, {"--remove-empty-lines", "--remove-comment-lines"});
    }
}

} // namespace
} // namespace corvelle::test

#endif
