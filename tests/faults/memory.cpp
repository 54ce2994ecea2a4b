#include "faults/memory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace corvelle::test {

namespace {

// The allocation that fails, counted down; none while it is not positive.
std::atomic<long> failing = 0;
std::atomic<bool> anyFailed = false;

bool fails() {
    if (failing.load(std::memory_order_relaxed) <= 0 || --failing != 0) return false;
    return anyFailed = true;
}

void* allocate(std::size_t size) noexcept {
    return fails() ? nullptr : std::malloc(size > 0 ? size : 1);
}

} // namespace

FailingMemory::FailingMemory(long n) {
    anyFailed = false;
    failing = n;
}

FailingMemory::~FailingMemory() {
    failing = 0;
}

bool FailingMemory::failed() const {
    return anyFailed;
}

} // namespace corvelle::test

// In place of the library's own, all of them, so that each block is given back to where it came from.

void* operator new(std::size_t size) {
    if (void* const memory = corvelle::test::allocate(size)) return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return corvelle::test::allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return corvelle::test::allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
