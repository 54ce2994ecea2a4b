// Whole projects: the same on any number of threads, and nothing left to do the second time.

#include "cli/format_fixture.h"
#include "ide/workspace/file_kind.h"
#include "places.h"

#include <algorithm>
#include <map>
#include <random>

namespace corvelle::test {
namespace {

namespace fs = std::filesystem;

// All files below the folder with their bytes.
std::map<std::string, std::string> filesIn(const TemporaryFolder& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path())) {
        if (!entry.is_regular_file()) continue;
        const auto name = entry.path().lexically_relative(folder.path());
        files[name.generic_string()] = folder.read(name);
    }
    return files;
}

struct Result {
    int status;
    std::string out, err;
    std::map<std::string, std::string> files;

    bool operator==(const Result&) const = default;
};

// Modules of all fates and sizes in two projects and a folder, drawn from a fixed seed.
void writeManyModules(const TemporaryFolder& folder) {
    std::mt19937 random(1);
    std::string projects[2];
    for (int i = 0; i < 60; ++i) {
        std::string name = std::to_string(i);
        name += ".bas";
        std::string module = "Attribute VB_Name = \"M" + std::to_string(i % 25) + "\"\r\nSub a()\r\n";
        for (auto lines = random() % 400; lines > 0; --lines) module += "\tx = y ' note\r\n";
        switch (i % 7) {
        case 0:
            module += "End Sub\r\nEnd Sub\r\n";
            break;
        case 1:
            module += "s = \"a\tb\"\r\n";
            break;
        case 2:
            module.assign(30, '\1');
            break;
        case 3:
            module = "VERSION 5.00\r\nBegin VB.Form F\r\n";
            break;
        default:
            module += "End Sub\r\n";
            break;
        }
        projects[i % 2] += "Module=M; " + name + "\r\n";
        if (i % 11 == 0) projects[i % 2] += "Module=Gone; gone" + name + "\r\n";
        folder.write(name, module);
    }
    folder.write("even.vbp", projects[0]);
    folder.write("odd.vbp", projects[1]);
    fs::create_directory(folder.path() / "empty");
}

Result resultOf(const std::vector<std::string>& options) {
    const TemporaryFolder folder;
    writeManyModules(folder);
    std::vector<std::string> arguments{"format", "--layout", "classic"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.insert(arguments.end(), {"odd.vbp", "empty", "-", "even.vbp", "7.bas", "."});
    Surroundings surroundings;
    surroundings.folder = folder.path();
    surroundings.input = untidy;
    const Outcome outcome = runCorvelle(arguments, surroundings);
    return {outcome.status, outcome.out, outcome.err, filesIn(folder)};
}

class Jobs : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(Jobs, DoNotChangeAByteWhateverTheirNumber) {
    std::vector<std::string> one = GetParam(), eight = GetParam();
    one.insert(one.end(), {"--jobs", "1"});
    eight.insert(eight.end(), {"--jobs", "8"});
    const Result alone = resultOf(one);
    EXPECT_EQ(alone.status, 2);
    EXPECT_FALSE(alone.err.empty());
    EXPECT_TRUE(alone == resultOf(eight));
    EXPECT_TRUE(alone == resultOf(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Of, Jobs,
                         testing::Values(std::vector<std::string>{}, std::vector<std::string>{"--check"},
                                         std::vector<std::string>{"--diff", "--quiet"},
                                         std::vector<std::string>{"--backup-dir", "backups"},
                                         std::vector<std::string>{"--force", "--remove-trailing-comments",
                                                                  "--backup-dir", "backups"}));

class Examples : public FormatTest {
  protected:
    void SetUp() override { fs::copy(EXAMPLES_DIR, folder.path() / "examples", fs::copy_options::recursive); }

    // Whatever the examples hold on purpose, formatting by force brings every module into its last form.
    Outcome formatAll(std::vector<std::string> options, const std::string& path = "examples") {
        options.insert(options.end(), {"--force", path});
        return format(options);
    }
};

TEST_F(Examples, AreFormattedAsAFolderAndHaveNothingLeftToFormat) {
    const auto original = filesIn(folder);
    EXPECT_LT(formatAll({}).status, 2);
    const auto formatted = filesIn(folder);
    EXPECT_NE(formatted, original);
    EXPECT_EQ(formatAll({"--check"}).out, "");
    EXPECT_EQ(formatAll({"--diff"}).out, "");
    EXPECT_THAT(formatAll({}).err, testing::HasSubstr("\n0 rewritten, "));
    EXPECT_EQ(filesIn(folder), formatted);
}

TEST_F(Examples, AreFormattedAsAGroupOfProjectsInTheSameWay) {
    formatAll({});
    const auto asFolder = filesIn(folder);
    fs::remove_all(folder.path() / "examples");
    SetUp();
    formatAll({}, "examples/Examples.vbg");
    EXPECT_EQ(filesIn(folder), asFolder);
}

TEST_F(Examples, ThatAreInOrderPassTheCheckAfterwards) {
    std::vector<std::string> inOrder{"--check"};
    for (const auto& [name, bytes] : filesIn(folder)) {
        if (!workspace::isModulePath(name)) continue;
        if (format({"--quiet", name}).status == 0) inOrder.push_back(name);
    }
    EXPECT_GT(inOrder.size(), 10U);
    const Outcome check = format(inOrder);
    EXPECT_EQ(check.status, 0);
    EXPECT_EQ(check.out, "");
}

TEST_F(Examples, KeepEveryByteOfTheirHeaders) {
    const auto original = filesIn(folder);
    formatAll({});
    for (const auto& [name, bytes] : filesIn(folder)) {
        const auto code = original.at(name).find("Option Explicit");
        if (code == std::string::npos) continue;
        EXPECT_EQ(bytes.substr(0, code), original.at(name).substr(0, code)) << name;
    }
}

} // namespace
} // namespace corvelle::test
