#include "formatter/engine.h"

#include "base/run_time_error.h"
#include "formatter/key_tables.h"

#include <limits>

namespace corvelle::formatter {

using base::ErrorNumber;
using base::RunTimeError;

namespace {

// The counters are 16-bit integers whose overflow is a run-time error. None falls below -1.
std::int16_t checked(std::int32_t value) {
    if (value > std::numeric_limits<std::int16_t>::max()) throw RunTimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(value);
}

void add(std::int16_t& counter, std::int32_t step) {
    counter = checked(counter + step);
}

} // namespace

void Engine::ResetAll() {
    indentLevel_ = 0;
    beginDepth_ = 0;
    selectDepth_ = 0;
    caseSeen_ = false;
    cancelRequested_ = false;
    bCode_ = false;
    buffer_.reset();
    observer_.SetProcInfo("No Process");
}

void Engine::beginCleaning(std::size_t lines) {
    bCode_ = false;
    buffer_.beginLoading(lines);
}

bool Engine::cleanLine(std::string_view raw, bool outlivesBuffer) {
    std::string_view t = Scanner::myTrim(raw, tabless_);
    if (options.bNoEmpty == 1 && t.empty()) return false;
    if (!bCode_) bCode_ = Scanner::codeStarted(t);
    if (options.bNoCmntLn == 1 && Scanner::isCommentLine(t)) return false;
    if (options.bNoAllCmnt == 1 && bCode_) {
        const auto apostrophe = t.find('\'');
        if (apostrophe != std::string_view::npos && apostrophe > 0) t = Scanner::SafeUncomment(t);
    }
    if (outlivesBuffer && t.data() != tabless_.data()) {
        buffer_.refer(t);
    } else {
        buffer_.append(t);
    }
    observer_.lineKept(buffer_.maxIndx() + 1);
    observer_.doEvents();
    return true;
}

std::int32_t Engine::VB_Format(std::int32_t maxIndx) {
    errors_.clear();
    const bool completed = passOverLines(observer_, maxIndx, cancelRequested_, [this](std::int32_t i) {
        position_ = i;
        if (i > buffer_.maxIndx()) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        formatLine(i);
    });
    if (!completed) return -1;
    return static_cast<std::int32_t>(errors_.size());
}

void Engine::formatLine(std::int32_t i) {
    const std::string_view line = buffer_.text(i);
    switch (scanner_.CheckKey(line)) {
    case KeyStart:
        openBlock(i, line);
        break;
    case KeyEnd:
        closeBlock(i, line);
        break;
    case KeyNone:
        if (line.empty() || line.back() != ':') writeAtLevel(i); // a label keeps column 1
        break;
    }
}

void Engine::openBlock(std::int32_t i, std::string_view line) {
    switch (scanner_.startKeyIndex) {
    case start_key::begin:
        if (Scanner::CheckChar(line, 6, ' ')) add(beginDepth_, 1);
        break;
    case start_key::select:
        add(selectDepth_, 1);
        break;
    case start_key::caseLabel:
        if (selectDepth_ > 0 && caseSeen_) add(indentLevel_, -1);
        caseSeen_ = true;
        break;
    default:
        break;
    }
    writeAtLevel(i);
    add(indentLevel_, 1);
}

void Engine::closeBlock(std::int32_t i, std::string_view line) {
    if (indentLevel_ != 0) {
        add(indentLevel_, -1);
    } else {
        report(StructuralError::Kind::Tab, i);
    }
    if (scanner_.endKeyIndex == end_key::end && line.size() == 3) {
        if (beginDepth_ > 0) {
            add(beginDepth_, -1);
        } else {
            add(indentLevel_, 1); // a bare End statement ends no block
        }
    }
    if (scanner_.endKeyIndex == end_key::endSelect) {
        if (caseSeen_) {
            if (indentLevel_ != 0) {
                add(indentLevel_, -1);
            } else {
                report(StructuralError::Kind::Error, i);
            }
        }
        caseSeen_ = false;
        selectDepth_ = 0;
    }
    writeAtLevel(i);
    if (scanner_.endKeyIndex == end_key::elseLine) add(indentLevel_, 1);
    if (scanner_.endKeyIndex == end_key::elseIf && Scanner::Check_IF_THEN_(line) == 1) add(indentLevel_, 1);
}

void Engine::writeAtLevel(std::int32_t i) {
    const std::int16_t spaces = checked(static_cast<std::int32_t>(options.mTab) * indentLevel_);
    if (spaces < 0) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    buffer_.setSpaces(i, spaces);
}

void Engine::report(StructuralError::Kind kind, std::int32_t i) {
    errors_.push_back({kind, i});
    observer_.addError(errors_.back());
}

} // namespace corvelle::formatter
