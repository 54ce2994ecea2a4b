#include "fakes/fake_ide.h"
#include "indexer/mapping_module.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

using Lines = std::vector<std::string>;

// Adds the mappings of designers "f1", "f2", ... with the given numbers of controls to a module that holds
// the lines already; the module refuses lines behind the one after its last.
Lines fill(Lines lines, const std::vector<int>& controls, bool constants, bool procedures) {
    const auto ide = test::FakeIde::make();
    const auto component = ide->project->add("modHelp", ide::ComponentType::StdModule, std::move(lines));
    MappingModule module(component->code);
    int number = 1000;
    for (std::size_t designer = 0; designer < controls.size(); ++designer) {
        if (procedures) module.beginProcedure(std::string("f") + std::to_string(designer + 1));
        for (int i = 0; i < controls[designer]; ++i) {
            const auto name = std::string("IDH_") + std::to_string(++number);
            if (constants) module.addConstant(name, number);
            if (procedures) module.addAssignment(std::string("c") + std::to_string(number), name);
        }
        if (procedures) module.endProcedure();
    }
    return component->code->lines;
}

Lines constantLines(int count) {
    Lines lines;
    for (int i = 1; i <= count; ++i) {
        const auto number = std::to_string(1000 + i);
        lines.push_back("Public Const IDH_" + number + " = " + number);
    }
    return lines;
}

Lines procedureLines(const std::vector<int>& controls) {
    Lines lines;
    int number = 1000;
    for (std::size_t designer = 0; designer < controls.size(); ++designer) {
        const auto name = std::string("f") + std::to_string(designer + 1);
        lines.push_back("Public Sub Load_HelpID_" + name + " ()");
        lines.push_back("\tWith " + name);
        for (int i = 0; i < controls[designer]; ++i) {
            const auto id = std::to_string(++number);
            lines.push_back("\t\t.c" + id + ".HelpContextID = IDH_" + id);
        }
        lines.emplace_back("\tEnd With");
        lines.emplace_back("End Sub");
    }
    return lines;
}

Lines operator+(Lines a, const Lines& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

const std::vector<std::vector<int>> shapes{{}, {0}, {1}, {2}, {5}, {0, 0}, {3, 0, 2}, {1, 1, 1, 1}, {0, 4}};

TEST(MappingModule, HasTheConstantsAboveTheProcedures) {
    EXPECT_EQ(fill({}, {2}, true, true),
              (Lines{"Public Const IDH_1001 = 1001", "Public Const IDH_1002 = 1002",
                     "Public Sub Load_HelpID_f1 ()", "\tWith f1", "\t\t.c1001.HelpContextID = IDH_1001",
                     "\t\t.c1002.HelpContextID = IDH_1002", "\tEnd With", "End Sub"}));
}

TEST(MappingModule, LeavesTheFirstLineToTheIDEsOwn) {
    for (const auto& controls : shapes) {
        int total = 0;
        for (const int count : controls) total += count;
        for (int held = 0; held <= 3; ++held) {
            const Lines own(static_cast<std::size_t>(held), "Option Explicit");
            const Lines first(own.begin(), own.begin() + std::min(held, 1));
            const Lines rest(own.begin() + std::min(held, 1), own.end());
            const auto constants = constantLines(total);
            const auto procedures = procedureLines(controls);
            // The constants stand from line 2 on, the module's other lines below them.
            EXPECT_EQ(fill(own, controls, true, true), first + constants + rest + procedures);
            EXPECT_EQ(fill(own, controls, true, false), first + constants + rest);
            EXPECT_EQ(fill(own, controls, false, true), own + procedures);
        }
    }
}

TEST(MappingModule, KnowsHowManyLinesItWrites) {
    for (const auto& controls : shapes) {
        int total = 0;
        for (const int count : controls) total += count;
        for (const bool constants : {false, true}) {
            for (const bool procedures : {false, true}) {
                EXPECT_EQ(
                    MappingModule::lineCount(total, constants, static_cast<int>(controls.size()), procedures),
                    static_cast<std::int64_t>(fill({}, controls, constants, procedures).size()));
            }
        }
    }
}

struct Checked {
    bool valid;
    std::string name;
    bool operator==(const Checked&) const = default;
};

Checked check(std::string name) {
    const auto ide = test::FakeIde::make();
    ide->project->add("frmMain", ide::ComponentType::VBForm);
    ide->project->add("Module1", ide::ComponentType::StdModule);
    const bool valid = validModule(name, *ide->project);
    return {valid, name};
}

TEST(ValidModule, TrimsTheNameInPlace) {
    EXPECT_EQ(check("  modHelp "), (Checked{true, "modHelp"}));
    EXPECT_EQ(check("mod help"), (Checked{false, "mod help"}));
    EXPECT_EQ(check("  mod help "), (Checked{false, "mod help"})); // refused, but trimmed
    EXPECT_EQ(check(" MODULE1 "), (Checked{false, "MODULE1"}));
}

TEST(ValidModule, LooksForADigitBeforeTheTrimming) {
    EXPECT_EQ(check("1abc "), (Checked{false, "1abc "}));
    EXPECT_EQ(check(" 1abc"), (Checked{true, "1abc"}));
}

TEST(ValidModule, RefusesItsCharactersOnly) {
    for (const char c : std::string(" &-+*/%\\")) EXPECT_FALSE(check(std::string("a") + c + "b").valid) << c;
    for (const char c : std::string("._!#$@\t'\"("))
        EXPECT_TRUE(check(std::string("a") + c + "b").valid) << c;
}

TEST(ValidModule, RefusesANameOfTheProjectInAnyCase) {
    EXPECT_FALSE(check("MODULE1").valid);
    EXPECT_FALSE(check(" frmmain ").valid);
    EXPECT_TRUE(check("Module2").valid);
}

TEST(ValidModule, AcceptsTheEmptyName) {
    EXPECT_EQ(check(""), (Checked{true, ""}));
    EXPECT_EQ(check("   "), (Checked{true, ""}));
}

TEST(ValidModule, HasItsMessage) {
    const auto message = invalidModuleName("a b");
    EXPECT_EQ(message.text,
              "The module name 'a b' is invalid. \rEither it is a invalid VB Name or a module with "
              "same name \ralready exists in the current project.");
    EXPECT_EQ(message.flags, 48);
}

} // namespace
} // namespace corvelle::indexer
