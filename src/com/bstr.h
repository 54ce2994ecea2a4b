#pragma once

#include <ole2.h>
#include <string>
#include <string_view>
#include <utility>

namespace corvelle::com {

/// A BSTR of our own. Any of its characters may be NUL.
class Bstr {
  public:
    Bstr() = default;
    /// From text in the system's ANSI code page. Throws RunTimeError 13 for bytes that stand for no
    /// character, std::bad_alloc.
    explicit Bstr(std::string_view text);
    explicit Bstr(std::wstring_view text);
    Bstr(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : text_(other.release()) {}
    Bstr& operator=(Bstr other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    /// Gives the string to the caller.
    BSTR release() { return std::exchange(text_, nullptr); }
    /// Where a call may put a string for us.
    BSTR* receive() {
        SysFreeString(release());
        return &text_;
    }

  private:
    BSTR text_ = nullptr;
};

/// The text in the system's ANSI code page; empty for a null pointer. Throws RunTimeError 13 for a character
/// that the code page does not have: it never becomes another one.
std::string textOf(BSTR text);
std::string textOf(std::wstring_view text);

/// The same for a message to be shown: what the code page does not have becomes something like it.
std::string messageOf(std::wstring_view text);

} // namespace corvelle::com
