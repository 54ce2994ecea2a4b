// A folder with projects, groups and modules: the command line's list of modules and the embedded IDE find
// the same files; each module reads as its file does; an edited module, and a new one, change their own files
// and the project's line for it, and nothing else.
//
// Input: files (see filesOf); the file without a name holds the edits.

#include "base/text.h"
#include "cli/source_list.h"
#include "ide/code.h"
#include "ide/component.h"
#include "ide/designer.h"
#include "ide/workspace/workspace.h"
#include "require.h"
#include "vocabulary.h"
#include "work_folder.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace base = corvelle::base;
namespace cli = corvelle::cli;
namespace ide = corvelle::ide;
namespace fs = std::filesystem;
using corvelle::workspace::Component;
using corvelle::workspace::ModuleFile;
using corvelle::workspace::Project;
using corvelle::workspace::Workspace;

namespace {

using Paths = std::set<fs::path>;

fs::path real(const fs::path& path) {
    std::error_code ignored;
    return fs::canonical(path, ignored);
}

void checkLists(const Workspace& workspace, const std::string& opened) {
    Paths modules, listed, missing, notListed;
    bool skipped = false; // what is no module by its name may be missing, nobody looks
    for (const auto& project : workspace.projects()) {
        for (const auto& component : project->components()) modules.insert(real(component->path()));
    }
    for (const auto& problem : workspace.problems()) {
        // What is not to be read as a file at all is listed, too: reading it fails later.
        if (fs::exists(problem.path))
            modules.insert(real(problem.path));
        else
            missing.insert(problem.path);
    }
    for (const auto& source : cli::listSources({opened}, "").sources) {
        if (source.isModule())
            require(listed.insert(real(source.path)).second, "a module is listed once");
        else if (!source.problem.empty() && !fs::exists(source.shownPath))
            notListed.insert(source.shownPath);
        else if (!source.skipped.empty())
            skipped = true;
    }
    const auto isProject = [](const fs::path& path) {
        return fs::is_directory(path) || path.extension() == ".vbp";
    };
    for (const auto& path : listed)
        require(modules.count(path) == 1, "a listed module is opened: " + path.string());
    for (const auto& path : modules)
        require(skipped || listed.count(path) == 1 || isProject(path),
                "an opened module is listed: " + path.string());
    require(skipped ? std::includes(missing.begin(), missing.end(), notListed.begin(), notListed.end())
                    : missing == notListed,
            "the same files are missing");
}

void checkComponent(Component& component) {
    const ModuleFile& file = component.file();
    require(file.bytes() == base::readFile(component.path()), "the file is read");
    const auto code = component.CodeModule();
    const auto count = code->CountOfLines();
    require(count == static_cast<std::int32_t>(file.codeLineCount()), "the lines are counted");
    std::string text;
    for (std::uint32_t i = 0; i < file.codeLineCount(); ++i) {
        if (i > 0) text += "\r\n";
        text += file.codeLine(i);
    }
    require(code->Lines(1, count) == text, "the lines are the file's");
    require(code->Name() == component.Name() && !component.IsDirty(), "nothing is changed");
    component.Activate();
    if (const auto window = component.DesignerWindow()) {
        window->SetFocus();
        window->Close();
    }
    const auto form = component.Designer();
    require(!form || file.hasDesigner(), "a designer has a section");
    if (!form) return;
    const auto controls = form->VBControls();
    for (std::int32_t i = 1; i <= controls->Count(); ++i) {
        const auto control = controls->Item(i);
        const auto name = control->Properties()->Item("name")->Value();
        require(!name.empty() && name.find_first_of(" \t\n") == std::string::npos, "a control has a name");
        require(control->ClassName().find_first_of(" \t\n") == std::string::npos, "a class is a word");
    }
}

bool isInFolder(const fs::path& path) {
    const auto folder = real(".").string() + "/";
    return real(path).string().compare(0, folder.size(), folder) == 0;
}

void checkEdit(Component& component, std::string_view edits) {
    if (!isInFolder(component.path()) || edits.size() < 2) return;
    const auto before = WorkFolder::files();
    const auto name = fs::relative(component.path(), ".").generic_string();
    const auto code = component.CodeModule();
    const auto count = code->CountOfLines();
    const auto start = static_cast<unsigned char>(edits[0]) % (count + 1) + 1;
    if (edits[1] % 2 == 0)
        code->InsertLines(start, "x = 1\r\n'" + std::string(1, edits[1]));
    else
        code->DeleteLines(start, std::min(edits[1] % 3 + 1, count + 1 - start));
    const auto text = code->CountOfLines() > 0 ? code->Lines(1, code->CountOfLines()) : "";
    component.Save();
    require(!component.IsDirty(), "it is saved");
    const auto changed = differing(before, WorkFolder::files());
    require(changed.size() <= 1, "one file is written");
    require(changed.empty() || real(changed.front()) == real(name), "the module's file is written");
    require((code->CountOfLines() > 0 ? code->Lines(1, code->CountOfLines()) : "") == text, "the lines stay");
}

void checkNewModule(Project& project) {
    const auto before = WorkFolder::files();
    if (!isInFolder(project.path())) return;
    const auto components = project.VBComponents();
    const auto added = components->Add(ide::ComponentType::StdModule);
    try {
        added->setName("modNew");
    } catch (const base::RunTimeError& error) {
        require(error.number() == 32813, "only a taken name is refused");
        return;
    }
    added->CodeModule()->InsertLines(1, "Public Const a = 1");
    added->SaveAs("modNew.bas");
    const auto changed = differing(before, WorkFolder::files());
    require(std::find(changed.begin(), changed.end(), "modNew.bas") != changed.end(), "the file is written");
    for (const auto& name : changed)
        require(name == "modNew.bas" || real(name) == real(project.path()), "only the project gets a line");
    const auto bytes = base::readFile("modNew.bas");
    require(bytes == "Attribute VB_Name = \"modNew\"\r\nPublic Const a = 1\r\n" ||
                bytes == "Attribute VB_Name = \"modNew\"\r\nPublic Const a = 1",
            "the module is written");

    const auto again = Workspace::open(project.path());
    const auto& found = again->projects().front()->components();
    require(std::any_of(found.begin(), found.end(),
                        [](const auto& one) {
                            return one->Name() == "modNew" && real(one->path()) == real("modNew.bas");
                        }),
            "the project has the module");
    require(again->projects().front()->Name() == project.Name(), "the project is the same");
}

std::shared_ptr<Workspace> opened(const std::string& path) {
    try {
        return Workspace::open(path);
    } catch (const base::FileError&) {
        return nullptr;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const WorkFolder folder;
    auto files = filesOf({reinterpret_cast<const char*>(data), size});
    const auto edits = files[""];
    files.erase("modNew.bas");
    WorkFolder::write(files);
    const auto before = WorkFolder::files();
    const std::string path = files.count("g.vbg") != 0 ? "g.vbg" : "p.vbp";
    const auto workspace = opened(path);
    require((workspace != nullptr) == (before.count(path) == 1), "what is there is opened");
    if (!workspace) return 0;
    // The command line refuses a project that is no text.
    const bool text = std::all_of(before.begin(), before.end(), [](const auto& file) {
        return base::whatInsteadOfText(file.second).empty();
    });
    if (text) checkLists(*workspace, path);
    for (const auto& project : workspace->projects()) {
        for (const auto& component : project->components()) checkComponent(*component);
    }
    require(WorkFolder::files() == before, "reading changes nothing");
    if (workspace->projects().empty()) return 0;
    auto& project = *workspace->projects().front();
    if (!project.components().empty()) {
        const auto which =
            edits.empty() ? 0 : static_cast<unsigned char>(edits[0]) % project.components().size();
        checkEdit(*project.components()[which], edits);
    }
    checkNewModule(project);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const auto phrases =
        vocabulary::together({vocabulary::project, vocabulary::project, vocabulary::files,
                              vocabulary::designer, vocabulary::code});
    return mutateLines(data, size, maxSize, seed, phrases);
}
