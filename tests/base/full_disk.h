#pragma once

#ifndef _WIN32

#include <csignal>
#include <sys/resource.h>

namespace corvelle::test {

/// Lets no file grow beyond a size, as a full disk does, until the end of its life.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

} // namespace corvelle::test

#endif
