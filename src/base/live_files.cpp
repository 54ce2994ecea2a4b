#include "base/live_files.h"

#include <algorithm>
#include <array>
#include <atomic>

namespace corvelle::base::liveFiles {

namespace {

enum class State { Free, BeingWritten, Live, Going };

struct Slot {
    std::atomic<State> state = State::Free;
    std::array<std::filesystem::path::value_type, 1024> path{};
};

std::array<Slot, 64> slots;
std::atomic<bool> going = false;

static_assert(std::atomic<State>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

} // namespace

int enter(const std::filesystem::path& path) {
    const auto& name = path.native();
    if (name.size() >= slots[0].path.size()) return -1;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        State expected = State::Free;
        if (!slots[i].state.compare_exchange_strong(expected, State::BeingWritten)) continue;
        *std::copy(name.begin(), name.end(), slots[i].path.begin()) = 0;
        slots[i].state = State::Live;
        return static_cast<int>(i);
    }
    return -1;
}

void leave(int slot) {
    if (slot < 0) return;
    // One that is going stays: the handler may be reading its path.
    State expected = State::Live;
    slots[static_cast<std::size_t>(slot)].state.compare_exchange_strong(expected, State::Free);
}

bool areGoing() {
    return going;
}

void goAll(void (*remove)(const std::filesystem::path::value_type* path)) {
    going = true;
    for (auto& slot : slots) {
        State expected = State::Live;
        if (slot.state.compare_exchange_strong(expected, State::Going)) remove(slot.path.data());
    }
}

} // namespace corvelle::base::liveFiles
