#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

namespace corvelle::base {

/// The lines of a text that is held elsewhere, without their ends: a table of their places in it, which may
/// be another's, or texts from anywhere. Whatever it refers to must outlive it.
class TextLines {
  public:
    /// Where a line stands in a text of less than 4 GiB.
    struct Place {
        std::uint32_t begin, end;
    };

    TextLines() = default;
    TextLines(std::vector<std::string_view> texts) : texts_(std::move(texts)) {}
    TextLines(std::initializer_list<std::string_view> texts) : texts_(texts) {}
    template <class Iterator>
    TextLines(Iterator begin, Iterator end) : texts_(begin, end) {}
    /// Refers to the places too.
    TextLines(const char* text, const std::vector<Place>& places)
        : text_(text), places_(places.data()), placeCount_(places.size()) {}

    std::size_t size() const { return text_ ? placeCount_ : texts_.size(); }
    /// Line 0 to size() - 1.
    std::string_view operator[](std::size_t index) const {
        if (!text_) return texts_[index];
        const Place& place = places_[index];
        return {text_ + place.begin, place.end - place.begin};
    }

  private:
    std::vector<std::string_view> texts_; // without a table of places
    const char* text_ = nullptr;
    const Place* places_ = nullptr;
    std::size_t placeCount_ = 0;
};

} // namespace corvelle::base
