#pragma once

#include <cstdint>
#include <string>
#include <windows.h>

namespace corvelle::forms {

/// The system's viewer for compiled HTML help, loaded when it is first needed.
class HtmlHelp {
  public:
    /// The viewer's entry point, as the system's help library exports it.
    using Function = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

    HtmlHelp() = default;
    /// Closes the viewer's windows.
    ~HtmlHelp();
    HtmlHelp(const HtmlHelp&) = delete;
    HtmlHelp& operator=(const HtmlHelp&) = delete;

    /// Command 1 shows the contents, 15 the topic of a context number. "File not found" where the system has
    /// no viewer; a help file or topic that is not there is the viewer's to report.
    void show(HWND caller, const std::string& file, int command, std::uint32_t data);
    /// Takes another viewer in place of the system's.
    void setViewer(Function function) { function_ = function; }

  private:
    Function function_ = nullptr;
};

} // namespace corvelle::forms
