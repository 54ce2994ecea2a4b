#include "indexer/index_files.h"
#include "indexer/mapping_edit.h"

#include <gtest/gtest.h>
#include <string>

namespace corvelle::indexer {
namespace {

const std::string file =
    "\n  <p>frm a</P> \r\n <c>cmdOK  CommandButton IDH_AAAB</C>\r\n<C>broken Label IDH_X\n"
    "<C>lbl Label IDH_AAAC more</c> \r<C>last VB.Label IDH_AAAD</C>";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

TEST(MappingEdit, NamesOneControlAnew) {
    EXPECT_EQ(withControlNamed(file, 3, "IDH_AAAA"), replaced(file, "IDH_AAAC", "IDH_AAAA"));
    EXPECT_EQ(withControlNamed(file, 4, "IDH_AAAA"), replaced(file, "IDH_AAAD", "IDH_AAAA"));
    // Two blanks in a row leave the class empty: what stands third is the name.
    EXPECT_EQ(withControlNamed(file, 1, "IDH_AAAA"), replaced(file, "CommandButton", "IDH_AAAA"));
}

TEST(MappingEdit, NamesAControlThatHadNoName) {
    EXPECT_EQ(withControlNamed("<C>gone Label</C>\n", 1, "IDH_AAAA"), "<C>gone Label IDH_AAAA</C>\n");
    EXPECT_EQ(withControlNamed("<C>gone Label </C>\n", 1, "IDH_AAAA"), "<C>gone Label IDH_AAAA</C>\n");
    EXPECT_EQ(withControlNamed("<C>gone</C>", 1, "IDH_AAAA"), "<C>gone  IDH_AAAA</C>");
    EXPECT_EQ(withControlNamed("<C></C>", 1, "IDH_AAAA"), "<C>  IDH_AAAA</C>");
}

TEST(MappingEdit, IsReadAsItWasMeant) {
    for (std::size_t entry = 1; entry <= 4; ++entry) {
        if (entry == 2) continue; // no control: its line is not complete
        auto wanted = readMappings(file).index.entries;
        wanted[entry].IDHName = "IDH_AAAA";
        const auto now = readMappings(withControlNamed(file, entry, "IDH_AAAA")).index.entries;
        ASSERT_EQ(now.size(), wanted.size());
        for (std::size_t i = 0; i < now.size(); ++i) {
            EXPECT_EQ(now[i].CtlName, wanted[i].CtlName);
            EXPECT_EQ(now[i].CtlClass, wanted[i].CtlClass);
            EXPECT_EQ(now[i].IDHName, wanted[i].IDHName);
        }
    }
}

TEST(MappingEdit, TakesAControlsLineAway) {
    EXPECT_EQ(withoutControl(file, 1), replaced(file, " <c>cmdOK  CommandButton IDH_AAAB</C>\r\n", ""));
    EXPECT_EQ(withoutControl(file, 4), replaced(file, "<C>last VB.Label IDH_AAAD</C>", ""));
}

TEST(MappingEdit, LeavesAFileAloneThatHasNoSuchControl) {
    for (const std::size_t entry : {0, 5}) {
        EXPECT_EQ(withControlNamed(file, entry, "IDH_AAAA"), file);
        EXPECT_EQ(withoutControl(file, entry), file);
    }
    EXPECT_EQ(withControlNamed(file, 2, "IDH_AAAA"), file) << "the line is not complete";
}

} // namespace
} // namespace corvelle::indexer
