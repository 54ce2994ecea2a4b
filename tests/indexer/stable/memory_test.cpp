#include "indexer/stable/memory.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace corvelle::indexer::stable {
namespace {

Memory everything() {
    Memory memory;
    memory.controls.push_back({{"frmMain", "", {}}, "Form", "", "IDH_AAAB", 1001});
    memory.controls.push_back(
        {{"frmMain", "fraTop", 1}, "Frame", "", "IDH_AAAC", 77, Standing::Indexed, false, true});
    memory.controls.push_back(
        {{"frmMain", "cmdNav", 0}, "CommandButton", "fraTop(1)", "IDH_AAAD", 1003, Standing::Deleted});
    memory.controls.push_back(
        {{"frmOther", "lblA", {}}, "Label", "", "IDH_AAAE", 1004, Standing::OnDefault, true});
    memory.controls.push_back({{"frmOther", "lblB", {}}, "Label", "", "IDH_AAAA", 1000, Standing::OnDefault});
    memory.controls.push_back({{"frmOther", "lblC", {}},
                               "Label",
                               "",
                               "IDH_AAAF",
                               1005,
                               Standing::Indexed,
                               false,
                               false,
                               "IDH_AAAG"});
    memory.retired.push_back({"IDH_AAAG", 1006});
    memory.retired.push_back({"IDH_AAAH", 5, true});
    memory.written.push_back({{"frmMain", "", {}}, "WhatsThisHelp", -1});
    memory.written.push_back({{"frmMain", "cmdNav", 0}, "HelpContextID", 1003});
    return memory;
}

std::string linesOf(const Memory& memory) {
    std::string lines;
    appendLines(lines, memory);
    return lines;
}

std::string faultOf(std::string_view header) {
    const auto read = readMemory(header);
    EXPECT_FALSE(read.memory);
    return read.fault ? std::to_string(read.fault->line) + ": " + read.fault->reason : "";
}

TEST(Memory, StandsInCommentLines) {
    EXPECT_EQ(linesOf(everything()), "// @memory 1\r\n"
                                     "// @designer frmMain\r\n"
                                     "// @control - Form - IDH_AAAB 1001\r\n"
                                     "// @control fraTop(1) Frame - IDH_AAAC 77 adopted\r\n"
                                     "// @control cmdNav(0) CommandButton fraTop(1) IDH_AAAD 1003 deleted\r\n"
                                     "// @designer frmOther\r\n"
                                     "// @control lblA Label - IDH_AAAE 1004 default out\r\n"
                                     "// @control lblB Label - IDH_AAAA 1000 default\r\n"
                                     "// @control lblC Label - IDH_AAAF 1005 from=IDH_AAAG\r\n"
                                     "// @retired IDH_AAAG 1006\r\n"
                                     "// @retired IDH_AAAH 5 adopted\r\n"
                                     "// @wrote frmMain - WhatsThisHelp -1\r\n"
                                     "// @wrote frmMain cmdNav(0) HelpContextID 1003\r\n"
                                     "// @end 13\r\n");
}

TEST(Memory, ReadsWhatItHasWritten) {
    const auto read = readMemory("#define IDH_AAAA  1000\r\n" + linesOf(everything()));
    ASSERT_TRUE(read.memory);
    EXPECT_TRUE(*read.memory == everything());
}

TEST(Memory, IsReadWhateverTheLineEndsAre) {
    std::string header;
    for (const char c : linesOf(everything())) {
        if (c != '\r') header += c;
    }
    const auto read = readMemory(header);
    ASSERT_TRUE(read.memory);
    EXPECT_TRUE(*read.memory == everything());
}

TEST(Memory, IsNotThereWithoutItsLines) {
    const auto read = readMemory("#define IDH_AAAA  1000\r\n// somebody's own\r\n");
    EXPECT_FALSE(read.memory);
    EXPECT_FALSE(read.fault);
}

TEST(Memory, MustBeWhole) {
    const auto whole = linesOf(everything());
    for (std::size_t begin = 0; begin < whole.size();) {
        const auto end = whole.find('\n', begin) + 1;
        const auto without = whole.substr(0, begin) + whole.substr(end);
        EXPECT_FALSE(readMemory(without).memory) << "without " << whole.substr(begin, end - begin);
        const auto doubled = whole.substr(0, end) + whole.substr(begin);
        EXPECT_FALSE(readMemory(doubled).memory) << "twice " << whole.substr(begin, end - begin);
        begin = end;
    }
}

TEST(Memory, TellsTheLineThatIsWrong) {
    const auto header = [](std::string_view line) {
        return std::string("#define IDH_AAAA  1000\n// @memory 1\n// @designer frmMain\n// @") +
               std::string(line) + "\n// @end 3\n";
    };
    EXPECT_EQ(readMemory(header("control a Label - IDH_AAAB 1001")).memory->controls.size(), 1U);
    for (const auto* line : {
             "control a Label - IDH_AAAB",
             "control a Label - IDH_AAAB 0",
             "control a Label - IDH_AAAB -1",
             "control a Label - IDH_AAAB 2147483648",
             "control a Label - IDH_AAAB 99999999999999999999",
             "control a Label - IDH_AAAB 1001 ",
             "control a Label - IDH_AAAB 1001 what",
             "control a Label - IDH_AAAB 1001 deleted default",
             "control a Label - IDH_AAAB 1001 from=",
             "control  a Label - IDH_AAAB 1001",
             "control a( Label - IDH_AAAB 1001",
             "control a() Label - IDH_AAAB 1001",
             "control a(x) Label - IDH_AAAB 1001",
             "control a(-1) Label - IDH_AAAB 1001",
             "control (1) Label - IDH_AAAB 1001",
             "control a Label fra(1 IDH_AAAB 1001",
             "control a La;bel - IDH_AAAB 1001",
             "designer",
             "designer a b",
             "designer -",
             "retired IDH_AAAB",
             "retired IDH_AAAB 1001 deleted",
             "retired IDH_AAAB 1001 adopted x",
             "wrote frmMain a HelpContextID",
             "wrote frmMain a HelpContextID x",
             "wrote frmMain a HelpContextID 1 2",
             "wrote",
             "",
             "end",
             "memory 1",
             "Control a Label - IDH_AAAB 1001",
         })
        EXPECT_EQ(faultOf(header(line)).substr(0, 3), "4: ") << line;
    EXPECT_EQ(faultOf("// @memory 2\n// @end 1\n"), "1: this memory is of another version");
    EXPECT_EQ(faultOf("// @end 0\n"), "1: the memory has no beginning");
    EXPECT_EQ(faultOf("// @memory 1\n"), "1: the memory has no end");
    EXPECT_EQ(faultOf("// @memory 1\n// @end 1\n// @end 2\n"), "3: the memory has ended already");
    EXPECT_EQ(faultOf("// @memory 1\n// @control a Label - IDH_AAAB 1001\n// @end 2\n"),
              "2: this is no line of the memory"); // of no designer
}

} // namespace
} // namespace corvelle::indexer::stable
