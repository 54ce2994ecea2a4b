#include "ide/workspace/block_list.h"

#include <gtest/gtest.h>
#include <random>

namespace corvelle::workspace {
namespace {

std::vector<int> itemsOf(const BlockList<int>& list) {
    std::vector<int> items;
    for (std::size_t i = 0; i < list.size(); ++i) items.push_back(list[i]);
    return items;
}

TEST(BlockList, HoldsWhatAVectorHolds) {
    std::mt19937 random(3);
    BlockList<int> list;
    std::vector<int> model;
    for (int step = 0; step < 20000; ++step) {
        const std::size_t index = random() % (model.size() + 1);
        if (random() % 8 == 0) {
            const std::size_t count = random() % std::min<std::size_t>(model.size() - index + 1, 900);
            list.erase(index, count);
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(index),
                        model.begin() + static_cast<std::ptrdiff_t>(index + count));
        } else {
            // Runs at one place, as a module's lines are inserted.
            for (std::size_t i = 0; i < random() % 40; ++i) {
                list.insert(index + i, step);
                model.insert(model.begin() + static_cast<std::ptrdiff_t>(index + i), step);
            }
        }
        ASSERT_EQ(list.size(), model.size());
        if (!model.empty()) {
            const std::size_t asked = random() % model.size();
            ASSERT_EQ(list[asked], model[asked]);
        }
        if (step % 500 == 0) {
            ASSERT_EQ(itemsOf(list), model);
        }
    }
    EXPECT_EQ(itemsOf(list), model);
    list.erase(0, list.size());
    EXPECT_EQ(list.size(), 0U);
    list.insert(0, 1);
    EXPECT_EQ(itemsOf(list), std::vector<int>{1});
}

} // namespace
} // namespace corvelle::workspace
