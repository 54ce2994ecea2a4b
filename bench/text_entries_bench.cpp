// How quickly the editor of text entries works on a large index, without a screen: 20,000 controls in 200
// designers, of which one has 1,000.

#include "forms/headless/headless_desktop.h"
#include "indexer/id_gen.h"
#include "indexer/windows/add_in_manager.h"
#include "indexer/windows/frm_txt.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

namespace fs = std::filesystem;
using corvelle::forms::HeadlessDesktop;
using corvelle::indexer::FrmTxt;

constexpr int designers = 200;
constexpr int controls = 20000;
constexpr int largest = 1000; // controls of the first designer

// The files of the index, and a window that has loaded it.
class LargeIndex {
  public:
    LargeIndex() {
        fs::create_directories(folder_);
        std::string mappings, texts;
        corvelle::indexer::ResetIDGen();
        texts += ".topic  " + corvelle::indexer::getNewIDH() + "\r\nNo help.\r\n";
        const int others = (controls - largest) / (designers - 1);
        for (int designer = 0; designer < designers; ++designer) {
            mappings += "<P>frm" + std::to_string(designer) + "</P>\r\n";
            for (int i = 0; i < (designer == 0 ? largest : others); ++i) {
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

void loading(benchmark::State& state) {
    LargeIndex index;
    while (state.KeepRunning()) index.load();
}
BENCHMARK(loading)->Unit(benchmark::kMillisecond);

// To the largest designer and to another one.
void choosingADesigner(benchmark::State& state) {
    LargeIndex index;
    int row = 0;
    while (state.KeepRunning())
        index.desktop.choose(index.window->cboDsr, row = row == 0 ? designers / 2 : 0);
}
BENCHMARK(choosingADesigner)->Unit(benchmark::kMicrosecond);

void choosingAControl(benchmark::State& state) {
    LargeIndex index;
    int row = 0;
    while (state.KeepRunning()) index.desktop.choose(index.window->CboCtl, row = (row + 1) % largest);
}
BENCHMARK(choosingAControl)->Unit(benchmark::kMicrosecond);

void saving(benchmark::State& state) {
    LargeIndex index;
    while (state.KeepRunning()) {
        index.desktop.answerNextBox(corvelle::forms::answer::ok);
        index.desktop.click(index.window->CmdProc);
    }
}
BENCHMARK(saving)->Unit(benchmark::kMillisecond);

} // namespace
