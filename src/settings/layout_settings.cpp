#include "settings/layout_settings.h"

#include "base/text.h"
#include "settings/style_keys.h"

#include <algorithm>
#include <array>

namespace corvelle::settings {

namespace {

constexpr std::string_view ours = "corvelle_";
constexpr std::uint32_t widestClassicLevel = 10;

std::optional<Layout> layoutOf(std::string_view word) {
    if (base::equalIgnoringCase(word, "structured")) return Layout::Structured;
    if (base::equalIgnoringCase(word, "classic")) return Layout::Classic;
    if (base::equalIgnoringCase(word, "off")) return Layout::Off;
    return std::nullopt;
}

std::string placeOf(const Property& property) {
    return property.path + ":" + std::to_string(property.line);
}

// Puts the settings together: what is said first stays.
class Resolution {
  public:
    Resolution(const LayoutOptions& options, const Properties& properties, Layout standard)
        : options_(options), properties_(properties) {
        result_.layout = standard;
    }

    LayoutSettings run() {
        takeOurProperties();
        takeIndent();
        takeOptions();
        listNotFollowed();
        return std::move(result_);
    }

  private:
    const Property* property(std::string_view key) const {
        const auto found = properties_.find(key);
        return found == properties_.end() ? nullptr : &found->second;
    }
    void say(std::string_view name, std::string from) { result_.from[std::string(name)] = std::move(from); }

    [[noreturn]] static void refuse(const std::string& key, const Property& property,
                                    std::string_view values) {
        throw SettingsError(property.path, property.line,
                            key + " = " + property.value + ": the value must be one of " +
                                std::string(values));
    }

    void takeOurProperties() {
        for (const auto& [key, property] : properties_) {
            if (key.compare(0, ours.size(), ours) != 0) continue;
            const std::string_view name = std::string_view(key).substr(ours.size());
            if (name == "layout") {
                const auto layout = layoutOf(property.value);
                if (!layout) refuse(key, property, "structured, classic, off");
                result_.layout = *layout;
            } else if (const StyleKey* style = styleKey(name)) {
                if (!style->set(result_.structured.style, property.value))
                    refuse(key, property, style->values);
                if (base::equalIgnoringCase(property.value, "auto")) unitIsAuto_ |= name == "unit";
            } else {
                throw SettingsError(property.path, property.line, key + ": there is no such setting");
            }
            if (!base::equalIgnoringCase(property.value, "auto")) say(name, placeOf(property));
        }
    }

    // What the format's own properties say of a level; they yield to corvelle_unit.
    void takeIndent() {
        auto& style = result_.structured.style;
        const Property* const kind = property("indent_style");
        const Property* const size = property("indent_size");
        const Property* const width = property("tab_width");
        if (width) {
            if (const auto columns = numberOf(width->value, 1, widest)) {
                style.tabWidth = columns;
                say("tab_width", placeOf(*width));
            }
        }
        const auto columns = size ? numberOf(size->value, 0, widest) : std::nullopt;
        if (columns && *columns <= widestClassicLevel) {
            result_.classicTab = static_cast<std::uint8_t>(*columns);
            say("tab-width", placeOf(*size));
        }
        if (unitIsAuto_ || result_.from.count("unit") != 0) return;
        if (kind && kind->value == "tab") {
            const std::uint32_t tab = style.tabWidth.value_or(columns.value_or(1));
            style.tabs = true;
            style.unit = columns && tab != 0 && *columns % tab == 0 ? std::max(1U, *columns / tab) : 1U;
            say("unit", placeOf(*kind));
        } else if (columns && *columns != 0) {
            style.tabs = false;
            style.unit = columns;
            say("unit", placeOf(*size));
        } else if (kind && kind->value == "space") {
            style.tabs = false;
            say("unit", placeOf(*kind));
        }
    }

    void takeOptions() {
        auto& structured = result_.structured;
        if (const Property* trim = property("trim_trailing_whitespace")) {
            if (trim->value == "true" || trim->value == "false") {
                structured.trim = trim->value == "true";
                say("trim_trailing_whitespace", placeOf(*trim));
            }
        }
        if (options_.layout) {
            result_.layout = *options_.layout;
            say("layout", "option --layout");
        }
        if (options_.tabWidth) {
            result_.classicTab = static_cast<std::uint8_t>(*options_.tabWidth);
            say("tab-width", "option --tab-width");
            if (*options_.tabWidth != 0) {
                structured.style.tabs = false;
                structured.style.unit = options_.tabWidth;
                say("unit", "option --tab-width");
            }
        }
        for (const auto& [name, value] : options_.style) {
            const StyleKey* const key = styleKey(name);
            if (!key || !key->set(structured.style, value)) continue;
            if (base::equalIgnoringCase(value, "auto")) {
                result_.from.erase(name);
            } else {
                say(name, "option --style");
            }
        }
        if (options_.trim) {
            structured.trim = true;
            say("trim_trailing_whitespace", "option --trim");
        }
        if (options_.maxEmptyLines) {
            structured.maxEmptyLines = options_.maxEmptyLines;
            say("max_empty_lines", "option --max-empty-lines");
        }
    }

    void listNotFollowed() {
        for (const char* key : {"charset", "end_of_line", "insert_final_newline"}) {
            if (const Property* found = property(key)) {
                result_.notFollowed.push_back(std::string(key) + " = " + found->value + " (" +
                                              placeOf(*found) + ")");
            }
        }
    }

    const LayoutOptions& options_;
    const Properties& properties_;
    LayoutSettings result_;
    bool unitIsAuto_ = false;
};

class Lines {
  public:
    explicit Lines(const LayoutSettings& settings) : settings_(settings) {}

    void add(std::string_view name, const std::string& value, const std::string& otherwise) {
        const auto said = settings_.from.find(name);
        const std::string& from = said == settings_.from.end() ? otherwise : said->second;
        std::string line = "  " + std::string(name) + " = " + value;
        constexpr std::size_t column = 36;
        line.append(line.size() < column ? column - line.size() : 1, ' ');
        text_ += line + from + "\n";
    }
    void add(const std::string& line) { text_ += "  " + line + "\n"; }
    std::string take() { return std::move(text_); }

  private:
    const LayoutSettings& settings_;
    std::string text_;
};

std::string byModule(const formatter::structured::Decision& decision) {
    if (decision.source != formatter::structured::Source::Voted) return "default";
    return "the module, " + std::to_string(decision.votes) + " of " + std::to_string(decision.of);
}

} // namespace

LayoutSettings resolveLayout(const LayoutOptions& options, const Properties& properties, Layout standard) {
    return Resolution(options, properties, standard).run();
}

std::string wrongStyle(std::string_view key, std::string_view value) {
    const StyleKey* const found = styleKey(key);
    formatter::structured::StyleOptions ignored;
    std::string known;
    for (const auto& each : styleKeys) known.append(known.empty() ? "" : ", ").append(each.name);
    if (!found) return "\"" + std::string(key) + "\" is none of " + known;
    if (found->set(ignored, value)) return {};
    return "\"" + std::string(value) + "\" is none of " + std::string(found->values);
}

std::string shownSettings(const LayoutSettings& settings, const formatter::structured::Style& style) {
    Lines lines(settings);
    constexpr std::array<const char*, 3> layouts{"structured", "classic", "off"};
    lines.add("layout", layouts[static_cast<std::size_t>(settings.layout)], "default");
    if (settings.layout == Layout::Classic) {
        lines.add("tab-width", std::to_string(settings.classicTab.value_or(2)), "default");
    } else if (settings.layout == Layout::Structured) {
        for (const auto& key : styleKeys) {
            lines.add(key.name, key.value(style), key.decision ? byModule(style.*key.decision) : "default");
        }
        // Where nothing is said a tab is as wide as a level of blanks that was said, else four.
        const bool byUnit = settings.structured.style.unit && !settings.structured.style.tabs.value_or(false);
        lines.add("tab_width", std::to_string(style.tabWidth), byUnit ? "as unit" : "default");
        lines.add("trim_trailing_whitespace", settings.structured.trim ? "true" : "false", "default");
        const auto most = settings.structured.maxEmptyLines;
        lines.add("max_empty_lines", most ? std::to_string(*most) : "any", "default");
    }
    for (const auto& property : settings.notFollowed) lines.add("not followed: " + property);
    if (settings.notFollowed.empty()) {
        lines.add("not followed anywhere: charset, end_of_line, insert_final_newline");
    }
    return lines.take();
}

} // namespace corvelle::settings
