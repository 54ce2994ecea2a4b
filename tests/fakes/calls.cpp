#include "fakes/calls.h"

#include <algorithm>
#include <new>
#include <optional>

namespace corvelle::test {

void Calls::enter(const std::string& member, const std::string& arguments) {
    all_.push_back(arguments.empty() ? member : member + "(" + arguments + ")");
    members_.push_back(member);
    if (onCall) onCall(member);
    std::optional<base::RunTimeError> error;
    for (Fault& fault : faults_) {
        if (!fault.member.empty() && fault.member != member) continue;
        const int before = fault.callsBefore--;
        if (before == 0 || (before < 0 && fault.forGood)) error = fault.error;
    }
    if (!error) return;
    anyFailed_ = true;
    throw base::RunTimeError(*error);
}

void Calls::fail(const std::string& member, int n, const base::RunTimeError& error) {
    faults_.push_back({member, n - 1, error, false});
}

void Calls::failForGood(const std::string& member, int n, const base::RunTimeError& error) {
    faults_.push_back({member, n - 1, error, true});
}

void Calls::failWithoutMemory() {
    anyFailed_ = true;
    throw std::bad_alloc();
}

int Calls::count(const std::string& member) const {
    return static_cast<int>(std::count(members_.begin(), members_.end(), member));
}

void Calls::forget() {
    all_.clear();
    members_.clear();
    anyFailed_ = false;
}

} // namespace corvelle::test
