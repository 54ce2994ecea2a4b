#include "cli/format_job.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "cli/binary_check.h"
#include "cli/formatted_file.h"
#include "cli/unified_diff.h"
#include "formatter/pass_observer.h"
#include "formatter/token_check.h"

#include <algorithm>
#include <new>
#include <utility>

namespace corvelle::cli {

using formatter::Engine;
using workspace::ModuleFile;

namespace {

bool beginsWithVersion(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.substr(0, byteOrderMark.size()) == byteOrderMark) bytes.remove_prefix(byteOrderMark.size());
    const auto word = bytes.find_first_not_of(" \t");
    return word != std::string_view::npos && base::startsWithIgnoringCase(bytes.substr(word), "VERSION ");
}

// A module's name becomes part of a file's name: one that would lead elsewhere is not used.
bool isPlainName(std::string_view name) {
    return !name.empty() && name.find_first_of("/\\:*?\"<>|") == std::string_view::npos &&
           std::none_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 32; });
}

} // namespace

struct FormatJob::Errors : formatter::PassObserver {
    std::vector<formatter::StructuralError> found;

    void addError(const formatter::StructuralError& error) override { found.push_back(error); }
    void lineKept(std::int32_t) override {}
    void lineFormatted(std::int32_t, std::int32_t) override {}
};

void FormatJob::format() {
    try {
        if (!source_.problem.empty()) {
            diagnose(exitFailed, source_.problem);
            fate_ = Fate::Failed;
            return;
        }
        read();
        if (!file_) return;
        Errors errors;
        Engine engine(errors);
        engine.options = settings_.options;
        if (!clean(engine)) return;
        indent(engine, errors);
    } catch (const workspace::HeaderNeverEnds& error) {
        diagnose(exitLookAt, error.line(), "the header that begins here never ends");
        fate_ = Fate::Refused;
    } catch (const base::RunTimeError& error) {
        diagnose(exitFailed, error.description());
    } catch (const std::bad_alloc&) {
        diagnose(exitFailed, base::describeError(static_cast<int>(base::ErrorNumber::OutOfMemory)));
    }
    if (status_ == exitFailed) fate_ = Fate::Failed;
}

void FormatJob::read() {
    std::string bytes =
        source_.isStandardInput() ? base::readStandardInput() : base::readFile(source_.path, &stamp_);
    if (looksBinary(bytes)) {
        diagnose(exitFailed, "this is a binary file, not a module");
        return;
    }
    auto type = source_.type;
    if (source_.isStandardInput() && type == ide::ComponentType{}) {
        type = beginsWithVersion(bytes) ? ide::ComponentType::ClassModule : ide::ComponentType::StdModule;
    }
    file_.emplace(std::move(bytes), type);
}

bool FormatJob::clean(Engine& engine) {
    const std::uint32_t count = file_->codeLineCount();
    engine.ResetAll();
    engine.beginCleaning(count, file_->bytes().size());
    kept_.resize(count);
    for (std::uint32_t line = 0; line < count; ++line) kept_[line] = engine.cleanLine(file_->codeLine(line));
    if (engine.lineBuffer().maxIndx() >= 0) return true;
    note_ = "no line would be kept; left as it is";
    return false;
}

void FormatJob::indent(Engine& engine, const Errors& errors) {
    const std::int32_t maxIndx = engine.lineBuffer().maxIndx();
    try {
        engine.VB_Format(maxIndx);
    } catch (const base::RunTimeError& error) {
        diagnose(exitLookAt, fileLineOf(engine.position()), error.description());
        fate_ = Fate::Refused;
        return;
    }
    buffer_ = engine.takeLineBuffer();
    for (const auto& error : errors.found) diagnose(exitLookAt, fileLineOf(error.position), error.text());
    findUnsafeLines();
    if (engine.indentLevel() != 0) note_ = "the level ends at " + std::to_string(engine.indentLevel());
    summary_ = "Module contains " + std::to_string(file_->codeLineCount()) +
               " Lines | Formatted code contains:  " + std::to_string(maxIndx + 1) + " Lines";
    if (status_ != exitDone && !settings_.force) {
        fate_ = Fate::Refused;
    } else if (FormattedFile(*file_, buffer_, kept_).changed()) {
        fate_ = Fate::Rewritten;
    }
}

void FormatJob::findUnsafeLines() {
    struct Checker {
        FormatJob& job;
        formatter::TokenCheck check;

        void report(std::uint32_t line, const std::optional<std::string>& loss) const {
            if (loss) job.diagnose(exitLookAt, job.file_->fileLine(line), "unsafe: " + *loss);
        }
        void hidden(std::string_view) {}
        void kept(std::uint32_t line, std::int32_t bufferIndex) {
            report(line, check.kept(job.file_->codeLine(line), job.buffer_.text(bufferIndex),
                                    job.buffer_.spaces(bufferIndex)));
        }
        void dropped(std::uint32_t line) { report(line, check.dropped(job.file_->codeLine(line))); }
    };
    FormattedFile(*file_, buffer_, kept_)
        .visit(Checker{*this, formatter::TokenCheck({.commentsMayGo = settings_.removesComments()})});
}

std::uint32_t FormatJob::fileLineOf(std::int32_t bufferIndex) const {
    std::uint32_t line = 0;
    for (;; ++line) {
        if (kept_[line] && bufferIndex-- == 0) return file_->fileLine(line);
    }
}

void FormatJob::chooseBackup(BackupNames& names) {
    if (fate_ != Fate::Rewritten || !settings_.backupDir || source_.isStandardInput()) return;
    std::string name = source_.path.stem().string();
    if (isPlainName(source_.projectName)) name = source_.projectName;
    if (isPlainName(file_->name())) name = file_->name();
    backupName_ = names.next(name, file_->type());
}

void FormatJob::save() {
    if (fate_ != Fate::Rewritten || !settings_.writesFiles() || source_.isStandardInput()) return;
    if (!backupName_.empty()) {
        const auto backup = std::filesystem::path(*settings_.backupDir) / backupName_;
        try {
            std::filesystem::create_directories(backup.parent_path());
            base::replaceFile(backup, [&](base::FileWriter& out) {
                for (std::uint32_t line = 0; line < file_->codeLineCount(); ++line) {
                    out.write(file_->codeLine(line));
                    out.write("\r\n");
                }
            });
        } catch (const std::exception& error) {
            diagnose(exitFailed, "not rewritten, no backup: " + backup.string() + ": " + error.what());
            fate_ = Fate::Failed;
            return;
        }
    }
    try {
        base::replaceFile(
            source_.path, [&](base::FileWriter& out) { FormattedFile(*file_, buffer_, kept_).write(out); },
            stamp_);
    } catch (const std::exception& error) {
        diagnose(exitFailed, error.what());
        fate_ = Fate::Failed;
    }
}

void FormatJob::print(base::FileWriter& out, base::FileWriter& err) const {
    for (const std::string& diagnostic : diagnostics_) err.write(diagnostic);
    if (!settings_.quiet && !note_.empty()) err.write(source_.shownPath + ": " + note_ + "\n");
    if (!settings_.quiet && !summary_.empty() && fate_ != Fate::Failed) {
        err.write(source_.shownPath + ": " + summary_ + "\n");
    }
    err.flush();

    if (settings_.check && fate_ == Fate::Rewritten) out.write(source_.shownPath + "\n");
    if (settings_.diff && fate_ == Fate::Rewritten) printDiff(out);
    if (printsModule()) {
        if (buffer_.maxIndx() >= 0 && !summary_.empty()) {
            FormattedFile(*file_, buffer_, kept_).write(out);
        } else {
            out.write(file_->bytes());
        }
    }
    out.flush();
}

bool FormatJob::printsModule() const {
    const bool wanted = settings_.toStandardOutput || source_.isStandardInput();
    const bool done = fate_ == Fate::Rewritten || fate_ == Fate::Unchanged;
    return wanted && done && !settings_.check && !settings_.diff;
}

void FormatJob::printDiff(base::FileWriter& out) const {
    struct Differ {
        const ModuleFile& file;
        const FormattedFile& formatted;
        UnifiedDiff diff;
        std::string newLine;

        void hidden(std::string_view bytes) {
            while (!bytes.empty()) {
                const auto end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
                const std::string_view line = bytes.substr(0, end);
                bytes.remove_prefix(end);
                if (line.back() == '\n') {
                    diff.same(line);
                } else {
                    newLine = std::string(line) += formatted.missingLineEnd();
                    diff.replaced(line, newLine);
                }
            }
        }
        void kept(std::uint32_t line, std::int32_t bufferIndex) {
            if (formatted.same(line, bufferIndex)) return diff.same(whole(line));
            newLine.clear();
            StringWriter writer{newLine};
            formatted.writeLine(writer, bufferIndex);
            diff.replaced(whole(line), newLine);
        }
        void dropped(std::uint32_t line) { diff.removed(whole(line)); }

        std::string_view whole(std::uint32_t line) const {
            const std::string_view text = file.codeLine(line);
            return {text.data(), text.size() + file.codeLineEnd(line).size()};
        }
        struct StringWriter {
            std::string& to;
            void write(std::string_view text) { to += text; }
        };
    };
    const FormattedFile formatted(*file_, buffer_, kept_);
    Differ differ{*file_,
                  formatted,
                  UnifiedDiff(source_.shownPath, [&out](std::string_view text) { out.write(text); }),
                  {}};
    formatted.visit(differ);
    differ.diff.finish();
}

void FormatJob::diagnose(ExitStatus status, const std::string& message) {
    diagnostics_.push_back(source_.shownPath + ": " + message + "\n");
    status_ = std::max(status_, status);
}

void FormatJob::diagnose(ExitStatus status, std::uint32_t fileLine, const std::string& message) {
    diagnostics_.push_back(source_.shownPath + ":" + std::to_string(fileLine) + ": " + message + "\n");
    status_ = std::max(status_, status);
}

} // namespace corvelle::cli
