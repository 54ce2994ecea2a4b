#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvelle::ide {

class VBComponent;

/// The code of a component: the lines that the code window shows, counted from 1.
class CodeModule {
  public:
    virtual ~CodeModule() = default;

    virtual std::string Name() = 0;
    virtual std::shared_ptr<VBComponent> Parent() = 0;
    virtual std::int32_t CountOfLines() = 0;
    /// The text of `count` lines, CR LF between them and none at the end. Throws RunTimeError for lines that
    /// are not there.
    virtual std::string Lines(std::int32_t start, std::int32_t count) = 0;
    virtual void DeleteLines(std::int32_t start, std::int32_t count) = 0;
    /// Inserts the text before the given line; past the last line it is appended. A line break in the text
    /// begins another line.
    virtual void InsertLines(std::int32_t line, std::string_view text) = 0;
};

/// A code window.
class CodePane {
  public:
    virtual ~CodePane() = default;

    virtual std::shared_ptr<ide::CodeModule> CodeModule() = 0;
};

} // namespace corvelle::ide
