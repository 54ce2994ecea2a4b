#include "formatter/structured/style.h"

#include <algorithm>

namespace corvelle::formatter::structured {
namespace {

constexpr std::uint32_t enoughVotes = 3;
constexpr std::uint32_t widestUnit = 32;
constexpr std::uint32_t defaultTabWidth = 4;

std::string_view blanksOf(std::string_view text, const LineInfo& line) {
    return text.substr(0, line.start);
}

bool isOnly(std::string_view text, char c) {
    return text.find_first_not_of(c) == std::string_view::npos;
}

// Votes between two values, of which the first is the default.
template <class Value>
struct TwoWay {
    Value byDefault, other;
    std::uint32_t forDefault = 0, forOther = 0;

    void decide(const std::optional<Value>& said, Value& value, Decision& by) const {
        by = {Source::Default, 0, forDefault + forOther};
        value = byDefault;
        if (by.of >= enoughVotes && forOther > forDefault) value = other;
        if (by.of >= enoughVotes) by.source = Source::Voted;
        if (said) {
            value = *said;
            by.source = Source::Said;
        }
        by.votes = value == byDefault ? forDefault : forOther;
    }
};

class Ballot {
  public:
    Ballot(const std::vector<std::string_view>& texts, const ModuleBlocks& blocks, const StyleOptions& options)
        : texts_(texts), blocks_(blocks), options_(options) {}

    Style decide() {
        style_.marginComments = options_.marginComments;
        // Not from the module's own unit: that is decided by lines of which the columns must be known.
        const bool blanks = options_.unit && !options_.tabs.value_or(false);
        style_.tabWidth = options_.tabWidth.value_or(blanks ? *options_.unit : defaultTabWidth);
        style_.tabWidth = std::max<std::uint32_t>(style_.tabWidth, 1);
        decideBodies();
        decideDirectives();
        decideUnit();
        return std::move(style_);
    }

  private:
    const LineInfo& info(std::uint32_t line) const { return blocks_.lines[line]; }
    bool mayVote(std::uint32_t line) const { return !info(line).fixed(); }
    std::uint32_t column(std::uint32_t line) const {
        return columnAfter(texts_[line], info(line).start, style_.tabWidth);
    }

    void decideBodies() {
        TwoWay<Body> procedure{Body::Indent, Body::Flush}, type{Body::Indent, Body::Flush},
            caseBody{Body::Indent, Body::Flush}, withBody{Body::Indent, Body::Flush};
        const auto votesOf = [&](Depth depth) -> TwoWay<Body>* {
            switch (depth) {
            case Depth::Procedure:
                return &procedure;
            case Depth::Type:
                return &type;
            case Depth::Case:
                return &caseBody;
            case Depth::With:
                return &withBody;
            default:
                return nullptr;
            }
        };
        for (const Sample& sample : blocks_.samples) {
            TwoWay<Body>* const votes = votesOf(sample.depth);
            if (votes == nullptr || !mayVote(sample.opener) || !mayVote(sample.child)) continue;
            const std::uint32_t opener = column(sample.opener), child = column(sample.child);
            if (child == opener) ++votes->forOther;
            if (child > opener) ++votes->forDefault;
        }
        procedure.decide(options_.procedure, style_.procedure, style_.procedureBy);
        type.decide(options_.type, style_.type, style_.typeBy);
        caseBody.decide(options_.caseBody, style_.caseBody, style_.caseBy);
        withBody.decide(options_.withBody, style_.withBody, style_.withBy);
    }

    void decideDirectives() {
        const std::vector<std::uint32_t> levels = levelsOf(blocks_.lines, style_);
        TwoWay<Place> place{Place::Margin, Place::Code};
        for (const DirectiveBlock& block : blocks_.directives) {
            if (!mayVote(block.line) || levels[block.line] == 0) continue; // both are column 1
            ++(info(block.line).start == 0 ? place.forDefault : place.forOther);
        }
        place.decide(options_.directive, style_.directive, style_.directiveBy);

        TwoWay<Body> body{Body::Flush, Body::Indent};
        const std::size_t count = blocks_.directives.size();
        std::vector<std::optional<Body>> own(count);
        for (std::size_t i = 0; i < count; ++i) {
            own[i] = bodyOf(blocks_.directives[i], levels);
            if (own[i]) ++(*own[i] == Body::Flush ? body.forDefault : body.forOther);
        }
        body.decide(options_.directiveBody, style_.directiveBody, style_.directiveBodyBy);
        style_.indentedDirectives.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            const Body value = options_.directiveBody ? style_.directiveBody : own[i].value_or(style_.directiveBody);
            style_.indentedDirectives[i] = blocks_.directives[i].balanced && value == Body::Indent;
        }
    }

    // How the #If itself holds its statements, where that can be seen: against a statement beside it, outside
    // of all blocks against column 1.
    std::optional<Body> bodyOf(const DirectiveBlock& block, const std::vector<std::uint32_t>& levels) const {
        if (!block.balanced || block.child == LineInfo::none || !mayVote(block.child)) return std::nullopt;
        std::uint32_t beside = 0;
        if (levels[block.line] > 0 || block.outer != LineInfo::none) {
            if (block.sibling == LineInfo::none || !mayVote(block.sibling)) return std::nullopt;
            beside = column(block.sibling);
        }
        const std::uint32_t child = column(block.child);
        if (child < beside) return std::nullopt;
        return child == beside ? Body::Flush : Body::Indent;
    }

    void decideUnit() {
        std::array<std::array<std::uint32_t, widestUnit + 1>, 2> votes{}; // blanks, tabs; by their number
        std::uint32_t all = 0;
        for (const Sample& sample : blocks_.samples) {
            if (style_.bodyOf(sample.depth) == Body::Flush) continue;
            if (!mayVote(sample.opener) || !mayVote(sample.child)) continue;
            const std::string_view outer = blanksOf(texts_[sample.opener], info(sample.opener));
            std::string_view more = blanksOf(texts_[sample.child], info(sample.child));
            if (more.size() <= outer.size() || more.substr(0, outer.size()) != outer) continue;
            more.remove_prefix(outer.size());
            const bool tabs = more.front() == '\t';
            if (more.size() > widestUnit || !isOnly(more, more.front())) continue;
            if (options_.tabs && *options_.tabs != tabs) continue;
            ++votes[tabs ? 1 : 0][more.size()];
            ++all;
        }
        Unit& unit = style_.unit;
        const bool tabsSaid = options_.tabs.value_or(false);
        unit = {tabsSaid, tabsSaid ? 1U : 4U};
        style_.unitBy = {Source::Default, 0, all};
        if (options_.unit) {
            unit.count = std::max<std::uint32_t>(*options_.unit, 1);
            style_.unitBy.source = Source::Said;
        } else if (all >= enoughVotes) {
            Unit best = unit;
            std::uint32_t most = votes[unit.tabs ? 1 : 0][unit.count];
            for (const bool tabs : {false, true}) {
                for (std::uint32_t count = 1; count <= widestUnit; ++count) {
                    if (votes[tabs ? 1 : 0][count] <= most) continue;
                    most = votes[tabs ? 1 : 0][count];
                    best = {tabs, count};
                }
            }
            unit = best;
            style_.unitBy.source = Source::Voted;
        }
        if (unit.count <= widestUnit) style_.unitBy.votes = votes[unit.tabs ? 1 : 0][unit.count];
    }

    const std::vector<std::string_view>& texts_;
    const ModuleBlocks& blocks_;
    const StyleOptions& options_;
    Style style_;
};

} // namespace

Body Style::bodyOf(Depth depth) const {
    switch (depth) {
    case Depth::Procedure:
        return procedure;
    case Depth::Type:
        return type;
    case Depth::Case:
        return caseBody;
    case Depth::With:
        return withBody;
    case Depth::Block:
        return Body::Indent;
    case Depth::Same:
        break;
    }
    return Body::Flush;
}

std::uint32_t columnAfter(std::string_view line, std::size_t length, std::uint32_t tabWidth) {
    std::uint32_t column = 0;
    for (std::size_t i = 0; i < length; ++i) {
        column = line[i] == '\t' ? (column / tabWidth + 1) * tabWidth : column + 1;
    }
    return column;
}

std::vector<std::uint32_t> levelsOf(const std::vector<LineInfo>& lines, const Style& style) {
    std::vector<std::uint32_t> levels(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const LineInfo& line = lines[i];
        if (line.parent == LineInfo::none) continue;
        levels[i] = levels[line.parent] + (style.bodyOf(line.depth) == Body::Indent ? 1 : 0);
    }
    return levels;
}

Style decideStyle(const std::vector<std::string_view>& texts, const ModuleBlocks& blocks, const StyleOptions& options) {
    return Ballot(texts, blocks, options).decide();
}

} // namespace corvelle::formatter::structured
