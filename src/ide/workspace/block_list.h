#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace corvelle::workspace {

/// A sequence kept in short blocks: an insertion anywhere moves the items of one block only. For one thread,
/// reading too.
template <class Item>
class BlockList {
  public:
    std::size_t size() const { return size_; }

    const Item& operator[](std::size_t index) const {
        find(index);
        return blocks_[block_][index - first_];
    }

    /// Inserts before the item of that index; at `size()` it appends.
    void insert(std::size_t index, Item item) {
        if (blocks_.empty()) blocks_.emplace_back();
        find(index);
        auto& block = blocks_[block_];
        block.insert(at(block, index - first_), std::move(item));
        ++size_;
        if (block.size() > mostInBlock) split();
    }

    void erase(std::size_t index, std::size_t count) {
        while (count > 0) {
            find(index);
            auto& block = blocks_[block_];
            const auto here = std::min(count, block.size() - (index - first_));
            block.erase(at(block, index - first_), at(block, index - first_ + here));
            size_ -= here;
            count -= here;
            if (block.empty()) {
                blocks_.erase(at(blocks_, block_));
                block_ = first_ = 0;
            }
        }
    }

  private:
    using Block = std::vector<Item>;
    static constexpr std::size_t mostInBlock = 512;

    template <class Vector>
    static auto at(Vector& vector, std::size_t index) {
        return std::next(vector.begin(), static_cast<std::ptrdiff_t>(index));
    }

    // Goes to the block of the item; for `size()` to the last one. Starts from where it was last.
    void find(std::size_t index) const {
        if (index < first_ / 2) block_ = first_ = 0;
        while (index < first_) first_ -= blocks_[--block_].size();
        while (index - first_ >= blocks_[block_].size() && block_ + 1 < blocks_.size())
            first_ += blocks_[block_++].size();
    }

    void split() {
        auto& full = blocks_[block_];
        const auto middle = at(full, full.size() / 2);
        Block rest(std::make_move_iterator(middle), std::make_move_iterator(full.end()));
        full.erase(middle, full.end());
        blocks_.insert(at(blocks_, block_ + 1), std::move(rest));
    }

    std::vector<Block> blocks_; // none of them empty once there is an item
    std::size_t size_ = 0;
    mutable std::size_t block_ = 0, first_ = 0; // a block, and the index of its first item
};

} // namespace corvelle::workspace
