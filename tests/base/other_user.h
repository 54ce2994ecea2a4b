#pragma once

#ifndef _WIN32

#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

namespace corvelle::test {

/// Where the tests run as root, who may do anything: makes them another user, without rights of its own,
/// until the end of its life.
class OtherUser {
  public:
    static constexpr uid_t nobody = 65534;

    OtherUser() {
        if (wasRoot_ && seteuid(nobody) != 0) throw std::runtime_error("root cannot become another user");
    }
    OtherUser(const OtherUser&) = delete;
    OtherUser& operator=(const OtherUser&) = delete;
    ~OtherUser() {
        if (wasRoot_ && seteuid(0) != 0) std::abort();
    }

    bool wasRoot() const { return wasRoot_; }

  private:
    bool wasRoot_ = geteuid() == 0;
};

} // namespace corvelle::test

#endif
