#include "cli/text_table.h"

#include "base/paths.h"
#include "base/text.h"
#include "cli/csv.h"
#include "cli/terminal.h"
#include "ide/workspace/designer_controls.h"
#include "ide/workspace/designer_lines.h"
#include "ide/workspace/workspace.h"
#include "indexer/help_index.h"
#include "indexer/replaceable.h"
#include "indexer/stable/earlier_index.h"
#include "indexer/stable/topics.h"
#include "indexer/text_file.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <queue>

namespace corvelle::cli {

namespace {

using namespace indexer::stable;
namespace fs = std::filesystem;

constexpr std::array<const char*, 9> columns{"designer", "control", "index", "class", "caption",
                                             "name",     "number",  "text",  "state"};
constexpr const char *ownText = "own text", *noText = "no text", *onDefault = "default", *deleted = "deleted",
                     *leftOut = "left out", *leftOverText = "left over";

std::string numberText(const std::optional<std::int32_t>& number) {
    return number ? std::to_string(*number) : "";
}

// Captions by designer, control and index; of those of one key in their order.
using Captions = std::unordered_map<std::string, std::queue<std::string>>;

std::string keyOf(std::string_view designer, std::string_view control,
                  const std::optional<std::int32_t>& index) {
    return base::upper(designer) + " " + base::upper(control) + " " + numberText(index);
}

Captions captionsIn(const fs::path& project, bool knowsIndices) {
    Captions captions;
    const auto workspace = workspace::Workspace::open(project);
    for (const auto& component : workspace->projects().front()->components()) {
        if (!component->file().hasDesigner()) continue;
        const auto read = workspace::readDesignerControls(component->file().header());
        const auto name = component->Name();
        captions[keyOf(name, "", {})].push(workspace::literalText(read.designer.caption));
        for (const auto& control : read.controls)
            captions[keyOf(name, control.name, knowsIndices ? control.index : std::nullopt)].push(
                workspace::literalText(control.caption));
    }
    return captions;
}

} // namespace

// A row of the table.
struct TextTable::Row {
    std::string state, text;
};

ExitStatus TextTable::run() {
    readIndex();
    switch (settings_.action) {
    case TextAction::Missing:
        listMissing();
        break;
    case TextAction::LeftOver:
        listLeftOver();
        break;
    case TextAction::Prune:
        prune();
        break;
    case TextAction::Export:
        exportTable();
        break;
    case TextAction::Import:
        return importTable();
    default:
        break;
    }
    return exitDone;
}

void TextTable::readIndex() {
    const auto& path = info_[indexer::slot::header];
    auto earlier = readEarlierIndex(readText(path), configuration_.before);
    if (!earlier.fault.empty())
        throw Refusal{exitFailed, shown(path) + ": " + shown(earlier.fault) + nothingWritten};
    memory_ = std::move(earlier.index.memory);
    textOf_ = textsOf(texts_.before);
    if (settings_.action != TextAction::Export) return;
    captions_.resize(memory_.controls.size());
    try {
        auto project = base::pathOf(info_[indexer::slot::projectFile]);
        if (project.is_relative() && !fs::exists(project))
            project = base::pathOf(settings_.project).parent_path() / project;
        auto captions = captionsIn(project, earlier.index.knowsIndices);
        for (std::size_t i = 0; i < captions_.size(); ++i) {
            const auto& place = memory_.controls[i].place;
            auto& queue = captions[keyOf(place.designer, place.control, place.index)];
            if (queue.empty()) continue;
            captions_[i] = queue.front();
            queue.pop();
        }
    } catch (const std::exception&) {
        // Without the project there are no captions.
    }
}

TextTable::Row TextTable::rowOf(const Control& control) const {
    if (control.standing == Standing::Deleted) return {deleted, {}};
    const bool isDefault = control.standing == Standing::OnDefault;
    const auto found = textOf_.find(isDefault ? std::string(indexer::defaultIDH) : control.idhName);
    Row row{isDefault ? onDefault : noText, {}};
    if (found != textOf_.end()) row.text = found->second;
    if (!isDefault && !row.text.empty()) row.state = ownText;
    if (control.isLeftOut) row.state = leftOut;
    return row;
}

// Of what the options leave out for now the text waits.
std::vector<std::string> TextTable::leftOver() const {
    std::vector<std::string> names;
    for (const auto& control : memory_.controls) {
        if (control.standing == Standing::Indexed || control.isLeftOut) names.push_back(control.idhName);
    }
    return compareTopics(texts_.before, names).leftOver;
}

void TextTable::listMissing() const {
    for (const auto& control : memory_.controls) {
        if (control.isLeftOut || rowOf(control).state != noText) continue;
        std::cout << shown(control.place.designer) << '\t' << shown(nameInMemory(control.place)) << '\t'
                  << shown(control.className) << '\t' << shown(control.idhName) << '\n';
    }
}

void TextTable::listLeftOver() const {
    for (const auto& name : leftOver())
        std::cout << shown(name) << '\t' << shown(onOneLine(textOf_.at(name))) << '\n';
}

void TextTable::prune() {
    const auto names = leftOver();
    texts_.after = withoutTopics(texts_.before, names);
    saveTexts();
    for (const auto& name : names) std::cout << shown(name) << '\n';
}

void TextTable::saveTexts() {
    requireOfOurs(texts_, indexer::isTextFileOfOurs,
                  ": this is no text file of an index, whose first topic is IDH_AAAA");
    saveTogether(configuration_, texts_);
}

void TextTable::exportTable() {
    std::string table(utf8Mark);
    appendRow(table, {columns.begin(), columns.end()});
    for (std::size_t i = 0; i < memory_.controls.size(); ++i) {
        const auto& control = memory_.controls[i];
        const auto row = rowOf(control);
        appendRow(table, {toUtf8(control.place.designer), toUtf8(control.place.control),
                          numberText(control.place.index), toUtf8(control.className), toUtf8(captions_[i]),
                          toUtf8(control.idhName), std::to_string(control.number), toUtf8(shielded(row.text)),
                          row.state});
    }
    for (const auto& name : leftOver())
        appendRow(table,
                  {"", "", "", "", "", toUtf8(name), "", toUtf8(shielded(textOf_.at(name))), leftOverText});
    const auto path = base::pathOf(settings_.table);
    try {
        for (const auto& other : {settings_.project, info_[indexer::slot::header],
                                  info_[indexer::slot::configuration], info_[indexer::slot::text],
                                  info_[indexer::slot::projectFile], info_[indexer::slot::moduleFile]}) {
            if (base::isSamePath(path, base::pathOf(base::trimSpaces(other))))
                throw Refusal{exitFailed, shown(settings_.table) +
                                              ": this is a file of the index or its project" +
                                              nothingWritten};
        }
        if (base::stampIfThere(path)) {
            const auto old = base::readFile(path);
            std::string head(utf8Mark);
            appendRow(head, {columns.begin(), columns.end()});
            if (!old.empty() && old.substr(0, head.size()) != head)
                throw Refusal{exitFailed, shown(settings_.table) +
                                              ": this is no table that corvelle has written" +
                                              nothingWritten};
        }
        base::FileBatch files;
        files.add(path, table);
        files.commit();
    } catch (const base::FileError& error) {
        throw Refusal{exitFailed, shown(settings_.table) + ": " + error.description()};
    }
    std::cout << shown(settings_.table) << '\n';
}

// Why the row's text has no place; empty if it has one, or changes nothing.
std::string TextTable::place(const std::map<std::string, std::string>& cells,
                             std::map<std::string, std::string>& texts) const {
    const auto cell = [&](const char* column) {
        const auto found = cells.find(column);
        return found == cells.end() ? std::string() : found->second;
    };
    const auto designer = cell("designer"), control = cell("control"), index = cell("index"),
               name = cell("name"), text = cell("text");
    if (designer.empty()) {
        const auto found = textOf_.find(name);
        return found != textOf_.end() && found->second == text ? "" : "it names no designer";
    }
    const Control* match = nullptr;
    bool isAmbiguous = false, isUnchanged = true; // of all that it may be
    const auto named = ofName_.find(keyOf(designer, control, {}));
    for (const auto* one : named == ofName_.end() ? std::vector<const Control*>() : named->second) {
        if ((cells.count("index") > 0 && numberText(one->place.index) != index) ||
            (!name.empty() && one->idhName != name))
            continue;
        isUnchanged = isUnchanged && rowOf(*one).text == text;
        isAmbiguous = match != nullptr;
        match = one;
    }
    if (isAmbiguous && !isUnchanged)
        return "the index has several such controls: the column name tells which one";
    if (!match) return "the index has no such control, with this index and name";
    const auto row = rowOf(*match);
    if (row.text == text) return {};
    if (match->standing == Standing::OnDefault) return "the control shows the default text";
    if (match->standing == Standing::Deleted) return "the control is deleted from the index";
    if (indexer::holdsTopicLine(text))
        return "a line of the text that begins with .topic would begin another topic";
    const auto [entry, isFirst] = texts.emplace(match->idhName, text);
    return isFirst || entry->second == text ? "" : "another row has another text for the control";
}

ExitStatus TextTable::importTable() {
    const auto csv = readCsv(readText(settings_.table));
    const auto inLine = [&](std::uint32_t line) {
        return shown(settings_.table) + ":" + std::to_string(line) + ": ";
    };
    if (csv.faultyLine != 0)
        throw Refusal{exitLookAt, inLine(csv.faultyLine) + "a cell's quotes are not closed where it ends" +
                                      nothingWritten};
    std::vector<std::string> head;
    if (!csv.rows.empty()) head = csv.rows.front().cells;
    for (auto& column : head) {
        for (auto& c : column) c = base::lower(c);
    }
    for (const auto* needed : {"designer", "control", "text"}) {
        if (std::count(head.begin(), head.end(), needed) != 1)
            throw Refusal{exitLookAt, inLine(1) + "the first row names no column " + needed + ", or two" +
                                          nothingWritten};
    }
    for (const auto& control : memory_.controls)
        ofName_[keyOf(control.place.designer, control.place.control, {})].push_back(&control);
    std::map<std::string, std::string> texts;
    std::size_t notPlaced = 0;
    for (std::size_t i = 1; i < csv.rows.size(); ++i) {
        std::map<std::string, std::string> cells;
        std::string wrong;
        for (std::size_t c = 0; c < csv.rows[i].cells.size() && c < head.size(); ++c) {
            auto text = fromUtf8(csv.rows[i].cells[c]);
            if (!text && head[c] != "caption")
                wrong = "the column " + head[c] +
                        " has a character that Windows-1252 does not have, or is no UTF-8";
            cells[head[c]] = text.value_or("");
        }
        const auto& all = csv.rows[i].cells;
        if (std::any_of(all.begin() + static_cast<std::ptrdiff_t>(std::min(all.size(), head.size())),
                        all.end(), [](const std::string& cell) { return !cell.empty(); }))
            wrong = "it has more cells than the first row: a text with a comma needs quotes";
        if (cells.count("text") == 0) wrong = "it ends before the column text";
        // A spreadsheet ends lines in its own ways.
        auto& text = cells["text"];
        text = unshielded(text);
        text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
        while (!text.empty() && text.back() == '\n') text.pop_back();
        if (wrong.empty()) wrong = place(cells, texts);
        if (wrong.empty()) continue;
        ++notPlaced;
        std::cerr << inLine(csv.rows[i].line) << shown(cells["designer"]) << ": " << shown(cells["control"])
                  << ": " << wrong << '\n';
    }
    std::cerr.flush();
    if (notPlaced > 0 && !settings_.partial)
        throw Refusal{exitLookAt, shown(settings_.table) + ": " + std::to_string(notPlaced) +
                                      " rows have no place; --partial takes the others" + nothingWritten};
    texts_.after = withTexts(texts_.before, texts);
    saveTexts();
    std::cout << texts.size() << " texts were changed.\n";
    return notPlaced > 0 ? exitLookAt : exitDone;
}

} // namespace corvelle::cli
