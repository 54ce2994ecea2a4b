// How quickly the editor of text entries works on a large index, without a screen.

#include "forms/headless/headless_desktop.h"
#include "indexer/forms/frm_txt.h"
#include "indexer/id_gen.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using corvelle::forms::HeadlessDesktop;
using corvelle::indexer::FrmTxt;

// The files of the index, and a window that has loaded it.
class LargeIndex {
  public:
    LargeIndex(std::int64_t designers, std::int64_t controls) {
        fs::create_directories(folder_);
        std::string mappings, texts;
        corvelle::indexer::ResetIDGen();
        texts += ".topic  " + corvelle::indexer::getNewIDH() + "\r\nNo help.\r\n";
        for (std::int64_t designer = 0; designer < designers; ++designer) {
            mappings += "<P>frm" + std::to_string(designer) + "</P>\r\n";
            for (std::int64_t i = 0; i < controls; ++i) {
                const auto name = corvelle::indexer::getNewIDH();
                mappings += "<C>ctlNumber" + std::to_string(i) + " TextBox " + name + "</C>\r\n";
                texts += ".topic  " + name + "\r\nWhat this control is for, in some words.\r\nAnd more.\r\n";
            }
        }
        write("a.hcnf", mappings);
        write("a.txt", texts);
        write("p.icp",
              "Indexer project file :\r\nVB Project Name= P\r\nProject File= p.vbp\r\nHeader file= " +
                  path("a.h") + "\r\nConfiguration File= " + path("a.hcnf") +
                  "\r\nText File= " + path("a.txt") + "\r\nModule Name= \r\nModule File= \r\n");
        window->ShowTextEdit(nullptr, nullptr);
        load();
    }
    ~LargeIndex() {
        window->unload();
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    LargeIndex(const LargeIndex&) = delete;
    LargeIndex& operator=(const LargeIndex&) = delete;

    void load() {
        desktop.chooseNextFile(path("p.icp"));
        desktop.click(window->Command2);
    }

    HeadlessDesktop desktop;
    std::shared_ptr<FrmTxt> window = std::make_shared<FrmTxt>(desktop);

  private:
    std::string path(const char* name) const { return (folder_ / name).string(); }
    void write(const char* name, const std::string& bytes) const {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
    }

    fs::path folder_ = fs::temp_directory_path() / "corvelle-text-entries-bench";
};

LargeIndex indexFor(const benchmark::State& state) {
    return {state.range(0), state.range(1)};
}

void loading(benchmark::State& state) {
    LargeIndex index = indexFor(state);
    while (state.KeepRunning()) index.load();
}

// Between the last designer and the first one.
void choosingADesigner(benchmark::State& state) {
    LargeIndex index = indexFor(state);
    const int last = static_cast<int>(state.range(0)) - 1;
    int row = 0;
    while (state.KeepRunning()) index.desktop.choose(index.window->cboDsr, row = last - row);
}

void choosingAControl(benchmark::State& state) {
    LargeIndex index = indexFor(state);
    int row = 0;
    while (state.KeepRunning())
        index.desktop.choose(index.window->CboCtl, row = (row + 1) % static_cast<int>(state.range(1)));
}

void saving(benchmark::State& state) {
    LargeIndex index = indexFor(state);
    while (state.KeepRunning()) {
        index.desktop.answerNextBox(corvelle::forms::answer::ok);
        index.desktop.click(index.window->CmdProc);
    }
}

// As many controls in many designers, in few, and in one; each at twice the size too.
void allSizes(benchmark::internal::Benchmark* benchmark) {
    for (const auto& [designers, controls] : std::vector<std::pair<std::int64_t, std::int64_t>>{
             {1000, 100}, {2000, 100}, {100, 1000}, {200, 1000}, {1, 100000}, {1, 200000}})
        benchmark->Args({designers, controls});
    benchmark->Unit(benchmark::kMillisecond);
}

BENCHMARK(loading)->Apply(allSizes);
BENCHMARK(choosingADesigner)->Apply(allSizes);
BENCHMARK(choosingAControl)->Apply(allSizes);
BENCHMARK(saving)->Apply(allSizes);

} // namespace
