// Any bytes can be read as a table, and what is read reads back as it was written. `corvelle text` exports
// the texts of an index that somebody else made to a table whose import changes nothing; the import of any
// other table changes the text file alone, and nothing where it is refused.
//
// Input: files (see filesOf), of which t.csv is a table; the others are an index's, a.h, a.hcnf and a.txt.

#include "base/text.h"
#include "captured_streams.h"
#include "cli/csv.h"
#include "cli/text_command.h"
#include "cli/text_settings.h"
#include "require.h"
#include "vocabulary.h"
#include "work_folder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace base = corvelle::base;
namespace cli = corvelle::cli;
using cli::TextAction;

namespace {

void checkTable(std::string_view bytes) {
    require(cli::fromUtf8(cli::toUtf8(bytes)) == std::string(bytes), "every byte comes back from UTF-8");
    const auto csv = cli::readCsv(bytes);
    std::string table(cli::utf8Mark);
    for (const auto& row : csv.rows) {
        cli::appendRow(table, row.cells);
        for (const auto& cell : row.cells) {
            const auto text = cli::fromUtf8(cell);
            require(!text || cli::toUtf8(*text) == cell, "every character comes back");
        }
    }
    const auto again = cli::readCsv(table);
    require(again.faultyLine == 0 && again.rows.size() == csv.rows.size(), "every row reads back");
    for (std::size_t i = 0; i < csv.rows.size(); ++i)
        require(again.rows[i].cells == csv.rows[i].cells, "every cell reads back");
}

int run(TextAction action, const char* table, bool partial = false) {
    cli::TextSettings settings;
    settings.project = "i.icp";
    settings.action = action;
    settings.table = table;
    settings.partial = partial;
    const CapturedStreams streams;
    const int status = cli::runText(settings);
    require(status >= 0 && status <= 2, "the status is one");
    require(status == 0 || !streams.err().empty(), "a failure is told");
    return status;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto files = filesOf({reinterpret_cast<const char*>(data), size});
    if (const auto table = files.find("t.csv"); table != files.end()) checkTable(table->second);
    checkTable(files.at(""));
    if (files.count("a.h") == 0 || files.count("a.hcnf") == 0) return 0;
    files["i.icp"] = "Indexer project file :now\r\nVB Project Name= P\r\nProject File= p.vbp\r\n"
                     "Header file= a.h\r\nConfiguration File= a.hcnf\r\nText File= a.txt\r\n"
                     "Module Name= \r\nModule File= \r\n";
    files.erase("out.csv");
    const WorkFolder folder;
    WorkFolder::write(files);
    const auto before = WorkFolder::files();
    if (run(TextAction::Export, "out.csv") == 0) {
        const auto exported = WorkFolder::files();
        require(differing(before, exported) == std::vector<std::string>{"out.csv"}, "only the table is new");
        // Nobody's texts are mostly control characters; a table of such is taken for no text.
        if (!base::whatInsteadOfText(exported.at("out.csv")).empty()) return 0;
        require(run(TextAction::Import, "out.csv") == 0, "an exported table has a place for each row");
        require(WorkFolder::files() == exported, "its import changes nothing");
    }
    if (before.count("t.csv") == 0) return 0;
    for (const bool partial : {false, true}) {
        const auto was = WorkFolder::files();
        const auto status = run(TextAction::Import, "t.csv", partial);
        const auto changed = differing(was, WorkFolder::files());
        require(status == 0 || (partial && status == 1) || changed.empty(),
                "what is refused changes nothing");
        require(changed.empty() || changed == std::vector<std::string>{"a.txt"}, "only the texts change");
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases rows{
        "@t.csv",
        "@a.h",
        "@a.hcnf",
        "@a.txt",
        "designer,control,text",
        "designer;control;text",
        "designer,control,index,class,caption,name,number,text,state",
        "frmMain,cmdOK,A text.",
        "frmMain,cmdNav,1,CommandButton,,IDH_AAAD,1003,\"A text",
        "with \"\"quotes\"\".\",own text",
        ",,,,,IDH_AAAX,,left over,left over",
        "frmMain;cmdOK;\"a;b\"",
        "frmMain,cmdOK,\".topic  IDH_AAAB\"",
        "frmMain,lblA,\xC3\xA4\xE2\x82\xAC",
        ".topic  IDH_AAAA",
        ".topic  IDH_AAAB",
        ".topic  $",
        "A text; of \"two\" words",
        "\xE4\x80",
    };
    static const auto phrases = vocabulary::together({rows, rows, vocabulary::headerMemory});
    return mutateLines(data, size, maxSize, seed, phrases);
}
