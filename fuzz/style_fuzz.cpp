// The module's style on any lines: what is said holds, votes are counted of those that there are, and the
// module laid out in the style has that style again, where it is found out as where it is said.
//
// Input: a line whose bytes choose what is said, then the module.

#include "formatter/structured/structured.h"
#include "require.h"
#include "structured_phrases.h"
#include "texts.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace corvelle::formatter::structured;

namespace {

struct BodyKey {
    std::optional<Body> StyleOptions::*said;
    Body Style::*value;
    Decision Style::*by;
};

constexpr BodyKey bodyKeys[] = {
    {&StyleOptions::procedure, &Style::procedure, &Style::procedureBy},
    {&StyleOptions::declarations, &Style::declarations, &Style::declarationsBy},
    {&StyleOptions::onError, &Style::onError, &Style::onErrorBy},
    {&StyleOptions::type, &Style::type, &Style::typeBy},
    {&StyleOptions::caseBody, &Style::caseBody, &Style::caseBy},
    {&StyleOptions::withBody, &Style::withBody, &Style::withBy},
    {&StyleOptions::directiveBody, &Style::directiveBody, &Style::directiveBodyBy},
};

StyleOptions optionsOf(std::string_view bytes) {
    const auto next = [&bytes](std::uint32_t most) -> std::uint32_t {
        if (bytes.empty()) return 0;
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        return byte % (most + 1);
    };
    StyleOptions options;
    if (const auto tabs = next(2); tabs > 0) options.tabs = tabs == 2;
    if (const auto unit = next(9); unit > 0) options.unit = unit;
    if (const auto width = next(9); width > 0) options.tabWidth = width;
    for (const BodyKey& key : bodyKeys) {
        if (const auto body = next(2); body > 0) options.*key.said = body == 1 ? Body::Indent : Body::Flush;
    }
    if (const auto place = next(2); place > 0) options.directive = place == 1 ? Place::Margin : Place::Code;
    if (next(1) == 1) options.marginComments = MarginComments::Follow;
    return options;
}

void checkDecision(const Decision& by, bool said) {
    require((by.source == Source::Said) == said, "what is said holds");
    require(by.votes <= by.of, "as many votes as there are");
    require(by.source != Source::Voted || by.of > 0, "nobody has voted");
}

void checkSaid(const Style& style, const StyleOptions& options) {
    for (const BodyKey& key : bodyKeys) {
        checkDecision(style.*key.by, (options.*key.said).has_value());
        if (options.*key.said) require(style.*key.value == *(options.*key.said), "a body as it is said");
    }
    checkDecision(style.directiveBy, options.directive.has_value());
    checkDecision(style.unitBy, options.unit.has_value());
    if (options.directive) require(style.directive == *options.directive, "directives where it is said");
    if (options.unit) require(style.unit.count == *options.unit, "a unit as it is said");
    if (options.tabs) require(style.unit.tabs == *options.tabs, "of what is said");
    if (options.tabWidth) require(style.tabWidth == *options.tabWidth, "a tab as wide as it is said");
    require(style.marginComments == options.marginComments, "comments as it is said");
    require(style.unit.count > 0 && style.tabWidth > 0, "a unit");
}

struct Written {
    std::vector<std::string> lines;
    StructuredResult result;
};

Written layOut(const Texts& lines, const StyleOptions& style) {
    StructuredOptions options;
    options.style = style;
    Written written{{}, formatStructured(lines, options)};
    for (std::size_t i = 0; i < lines.size(); ++i)
        written.result.lines[i].appendTo(written.lines.emplace_back(), lines[i], written.result.style);
    return written;
}

Texts textsOf(const Written& written) {
    return {written.lines.begin(), written.lines.end()};
}

// All that was found out, said. Each #If keeps its own ways as long as nothing is said of them.
StyleOptions saying(const Style& style, const StyleOptions& options) {
    StyleOptions said = options;
    said.tabs = style.unit.tabs;
    said.unit = style.unit.count;
    said.tabWidth = style.tabWidth;
    for (const BodyKey& key : bodyKeys) {
        if (key.said != &StyleOptions::directiveBody) said.*key.said = style.*key.value;
    }
    return said;
}

// Whether lines stand as the key has it: in flush bodies declarations and On Error do not where it is said
// that they are deeper.
bool holds(const BodyKey& key, const Style& style) {
    const bool inBody = key.value == &Style::declarations || key.value == &Style::onError;
    return !inBody || style.procedure != Body::Flush || style.*key.value == Body::Flush;
}

void requireSame(const Style& a, const Style& b) {
    for (const BodyKey& key : bodyKeys) require(a.*key.value == b.*key.value, "the same bodies");
    require(a.unit.tabs == b.unit.tabs && a.unit.count == b.unit.count && a.tabWidth == b.tabWidth,
            "the same unit");
    require(a.directive == b.directive, "the same place of directives");
    require(a.directives.size() == b.directives.size(), "as many directives");
    for (std::size_t i = 0; i < a.directives.size(); ++i) {
        require(a.directives[i].place == b.directives[i].place &&
                    a.directives[i].body == b.directives[i].body,
                "each directive's ways");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Texts lines = linesOf({reinterpret_cast<const char*>(data), size});
    const StyleOptions options = optionsOf(lines.front());
    lines.erase(lines.begin());
    const Written once = layOut(lines, options);
    const Style& style = once.result.style;
    checkSaid(style, options);
    requireSame(layOut(lines, options).result.style, style);
    const Written twice = layOut(textsOf(once), options);
    require(twice.lines == once.lines, "a second run changes nothing");
    requireSame(twice.result.style, style);
    for (const BodyKey& key : bodyKeys) {
        if (!holds(key, style)) continue;
        require((twice.result.style.*key.by).votes >= (style.*key.by).votes, "the winner loses no vote");
    }
    require(layOut(lines, saying(style, options)).lines == once.lines,
            "saying what was found changes nothing");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases phrases = vocabulary::structured();
    return mutateLines(data, size, maxSize, seed, phrases);
}
