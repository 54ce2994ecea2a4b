#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvelle::formatter::structured {

/// What is wrong with a module's blocks, or what could not be done, at one code line and perhaps a second
/// one.
struct Fault {
    static constexpr std::uint32_t noLine = 0xFFFFFFFF;

    std::string_view code;        ///< CV201, ...
    std::uint32_t line;           ///< 0-based code line
    std::uint32_t other = noLine; ///< the second place
    std::string words;            ///< without the second place's number

    /// The message. `otherNumber` is the number by which the user knows the second line.
    std::string text(std::uint32_t otherNumber) const {
        std::string result(code);
        result.append(" ").append(words);
        if (other != noLine) result.append(" in line ").append(std::to_string(otherNumber));
        return result;
    }
};

} // namespace corvelle::formatter::structured
