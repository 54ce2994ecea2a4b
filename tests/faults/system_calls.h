#pragma once

#include <optional>

namespace corvelle::test {

/// The system's calls on files, by kind.
enum class SystemCall {
    Open,
    Read,
    Write,
    Flush,
    Close,
    Rename,
    Status,
    Permissions,
    MakeFolder,
    ReadFolder,
    Lock
};

/// Makes calls of this process on files fail until the end of its life. One at a time.
class FailingSystem {
  public:
    enum class Way {
        Once,        ///< the n-th call fails with the error that such calls fail with
        ForGood,     ///< so do all later ones
        Interrupted, ///< a signal breaks the n-th call off where that can happen
        Short,       ///< the n-th call reads or writes one byte of what it could
    };

    /// Counts calls of one kind, or of all kinds.
    FailingSystem(int n, Way way, std::optional<SystemCall> only = std::nullopt);
    ~FailingSystem();
    FailingSystem(const FailingSystem&) = delete;
    FailingSystem& operator=(const FailingSystem&) = delete;

    /// Whether the n-th call has come.
    bool failed() const;
};

} // namespace corvelle::test
