#include "formatter/scanner.h"

#include "base/text.h"
#include "formatter/key_tables.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace corvelle::formatter {

using base::startsWithIgnoringCase;
using base::trimSpaces;

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::int16_t space = 32;

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

// The text starts with the phrase, and a space or the text's end follows.
bool startsWithKey(std::string_view text, std::string_view phrase) {
    if (text.size() > phrase.size() && text[phrase.size()] != ' ') return false;
    return startsWithIgnoringCase(text, phrase);
}

bool isRemLine(std::string_view text) {
    return startsWithKey(text, "Rem");
}

// SafeUncomment's search, from the first apostrophe (0-based) on.
std::string_view uncommentFrom(std::string_view text, std::size_t apostrophe) {
    std::size_t quote = 0; // 1-based position of the quote found last; 0: none, the next search starts over
    unsigned searches = 0;
    for (;;) {
        bool before = false;
        bool after = false;
        for (int i = 0; i < 2; ++i) {
            quote = text.find('"', quote) + 1; // npos + 1 is 0
            ++searches;
            (quote < apostrophe + 1 ? before : after) = true;
            const bool even = searches % 2 == 0;
            if (even ? !after : !before) return text.substr(0, apostrophe);
        }
        apostrophe = text.find('\'', quote);
        if (apostrophe == npos) return text;
    }
}

} // namespace

void Scanner::LoadKeys_VB() {
    const auto enter = [](auto& table, std::string_view phrase, std::int16_t index) {
        for (const char first : {base::lower(phrase[0]), base::upper(phrase[0])}) {
            table[static_cast<unsigned char>(first)] |= 1U << index;
        }
    };
    for (std::int16_t i = 0; i <= lastStartKey; ++i) enter(startKeysByLetter_, StartKeys[i], i);
    for (std::int16_t i = 0; i <= lastEndKey; ++i) enter(endKeysByLetter_, EndKeys[i], i);
}

Key Scanner::CheckKey(std::string_view mStr) {
    const std::string_view text = trimSpaces(SafeUncomment(mStr));
    if (text.empty()) return KeyNone;
    const auto first = static_cast<unsigned char>(text.front());

    for (std::uint32_t keys = startKeysByLetter_[first]; keys != 0; keys &= keys - 1) {
        const auto index = static_cast<std::int16_t>(std::countr_zero(keys));
        if (!startsWithKey(text, StartKeys[index])) continue;
        if (index >= firstWordKey && index <= lastWordKey && !Check_Enum_Type(text, StartKeys[index])) {
            return KeyNone;
        }
        startKeyIndex = index;
        return KeyStart;
    }
    for (std::uint32_t keys = endKeysByLetter_[first]; keys != 0; keys &= keys - 1) {
        const auto index = static_cast<std::int16_t>(std::countr_zero(keys));
        if (!startsWithKey(text, EndKeys[index])) continue;
        endKeyIndex = index;
        return KeyEnd;
    }
    // Only a text that ends in "Then" can be a block If: look there before searching the whole line.
    const std::string_view ending = text.size() < 4 ? text : text.substr(text.size() - 4);
    if (base::equalIgnoringCase(ending, "Then") && Check_IF_THEN_(text) == 1) {
        startKeyIndex = start_key::blockIf;
        return KeyStart;
    }
    return KeyNone;
}

std::string_view Scanner::myTrim(std::string_view mStr, std::string& room) {
    // With the tabs gone, the blanks at both ends are spaces; so both kinds go there at once.
    while (!mStr.empty() && isBlank(mStr.front())) mStr.remove_prefix(1);
    while (!mStr.empty() && isBlank(mStr.back())) mStr.remove_suffix(1);
    if (mStr.find('\t') == npos) return mStr;
    room.clear();
    std::remove_copy(mStr.begin(), mStr.end(), std::back_inserter(room), '\t');
    return room;
}

bool Scanner::isOnlySpace(std::string_view mTxt) {
    return mTxt.find_first_not_of(' ') == npos;
}

bool Scanner::CheckChar(std::string_view mStr, std::int32_t pos, std::int16_t mCh, bool bMust) {
    if (pos > static_cast<std::int64_t>(mStr.size())) return !bMust;
    if (pos < 1) return false;
    return static_cast<unsigned char>(mStr[static_cast<std::size_t>(pos) - 1]) == mCh;
}

bool Scanner::isCommentLine(std::string_view mStr) {
    const auto apostrophe = mStr.find('\'');
    return apostrophe == npos ? isRemLine(mStr) : apostrophe == 0;
}

std::string_view Scanner::SafeUncomment(std::string_view mStr) {
    const auto apostrophe = mStr.find('\'');
    if (apostrophe == npos) return isRemLine(mStr) ? std::string_view() : mStr;
    if (apostrophe == 0) return {};
    return uncommentFrom(mStr, apostrophe);
}

bool Scanner::Check_Enum_Type(std::string_view tStr, std::string_view mKey) {
    if (tStr.size() <= mKey.size()) return false;
    const std::string_view rest = trimSpaces(SafeUncomment(tStr.substr(mKey.size())));
    return std::none_of(OpChars.begin(), OpChars.end(), [rest](char c) { return rest.find(c) != npos; });
}

std::int16_t Scanner::Check_IF_THEN_(std::string_view mStr) {
    std::string_view code = SafeUncomment(mStr);
    // The word is looked for in the whole line, its surroundings in the code part alone: a " Then" inside the
    // trailing comment therefore never makes one-line code a block.
    const auto then = base::findLastIgnoringCase(mStr, " Then");
    if (then == npos) return 0;
    if (!CheckChar(code, static_cast<std::int32_t>(then + 1 + 5), space)) return 0;
    code = trimSpaces(code);
    if (code.size() >= 4 && base::equalIgnoringCase(code.substr(code.size() - 4), "Then")) return 1;
    return !code.empty() && code.back() == '_' ? 2 : 3;
}

bool Scanner::codeStarted(std::string_view mStr) {
    if (base::findIgnoringCase(mStr, "Option Explicit") != npos) return true;
    for (const std::string_view word : {"Dim ", "Public ", "Private ", "Const ", "Friend "}) {
        if (startsWithIgnoringCase(mStr, word)) return true;
    }
    return (startsWithIgnoringCase(mStr, "Enum ") && Check_Enum_Type(mStr, "Enum")) ||
           (startsWithIgnoringCase(mStr, "Type ") && Check_Enum_Type(mStr, "Type"));
}

std::int32_t Scanner::getArrByteCount(const std::vector<std::string>& mArr) {
    std::uint64_t bytes = 0;
    for (const std::string& line : mArr) bytes += std::uint64_t{line.size()} + 2;
    constexpr std::uint64_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(bytes, most));
}

} // namespace corvelle::formatter
