// Random projects on disk: analysed, indexed and read back; the files agree with one another.

#include "base/temporary_folder.h"
#include "ide/workspace/workspace.h"
#include "indexer/analysis.h"
#include "indexer/create_index.h"
#include "indexer/entry_edits.h"
#include "indexer/help_text_file.h"

#include <gtest/gtest.h>
#include <random>
#include <set>

namespace corvelle::indexer {
namespace {

using test::TemporaryFolder;
using workspace::Workspace;

std::string join(std::initializer_list<std::string_view> parts) {
    std::string result;
    for (const auto part : parts) result += part;
    return result;
}

struct Designer {
    std::string name;
    std::vector<std::string> indexed; // the names of the controls that are not excluded
    int controls = 0;
};

class RandomProject {
  public:
    explicit RandomProject(unsigned seed) : random_(seed) {
        std::string project = "Type=Exe\r\n";
        const unsigned count = pick(6);
        for (unsigned i = 0; i < count; ++i) {
            const auto number = std::to_string(i);
            const auto file = join({"frm", number, ".frm"});
            project += join({"Form=", file, "\r\n"});
            if (pick(3) == 0) {
                const auto module = join({"mod", number});
                folder.write(join({module, ".bas"}), join({"Attribute VB_Name = \"", module, "\"\r\n"}));
                project += join({"Module=", module, "; ", module, ".bas\r\n"});
            }
            designers.push_back({join({"frm", number}), {}, 0});
            folder.write(file, join({"VERSION 5.00\r\nBegin VB.Form frm", number, " \r\n", blocks(pick(9), 3),
                                     "End\r\nAttribute VB_Name = \"frm", number, "\"\r\n"}));
        }
        path = folder.write("p.vbp", project + "Name=\"Proj\"\r\n");
    }

    std::vector<std::string> indexedControls() const {
        std::vector<std::string> names;
        for (const auto& designer : designers)
            names.insert(names.end(), designer.indexed.begin(), designer.indexed.end());
        return names;
    }
    int controls() const {
        int sum = 0;
        for (const auto& designer : designers) sum += designer.controls;
        return sum;
    }

    TemporaryFolder folder;
    std::filesystem::path path;
    std::vector<Designer> designers;

  private:
    unsigned pick(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

    std::string blocks(unsigned count, int depth) {
        static const char* const classes[] = {"VB.TextBox", "VB.Label", "VB.Timer", "MSComctlLib.ListView",
                                              "VB.Frame"};
        std::string text;
        for (unsigned i = 0; i < count; ++i) {
            const auto which = pick(5);
            auto& designer = designers.back();
            const auto name = join({"c", std::to_string(pick(4))}); // often a control array
            ++designer.controls;
            if (which != 1 && which != 2) designer.indexed.push_back(name);
            text += join({"   Begin ", classes[which], " ", name, " \r\n      Left = 1\r\n"});
            if (depth > 0 && which == 4) text += blocks(pick(4), depth - 1);
            text += "   End\r\n";
        }
        return text;
    }

    std::mt19937 random_;
};

// The mapping module's constants and assignments, taken apart.
struct ModuleText {
    std::map<std::string, int> constants;
    std::vector<std::pair<std::string, std::string>> assignments; // control and name
    std::vector<std::string> designers;
};

ModuleText readModule(const std::string& bytes) {
    ModuleText module;
    std::istringstream stream(bytes);
    bool procedures = false;
    for (std::string line; std::getline(stream, line);) {
        EXPECT_EQ(line.back(), '\r');
        line.pop_back();
        if (line.rfind("Public Const ", 0) == 0) {
            EXPECT_FALSE(procedures) << "a constant stands below a procedure";
            const auto equals = line.find(" = ");
            EXPECT_TRUE(
                module.constants.emplace(line.substr(13, equals - 13), std::stoi(line.substr(equals + 3)))
                    .second);
        } else if (line.rfind("Public Sub Load_HelpID_", 0) == 0) {
            procedures = true;
            module.designers.push_back(line.substr(23, line.size() - 26));
        } else if (line.rfind("\t\t.", 0) == 0) {
            const auto property = line.find(".HelpContextID = ");
            module.assignments.emplace_back(line.substr(3, property - 3), line.substr(property + 17));
        }
    }
    return module;
}

// The name of the n-th control of a run, from 1.
std::string nameOf(int n) {
    std::string name = "IDH_AAAA";
    for (std::size_t i = 7; n > 0; --i, n /= 26) name[i] = static_cast<char>('A' + n % 26);
    return name;
}

TEST(RandomProjects, HaveFilesThatAgree) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        const RandomProject random(seed);
        const auto at = [&](const char* name) { return (random.folder.path() / name).string(); };
        const auto project = Workspace::open(random.path)->ActiveVBProject();
        IndexerObserver observer;
        Report report;
        Analysis analysis;
        IndexJob job;
        SetDefOption(*project, job.options);
        job.options.ChkExclLbl = 1;
        job.options.ChkIDMap = 1;
        job.options.ChkAutoLoad = seed % 3 != 0 ? 1 : 0;
        job.excludeList = {"", "TIMER"};
        analysis.analyseProject(project, job.options, observer);
        EXPECT_EQ(analysis.TotalControls(), random.controls());
        job.project = project;
        job.SelectedDesigners = analysis.SelectedDesigners();
        job.headerPath = at("a.h");
        job.configurationPath = at("a.hcnf");
        job.modulePath = at("modHelp.bas");
        job.txtModule = "modHelp";
        const auto lines = mappingModuleLines(job);
        ASSERT_EQ(createIndex(job, report, observer), IndexOutcome::Created);

        // Numbers and names without gaps.
        const auto controls = random.indexedControls();
        const auto map = test::readHelpMap(random.folder.read("a.h"));
        ASSERT_EQ(map.size(), controls.size() + 1);
        EXPECT_EQ(map.at("IDH_AAAA"), 1000);
        for (int i = 1; i <= static_cast<int>(controls.size()); ++i) EXPECT_EQ(map.at(nameOf(i)), 1000 + i);

        // The configuration: every designer, its controls in their order, the names of the header.
        auto prepared = prepareTextEntries(job.headerPath, job.configurationPath, "");
        ASSERT_TRUE(prepared.mappings);
        auto& index = prepared.mappings->index;
        ASSERT_EQ(index.count(), controls.size());
        ASSERT_EQ(index.designers.size(), random.designers.size());
        std::size_t entry = 0;
        for (std::size_t d = 0; d < random.designers.size(); ++d) {
            EXPECT_EQ(index.designers[d], random.designers[d].name);
            for (const auto& control : random.designers[d].indexed) {
                const auto& found = index.entries[++entry];
                EXPECT_EQ(found.CtlName, control);
                EXPECT_EQ(found.DsrIndex, static_cast<std::int32_t>(d + 1));
                EXPECT_EQ(found.IDHName, nameOf(static_cast<int>(entry)));
            }
        }

        // The mapping module.
        const auto bytes = random.folder.read("modHelp.bas");
        EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), lines + 1);
        const auto module = readModule(bytes);
        auto constants = map;
        constants.erase("IDH_AAAA");
        EXPECT_EQ(module.constants, constants);
        if (job.options.ChkAutoLoad == 1) {
            EXPECT_EQ(module.designers, index.designers);
            ASSERT_EQ(module.assignments.size(), controls.size());
            for (std::size_t i = 1; i <= controls.size(); ++i) {
                EXPECT_EQ(module.assignments[i - 1].first, index.entries[i].CtlName);
                EXPECT_EQ(module.assignments[i - 1].second, index.entries[i].IDHName);
            }
        }

        // The text file has a topic for every number, and keeps its texts.
        for (std::size_t i = 1; i <= index.count(); ++i)
            index.entries[i].HelpText = " Text of " + index.entries[i].CtlName;
        ASSERT_TRUE(saveTextEntries(at("a.txt"), initialDefaultText, index).saved);
        const auto texts = test::readHelpTexts(random.folder.read("a.txt"));
        ASSERT_EQ(texts.size(), map.size());
        for (const auto& [name, number] : map) EXPECT_EQ(texts.count(name), 1U);
        const auto again = prepareTextEntries(job.headerPath, job.configurationPath, at("a.txt"));
        for (std::size_t i = 1; i <= index.count(); ++i)
            EXPECT_EQ(again.mappings->index.entries[i].HelpText, index.entries[i].HelpText);

        // The project took the module in.
        const auto reopened = Workspace::open(random.path);
        EXPECT_TRUE(reopened->problems().empty());
        EXPECT_EQ(reopened->ActiveVBProject()->VBComponents()->Item("modHelp")->Type(),
                  ide::ComponentType::StdModule);
    }
}

} // namespace
} // namespace corvelle::indexer
