#pragma once

#include "base/run_time_error.h"

#include <functional>
#include <string>
#include <vector>

namespace corvelle::test {

/// What is called on a set of fakes, in order, and which calls fail. Members are named "CodeModule.Lines".
class Calls {
  public:
    /// Notes a call; throws if it is one that shall fail. A call that fails has had no effect.
    void enter(const std::string& member, const std::string& arguments = {});

    /// The n-th call from now on (1: the next one) of a member, of any member if the name is empty, fails.
    void fail(const std::string& member, int n, const base::RunTimeError& error);
    /// The same, and so does every later call of it.
    void failForGood(const std::string& member, int n, const base::RunTimeError& error);
    /// The call under way fails for lack of memory.
    void failWithoutMemory();
    void failNoMore() { faults_.clear(); }

    /// Runs at the start of every call, before it may fail.
    std::function<void(const std::string& member)> onCall;

    /// "CodeModule.Lines(1, 1)", "VBE.ActiveCodePane".
    const std::vector<std::string>& all() const { return all_; }
    int count(const std::string& member) const;
    /// Whether a call failed so far.
    bool anyFailed() const { return anyFailed_; }
    /// Forgets the calls so far.
    void forget();

  private:
    struct Fault {
        std::string member;
        int callsBefore;
        base::RunTimeError error;
        bool forGood;
    };

    std::vector<std::string> all_;
    std::vector<std::string> members_;
    std::vector<Fault> faults_;
    bool anyFailed_ = false;
};

} // namespace corvelle::test
