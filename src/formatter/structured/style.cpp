#include "formatter/structured/style.h"

#include "formatter/structured/pairs.h"

#include <algorithm>

namespace corvelle::formatter::structured {
namespace {

constexpr std::uint32_t enoughVotes = 3; // where they do not agree
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

    // `scattered`: the module's votes for its unit say that nobody has laid it out.
    void decide(const std::optional<Value>& said, bool scattered, Value& value, Decision& by) const {
        by = {Source::Default, 0, forDefault + forOther};
        value = byDefault;
        const bool trusted = !scattered || (forDefault == 0 && forOther >= enoughVotes);
        if (forOther > forDefault && trusted) value = other;
        if (by.of > 0 && trusted) by.source = Source::Voted;
        if (said) {
            value = *said;
            by.source = Source::Said;
        }
        by.votes = value == byDefault ? forDefault : forOther;
    }

    // For lines that get the other value anyway: what they vote for they would not vote for afterwards.
    void settle(const std::optional<Value>& said, Value& value, Decision& by) const {
        if (said) return;
        value = other;
        by.source = forOther > forDefault ? Source::Voted : Source::Default;
        by.votes = forOther;
    }
};

class Ballot {
  public:
    Ballot(const base::TextLines& texts, const ModuleBlocks& blocks, const StyleOptions& options)
        : texts_(texts), blocks_(blocks), options_(options) {}

    Style decide() {
        style_.marginComments = options_.marginComments;
        // Not from the module's own unit: that is decided by lines of which the columns must be known.
        const bool blanks = options_.unit && !options_.tabs.value_or(false);
        style_.tabWidth = options_.tabWidth.value_or(blanks ? *options_.unit : defaultTabWidth);
        style_.tabWidth = std::max<std::uint32_t>(style_.tabWidth, 1);
        decideBodies();
        decideUnit();
        style_.paired = pairedLevels(texts_, blocks_, style_);
        decideDirectives();
        return std::move(style_);
    }

  private:
    const LineInfo& info(std::uint32_t line) const { return blocks_.lines[line]; }
    bool mayVote(std::uint32_t line) const { return !info(line).fixed(); }
    // Under a line that stays where it is, anywhere, no column tells how an #If was meant.
    bool mayVote(const DirectiveBlock& block) const {
        const std::uint32_t parent = info(block.line).parent;
        return mayVote(block.line) && (parent == LineInfo::none || mayVote(parent));
    }
    std::uint32_t column(std::uint32_t line) const {
        return columnAfter(texts_[line], info(line).start, style_.tabWidth);
    }

    void decideBodies() {
        const UnitVotes all = unitVotes([](const Sample&) { return true; });
        const bool scattered = all.all >= enoughVotes && 2 * all.most() < all.all;
        TwoWay<Body> procedure{Body::Indent, Body::Flush}, declarations{Body::Indent, Body::Flush},
            onError{Body::Indent, Body::Flush}, type{Body::Indent, Body::Flush},
            caseBody{Body::Indent, Body::Flush}, withBody{Body::Indent, Body::Flush};
        const auto votesOf = [&](Depth depth) -> TwoWay<Body>* {
            switch (depth) {
            case Depth::Procedure:
                return &procedure;
            case Depth::Declaration:
                return &declarations;
            case Depth::OnError:
                return &onError;
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
            if (!votes || !mayVote(sample.opener) || !mayVote(sample.child)) continue;
            const std::uint32_t opener = column(sample.opener), child = column(sample.child);
            if (child == opener) ++votes->forOther;
            if (child > opener) ++votes->forDefault;
        }
        procedure.decide(options_.procedure, scattered, style_.procedure, style_.procedureBy);
        declarations.decide(options_.declarations, scattered, style_.declarations, style_.declarationsBy);
        onError.decide(options_.onError, scattered, style_.onError, style_.onErrorBy);
        if (style_.procedure == Body::Flush) {
            declarations.settle(options_.declarations, style_.declarations, style_.declarationsBy);
            onError.settle(options_.onError, style_.onError, style_.onErrorBy);
        }
        type.decide(options_.type, scattered, style_.type, style_.typeBy);
        caseBody.decide(options_.caseBody, scattered, style_.caseBody, style_.caseBy);
        withBody.decide(options_.withBody, scattered, style_.withBody, style_.withBy);
    }

    // Each #If keeps its own ways where they can be seen; the module's votes are for the others.
    void decideDirectives() {
        const std::size_t count = blocks_.directives.size();
        std::vector<std::optional<Place>> ownPlace(count);
        std::vector<std::optional<Body>> ownBody(count);
        TwoWay<Place> place{Place::Margin, Place::Code};
        TwoWay<Body> body{Body::Flush, Body::Indent};
        inner_.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            const DirectiveBlock& block = blocks_.directives[i];
            ownPlace[i] = placeOf(block);
            if (ownPlace[i]) ++(*ownPlace[i] == Place::Margin ? place.forDefault : place.forOther);
            ownBody[i] = bodyOf(block);
            if (ownBody[i]) ++(*ownBody[i] == Body::Flush ? body.forDefault : body.forOther);
            inner_[i] = innerColumns(block.outer) + (ownBody[i] == Body::Indent ? style_.columns() : 0);
        }
        place.decide(options_.directive, false, style_.directive, style_.directiveBy);
        body.decide(options_.directiveBody, false, style_.directiveBody, style_.directiveBodyBy);
        for (std::size_t i = 0; i < count; ++i) {
            const DirectiveBlock& block = blocks_.directives[i];
            const Place where =
                options_.directive ? style_.directive : ownPlace[i].value_or(style_.directive);
            const bool seen = block.child != LineInfo::none && mayVote(block.child) && mayVote(block);
            const Body otherwise = seen ? style_.directiveBody : Body::Flush;
            const Body what = options_.directiveBody ? style_.directiveBody : ownBody[i].value_or(otherwise);
            style_.directives.push_back({where, block.flush ? Body::Flush : what});
        }
    }

    std::uint32_t innerColumns(std::uint32_t directive) const {
        return directive == LineInfo::none ? 0 : inner_[directive];
    }

    // The column in which a statement in the place of the line would stand.
    std::uint32_t codeColumn(std::uint32_t line) const {
        const LineInfo& at = info(line);
        const std::uint32_t inside =
            innerColumns(blocks_.around(at).directive) - innerColumns(blocks_.around(at).within);
        if (at.parent == LineInfo::none) return inside;
        std::uint32_t levels = style_.bodyOf(at.depth) == Body::Indent ? 1 : 0;
        if (!style_.paired.empty()) levels += style_.paired[line] - style_.paired[at.parent];
        return column(at.parent) + inside + levels * style_.columns();
    }

    // Where the #If itself stands, if that is one of its two places.
    std::optional<Place> placeOf(const DirectiveBlock& block) const {
        const std::uint32_t code = codeColumn(block.line), at = column(block.line);
        if (!mayVote(block) || code == 0) return std::nullopt; // both are column 1
        if (at == 0) return Place::Margin;
        return at == code ? std::optional(Place::Code) : std::nullopt;
    }

    // How the #If itself holds its statements, where that can be seen.
    std::optional<Body> bodyOf(const DirectiveBlock& block) const {
        if (block.flush || block.child == LineInfo::none) return std::nullopt;
        if (!mayVote(block.child) || !mayVote(block)) return std::nullopt;
        const std::uint32_t beside = codeColumn(block.line), child = column(block.child);
        if (child == beside) return Body::Flush;
        return child == beside + style_.columns() ? std::optional(Body::Indent) : std::nullopt;
    }

    // The votes for the unit: how many blanks or tabs, and how often.
    struct UnitVotes {
        std::array<std::array<std::uint32_t, widestUnit + 1>, 2> of{}; // blanks, tabs; by their number
        std::uint32_t all = 0;

        std::uint32_t most() const {
            std::uint32_t result = 0;
            for (const auto& counts : of)
                result = std::max(result, *std::max_element(counts.begin(), counts.end()));
            return result;
        }
    };

    // Counts the blocks of which `counts` holds.
    template <class Counts>
    UnitVotes unitVotes(Counts counts) const {
        UnitVotes votes;
        for (const Sample& sample : blocks_.samples) {
            if (sample.depth == Depth::Declaration || sample.depth == Depth::OnError || !counts(sample))
                continue;
            if (!mayVote(sample.opener) || !mayVote(sample.child)) continue;
            const std::string_view outer = blanksOf(texts_[sample.opener], info(sample.opener));
            std::string_view more = blanksOf(texts_[sample.child], info(sample.child));
            if (more.size() <= outer.size() || more.substr(0, outer.size()) != outer) continue;
            more.remove_prefix(outer.size());
            const bool tabs = more.front() == '\t';
            if (more.size() > widestUnit || !isOnly(more, more.front())) continue;
            if (options_.tabs && *options_.tabs != tabs) continue;
            ++votes.of[tabs ? 1 : 0][more.size()];
            ++votes.all;
        }
        return votes;
    }

    void decideUnit() {
        const UnitVotes found =
            unitVotes([this](const Sample& sample) { return style_.bodyOf(sample.depth) == Body::Indent; });
        const auto& votes = found.of;
        const std::uint32_t all = found.all;
        Unit& unit = style_.unit;
        const bool tabsSaid = options_.tabs.value_or(false);
        unit = {tabsSaid, tabsSaid ? 1U : 4U};
        style_.unitBy = {Source::Default, 0, all};
        if (options_.unit) {
            unit.count = std::max<std::uint32_t>(*options_.unit, 1);
            style_.unitBy.source = Source::Said;
        } else if (all > 0) {
            Unit best = unit;
            std::uint32_t most = votes[unit.tabs ? 1 : 0][unit.count];
            for (const bool tabs : {false, true}) {
                for (std::uint32_t count = 1; count <= widestUnit; ++count) {
                    if (votes[tabs ? 1 : 0][count] <= most) continue;
                    most = votes[tabs ? 1 : 0][count];
                    best = {tabs, count};
                }
            }
            // In code that nobody has laid out the votes are anything: what most do not share is no style.
            if (2 * most >= all && (all >= enoughVotes || most == all)) {
                unit = best;
                style_.unitBy.source = Source::Voted;
            }
        }
        if (unit.count <= widestUnit) style_.unitBy.votes = votes[unit.tabs ? 1 : 0][unit.count];
    }

    const base::TextLines& texts_;
    const ModuleBlocks& blocks_;
    const StyleOptions& options_;
    Style style_;
    std::vector<std::uint32_t> inner_; // of each #If, how many columns it and those around it indent
};

} // namespace

Body Style::bodyOf(Depth depth) const {
    switch (depth) {
    case Depth::Procedure:
        return procedure;
    case Depth::Declaration:
        return procedure == Body::Flush ? Body::Flush : declarations;
    case Depth::OnError:
        return procedure == Body::Flush ? Body::Flush : onError;
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

Indentation Style::indentationTo(std::uint32_t column) const {
    return unit.tabs ? Indentation{column / tabWidth, column % tabWidth} : Indentation{0, column};
}

std::uint32_t columnAfter(std::string_view line, std::size_t length, std::uint32_t tabWidth) {
    if (base::skipKind<base::AnyOf<' '>>(line, 0) >= length) return static_cast<std::uint32_t>(length);
    std::uint32_t column = 0;
    for (std::size_t i = 0; i < length; ++i) {
        column = line[i] == '\t' ? (column / tabWidth + 1) * tabWidth : column + 1;
    }
    return column;
}

std::vector<std::uint32_t> levelsOf(const ModuleBlocks& blocks, const Style& style) {
    std::vector<std::uint32_t> inner; // of each #If
    inner.reserve(blocks.directives.size());
    const auto innerOf = [&](std::uint32_t directive) {
        return directive == LineInfo::none ? 0 : inner[directive];
    };
    for (std::size_t i = 0; i < blocks.directives.size(); ++i) {
        inner.push_back(innerOf(blocks.directives[i].outer) +
                        (style.directives[i].body == Body::Indent ? 1 : 0));
    }
    std::array<std::uint32_t, depths> deeper{};
    for (std::size_t i = 0; i < depths; ++i) {
        deeper[i] = style.bodyOf(static_cast<Depth>(i)) == Body::Indent ? 1 : 0;
    }
    std::vector<std::uint32_t> levels(blocks.lines.size());
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const LineInfo& line = blocks.lines[i];
        if (line.around != 0) {
            const Around& around = blocks.around(line);
            levels[i] = innerOf(around.directive) - innerOf(around.within);
        }
        if (line.parent == LineInfo::none) continue;
        levels[i] += levels[line.parent] + deeper[static_cast<std::size_t>(line.depth)];
        if (!style.paired.empty()) levels[i] += style.paired[i] - style.paired[line.parent];
    }
    return levels;
}

Style decideStyle(const base::TextLines& texts, const ModuleBlocks& blocks, const StyleOptions& options) {
    return Ballot(texts, blocks, options).decide();
}

} // namespace corvelle::formatter::structured
