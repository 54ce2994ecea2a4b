#pragma once

namespace corvelle::test {

/// Makes the n-th allocation of this program fail (1: the next one), until the end of its life.
class FailingMemory {
  public:
    explicit FailingMemory(long n);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    /// Whether the n-th allocation has come.
    bool failed() const;
};

} // namespace corvelle::test
