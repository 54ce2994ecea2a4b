#include "fakes/fake_ide.h"
#include "indexer/module_name.h"

#include <gtest/gtest.h>

namespace corvelle::indexer {
namespace {

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
