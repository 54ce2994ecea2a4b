#pragma once

#include "base/text.h"

#include <bit>
#include <cstddef>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// Searches for the first byte of a kind, the one thing that the formatter does with every byte of a module:
// where a word ends, where the blanks do, where something stands that can end a statement. Looked at one by
// one these bytes took most of its time, the branch at the end of each run above all, which no processor can
// foresee. With SSE2, which every 64-bit x86 has, sixteen are compared at once and the answer is a number.
// Beside it stands the plain way, for other processors, for the 32-bit DLL, which must run without, and for
// texts of less than sixteen bytes. No way reads a byte outside of the text.
namespace corvelle::base {

/// The bytes that are listed.
template <char... bytes>
struct AnyOf {
    static constexpr bool has(char c) { return ((c == bytes) || ...); }
#ifdef __SSE2__
    static __m128i in(__m128i block) {
        __m128i found = _mm_setzero_si128();
        ((found = _mm_or_si128(found, _mm_cmpeq_epi8(block, _mm_set1_epi8(bytes)))), ...);
        return found;
    }
#endif
};

/// The bytes that names are made of.
struct NameBytes {
    static constexpr bool has(char c) { return isNameCharacter(c); }
#ifdef __SSE2__
    static __m128i in(__m128i block) {
        // The range moved to the lowest numbers, so that one signed comparison finds it.
        const auto between = [](__m128i values, char first, char last) {
            const __m128i moved = _mm_add_epi8(values, _mm_set1_epi8(static_cast<char>(-128 - first)));
            return _mm_cmplt_epi8(moved, _mm_set1_epi8(static_cast<char>(-128 + (last - first) + 1)));
        };
        const __m128i letters = between(_mm_or_si128(block, _mm_set1_epi8(0x20)), 'a', 'z');
        const __m128i others = _mm_or_si128(between(block, '0', '9'), AnyOf<'_'>::in(block));
        return _mm_or_si128(_mm_or_si128(letters, others), block); // above 127 the top bit itself
    }
#endif
};

/// The first position from `at`, which is not beyond the end, of a byte that is of the kind, or that is not;
/// the text's length if there is none. One byte after the other.
template <class Kind, bool wanted = true>
std::size_t findPlainly(std::string_view text, std::size_t at) {
    while (at < text.size() && Kind::has(text[at]) != wanted) ++at;
    return at;
}

/// The same, as fast as the processor can.
template <class Kind, bool wanted = true>
inline std::size_t findKind(std::string_view text, std::size_t at) {
#ifdef __SSE2__
    constexpr std::size_t width = sizeof(__m128i);
    if (text.size() >= width) {
        // A bit for each of the bytes from the position on.
        const auto found = [text](std::size_t position) {
            const auto* const bytes = reinterpret_cast<const __m128i*>(text.data() + position);
            const auto bits = static_cast<unsigned>(_mm_movemask_epi8(Kind::in(_mm_loadu_si128(bytes))));
            return wanted ? bits : bits ^ 0xFFFFU;
        };
        for (; text.size() - at >= width; at += width) {
            if (const unsigned bits = found(at); bits != 0)
                return at + static_cast<std::size_t>(std::countr_zero(bits));
        }
        // The bytes that are left, looked at together with some before them.
        const std::size_t last = text.size() - width;
        const unsigned bits = found(last) >> (at - last);
        return bits == 0 ? text.size() : at + static_cast<std::size_t>(std::countr_zero(bits));
    }
#endif
    return findPlainly<Kind, wanted>(text, at);
}

/// The first position from `at` of a byte that is not of the kind; the text's length if there is none.
template <class Kind>
inline std::size_t skipKind(std::string_view text, std::size_t at) {
    return findKind<Kind, false>(text, at);
}

/// The position of the first byte from `at` that is no space or tab; the text's length if there is none.
inline std::size_t pastBlanks(std::string_view text, std::size_t at) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    if (at >= text.size() || !isBlank(text[at])) return at; // one look tells it mostly
    return skipKind<AnyOf<' ', '\t'>>(text, at);
}

} // namespace corvelle::base
