// Random trees of .editorconfig files, read by us and by the program `editorconfig`. The trees hold what the
// format's text settles; where the program is known to differ stands in docs/editorconfig.md.
#ifndef _WIN32

#include "base/temporary_folder.h"
#include "settings/editor_config.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using corvelle::settings::EditorConfig;
using corvelle::test::TemporaryFolder;
using PropertiesByFile = std::map<std::string, std::map<std::string, std::string>>;

class Tree {
  public:
    explicit Tree(unsigned seed) : random_(seed) {}

    // One section's name.
    std::string pattern() {
        std::string text = oneIn(6) ? "/" : "";
        for (unsigned i = 0, parts = 1 + below(4); i < parts; ++i) text += part(0);
        return text;
    }
    std::string file() {
        std::string text = oneIn(4) ? "\xEF\xBB\xBF" : "";
        const std::string end = oneIn(3) ? "\r\n" : "\n";
        if (oneIn(5)) text += pick({"root=true", "ROOT = True", "root=false", "root = no"}) + end;
        return text + sections(end);
    }
    std::string sections(const std::string& end = "\n") {
        std::string text;
        for (unsigned i = 0, sections = 1 + below(4); i < sections; ++i) {
            if (oneIn(4)) text += pick({"# comment", "  ; [x]", "", " \t "}) + end;
            text += "[" + pattern() + "]" + end;
            for (unsigned k = below(4); k > 0; --k) text += pair() + end;
        }
        return text;
    }
    // A file's path; the names are such as the patterns can match.
    std::string path() {
        std::string text;
        for (unsigned depth = below(3); depth > 0; --depth) text += name() + "/";
        return text + name();
    }
    std::string folder() { return oneIn(3) ? "" : pick({"a/", "b/", "a/b/", "ab/"}); }

  private:
    unsigned below(unsigned end) { return std::uniform_int_distribution<unsigned>(0, end - 1)(random_); }
    bool oneIn(unsigned count) { return below(count) == 0; }
    std::string pick(const std::vector<std::string>& words) {
        return words[below(static_cast<unsigned>(words.size()))];
    }

    std::string name() {
        std::string text;
        for (unsigned i = 1 + below(4); i > 0; --i) {
            text += pick(
                {"a", "b", "c", "a", "b", ".", "-", "1", "12", "+7", "*", "?", "{", "}", "!", "x", "]", ","});
        }
        return text == "." || text == ".." ? "a" : text;
    }
    std::string part(unsigned depth) {
        switch (below(12)) {
        case 0:
            return "*";
        case 1:
            return "?";
        case 2:
            return pick({"**", "**/", "/**/", "/"});
        case 3:
            return pick({"[ab]", "[a-c]", "[!b]", "[]a]", "[!]-]", "[b.]", "[\\]x]", "[1-9]"});
        case 4:
            // In a choice, or where a star could take some of the digits, the program has its own way.
            return depth == 0 ? pick({"x{1..3}x", "x{-2..12}x", "-{5..20}."}) : "c";
        case 5:
            return pick({"\\*", "\\?", "\\{", "\\}", "\\,", "\\]"});
        case 6:
        case 7: {
            if (depth > 2) return "c";
            std::string text = "{" + choice(depth);
            for (unsigned i = 1 + below(2); i > 0; --i) text += "," + choice(depth);
            return text + "}";
        }
        default:
            return pick({"a", "b", "c", "ab", ".", "-", "x", "!", "+"});
        }
    }
    std::string choice(unsigned depth) {
        std::string text;
        for (unsigned i = below(3); i > 0; --i) text += part(depth + 1);
        return text;
    }
    std::string pair() {
        const std::string key = pick({"k", "K", "l", "indent_style", "Indent_Size", "tab_width",
                                      "end_of_line", "charset", "trim_trailing_whitespace", "corvelle_case"});
        // Words of the format where it has any; it leaves open what follows from others.
        std::vector<std::string> values{"1", "Two", "a=b", "a#b", "unset", "UNSET", "", "x y"};
        if (key == "indent_style") values = {"tab", "TAB", "Space"};
        if (key == "Indent_Size") values = {"tab", "Tab", "1", "4"};
        if (key == "tab_width") values = {"2", "8"};
        const std::string value = pick(values);
        return pick({"", " ", "\t"}) + key + pick({"=", " = ", "\t= "}) + value + pick({"", " "});
    }

    std::mt19937 random_;
};

std::string outputOf(const std::string& command) {
    std::string text;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (!pipe) return text;
    std::array<char, 4096> buffer{};
    for (std::size_t count = 0; (count = fread(buffer.data(), 1, buffer.size(), pipe.get())) > 0;) {
        text.append(buffer.data(), count);
    }
    return text;
}

PropertiesByFile byTheProgram(const std::vector<std::string>& paths) {
    std::string command = "editorconfig";
    for (const auto& path : paths) command += " '" + path + "'";
    PropertiesByFile result;
    std::map<std::string, std::string>* file = nullptr;
    std::size_t next = 0;
    const std::string output = outputOf(command);
    for (std::size_t at = 0; at < output.size();) {
        const std::size_t end = output.find('\n', at);
        const std::string line = output.substr(at, end - at);
        at = end == std::string::npos ? output.size() : end + 1;
        if (next < paths.size() && line == "[" + paths[next] + "]") {
            file = &result[paths[next++]];
        } else if (const auto equals = line.find('='); file && equals != std::string::npos) {
            const std::string value = line.substr(equals + 1);
            if (value != "unset" && value != "UNSET") (*file)[line.substr(0, equals)] = value;
        }
    }
    EXPECT_EQ(next, paths.size()) << output;
    return result;
}

PropertiesByFile byUs(const std::vector<std::string>& paths,
                      const std::map<std::string, std::string>& files) {
    EditorConfig config([&](const std::string& path) -> std::optional<std::string> {
        const auto found = files.find(path);
        return found == files.end() ? std::nullopt : std::optional(found->second);
    });
    PropertiesByFile result;
    for (const auto& path : paths) {
        auto& file = result[path];
        for (const auto& [key, property] : config.propertiesOf(path)) file[key] = property.value;
    }
    return result;
}

TEST(RandomTrees, AreReadAsTheProgramReadsThem) {
    ASSERT_NE(outputOf("editorconfig --version"), "") << "the program editorconfig is missing";
    std::size_t properties = 0;
    for (unsigned seed = 1; seed <= 100; ++seed) {
        Tree tree(seed);
        const TemporaryFolder temporary;
        const std::string top = temporary.path().string() + "/";
        std::map<std::string, std::string> files{{top + ".editorconfig", "root = true\n" + tree.sections()}};
        for (int i = 0; i < 3; ++i) files.emplace(top + tree.folder() + ".editorconfig", tree.file());
        for (const auto& [path, bytes] : files) temporary.write(path.substr(top.size()), bytes);
        std::vector<std::string> paths;
        for (int i = 0; i < 40; ++i) paths.push_back(top + tree.folder() + tree.path());
        std::sort(paths.begin(), paths.end());
        paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
        const auto wanted = byTheProgram(paths), found = byUs(paths, files);
        for (const auto& path : paths) {
            EXPECT_EQ(found.at(path), wanted.at(path)) << path << " in tree " << seed;
            properties += wanted.at(path).size();
        }
        if (testing::Test::HasFailure()) {
            for (const auto& [path, bytes] : files) ADD_FAILURE() << path << "\n" << bytes;
            return;
        }
    }
    EXPECT_GT(properties, 1000U); // that the trees say something
}

} // namespace

#endif
