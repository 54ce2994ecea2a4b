#include "cli/format_job.h"

#include "base/paths.h"
#include "base/pending_file.h"
#include "base/text.h"
#include "cli/terminal.h"
#include "cli/unified_diff.h"
#include "formatter/misplaced_blocks.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace corvelle::cli {

using workspace::FormattedFile;
using workspace::ModuleFile;

namespace {

void requireText(std::string_view bytes) {
    const auto what = base::whatInsteadOfText(bytes);
    if (!what.empty()) throw std::runtime_error("this is " + std::string(what) + ", not a module");
}

// To the rules such a file is one line, which would be given an end of another kind.
bool endsLinesInReturns(std::string_view bytes) {
    return bytes.find('\n') == std::string_view::npos && bytes.find('\r') != std::string_view::npos;
}

// A line of a module at the end of a message. One that is longer than any the IDE takes shows its beginning.
std::string shownSource(std::string_view line) {
    constexpr std::size_t longest = 1023;
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.size() > longest) return shown(line.substr(0, longest)) + "...";
    return shown(line.substr(0, line.find_last_not_of(" \t") + 1));
}

} // namespace

void FormatJob::format() {
    if (!source_.isModule()) return tellInstead();
    try {
        read();
        if (endsLinesInReturns(file_->bytes())) {
            diagnose(exitLookAt, "its lines end in a carriage return alone; left as it is");
            fate_ = Fate::Refused;
            return;
        }
        layOut();
    } catch (const workspace::HeaderNeverEnds& error) {
        diagnose(exitLookAt, error.line(), "the header that begins here never ends");
        fate_ = Fate::Refused;
    } catch (const settings::SettingsError& error) {
        settingsProblem_ = error.what();
        note_ = "left alone, since its settings are wrong";
        status_ = exitFailed;
    } catch (const std::exception& error) {
        diagnose(exitFailed, base::reasonOf(error));
    }
    if (status_ == exitFailed) fate_ = Fate::Failed;
}

void FormatJob::tellInstead() {
    note_ = source_.note;
    fate_ = Fate::Noted;
    if (!source_.skipped.empty()) {
        diagnose(exitLookAt, "skipped: " + source_.skipped);
        fate_ = Fate::Refused;
    } else if (!source_.problem.empty()) {
        diagnose(exitFailed, source_.problem);
        fate_ = Fate::Failed;
    }
}

void FormatJob::read() {
    std::size_t lookedAt = 0; // most modules are shorter than what is looked at before the rest is read
    const auto look = [&lookedAt](std::string_view block) {
        requireText(block);
        lookedAt = block.size();
    };
    std::string bytes =
        source_.isStandardInput() ? base::readStandardInput() : base::readFile(source_.path, &stamp_, look);
    if (lookedAt < bytes.size()) requireText(bytes);
    // Of an unnamed module the first line tells: a header behind VERSION is read whatever the type.
    const bool unnamed = source_.type == ide::ComponentType{};
    const auto type = unnamed ? ide::ComponentType::StdModule : source_.type;
    file_.emplace(std::move(bytes), type);
}

void FormatJob::layOut() {
    layout_ = settings::resolveLayout(settings_.layout,
                                      onDisk_ ? onDisk_->propertiesOf(source_) : settings::Properties());
    if (layout_.layout == settings::Layout::Off) {
        note_ = "left alone, as " + layout_.from.at("layout") + " says";
        return;
    }
    formatter::FormatOptions options = settings_.options;
    if (isStructured()) {
        auto& structured = layout_.structured;
        structured.removeEmptyLines = options.bNoEmpty == 1;
        structured.removeCommentLines = options.bNoCmntLn == 1;
        structured.removeTrailingComments = options.bNoAllCmnt == 1;
        structured.force = settings_.force;
        code_ = formatter::formatCode({.lines = file_->codeLines(), .lineEnd = {}}, structured);
    } else {
        options.mTab = layout_.classicTab.value_or(options.mTab);
        const formatter::ModuleCode code{.lines = file_->codeLines(), .lineEnd = file_->newLine()};
        code_ = formatter::formatCode(code, options);
        const bool finished = code_.holdsLines() && !code_.error;
        if (finished && !settings_.showSettings) misplaced_ = formatter::findMisplacedBlock(code, code_);
    }
    if (!settings_.showSettings) judge();
}

FormattedFile FormatJob::formatted() const {
    const auto ends = isStructured() ? FormattedFile::LineEnds::OfLine : FormattedFile::LineEnds::OfFile;
    return {*file_, code_.lines, code_.kept, ends};
}

std::string FormatJob::textOf(const formatter::Finding& finding) const {
    if (finding.other == formatter::Finding::noLine) return finding.text;
    return finding.text + " in line " + std::to_string(file_->fileLine(finding.other));
}

void FormatJob::judge() {
    if (!code_.holdsLines()) {
        note_ = "no line would be kept; left as it is";
        return;
    }
    if (code_.error) {
        diagnose({code_.position, code_.error->description(), formatter::Finding::noLine,
                  std::string(formatter::explanationOf(*code_.error))});
        fate_ = Fate::Refused;
        return;
    }
    for (const auto& fault : code_.faults) diagnose(fault);
    if (misplaced_) diagnose(*misplaced_);
    // The structured layout leaves the procedure of a fault as it stands, so that the rest can be written.
    const bool wrong = status_ != exitDone && !isStructured();
    for (const auto& notice : code_.notices) {
        notices_.append(name_).append(1, ':').append(std::to_string(file_->fileLine(notice.line)));
        notices_.append(": ").append(textOf(notice)) += '\n';
    }
    const std::size_t saidBefore = diagnostics_.size();
    for (const auto& found : code_.unsafe) {
        diagnoseUnsafe(file_->fileLine(found.line), file_->codeLine(found.line), found.text);
    }
    if (const auto loss = formatter::lossAtLineEnd(file_->bytes(), formatted().missingLineEnd())) {
        const auto& bytes = file_->bytes();
        const auto lineFeeds = std::count(bytes.begin(), bytes.end(), '\n');
        const auto lastLine = std::string_view(bytes).substr(bytes.rfind('\n') + 1);
        diagnoseUnsafe(static_cast<std::uint32_t>(lineFeeds) + 1, lastLine, *loss);
    }
    if (code_.level != 0) note_ = "the level ends at " + std::to_string(code_.level);
    summary_ = "Module contains " + std::to_string(file_->codeLineCount()) +
               " Lines | Formatted code contains:  " + std::to_string(code_.lines.maxIndx() + 1) + " Lines";
    const bool harmful = diagnostics_.size() != saidBefore;
    if ((wrong || harmful) && !settings_.force) {
        fate_ = Fate::Refused;
    } else if (formatted().changed()) {
        fate_ = Fate::Rewritten;
        if (settings_.check) status_ = std::max(status_, exitLookAt);
    }
}

void FormatJob::chooseBackup(BackupNames& names) {
    if (fate_ != Fate::Rewritten || !settings_.backupDir || source_.isStandardInput()) return;
    std::string name = base::textOf(source_.path.stem());
    if (isPlainName(file_->name())) name = file_->name();
    if (!file_->hasNameAttribute() && isPlainName(source_.projectName)) name = source_.projectName;
    backup_ = names.next(name, file_->type());
}

void FormatJob::save() {
    if (fate_ != Fate::Rewritten || !settings_.writesFiles() || source_.isStandardInput()) return;
    try {
        if (backup_) saveBackup(base::pathOf(*settings_.backupDir), *backup_, file_->bytes(), source_.path);
        base::replaceFile(source_.path, [&](base::FileWriter& out) { formatted().write(out); },
                          {.stamp = stamp_, .content = file_->bytes(), .breakLinks = settings_.breakLinks});
    } catch (const std::exception& error) {
        diagnose(exitFailed, base::reasonOf(error));
        fate_ = Fate::Failed;
    }
}

void FormatJob::printMessages(base::FileWriter& err) const {
    err.write(diagnostics_);
    if (!settings_.quiet) err.write(notices_);
    if (!settings_.quiet && !note_.empty()) err.write(name_ + ": " + shown(note_) + "\n");
    if (!settings_.quiet && !summary_.empty() && fate_ != Fate::Failed) {
        err.write(name_ + ": " + summary_ + "\n");
    }
    err.flush();
}

void FormatJob::printResult(base::FileWriter& out) const {
    if (settings_.showSettings && file_ && fate_ != Fate::Failed) {
        out.write(name_ + "\n" + settings::shownSettings(layout_, code_.style));
    }
    if (settings_.check && fate_ == Fate::Rewritten) out.write(name_ + "\n");
    if (settings_.diff && fate_ == Fate::Rewritten) printDiff(out);
    if (printsModule()) {
        if (!summary_.empty()) {
            formatted().write(out);
        } else {
            out.write(file_->bytes());
        }
    }
    out.flush();
}

bool FormatJob::printsModule() const {
    const bool wanted = settings_.toStandardOutput || source_.isStandardInput();
    const bool done = fate_ == Fate::Rewritten || fate_ == Fate::Unchanged;
    return wanted && done && !settings_.check && !settings_.diff && !settings_.showSettings;
}

void FormatJob::printDiff(base::FileWriter& out) const {
    struct Differ {
        const ModuleFile& file;
        const FormattedFile& formatted;
        UnifiedDiff diff;
        std::string newLine;
        // A byte order mark begins a line of the old file, and of the new one, without being one.
        std::string_view oldMark{}, newMark{};

        void hidden(std::string_view bytes) {
            while (!bytes.empty()) {
                const auto end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
                const std::string_view line = bytes.substr(0, end);
                bytes.remove_prefix(end);
                const bool endsFile = line.data() + line.size() == file.bytes().data() + file.bytes().size();
                if (line.back() != '\n' && !endsFile) {
                    oldMark = newMark = line;
                } else if (line.back() == '\n' && oldMark.size() == newMark.size()) {
                    newMark = {};
                    diff.same(withMark(line));
                } else {
                    newLine = std::string(std::exchange(newMark, {})).append(line);
                    if (line.back() != '\n') newLine += formatted.missingLineEnd();
                    diff.replaced(withMark(line), newLine);
                }
            }
        }
        void kept(std::uint32_t line, std::int32_t bufferIndex) {
            if (formatted.same(line, bufferIndex) && oldMark.size() == newMark.size()) {
                newMark = {};
                return diff.same(whole(line));
            }
            newLine = std::exchange(newMark, {});
            StringWriter writer{newLine};
            formatted.writeLine(writer, line, bufferIndex);
            diff.replaced(whole(line), newLine);
        }
        void dropped(std::uint32_t line) { diff.removed(whole(line)); }

        std::string_view whole(std::uint32_t line) {
            const std::string_view text = file.codeLine(line);
            return withMark({text.data(), text.size() + file.codeLineEnd(line).size()});
        }
        std::string_view withMark(std::string_view line) {
            const std::string_view mark = std::exchange(oldMark, {});
            return {line.data() - mark.size(), mark.size() + line.size()};
        }
        struct StringWriter {
            std::string& to;
            void write(std::string_view text) { to += text; }
        };
    };
    const FormattedFile formatted = this->formatted();
    Differ differ{*file_,
                  formatted,
                  UnifiedDiff(source_.shownPath, [&out](std::string_view text) { out.write(text); }),
                  {}};
    formatted.visit(differ);
    differ.diff.finish();
}

void FormatJob::diagnose(const formatter::Finding& finding) {
    const auto fileLine = file_->fileLine(finding.line);
    diagnose(exitLookAt, fileLine, textOf(finding));
    explain(fileLine, finding.explanation, file_->codeLine(finding.line));
}

void FormatJob::diagnoseUnsafe(std::uint32_t fileLine, std::string_view line, std::string_view loss) {
    diagnose(exitLookAt, fileLine, std::string("unsafe: ").append(loss));
    explain(fileLine, formatter::unsafeExplanation, line);
}

void FormatJob::explain(std::uint32_t fileLine, std::string_view words, std::string_view line) {
    if (words.empty()) return;
    diagnose(exitLookAt, fileLine, std::string(words).append(": ").append(shownSource(line)));
}

void FormatJob::diagnose(ExitStatus status, std::string_view message) {
    diagnostics_.append(name_).append(": ").append(shown(message)) += '\n';
    status_ = std::max(status_, status);
}

void FormatJob::diagnose(ExitStatus status, std::uint32_t fileLine, std::string_view message) {
    diagnostics_.append(name_).append(1, ':').append(std::to_string(fileLine));
    diagnostics_.append(": ").append(shown(message)) += '\n';
    status_ = std::max(status_, status);
}

} // namespace corvelle::cli
