#include "formatter/scanner.h"

#include "base/byte_search.h"
#include "base/packed_text.h"
#include "base/text.h"
#include "formatter/key_tables.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace corvelle::formatter {

using base::isBlank;
using base::startsWithIgnoringCase;
using base::trimSpaces;

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::int16_t space = 32;

// The position of the first apostrophe; npos if there is none.
std::size_t findApostrophe(std::string_view text) {
    const std::size_t at = base::findKind<base::AnyOf<'\''>>(text, 0);
    return at == text.size() ? npos : at;
}

// What a text or a key begins with, for the key in front of the comparison letter by letter: it rules out
// nearly every key that begins with the text's first letter.
struct Beginning {
    std::uint64_t value = 0, bits = 0;
};

template <std::size_t count>
constexpr std::array<Beginning, count> beginningsOf(const std::array<std::string_view, count>& keys) {
    std::array<Beginning, count> result{};
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view beginning = keys[i].substr(0, base::mostPacked);
        const std::uint64_t bits = base::packedBits(beginning.size());
        result[i] = {(base::packed(beginning) | base::smallLetters) & bits, bits};
    }
    return result;
}
constexpr auto startKeyBeginnings = beginningsOf(StartKeys);
constexpr auto endKeyBeginnings = beginningsOf(EndKeys);

// Of a text that is not empty.
std::uint64_t beginningOf(std::string_view text) {
    return base::packedAt(text, 0, std::min(text.size(), base::mostPacked)) | base::smallLetters;
}

bool mayBegin(std::uint64_t text, const Beginning& key) {
    return (text & key.bits) == key.value;
}

// The text starts with the phrase, and a space or the text's end follows.
bool startsWithKey(std::string_view text, std::string_view phrase) {
    if (text.size() > phrase.size() && text[phrase.size()] != ' ') return false;
    return startsWithIgnoringCase(text, phrase);
}

bool endsInThen(std::string_view text) {
    return text.size() >= 4 && base::equalIgnoringCase(text.substr(text.size() - 4), "Then");
}

bool isRemLine(std::string_view text) {
    return !text.empty() && base::lower(text[0]) == 'r' && startsWithKey(text, "Rem");
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
    const std::uint64_t beginning = beginningOf(text);

    for (std::uint32_t keys = startKeysByLetter_[first]; keys != 0; keys &= keys - 1) {
        const auto index = static_cast<std::int16_t>(std::countr_zero(keys));
        if (!mayBegin(beginning, startKeyBeginnings[index])) continue;
        if (!startsWithKey(text, StartKeys[index])) continue;
        if (index >= firstWordKey && index <= lastWordKey && !Check_Enum_Type(text, StartKeys[index])) {
            return KeyNone;
        }
        startKeyIndex = index;
        return KeyStart;
    }
    for (std::uint32_t keys = endKeysByLetter_[first]; keys != 0; keys &= keys - 1) {
        const auto index = static_cast<std::int16_t>(std::countr_zero(keys));
        if (!mayBegin(beginning, endKeyBeginnings[index])) continue;
        if (!startsWithKey(text, EndKeys[index])) continue;
        endKeyIndex = index;
        return KeyEnd;
    }
    // Only a text that ends in "Then" can be a block If: look there before searching the whole line.
    if (base::lower(text.back()) == 'n' && endsInThen(text) && Check_IF_THEN_(text) == 1) {
        startKeyIndex = start_key::blockIf;
        return KeyStart;
    }
    return KeyNone;
}

std::string_view Scanner::myTrim(std::string_view mStr, std::string& room) {
    // With the tabs gone, the blanks at both ends are spaces; so both kinds go there at once.
    mStr.remove_prefix(base::pastBlanks(mStr, 0));
    while (!mStr.empty() && isBlank(mStr.back())) mStr.remove_suffix(1);
    if (base::findKind<base::AnyOf<'\t'>>(mStr, 0) == mStr.size()) return mStr;
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
    const auto apostrophe = findApostrophe(mStr);
    return apostrophe == npos ? isRemLine(mStr) : apostrophe == 0;
}

std::string_view Scanner::SafeUncomment(std::string_view mStr) {
    const auto apostrophe = findApostrophe(mStr);
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
    if (endsInThen(code)) return 1;
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
