#pragma once

#include <memory>
#include <type_traits>
#include <windows.h>

namespace corvelle::forms {

// Objects of the graphics system that are deleted at the end of their handle's life.

struct DeleteGdiObject {
    void operator()(void* object) const { DeleteObject(object); }
};
struct DestroyIconHandle {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};

using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteGdiObject>;
using BrushHandle = std::unique_ptr<std::remove_pointer_t<HBRUSH>, DeleteGdiObject>;
using BitmapHandle = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject>;
using IconHandle = std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIconHandle>;

} // namespace corvelle::forms
