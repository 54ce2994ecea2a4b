#include "settings/style_keys.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>

namespace corvelle::settings {

namespace {

using formatter::structured::Body;
using formatter::structured::MarginComments;
using formatter::structured::Place;
using formatter::structured::Style;
using formatter::structured::StyleOptions;

// Sets one of two values, or leaves the choice to the module.
template <class Value>
bool setOne(std::optional<Value>& option, std::string_view word, std::string_view first, Value firstValue,
            std::string_view second, Value secondValue) {
    if (base::equalIgnoringCase(word, "auto")) {
        option.reset();
    } else if (base::equalIgnoringCase(word, first)) {
        option = firstValue;
    } else if (base::equalIgnoringCase(word, second)) {
        option = secondValue;
    } else {
        return false;
    }
    return true;
}

template <std::optional<Body> StyleOptions::*member>
bool setBody(StyleOptions& options, std::string_view word) {
    return setOne(options.*member, word, "indent", Body::Indent, "flush", Body::Flush);
}

bool setDirective(StyleOptions& options, std::string_view word) {
    return setOne(options.directive, word, "margin", Place::Margin, "code", Place::Code);
}

bool setMarginComments(StyleOptions& options, std::string_view word) {
    std::optional<MarginComments> value;
    if (!setOne(value, word, "keep", MarginComments::Keep, "follow", MarginComments::Follow)) return false;
    options.marginComments = value.value_or(MarginComments::Keep);
    return true;
}

bool setUnit(StyleOptions& options, std::string_view word) {
    if (base::equalIgnoringCase(word, "auto")) {
        options.tabs.reset();
        options.unit.reset();
        return true;
    }
    const bool tab = base::equalIgnoringCase(word, "tab");
    const std::optional<std::uint32_t> blanks = numberOf(word, 1, widest);
    if (!tab && !blanks) return false;
    options.tabs = tab;
    options.unit = blanks.value_or(1);
    return true;
}

template <Body Style::*member>
std::string bodyOf(const Style& style) {
    return style.*member == Body::Flush ? "flush" : "indent";
}

std::string unitOf(const Style& style) {
    const std::uint32_t count = style.unit.count;
    if (style.unit.tabs) return count == 1 ? "tab" : std::to_string(count) + " tabs";
    return std::to_string(count);
}

} // namespace

const std::array<StyleKey, 10> styleKeys{{
    {"unit", "auto, tab, a number of blanks from 1 to 16", setUnit, unitOf, &Style::unitBy},
    {"procedure", "auto, indent, flush", setBody<&StyleOptions::procedure>, bodyOf<&Style::procedure>,
     &Style::procedureBy},
    {"declarations", "auto, indent, flush", setBody<&StyleOptions::declarations>,
     bodyOf<&Style::declarations>, &Style::declarationsBy},
    {"on_error", "auto, indent, flush", setBody<&StyleOptions::onError>, bodyOf<&Style::onError>,
     &Style::onErrorBy},
    {"type", "auto, indent, flush", setBody<&StyleOptions::type>, bodyOf<&Style::type>, &Style::typeBy},
    {"case", "auto, indent, flush", setBody<&StyleOptions::caseBody>, bodyOf<&Style::caseBody>,
     &Style::caseBy},
    {"with", "auto, indent, flush", setBody<&StyleOptions::withBody>, bodyOf<&Style::withBody>,
     &Style::withBy},
    {"directive_body", "auto, indent, flush", setBody<&StyleOptions::directiveBody>,
     bodyOf<&Style::directiveBody>, &Style::directiveBodyBy},
    {"directive", "auto, margin, code", setDirective,
     [](const Style& style) -> std::string { return style.directive == Place::Margin ? "margin" : "code"; },
     &Style::directiveBy},
    {"margin_comments", "keep, follow", setMarginComments,
     [](const Style& style) -> std::string {
         return style.marginComments == MarginComments::Keep ? "keep" : "follow";
     },
     nullptr},
}};

const StyleKey* styleKey(std::string_view name) {
    const auto found = std::find_if(styleKeys.begin(), styleKeys.end(),
                                    [name](const StyleKey& key) { return key.name == name; });
    return found == styleKeys.end() ? nullptr : &*found;
}

std::optional<std::uint32_t> numberOf(std::string_view text, std::uint32_t lowest, std::uint32_t highest) {
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || rest != end || value < lowest || value > highest) return std::nullopt;
    return value;
}

} // namespace corvelle::settings
