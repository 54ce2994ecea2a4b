#include "forms/win32/html_help.h"

#include "base/run_time_error.h"

namespace corvelle::forms {

HtmlHelp::~HtmlHelp() {
    constexpr UINT closeAll = 18;
    // The viewer stays loaded: it runs threads of its own.
    if (function_) function_(nullptr, nullptr, closeAll, 0);
}

void HtmlHelp::show(HWND caller, const std::string& file, int command, std::uint32_t data) {
    if (!function_) {
        char folder[MAX_PATH] = {}; // the system's folder, so that no other one is searched
        GetSystemDirectoryA(folder, sizeof folder);
        const HMODULE viewer = LoadLibraryA((std::string(folder) + "\\hhctrl.ocx").c_str());
        if (!viewer) throw base::RunTimeError(base::ErrorNumber::FileNotFound);
        function_ = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(viewer, "HtmlHelpA")));
        if (!function_) throw base::RunTimeError(base::ErrorNumber::FileNotFound);
    }
    function_(caller, file.c_str(), static_cast<UINT>(command), data);
}

} // namespace corvelle::forms
