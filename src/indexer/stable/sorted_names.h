#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace corvelle::indexer::stable {

/// Finds things by their names, which are mostly given and asked for in ascending order: then nothing is
/// sorted and each search takes one look.
class SortedNames {
  public:
    static constexpr std::size_t nothing = static_cast<std::size_t>(-1);

    void reserve(std::size_t size) { names_.reserve(size); }
    /// The name must live on. What is added after a search is not found.
    void add(std::string_view name, std::size_t what) { names_.push_back({name, what}); }

    /// A name that was added twice; empty if there is none.
    std::string_view anyTwice() {
        sort();
        const auto found = std::adjacent_find(names_.begin(), names_.end(),
                                              [](const Name& a, const Name& b) { return a.text == b.text; });
        return found == names_.end() ? std::string_view() : found->text;
    }

    /// What has that name; nothing if none has.
    std::size_t find(std::string_view name) {
        sort();
        if (next_ >= names_.size() || names_[next_].text != name) {
            const auto found = std::lower_bound(names_.begin(), names_.end(), Name{name, 0}, comesBefore);
            if (found == names_.end() || found->text != name) return nothing;
            next_ = static_cast<std::size_t>(found - names_.begin());
        }
        return names_[next_++].what;
    }

  private:
    struct Name {
        std::string_view text;
        std::size_t what;
    };
    static bool comesBefore(const Name& a, const Name& b) { return a.text < b.text; }

    void sort() {
        if (isSorted_) return;
        isSorted_ = true;
        if (!std::is_sorted(names_.begin(), names_.end(), comesBefore))
            std::stable_sort(names_.begin(), names_.end(), comesBefore);
    }

    std::vector<Name> names_;
    bool isSorted_ = false;
    std::size_t next_ = 0; // behind the one that was found last
};

} // namespace corvelle::indexer::stable
