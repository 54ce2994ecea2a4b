#pragma once

#include "base/temporary_folder.h"
#include "cli/run_corvelle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::test {

/// A module that is not formatted yet, and what it becomes with two spaces a level.
constexpr std::string_view untidy = "Sub Greet()\r\nIf a Then\r\nb\r\nEnd If\r\nEnd Sub\r\n";
constexpr std::string_view tidy = "Sub Greet()\r\n  If a Then\r\n    b\r\n  End If\r\nEnd Sub\r\n";

/// `corvelle format --layout classic` in a fresh folder, which is the current one for the program.
class FormatTest : public testing::Test {
  protected:
    Outcome format(std::vector<std::string> arguments, Surroundings surroundings = {}) const {
        arguments.insert(arguments.begin(), {"format", "--layout", "classic"});
        surroundings.folder = folder.path();
        return runCorvelle(arguments, surroundings);
    }

    /// Formats the text on standard input.
    Outcome pass(std::string_view module, std::vector<std::string> options = {}) const {
        options.push_back("-");
        Surroundings surroundings;
        surroundings.input = module;
        return format(std::move(options), surroundings);
    }

    TemporaryFolder folder;
};

/// What is said of a structural error: its entry in the error list, and what that means.
inline std::string tabError(const std::string& place, int position, const std::string& source) {
    return place + ": Tab On Line: " + std::to_string(position) + "\n" + place +
           ": CV101 this closes a block, but none is open: " + source + "\n";
}
inline std::string selectError(const std::string& place, int position) {
    return place + ": Error On Line: " + std::to_string(position) + "\n" + place +
           ": CV102 this End Select closes one block more than is open: End Select\n";
}

/// What is said of an unsafe line.
inline std::string unsafe(const std::string& place, const std::string& loss, const std::string& source) {
    return place + ": unsafe: " + loss + "\n" + place +
           ": CV105 formatted, the code would not say what it says now: " + source + "\n";
}

/// The line about a module that was processed.
inline std::string summary(std::string_view name, int before, int after) {
    return std::string(name) + ": Module contains " + std::to_string(before) +
           " Lines | Formatted code contains:  " + std::to_string(after) + " Lines\n";
}

} // namespace corvelle::test
