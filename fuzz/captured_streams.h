#pragma once

#include <iostream>
#include <sstream>
#include <string>

/// Keeps what the standard C++ streams are given as long as the object lives.
class CapturedStreams {
  public:
    CapturedStreams() : out_(std::cout.rdbuf(outText_.rdbuf())), err_(std::cerr.rdbuf(errText_.rdbuf())) {}
    ~CapturedStreams() {
        std::cout.rdbuf(out_);
        std::cerr.rdbuf(err_);
    }
    CapturedStreams(const CapturedStreams&) = delete;
    CapturedStreams& operator=(const CapturedStreams&) = delete;

    std::string out() const { return outText_.str(); }
    std::string err() const { return errText_.str(); }

  private:
    std::ostringstream outText_, errText_;
    std::streambuf *out_, *err_;
};
