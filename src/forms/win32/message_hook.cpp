#include "forms/win32/message_hook.h"

#include "forms/win32/form_window.h"

namespace corvelle::forms {

namespace {

LRESULT CALLBACK onMessageTaken(int code, WPARAM removed, LPARAM data) {
    auto* const message = reinterpret_cast<MSG*>(data);
    if (code == HC_ACTION && removed == PM_REMOVE && FormWindow::takeKey(*message)) {
        message->message = WM_NULL;
        message->wParam = 0;
        message->lParam = 0;
    }
    return CallNextHookEx(nullptr, code, removed, data);
}

} // namespace

MessageHook::MessageHook()
    : hook_(SetWindowsHookExA(WH_GETMESSAGE, onMessageTaken, nullptr, GetCurrentThreadId())) {}

} // namespace corvelle::forms
