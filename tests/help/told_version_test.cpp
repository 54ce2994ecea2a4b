// Code and resources take the versions from the build; these texts tell them by hand.

#include "base/file.h"
#include "places.h"
#include "version.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

namespace corvelle::help {
namespace {

const std::filesystem::path root = std::filesystem::path(HELP_DIR).parent_path();

/// The first group of every match in a file of the repository.
std::vector<std::string> told(const std::string& file, const std::string& pattern) {
    const std::string text = base::readFile(root / file);
    const std::regex expression(pattern);
    std::vector<std::string> result;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
        result.push_back((*match)[1].str());
    }
    return result;
}

TEST(ToldVersion, IsThePackagesInNamesOfItsFiles) {
    const std::string packages = "Corvelle-([0-9.]+)(?:-setup\\.exe|\\.zip)";
    EXPECT_THAT(told("README.md", packages), testing::ElementsAre(CORVELLE_VERSION, CORVELLE_VERSION));
    EXPECT_THAT(told("help/install.html", packages),
                testing::ElementsAre(CORVELLE_VERSION, CORVELLE_VERSION));
}

TEST(ToldVersion, HeadsTheListOfChanges) {
    const std::vector<std::string> versions = told("CHANGELOG.md", "\n## ([0-9.]+)");
    ASSERT_FALSE(versions.empty());
    EXPECT_EQ(versions.front(), CORVELLE_VERSION);
}

} // namespace
} // namespace corvelle::help
