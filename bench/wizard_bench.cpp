// The indexer's wizard on the headless window system: analysis and creation through its buttons, labels,
// report and yields included, over a project on disk with so many designers and controls in each.

#include "forms/headless/headless_desktop.h"
#include "ide/workspace/workspace.h"
#include "indexer/windows/frm_indexer.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

using namespace corvelle;

namespace {

/// A project in a folder of its own, removed at the end.
class Project {
  public:
    Project(int designers, int controls)
        : folder_(std::filesystem::temp_directory_path() / "corvelle-wizard-bench"), designers_(designers) {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        writeProject();
        for (int i = 0; i < designers; ++i) {
            const auto name = "frm" + std::to_string(i);
            std::ofstream form(folder_ / (name + ".frm"), std::ios::binary);
            form << "VERSION 5.00\r\nBegin VB.Form " << name << "\r\n";
            for (int j = 0; j < controls; ++j)
                form << "   Begin VB.TextBox txt" << j << " \r\n      Height = 285\r\n   End\r\n";
            form << "End\r\nAttribute VB_Name = \"" << name << "\"\r\nOption Explicit\r\n";
        }
    }
    ~Project() { std::filesystem::remove_all(folder_); }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    /// Writes the project's own file: a module that was added is no part of it any more.
    void writeProject() const {
        std::ofstream project(path(), std::ios::binary);
        project << "Type=Exe\r\n";
        for (int i = 0; i < designers_; ++i) project << "Form=frm" << i << ".frm\r\n";
        project << "Name=\"Bench\"\r\n";
    }
    std::filesystem::path path() const { return folder_ / "Bench.vbp"; }
    std::string file(const char* name) const { return (folder_ / name).string(); }

  private:
    std::filesystem::path folder_;
    int designers_;
};

/// The wizard over the project.
class Wizard {
  public:
    explicit Wizard(const Project& project) : ide_(workspace::Workspace::open(project.path())) {
        desktop_.settings().save("Trellis", "Indexer", "ExcludeList_Path", "none");
        form->ShowIndexer(ide_);
    }
    ~Wizard() { form->unload(); }
    Wizard(const Wizard&) = delete;
    Wizard& operator=(const Wizard&) = delete;

    void press(forms::Control& control) {
        if (!desktop_.click(control)) throw std::runtime_error(control.name() + " cannot be pressed");
    }

  private:
    forms::HeadlessDesktop desktop_;
    std::shared_ptr<workspace::Workspace> ide_;

  public:
    std::shared_ptr<indexer::FrmIndexer> form = std::make_shared<indexer::FrmIndexer>(desktop_);
};

std::int64_t controlsOf(const benchmark::State& state) {
    return state.range(0) * state.range(1);
}

void Analyse(benchmark::State& state) {
    const Project project(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Wizard wizard(project);
    for (auto _ : state) wizard.press(wizard.form->CmdProc);
    if (wizard.form->lblControls.caption() != "Total Controls: " + std::to_string(controlsOf(state)))
        state.SkipWithError("not all controls were counted");
    state.SetItemsProcessed(state.iterations() * controlsOf(state));
}

// The third argument: whether the mapping module is added too.
void Create(benchmark::State& state) {
    const Project project(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        project.writeProject();
        Wizard wizard(project);
        auto& form = *wizard.form;
        wizard.press(form.CmdProc);
        wizard.press(form.CmdNext);
        form.Text1(0).setText(project.file("a.h"));
        form.Text1(1).setText(project.file("a.hcnf"));
        if (state.range(2) != 0) {
            form.ChkIDMap.setValue(1);
            form.ChkAutoLoad.setValue(1);
            form.txtModule.setText("modHelp");
            form.Text1(3).setText(project.file("modHelp.bas"));
        }
        const auto start = std::chrono::steady_clock::now();
        wizard.press(form.CmdProc);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(took.count());
        if (form.LblProc.caption() != "Processing completed..") state.SkipWithError("not created");
    }
    state.SetItemsProcessed(state.iterations() * controlsOf(state));
}

BENCHMARK(Analyse)->Args({50, 100})->Args({200, 100})->Args({20, 1000})->Unit(benchmark::kMillisecond);
BENCHMARK(Create)
    ->ArgsProduct({{50, 200}, {100}, {0, 1}})
    ->Args({20, 1000, 1})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
