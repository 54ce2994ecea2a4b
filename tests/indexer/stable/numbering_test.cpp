#include "indexer/stable/earlier_index.h"
#include "indexer/stable/index_bytes.h"
#include "indexer/stable/numbering.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>

namespace corvelle::indexer::stable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

FoundControl control(std::string_view name, std::string_view className = "TextBox",
                     std::optional<std::int32_t> index = {}, std::int32_t number = 0) {
    FoundControl found;
    found.name = name;
    found.library = "VB";
    found.className = className;
    found.index = index;
    found.helpContextID = number;
    return found;
}

FoundDesigner form(std::string name, std::vector<FoundControl> controls) {
    return {std::move(name), "x.frm", ide::ComponentType::VBForm, true, std::move(controls)};
}

NumberedProject number(const FoundProject& project, const EarlierIndex& earlier = {},
                       const NumberingOptions& options = {}) {
    auto numbered = numberProject(project, earlier, options);
    EXPECT_EQ(numbered.fault, "");
    return numbered;
}

// What the next run reads of the files that a run writes.
EarlierIndex after(const NumberedProject& numbered) {
    auto read =
        readEarlierIndex(headerOf(numbered.numbering, numbered.memory), configurationOf(numbered.numbering));
    EXPECT_EQ(read.fault, "");
    return read.index;
}

// "frmA.txt(2)" to "IDH_AAAB 1001"
std::map<std::string, std::string> entriesOf(const NumberedProject& numbered) {
    std::map<std::string, std::string> entries;
    for (const auto& designer : numbered.numbering) {
        for (const auto& one : designer.controls)
            entries[designer.name + "." + nameInMemory({{}, one.control, one.index})] =
                one.idhName + " " + std::to_string(one.number);
    }
    return entries;
}

TEST(Numbering, GivesNamesAndNumbersInOrder) {
    EXPECT_THAT(entriesOf(number({form("frmA", {control("a"), control("b")}), form("frmB", {control("a")})})),
                ElementsAre(std::pair("frmA.a", "IDH_AAAB 1001"), std::pair("frmA.b", "IDH_AAAC 1002"),
                            std::pair("frmB.a", "IDH_AAAD 1003")));
}

TEST(Numbering, KnowsControlsByDesignerNameAndIndexWhateverTheLetterCase) {
    const auto first =
        number({form("frmA", {control("a"), control("c", "Label", 0), control("c", "Label", 5)}),
                form("frmB", {control("a")})});
    const auto second =
        number({form("FRMB", {control("A")}),
                form("frma", {control("C", "Label", 5), control("c", "Label", 2), control("A")})},
               after(first));
    EXPECT_THAT(entriesOf(second),
                ElementsAre(std::pair("FRMB.A", "IDH_AAAE 1004"), std::pair("frma.A", "IDH_AAAB 1001"),
                            std::pair("frma.C(5)", "IDH_AAAD 1003"),
                            std::pair("frma.c(2)", "IDH_AAAF 1005")));
    EXPECT_THAT(second.memory.retired, SizeIs(1));
}

TEST(Numbering, GivesNoNumberTwice) {
    auto numbered = number({form("frmA", {control("a"), control("b")})});
    numbered = number({form("frmA", {control("a")})}, after(numbered));
    numbered = number({form("frmA", {control("a"), control("b", "Label")})}, after(numbered));
    EXPECT_EQ(entriesOf(numbered)["frmA.b"], "IDH_AAAD 1003");
    numbered = number({}, after(numbered));
    numbered = number({form("frmA", {control("a")})}, after(numbered));
    EXPECT_EQ(entriesOf(numbered)["frmA.a"], "IDH_AAAE 1004");
}

TEST(Numbering, AdoptsTheNumbersOfFilesAndGivesThemToNobodyElse) {
    const auto first =
        number({form("frmA", {control("a"), control("b", "TextBox", {}, 1002), control("c"),
                              control("d", "TextBox", {}, -5), control("e", "TextBox", {}, 1000)})});
    EXPECT_THAT(entriesOf(first),
                ElementsAre(std::pair("frmA.a", "IDH_AAAB 1001"), std::pair("frmA.b", "IDH_AAAC 1002"),
                            std::pair("frmA.c", "IDH_AAAD 1003"), std::pair("frmA.d", "IDH_AAAE 1004"),
                            std::pair("frmA.e", "IDH_AAAF 1000")));
    ASSERT_THAT(first.changes.shared, SizeIs(1)); // with the default topic
    EXPECT_EQ(first.changes.shared[0].number, 1000);
    // A number that was adopted does not bring the others forward, nor is it given when its control went.
    const auto second = number({form("frmA", {control("a")})}, after(first));
    const auto third = number({form("frmA", {control("a"), control("x"), control("y")})}, after(second));
    EXPECT_EQ(entriesOf(third)["frmA.x"], "IDH_AAAG 1005");
}

TEST(Numbering, PairsRenamedControlsByTheirPlace) {
    const auto first =
        number({form("frmA", {control("a"), control("x"), control("l", "Label"), control("b")})});
    const FoundProject changed{
        form("frmA", {control("a"), control("y"), control("m", "Label"), control("b")})};
    const auto taken = number(changed, after(first), {NameKind::Sequence, RenamesAre::Taken, false});
    EXPECT_THAT(entriesOf(taken),
                ElementsAre(std::pair("frmA.a", "IDH_AAAB 1001"), std::pair("frmA.b", "IDH_AAAE 1004"),
                            std::pair("frmA.m", "IDH_AAAD 1003"), std::pair("frmA.y", "IDH_AAAC 1002")));
    EXPECT_THAT(taken.memory.retired, IsEmpty());
    EXPECT_THAT(number(changed, after(first)).changes.offered, SizeIs(2));
    // Two came where one went: nobody knows which one it is.
    const FoundProject unclear{
        form("frmA", {control("a"), control("y"), control("z"), control("l", "Label"), control("b")})};
    EXPECT_THAT(number(unclear, after(first)).changes.offered, IsEmpty());
    // Another class, another place.
    const FoundProject others{
        form("frmA", {control("y"), control("a"), control("l", "Label"), control("b")})};
    EXPECT_THAT(number(others, after(first)).changes.offered, IsEmpty());
}

TEST(Numbering, PairsRenamedControlsByTheNumberInTheFile) {
    const auto first = number({form("frmA", {control("a"), control("x"), control("b")})});
    const auto numberOfX = 1002;
    const auto moved = number(
        {form("frmA", {control("y", "TextBox", {}, numberOfX), control("z"), control("b"), control("a")})},
        after(first), {NameKind::Sequence, RenamesAre::Taken, false});
    EXPECT_EQ(entriesOf(moved)["frmA.y"], "IDH_AAAC 1002");
}

TEST(Numbering, SettlesARenameThatWasRenamedAgain) {
    auto numbered = number({form("frmA", {control("a"), control("x"), control("b")})});
    for (const auto* name : {"y", "z"}) {
        numbered = number({form("frmA", {control("a"), control(name), control("b")})}, after(numbered));
        ASSERT_THAT(numbered.changes.offered, SizeIs(1));
        EXPECT_EQ(numbered.changes.offered[0].idhNameBefore, "IDH_AAAC");
    }
    const FoundProject now{form("frmA", {control("a"), control("w"), control("b")})};
    const auto taken = number(now, after(numbered), {NameKind::Sequence, RenamesAre::Taken, false});
    EXPECT_EQ(entriesOf(taken)["frmA.w"], "IDH_AAAC 1002");
    EXPECT_THAT(taken.changes.renamed, SizeIs(1));
    EXPECT_THAT(taken.memory.retired, SizeIs(2));
    EXPECT_THAT(number(now, after(taken)).changes.offered, IsEmpty());
}

TEST(Numbering, PairsRenamedDesigners) {
    const auto first =
        number({form("frmA", {control("a"), control("b"), control("c")}), form("frmB", {control("z")})});
    const auto taken =
        number({form("frmNew", {control("a"), control("b"), control("d")}), form("frmB", {control("z")})},
               after(first), {NameKind::Sequence, RenamesAre::Taken, false});
    EXPECT_EQ(entriesOf(taken)["frmNew.a"], "IDH_AAAB 1001");
    EXPECT_EQ(entriesOf(taken)["frmNew.d"], "IDH_AAAF 1005");
    const auto other = number({form("frmNew", {control("a"), control("e"), control("d")})}, after(first));
    EXPECT_THAT(other.changes.offered, IsEmpty());
}

TEST(Numbering, MakesReadableNamesUnique) {
    const auto numbered =
        number({form("frmA", {control("b_1"), control("b", "Label", 1), control("B_1", "Label")}),
                form("MAIN", {[] {
                         auto own = control("", "Form");
                         return own;
                     }()})},
               {}, {NameKind::Readable, RenamesAre::Offered, false});
    EXPECT_THAT(entriesOf(numbered), ElementsAre(std::pair("MAIN.-", "IDH_MAIN_2 1004"),
                                                 std::pair("frmA.B_1", "IDH_frmA_B_1_3 1003"),
                                                 std::pair("frmA.b(1)", "IDH_frmA_b_1_2 1002"),
                                                 std::pair("frmA.b_1", "IDH_frmA_b_1 1001")));
}

TEST(Numbering, EndsWhereThereIsNothingToGive) {
    EarlierIndex earlier;
    earlier.memory.retired.push_back({"IDH_ZZZZ", 5000});
    EXPECT_THAT(numberProject({form("frmA", {control("a")})}, earlier, {}).fault, HasSubstr("IDH_ZZZZ"));
    earlier.memory.retired[0] = {"IDH_AAAB", 2147483647};
    EXPECT_THAT(numberProject({form("frmA", {control("a")})}, earlier, {}).fault,
                HasSubstr("no number left"));
}

TEST(Numbering, TakesOverLinesWithoutIndicesInTheirOrder) {
    const std::string header =
        "#define IDH_AAAA  1000\r\n#define IDH_AAAB  1001\r\n#define IDH_AAAC  1002\r\n#define IDH_AAAD  1003\r\n";
    const std::string configuration =
        "<P>frmA</P>\r\n<C>c Label IDH_AAAB</C>\r\n<C>t TextBox IDH_AAAA</C>\r\n<C>c Label IDH_AAAC</C>\r\n";
    for (const auto& bytes : {header, [&] {
                                  std::string unix;
                                  for (const char c : header) unix += c == '\r' ? "" : std::string(1, c);
                                  return unix;
                              }()}) {
        const auto read = readEarlierIndex(bytes, configuration);
        ASSERT_EQ(read.fault, "");
        const auto numbered = number({form("frmA", {control("c", "Label", 7), control("t"),
                                                    control("c", "Label", 3), control("c", "Label", 1)})},
                                     read.index);
        EXPECT_THAT(entriesOf(numbered), ElementsAre(std::pair("frmA.c(1)", "IDH_AAAE 1004"),
                                                     std::pair("frmA.c(3)", "IDH_AAAC 1002"),
                                                     std::pair("frmA.c(7)", "IDH_AAAB 1001"),
                                                     std::pair("frmA.t", "IDH_AAAA 1000")));
    }
}

TEST(Numbering, TakesOverDesignersOwnEntries) {
    auto own = control("", "Form");
    const FoundProject project{form("frmA", {own, control("a")})};
    const auto first = number(project);
    auto header = headerOf(first.numbering, first.memory);
    header.resize(header.find("// @"));
    const auto read = readEarlierIndex(header, configurationOf(first.numbering));
    ASSERT_EQ(read.fault, "");
    const auto again = number(project, read.index);
    EXPECT_EQ(entriesOf(again), entriesOf(first));
    EXPECT_EQ(again.memory, first.memory);
}

TEST(Numbering, RetiresReadableNamesThatTheConfigurationFileHasNot) {
    const std::string header = "#define IDH_AAAA  1000\r\n#define IDH_frmA_x  1001\r\n";
    const auto read = readEarlierIndex(header, "<P>frmA</P>\r\n");
    ASSERT_EQ(read.fault, "");
    EXPECT_THAT(read.index.memory.retired, SizeIs(1));
    EXPECT_THAT(readEarlierIndex(header, "<P>frmB</P>\r\n").fault, HasSubstr("IDH_frmA_x is no name"));
}

// Random changes of a project, one run after the other: what is there keeps what it has, and nothing is given
// twice.
TEST(Numbering, HoldsThroughAnyChanges) {
    for (unsigned seed = 0; seed < 200; ++seed) {
        std::mt19937 random(seed);
        const auto chance = [&](unsigned of) { return random() % of == 0; };
        std::vector<std::string> names;
        for (char c = 'a'; c <= 'p'; ++c) names.emplace_back(1, c);
        EarlierIndex earlier;
        std::map<std::string, std::string> entries;
        std::map<std::string, std::string> ownerOf; // of each pair of name and number that was ever given
        for (int run = 0; run < 12; ++run) {
            FoundProject project;
            for (const auto* designer : {"frmA", "frmB", "frmC"}) {
                if (chance(5)) continue;
                project.push_back(form(designer, {}));
                for (const auto& name : names) {
                    if (chance(3)) continue;
                    project.back().controls.push_back(control(
                        name, name < "h" ? "Label" : "TextBox",
                        name < "d" ? std::optional(static_cast<std::int32_t>(random() % 3)) : std::nullopt));
                }
                std::shuffle(project.back().controls.begin(), project.back().controls.end(), random);
            }
            const auto numbered = number(project, earlier);
            const auto now = entriesOf(numbered);
            for (const auto& [place, entry] : now) {
                const auto before = entries.find(place);
                if (before != entries.end()) {
                    EXPECT_EQ(entry, before->second) << place;
                } else {
                    EXPECT_TRUE(ownerOf.emplace(entry, place).second)
                        << entry << " once was " << ownerOf[entry];
                }
            }
            earlier = after(numbered);
            EXPECT_TRUE(number(project, earlier).memory == earlier.memory); // nothing changes by itself
            entries = now;
        }
    }
}

} // namespace
} // namespace corvelle::indexer::stable
