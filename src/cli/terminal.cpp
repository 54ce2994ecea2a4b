#include "cli/terminal.h"

#include <cstddef>
#include <iostream>
#include <string>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace corvelle::cli {

#ifdef _WIN32

void prepareStandardStreams() {
    for (int stream = 0; stream <= 1; ++stream) _setmode(stream, _O_BINARY);
}

void outliveReaders() {}

#else

void prepareStandardStreams() {
    for (int stream = 0; stream <= 2; ++stream) {
        // The lowest free number is the one that open gives.
        if (::fcntl(stream, F_GETFD) < 0) ::open("/dev/null", stream == 0 ? O_WRONLY : O_RDONLY);
    }
    std::signal(SIGXFSZ, SIG_IGN);
}

void outliveReaders() {
    std::signal(SIGPIPE, SIG_IGN);
}

#endif

namespace {

// Of a UTF-8 terminal a second set of control characters has two bytes, the first of them C2. Windows shows
// text in a code page, where C2 is a letter.
#ifdef _WIN32
constexpr bool terminalTakesUtf8 = false;
#else
constexpr bool terminalTakesUtf8 = true;
#endif

// How many bytes from there on are one control character; 0 for other text.
std::size_t controlAt(std::string_view text, std::size_t at) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(at) < 32 || byte(at) == 127) return 1;
    const bool second = terminalTakesUtf8 && byte(at) == 0xC2 && at + 1 < text.size() &&
                        byte(at + 1) >= 0x80 && byte(at + 1) < 0xA0;
    return second ? 2 : 0;
}

void appendEscaped(std::string& to, char c) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    to.append("\\x").append(1, digits[byte >> 4]).append(1, digits[byte & 15]);
}

} // namespace

std::string shown(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        std::size_t control = controlAt(text, at);
        if (control == 0) result += text[at++];
        for (; control > 0; --control) appendEscaped(result, text[at++]);
    }
    return result;
}

#ifdef _WIN32
#else
#endif

namespace {

bool isTerminal() {
#ifdef _WIN32
    return _isatty(2) != 0;
#else
    return isatty(2) != 0;
#endif
}

} // namespace

Progress::Progress(std::size_t total, bool quiet)
    : total_(total), active_(total > 1 && !quiet && isTerminal()) {}

void Progress::clear() {
    // Blanks and no terminal sequence: not every console takes those.
    if (shown_ > 0) std::cerr << '\r' << std::string(shown_, ' ') << '\r' << std::flush;
    shown_ = 0;
}

void Progress::step() {
    ++done_;
    if (!active_ || done_ == total_) return;
    const std::string line = "[" + std::to_string(done_) + "/" + std::to_string(total_) + "]";
    std::cerr << line << std::flush;
    shown_ = line.size();
}

} // namespace corvelle::cli
