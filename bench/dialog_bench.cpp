// dialog_bench [LINES [ROUNDS]] - what the window system costs: the dialog's Format Code and Add to Module
// over one module, labels and yields included, on the headless window system and on the real one, in turn.
// Exit status 1 if the real one takes more than four times as long.

#include "formatter/forms/frm_formatter.h"
#include "forms/headless/headless_desktop.h"
#include "forms/win32/win32_desktop.h"
#include "ide/workspace/workspace.h"
#include "module_file.h"
#include "peak_memory.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

using namespace corvelle;

namespace {

constexpr double atMost = 4;

struct Times {
    std::vector<double> format, add;
};

double timeOf(forms::CommandButton& button) {
    const auto start = std::chrono::steady_clock::now();
    button.userClicked();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    return took.count();
}

void expect(const formatter::FrmFormatter& dialog, const std::string& status) {
    if (dialog.txtInfo.text() != " Status: " + status)
        throw std::runtime_error("unexpected status:" + dialog.txtInfo.text());
}

void run(forms::Desktop& desktop, const std::filesystem::path& path, Times& times) {
    const auto ide = workspace::Workspace::open(path);
    ide->setActiveCodePane(ide->projects().front()->components().front().get());
    const auto dialog = std::make_shared<formatter::FrmFormatter>(desktop);
    dialog->FmtCodePane = ide->ActiveCodePane();
    dialog->FmtCodeModule = dialog->FmtCodePane->CodeModule();
    dialog->show();
    desktop.doEvents();
    times.format.push_back(timeOf(dialog->CmdFmt));
    expect(*dialog, "Formatting completed successfully...");
    times.add.push_back(timeOf(dialog->CmdAdd));
    expect(*dialog, "Formatted code written to the code module..");
    dialog->unload();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double report(const char* what, const std::vector<double>& headless, const std::vector<double>& real) {
    const double ratio = median(real) / median(headless);
    std::printf("%-14s headless %8.1f ms   windows %8.1f ms   ratio %.2f\n", what, median(headless),
                median(real), ratio);
    return ratio;
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        const int lines = argc > 1 ? std::atoi(argv[1]) : 60000;
        const int rounds = argc > 2 ? std::atoi(argv[2]) : 7;
        const bench::ModuleOfLines module("corvelle_dialog_bench.bas", lines);
        Times headless, real;
        {
            forms::HeadlessDesktop headlessDesktop;
            forms::Win32Desktop realDesktop(GetModuleHandleA(nullptr));
            Times first; // a round that does not count
            run(headlessDesktop, module.path(), first);
            run(realDesktop, module.path(), first);
            for (int i = 0; i < rounds; ++i) {
                run(headlessDesktop, module.path(), headless);
                run(realDesktop, module.path(), real);
            }
        }
        std::printf("%d lines, median of %d rounds, peak memory %.1f MB\n", lines, rounds,
                    static_cast<double>(bench::peakMemory()) / 1e6);
        const double format = report("Format Code", headless.format, real.format);
        const double add = report("Add to Module", headless.add, real.add);
        return std::max(format, add) > atMost ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "dialog_bench: %s\n", error.what());
        return 2;
    }
}
