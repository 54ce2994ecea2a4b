#include "settings/glob.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <string>

namespace {

using corvelle::settings::Glob;

void expect(const char* pattern, std::initializer_list<const char*> matching,
            std::initializer_list<const char*> others) {
    const Glob glob(pattern);
    for (const char* path : matching) EXPECT_TRUE(glob.matches(path)) << pattern << " and " << path;
    for (const char* path : others) EXPECT_FALSE(glob.matches(path)) << pattern << " and " << path;
}

TEST(Glob, MatchesNamesAtAnyDepthWithoutASlash) {
    expect("*", {"a", "b/c"}, {});
    expect("*.bas", {"a.bas", "b/c.bas", ".bas"}, {"a.BAS", "a.basx", "a.bas/b"});
    expect("a?c", {"abc", "x/abc"}, {"ac", "a/c", "abbc"});
    expect("", {}, {"a", "a/b"});
}

TEST(Glob, MatchesPathsFromTheFolderWithASlash) {
    expect("/*.bas", {"a.bas"}, {"b/a.bas"});
    expect("b/*.bas", {"b/a.bas"}, {"a/b/a.bas", "b/c/a.bas"});
    expect("*/a", {"b/a"}, {"a", "b/c/a"});
}

TEST(Glob, LetsTwoStarsCrossSlashes) {
    expect("b/**.bas", {"b/a.bas", "b/c/a.bas"}, {"a.bas"});
    expect("b/**/c", {"b/c", "b/d/c", "b/d/e/c"}, {"b/dc", "c"});
    expect("**/c", {"c", "d/c"}, {"dc"});
    expect("a**b", {"ab", "axb", "a/b", "a/x/b", "y/a/b"}, {"ya/b"});
    expect("a/***/b", {"a/c/b"}, {"a/b"});
    expect("a/**", {"a/b", "a/b/c"}, {"a"});
}

TEST(Glob, MatchesOneCharacterOfASet) {
    expect("a[bc]d", {"abd", "acd"}, {"aed", "ad"});
    expect("a[!b]d", {"acd"}, {"abd"});
    expect("[a-c]", {"a", "b", "c"}, {"d", "-"});
    expect("[a-]", {"a", "-"}, {"b"});
    expect("[a\\-c]", {"a", "-", "c"}, {"b"});
    expect("[]a]", {"]", "a"}, {"b"});
    expect("[!]a]", {"b"}, {"]", "a"});
    expect("[^a]", {"^", "a"}, {"b"});
    expect("[\\]]", {"]"}, {"\\"});
    expect("[c-a]", {}, {"a", "b", "c"});
}

TEST(Glob, TakesABracketWithASlashInItForACharacter) {
    expect("a[b/c]d", {"a[b/c]d"}, {"abd", "a/d"});
}

TEST(Glob, MatchesNothingWithABracketThatNeverCloses) {
    expect("a[b", {}, {"a[b", "ab"});
    expect("[!]", {}, {"[!]", "a"});
}

TEST(Glob, MatchesOneOfSeveralPatterns) {
    expect("{a,b}", {"a", "b"}, {"c", "{a,b}"});
    expect("*.{bas,BAS,cls}", {"x.bas", "y/x.BAS", "x.cls"}, {"x.CLS"});
    expect("{a,}b", {"ab", "b"}, {"aab"});
    expect("a{b,c{d,e}f}g", {"abg", "acdfg", "acefg"}, {"acg", "ag"});
    expect("{*.a,b/*}", {"x.a", "b/y"}, {"x/b/y", "y/x.a"});
    expect("{a,b/**/c}", {"a", "b/c", "b/d/c"}, {"b"});
}

TEST(Glob, TakesBracesWithoutACommaOrAPartnerForCharacters) {
    expect("{a}", {"{a}"}, {"a"});
    expect("{}", {"{}"}, {});
    expect("{a,b", {"{a,b"}, {"a"});
    expect("a,b}", {"a,b}"}, {"a"});
    expect("{a\\,b}", {"{a,b}"}, {"a"});
    expect("{a,b\\}", {"{a,b}"}, {"a"});
    expect("{{a},b}", {"{a}", "b"}, {"a"});
}

TEST(Glob, MatchesNumbersOfARange) {
    expect("{1..3}", {"1", "2", "3", "+1"}, {"0", "4", "01", "-1", "a", "1..3"});
    expect("{-2..2}", {"-2", "0", "+2"}, {"-3", "3"});
    expect("a{1..30}4", {"a24", "a304", "a14"}, {"a4", "a314"});
    expect("{3..1}", {}, {"1", "2", "3"});
    expect("{1..3,5}", {"1..3", "5"}, {"2"});
    expect("{a..c}", {"{a..c}"}, {"b"});
    expect("{1..99999999999999999999}", {"{1..99999999999999999999}"}, {"5"});
}

TEST(Glob, TakesAwayMeaningWithABackslash) {
    expect("\\*", {"*"}, {"a"});
    expect("a\\?", {"a?"}, {"ab"});
    expect("\\[a\\]", {"[a]"}, {"a"});
    expect("a\\", {"a\\"}, {"a"});
    expect("a.b+(c|d)^$", {"a.b+(c|d)^$"}, {"axb"});
}

TEST(Glob, TakesAWholeUtf8CharacterForOne) {
    expect("a?b",
           {"a\xC3\xA9"
            "b",
            "a\xE9"
            "b"},
           {"a\xC3\xA9\xC3\xA9"
            "b"});
    expect("[\xC3\xA9]", {"\xC3\xA9"}, {"\xC3", "\xA9", "e"});
}

TEST(Glob, IsDoneInTimeWithPatternsThatMatchInManyWays) {
    std::string pattern, path(2000, 'a');
    for (int i = 0; i < 500; ++i) pattern += "*a{a,*}";
    EXPECT_FALSE(Glob(pattern + "b").matches(path));
    EXPECT_TRUE(Glob(pattern).matches(path));
}

TEST(Glob, ReadsBracesHoweverDeep) {
    const std::string open(2000, '{'), close(2000, '}');
    EXPECT_TRUE(Glob(open + "a" + close).matches(open + "a" + close));
    std::string nested = "a";
    for (int i = 0; i < 1000; ++i) nested = "{" + nested + ",}";
    EXPECT_TRUE(Glob(nested + "b").matches("ab"));
    EXPECT_TRUE(Glob(nested + "b").matches("b"));
}

} // namespace
