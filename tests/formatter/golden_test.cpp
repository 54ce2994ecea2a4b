#include "formatter/run_engine.h"
#include "places.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

// Each folder of tests/data/format is a case:
//   input.*     the code of a module, its old indentation included
//   options     words of the command line's `format` command, or nothing
//   expected.*  the formatted code
//   errors      the error list of that run; no file if it is empty
//   expected2.* with a removal option: what formatting the result once more gives; without one that must
//               change nothing
// With CORVELLE_BLESS=1 in the environment the expected files are written instead of compared.
namespace corvelle::formatter {
namespace {

namespace fs = std::filesystem;
using test::Lines;
using test::Outcome;
using test::run;

const fs::path casesDir = fs::path(TEST_DATA_DIR) / "format";

bool blessing() {
    const char* value = std::getenv("CORVELLE_BLESS");
    return value && std::string(value) == "1";
}

std::string readBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

// A line ends at LF; one CR before it belongs to the line end.
Lines split(const std::string& bytes) {
    Lines lines;
    std::istringstream in(bytes);
    for (std::string line; std::getline(in, line);) {
        if (!in.eof() && !line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

std::string join(const Lines& lines, const char* lineEnd) {
    std::string bytes;
    for (const std::string& line : lines) bytes += line + lineEnd;
    return bytes;
}

FormatOptions optionsOf(const std::string& words) {
    FormatOptions options;
    std::istringstream in(words);
    for (std::string word; in >> word;) {
        if (word == "--remove-empty-lines") {
            options.bNoEmpty = 1;
        } else if (word == "--remove-comment-lines") {
            options.bNoCmntLn = 1;
        } else if (word == "--remove-trailing-comments") {
            options.bNoAllCmnt = 1;
        } else if (int width = 0; word == "--tab-width" && in >> width) {
            options.mTab = static_cast<std::uint8_t>(width);
        } else {
            throw std::runtime_error("unknown option " + word);
        }
    }
    return options;
}

bool removesAnything(const FormatOptions& options) {
    return options.bNoEmpty == 1 || options.bNoCmntLn == 1 || options.bNoAllCmnt == 1;
}

std::vector<std::string> caseNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(casesDir)) {
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class Golden : public ::testing::TestWithParam<std::string> {
  protected:
    const fs::path dir = casesDir / GetParam();
    const fs::path input = inputOf(dir);
    const FormatOptions options = optionsOf(readBytes(dir / "options"));
    const Outcome first = run(split(readBytes(input)), options);

    fs::path file(const char* stem) const { return dir / (stem + input.extension().string()); }

  private:
    static fs::path inputOf(const fs::path& dir) {
        for (const auto& entry : fs::directory_iterator(dir)) {
            if (entry.path().stem() == "input") return entry.path();
        }
        throw std::runtime_error("no input in " + dir.string());
    }
};

TEST_P(Golden, isFormattedAsExpected) {
    const std::string code = join(first.lines, "\r\n");
    const std::string errors = join(first.errors, "\n");
    if (blessing()) {
        writeBytes(file("expected"), code);
        fs::remove(dir / "errors");
        if (!errors.empty()) writeBytes(dir / "errors", errors);
        GTEST_SKIP() << "expected files written";
    }
    EXPECT_EQ(code, readBytes(file("expected")));
    EXPECT_EQ(errors, fs::exists(dir / "errors") ? readBytes(dir / "errors") : "");
    EXPECT_EQ(first.result, static_cast<std::int32_t>(first.errors.size()));
}

TEST_P(Golden, isFormattedASecondTimeAsExpected) {
    const std::string code = join(run(first.lines, options).lines, "\r\n");
    if (!removesAnything(options)) {
        EXPECT_EQ(code, join(first.lines, "\r\n"));
        return;
    }
    if (blessing()) {
        writeBytes(file("expected2"), code);
        GTEST_SKIP() << "expected files written";
    }
    EXPECT_EQ(code, readBytes(file("expected2")));
}

INSTANTIATE_TEST_SUITE_P(Format, Golden, ::testing::ValuesIn(caseNames()),
                         [](const auto& info) { return info.param; });

} // namespace
} // namespace corvelle::formatter
