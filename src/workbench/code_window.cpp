#include "workbench/code_window.h"

#include "workbench/window_procedure.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace corvelle::workbench {

namespace {

constexpr std::string_view lineBreak = "\r\n";

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    if (text.empty()) return lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find(lineBreak, start)) != text.npos; start = end + lineBreak.size())
        lines.push_back(text.substr(start, end - start));
    lines.push_back(text.substr(start));
    return lines;
}

} // namespace

std::string textOf(ide::CodeModule& module) {
    const auto count = module.CountOfLines();
    return count > 0 ? module.Lines(1, count) : std::string();
}

void changeText(ide::CodeModule& module, std::string_view before, std::string_view after) {
    if (before == after) return;
    auto old = linesOf(before);
    const auto now = linesOf(after);
    // An empty line and no line at all look the same.
    if (old.empty() && module.CountOfLines() == 1) old.emplace_back();

    const auto common = std::min(old.size(), now.size());
    std::size_t head = 0;
    while (head < common && old[head] == now[head]) ++head;
    std::size_t tail = 0;
    while (tail < common - head && old[old.size() - 1 - tail] == now[now.size() - 1 - tail]) ++tail;

    const auto first = static_cast<std::int32_t>(head + 1);
    const auto gone = static_cast<std::int32_t>(old.size() - head - tail);
    if (gone > 0) module.DeleteLines(first, gone);
    if (head + tail == now.size()) return;
    std::string text;
    for (std::size_t i = head; i < now.size() - tail; ++i) {
        if (i > head) text += lineBreak;
        text += now[i];
    }
    module.InsertLines(first, text);
}

namespace {

// The font of all code windows; the program's for as long as it runs.
HFONT codeFont() {
    constexpr int points = 10;
    static const HFONT font = [] {
        const HDC screen = GetDC(nullptr);
        const int height = -MulDiv(points, GetDeviceCaps(screen, LOGPIXELSY), 72);
        ReleaseDC(nullptr, screen);
        return CreateFontA(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                           OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN,
                           "Courier New");
    }();
    return font;
}

std::string textIn(HWND edit) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(edit)) + 1, '\0');
    const int length = GetWindowTextA(edit, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// Code is indented by spaces: the key goes to the next column of four.
void insertTab(HWND edit) {
    constexpr DWORD width = 4;
    DWORD start = 0;
    SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    const LRESULT line = SendMessageA(edit, EM_LINEFROMCHAR, start, 0);
    const auto column =
        start - static_cast<DWORD>(SendMessageA(edit, EM_LINEINDEX, static_cast<WPARAM>(line), 0));
    const std::string spaces(width - column % width, ' ');
    SendMessageA(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(spaces.c_str()));
}

// The edit control's own procedure is what its user data holds.
LRESULT CALLBACK editProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr WPARAM controlA = 1;
    if (message == WM_CHAR && wParam == controlA) return SendMessageA(window, EM_SETSEL, 0, -1);
    if (message == WM_CHAR && wParam == '\t') {
        if ((GetWindowLongA(window, GWL_STYLE) & ES_READONLY) == 0) insertTab(window);
        return 0;
    }
    const auto original = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_USERDATA));
    return CallWindowProcA(original, window, message, wParam, lParam);
}

} // namespace

CodeWindow::CodeWindow(HWND client, workspace::Component& component, Owner& owner)
    : ChildWindow(Kind::Code, component, owner) {
    open(client);
    show(textOf(*component.CodeModule()));
}

HWND CodeWindow::makeContent(HWND parent) {
    edit_ = CreateWindowExA(0, "EDIT", "",
                            WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_WANTRETURN |
                                ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_NOHIDESEL,
                            0, 0, 0, 0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
    SendMessageA(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(codeFont()), FALSE);
    SendMessageA(edit_, EM_LIMITTEXT, 0, 0); // none
    SetWindowLongPtrA(edit_, GWLP_USERDATA, GetWindowLongPtrA(edit_, GWLP_WNDPROC));
    SetWindowLongPtrA(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(editProcedure));
    return edit_;
}

void CodeWindow::show(std::string text) {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageA(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    const auto top = SendMessageA(edit_, EM_GETFIRSTVISIBLELINE, 0, 0);
    filling_ = true;
    SendMessageA(edit_, WM_SETREDRAW, FALSE, 0);
    SetWindowTextA(edit_, text.c_str());
    SendMessageA(edit_, EM_SETSEL, start, end);
    SendMessageA(edit_, EM_LINESCROLL, 0, top);
    SendMessageA(edit_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(edit_, nullptr, TRUE);
    filling_ = false;
    shown_ = std::move(text);
    arrived_.clear();
    readOnly_ = textIn(edit_) != shown_;
    SendMessageA(edit_, EM_SETREADONLY, readOnly_ ? TRUE : FALSE, 0);
    updateCaption();
}

void CodeWindow::updateCaption() {
    name_ = component().Name();
    setCaption(name_ + (readOnly_ ? " (Code, read only)" : " (Code)"));
}

void CodeWindow::tick() {
    if (component().Name() != name_) updateCaption();
    auto text = textOf(*component().CodeModule());
    if (text == shown_) return;
    // An add-in that writes line by line is waited for.
    if (text != arrived_) {
        arrived_ = std::move(text);
    } else {
        show(std::move(text));
    }
}

void CodeWindow::notified(UINT code) {
    if (code == EN_CHANGE && !filling_) typed();
}

void CodeWindow::typed() {
    const auto module = component().CodeModule();
    auto text = textOf(*module);
    if (text != shown_) return show(std::move(text)); // somebody else's change came first
    auto now = textIn(edit_);
    changeText(*module, shown_, now);
    text = textOf(*module);
    if (text == now) {
        shown_ = std::move(now);
    } else {
        show(std::move(text)); // the module has lines of its own mind
    }
}

} // namespace corvelle::workbench
