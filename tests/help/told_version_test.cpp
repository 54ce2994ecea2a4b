// The version stands in texts and resources that no compiler compares.

#include "base/file.h"
#include "forms/application.h"
#include "places.h"

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

namespace corvelle::help {
namespace {

const std::filesystem::path root = std::filesystem::path(HELP_DIR).parent_path();

/// The first group of every match in a file of the repository, without blanks; a comma counts as a dot.
std::vector<std::string> told(const std::string& file, const std::string& pattern) {
    const std::string text = base::readFile(root / file);
    const std::regex expression(pattern);
    std::vector<std::string> result;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
        const std::string version = std::regex_replace((*match)[1].str(), std::regex(" "), "");
        result.push_back(std::regex_replace(version, std::regex(","), "."));
    }
    return result;
}

TEST(ToldVersion, IsTheAboutBoxsWhereverItStands) {
    const forms::Application application;
    const std::string start = std::to_string(application.major) + "." + std::to_string(application.minor);
    const std::string plain = start + "." + std::to_string(application.revision);
    const std::string ofFiles = start + ".0." + std::to_string(application.revision);
    char padded[32];
    std::snprintf(padded, sizeof padded, "%d.%02d.%04d", application.major, application.minor,
                  application.revision);

    const std::string numbers = "(?:FILE|PRODUCT)VERSION +([0-9, ]+)";
    const std::string strings = "\"(?:File|Product)Version\", \"([^\"]*)\"";
    const std::string packages = "Corvelle-([0-9.]+)(?:-setup\\.exe|\\.zip)";
    const struct {
        const char* file;
        std::string pattern;
        std::size_t times;
        std::string version;
    } places[] = {
        {"CMakeLists.txt", "project\\(Corvelle VERSION ([^ ]+)", 1, plain},
        {"README.md", packages, 2, plain},
        {"help/install.html", packages, 2, plain},
        {"packaging/readme.txt", "^Corvelle ([0-9.]+)", 1, plain},
        {"packaging/corvelle.nsi", "VIProductVersion \"([^\"]*)\"", 1, ofFiles},
        {"src/host/com/dll/corvelle.rc", numbers, 2, ofFiles},
        {"src/host/com/dll/corvelle.rc", strings, 2, padded},
        {"src/workbench/main/workbench.rc", numbers, 2, ofFiles},
        {"src/workbench/main/workbench.rc", strings, 2, padded},
        {"src/workbench/main_commands.cpp", "Corvelle Workbench ([0-9.]+)", 1, padded},
    };
    for (const auto& place : places) {
        EXPECT_EQ(told(place.file, place.pattern), std::vector<std::string>(place.times, place.version))
            << place.file << ": " << place.pattern;
    }
}

} // namespace
} // namespace corvelle::help
