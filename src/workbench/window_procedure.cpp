#include "workbench/window_procedure.h"

#include "workbench/title.h"

namespace corvelle::workbench {

void reportError(HWND owner, const std::string& text) {
    MessageBoxA(owner ? GetAncestor(owner, GA_ROOT) : nullptr, text.c_str(), programTitle,
                MB_OK | MB_ICONEXCLAMATION);
}

void registerClass(const char* name, WNDPROC procedure, HCURSOR cursor, HBRUSH ground) {
    WNDCLASSEXA wanted{};
    wanted.cbSize = sizeof wanted;
    if (GetClassInfoExA(GetModuleHandleA(nullptr), name, &wanted)) return;
    wanted = {};
    wanted.cbSize = sizeof wanted;
    wanted.lpfnWndProc = procedure;
    wanted.hInstance = GetModuleHandleA(nullptr);
    wanted.hIcon = LoadIconA(nullptr, IDI_APPLICATION);
    wanted.hCursor = cursor;
    wanted.hbrBackground = ground;
    wanted.lpszClassName = name;
    RegisterClassExA(&wanted);
}

} // namespace corvelle::workbench
