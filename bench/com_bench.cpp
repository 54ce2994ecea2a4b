// com_bench WORK SIZE - the add-ins' road to an IDE: late-bound calls to the workbench's object model, in one
// program. WORK is read, write (the lines of a module, one a call), format (Format Code and Add to Module of
// the dialog, on the headless window system), walk (class and name of the controls of forms, 100 each), or
// create (an index of them). Prints the processor's milliseconds, the best of three rounds, and the megabytes
// of the program's peak memory.

#include "form_project.h"
#include "formatter/forms/frm_formatter.h"
#include "forms/headless/headless_desktop.h"
#include "ide/automation/automation.h"
#include "ide/workspace/workspace.h"
#include "indexer/analysis.h"
#include "indexer/create_index.h"
#include "module_file.h"
#include "peak_memory.h"
#include "workbench/model/vbe_object.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using namespace corvelle;

namespace {

constexpr int rounds = 3;
constexpr int controlsOfAForm = 100;

/// A program around a workspace, as far as its object model asks for one here.
struct Host : workbench::WorkbenchHost {
    std::shared_ptr<workspace::Workspace> ide;
    workspace::Menus menuModel;

    std::shared_ptr<workspace::Workspace> workspace() override { return ide; }
    workspace::Menus& menus() override { return menuModel; }
    std::vector<workspace::Component*> codePanes() override { return {}; }
    void showCode(workspace::Component&) override {}
    workspace::Component* selectedComponent() override { return nullptr; }
    HWND mainWindow() override { return nullptr; }
    com::Ptr<IDispatch> addIns() override { return {}; }
    void quit() override {}
};

// Milliseconds that a processor has worked for this program.
double processorTime() {
    FILETIME ignored{}, kernel{}, user{};
    GetProcessTimes(GetCurrentProcess(), &ignored, &ignored, &kernel, &user);
    const auto hundredNanoseconds = [](const FILETIME& time) {
        return static_cast<double>(time.dwHighDateTime) * 4294967296.0 +
               static_cast<double>(time.dwLowDateTime);
    };
    return (hundredNanoseconds(kernel) + hundredNanoseconds(user)) / 1e4;
}

/// Runs the work on a project that is opened anew for each round; the best round's milliseconds.
template <class Work>
double best(const std::filesystem::path& project, Work work) {
    double least = std::numeric_limits<double>::max();
    for (int i = 0; i < rounds; ++i) {
        const auto host = std::make_shared<Host>();
        host->ide = workspace::Workspace::open(project);
        const auto served = workbench::serveVBE(host);
        const auto vbe = automation::vbe(served.get());
        const auto start = processorTime();
        work(*vbe);
        least = std::min(least, processorTime() - start);
    }
    return least;
}

std::shared_ptr<ide::CodeModule> moduleOf(ide::VBE& vbe) {
    return vbe.ActiveVBProject()->VBComponents()->Item(1)->CodeModule();
}

std::vector<std::string> linesOf(ide::CodeModule& module) {
    std::vector<std::string> lines;
    const auto count = module.CountOfLines();
    for (std::int32_t i = 1; i <= count; ++i) lines.push_back(module.Lines(i, 1));
    return lines;
}

void write(ide::CodeModule& module, const std::vector<std::string>& lines) {
    module.DeleteLines(1, module.CountOfLines());
    for (std::size_t i = 0; i < lines.size(); ++i)
        module.InsertLines(static_cast<std::int32_t>(i + 1), lines[i]);
}

void format(ide::CodeModule& module, std::shared_ptr<ide::CodeModule> pointer) {
    forms::HeadlessDesktop desktop;
    const auto dialog = std::make_shared<formatter::FrmFormatter>(desktop);
    dialog->FmtCodeModule = std::move(pointer);
    dialog->show();
    desktop.click(dialog->CmdFmt);
    desktop.click(dialog->CmdAdd);
    if (dialog->txtInfo.text() != " Status: Formatted code written to the code module..")
        throw std::runtime_error("unexpected status:" + dialog->txtInfo.text());
    if (module.Lines(4, 1).substr(0, 4) != "    ") throw std::runtime_error("the module was not formatted");
    dialog->unload();
}

void walk(ide::VBE& vbe, std::int64_t wanted) {
    std::int64_t met = 0;
    const auto components = vbe.ActiveVBProject()->VBComponents();
    const auto count = components->Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        const auto controls = components->Item(i)->Designer()->VBControls();
        const auto controlCount = controls->Count();
        for (std::int32_t j = 1; j <= controlCount; ++j) {
            const auto control = controls->Item(j);
            if (control->ClassName() == "TextBox" && !control->Properties()->Item("Name")->Value().empty())
                ++met;
        }
    }
    if (met != wanted) throw std::runtime_error("not all controls were met");
}

void create(ide::VBE& vbe, const bench::FormProject& project) {
    indexer::IndexerObserver observer;
    indexer::Report report;
    indexer::IndexJob job;
    job.project = vbe.ActiveVBProject();
    job.options.ChkFrm = 1;
    indexer::Analysis analysis;
    analysis.analyseProject(job.project, job.options, observer);
    job.SelectedDesigners = analysis.SelectedDesigners();
    job.headerPath = project.file("a.h");
    job.configurationPath = project.file("a.hcnf");
    if (indexer::createIndex(job, report, observer) != indexer::IndexOutcome::Created)
        throw std::runtime_error("the index was not created");
}

double run(std::string_view work, int size) {
    if (work == "walk" || work == "create") {
        const bench::FormProject project("corvelle-com-bench", size / controlsOfAForm, controlsOfAForm);
        if (work == "walk") return best(project.path(), [&](ide::VBE& vbe) { walk(vbe, size); });
        return best(project.path(), [&](ide::VBE& vbe) { create(vbe, project); });
    }
    const bench::ModuleOfLines module("corvelle_com_bench.bas", size);
    if (work == "read") {
        return best(module.path(), [&](ide::VBE& vbe) {
            if (linesOf(*moduleOf(vbe)).size() != static_cast<std::size_t>(size))
                throw std::runtime_error("not all lines were read");
        });
    }
    if (work == "write") {
        const auto lines = linesOf(*workspace::Workspace::open(module.path())
                                        ->projects()
                                        .front()
                                        ->components()
                                        .front()
                                        ->CodeModule());
        return best(module.path(), [&](ide::VBE& vbe) { write(*moduleOf(vbe), lines); });
    }
    if (work == "format") {
        return best(module.path(), [](ide::VBE& vbe) {
            const auto code = moduleOf(vbe);
            format(*code, code);
        });
    }
    throw std::runtime_error("unknown work");
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        if (argc != 3) throw std::runtime_error("com_bench WORK SIZE");
        const auto milliseconds = run(argv[1], std::atoi(argv[2]));
        std::printf("%.1f %.1f\n", milliseconds, static_cast<double>(bench::peakMemory()) / 1e6);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "com_bench: %s\n", error.what());
        return 2;
    }
}
