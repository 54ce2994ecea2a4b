#pragma once

#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sanitizer/common_interface_defs.h>
#include <string>
#include <unistd.h>

/// Gives the program files in place of its standard streams as long as the object lives.
class RedirectedStreams {
  public:
    /// Takes the place of standard input, and of standard output and standard error, by file.
    RedirectedStreams(const char* in, const char* out, const char* err)
        : kept_{keep(0, open(in, O_RDONLY)), keep(1, created(out)), keep(2, created(err))} {
        // What a sanitizer says must not get lost.
        __sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<std::intptr_t>(kept_[2])));
    }
    ~RedirectedStreams() {
        std::cout.flush();
        std::cerr.flush();
        std::fflush(stdout);
        for (int stream = 0; stream < 3; ++stream) {
            dup2(kept_[stream], stream);
            close(kept_[stream]);
        }
        std::cin.clear();
        std::cout.clear();
        std::cerr.clear();
        __sanitizer_set_report_fd(reinterpret_cast<void*>(std::intptr_t{2}));
    }
    RedirectedStreams(const RedirectedStreams&) = delete;
    RedirectedStreams& operator=(const RedirectedStreams&) = delete;

  private:
    static int created(const char* path) { return open(path, O_RDWR | O_CREAT | O_TRUNC, 0600); }
    static int keep(int stream, int file) {
        const int kept = dup(stream);
        dup2(file, stream);
        close(file);
        return kept;
    }

    int kept_[3];
};
