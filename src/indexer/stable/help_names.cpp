#include "indexer/stable/help_names.h"

#include "base/text.h"
#include "indexer/help_index.h"

#include <algorithm>

namespace corvelle::indexer::stable {

namespace {

constexpr std::string_view prefix = "IDH_";
constexpr std::size_t letters = 4;
constexpr std::uint32_t alphabet = 26, namesOfSequence = alphabet * alphabet * alphabet * alphabet;

// The place in the sequence of such a name; nothing for any other.
std::optional<std::uint32_t> placeInSequence(std::string_view name) {
    if (name.size() != prefix.size() + letters || name.substr(0, prefix.size()) != prefix)
        return std::nullopt;
    std::uint32_t place = 0;
    for (const char c : name.substr(prefix.size())) {
        if (c < 'A' || c > 'Z') return std::nullopt;
        place = place * alphabet + static_cast<std::uint32_t>(c - 'A');
    }
    return place;
}

std::string nameInSequence(std::uint32_t place) {
    std::string name(prefix);
    name.resize(prefix.size() + letters);
    for (std::size_t i = name.size(); i > prefix.size(); --i) {
        name[i - 1] = static_cast<char>('A' + place % alphabet);
        place /= alphabet;
    }
    return name;
}

} // namespace

bool isNameInSequence(std::string_view name) {
    return placeInSequence(name).has_value();
}

HelpNames::HelpNames(const Memory& earlier, NameKind kind) : kind_(kind) {
    const auto take = [this](const std::string& name) {
        if (const auto place = placeInSequence(name)) last_ = std::max(last_, *place);
        if (kind_ == NameKind::Readable) taken_.insert(base::upper(name));
    };
    take(std::string(defaultIDH));
    for (const auto& control : earlier.controls) take(control.idhName);
    for (const auto& retired : earlier.retired) take(retired.idhName);
}

std::optional<std::string> HelpNames::next(const ControlPlace& place) {
    return kind_ == NameKind::Sequence ? nextOfSequence() : readable(place);
}

std::optional<std::string> HelpNames::nextOfSequence() {
    if (last_ + 1 >= namesOfSequence) return std::nullopt;
    return nameInSequence(++last_);
}

std::string HelpNames::readable(const ControlPlace& place) {
    // The language takes 255 characters; a number may still come behind.
    constexpr std::size_t longest = 240;
    std::string name(prefix);
    name += place.designer;
    if (!place.control.empty()) name.append("_").append(place.control);
    if (name.size() > longest) name.resize(longest);
    if (place.index) name.append("_").append(std::to_string(*place.index));
    auto result = name;
    // A form called MAIN must not bring the sequence forward.
    for (std::uint32_t number = 2;
         placeInSequence(base::upper(result)) || !taken_.insert(base::upper(result)).second; ++number)
        result = name + "_" + std::to_string(number);
    return result;
}

} // namespace corvelle::indexer::stable
