// The indexer's wizard on the headless window system: analysis and creation through its buttons, labels,
// report and yields included, over a project on disk with so many designers and controls in each.

#include "form_project.h"
#include "forms/headless/headless_desktop.h"
#include "ide/workspace/workspace.h"
#include "indexer/forms/frm_indexer.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using namespace corvelle;

namespace {

using Project = bench::FormProject;

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
    void pressAndTakeBox(forms::Control& control) {
        desktop_.answerNextBox(forms::answer::ok);
        press(control);
    }
    /// To the stage that creates the index, with the files' names.
    void goToCreation(const Project& project) {
        press(form->CmdProc);
        press(form->CmdNext);
        form->Text1(0).setText(project.file("a.h"));
        form->Text1(1).setText(project.file("a.hcnf"));
    }

  private:
    forms::HeadlessDesktop desktop_;
    std::shared_ptr<workspace::Workspace> ide_;

  public:
    std::shared_ptr<indexer::FrmIndexer> form = std::make_shared<indexer::FrmIndexer>(desktop_);
};

Project projectFor(const benchmark::State& state) {
    return Project("corvelle-wizard-bench", static_cast<int>(state.range(0)),
                   static_cast<int>(state.range(1)));
}

// Processor time, as for the benchmarks that time themselves.
template <class Work>
void timed(benchmark::State& state, Work work) {
    const auto start = std::clock();
    work();
    state.SetIterationTime(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
}

std::int64_t controlsOf(const benchmark::State& state) {
    return state.range(0) * state.range(1);
}

void Analyse(benchmark::State& state) {
    const Project project = projectFor(state);
    Wizard wizard(project);
    for (auto _ : state) wizard.press(wizard.form->CmdProc);
    if (wizard.form->lblControls.caption() != "Total Controls: " + std::to_string(controlsOf(state)))
        state.SkipWithError("not all controls were counted");
    state.SetItemsProcessed(state.iterations() * controlsOf(state));
}

// The third argument: whether the mapping module is added too.
void Create(benchmark::State& state) {
    const Project project = projectFor(state);
    for (auto _ : state) {
        project.writeProject();
        Wizard wizard(project);
        wizard.goToCreation(project);
        auto& form = *wizard.form;
        if (state.range(2) != 0) {
            form.ChkIDMap.setValue(1);
            form.ChkAutoLoad.setValue(1);
            form.txtModule.setText("modHelp");
            form.Text1(3).setText(project.file("modHelp.bas"));
        }
        timed(state, [&] { wizard.press(form.CmdProc); });
        if (form.LblProc.caption() != "Processing completed..") state.SkipWithError("not created");
    }
    state.SetItemsProcessed(state.iterations() * controlsOf(state));
}

// The third stage, from the mappings' reading to the text file's saving.
void Texts(benchmark::State& state) {
    const Project project = projectFor(state);
    for (auto _ : state) {
        Wizard wizard(project);
        wizard.goToCreation(project);
        wizard.press(wizard.form->CmdProc);
        timed(state, [&] {
            wizard.pressAndTakeBox(wizard.form->CmdNext);
            wizard.form->Text1(2).setText(project.file("a.txt"));
            wizard.pressAndTakeBox(wizard.form->CmdProc);
        });
        if (!std::filesystem::exists(project.file("a.txt"))) state.SkipWithError("not saved");
    }
    state.SetItemsProcessed(state.iterations() * controlsOf(state));
}

// As many controls in many designers, in few, and in one; each at twice the size too.
const std::vector<std::vector<std::int64_t>> sizes{{1000, 100}, {2000, 100}, {100, 1000},
                                                   {200, 1000}, {1, 100000}, {1, 200000}};

void allSizes(benchmark::internal::Benchmark* benchmark) {
    for (const auto& size : sizes) benchmark->Args(size);
    benchmark->Unit(benchmark::kMillisecond);
}

void creations(benchmark::internal::Benchmark* benchmark) {
    for (const auto& size : sizes) benchmark->Args({size[0], size[1], 0});
    // As many as a module of the IDE holds.
    for (const std::int64_t designers : {160, 320}) benchmark->Args({designers, 100, 1});
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(Analyse)->Apply(allSizes);
BENCHMARK(Create)->Apply(creations);
BENCHMARK(Texts)->Apply(allSizes)->UseManualTime();

} // namespace
