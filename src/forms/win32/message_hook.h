#pragma once

#include <memory>
#include <type_traits>
#include <windows.h>

namespace corvelle::forms {

/// While it is there, our windows get their keys from the message loop of a host that knows nothing of them,
/// and before the host's own accelerators. For the thread that makes it.
class MessageHook {
  public:
    MessageHook();

  private:
    struct Unhook {
        void operator()(HHOOK hook) const { UnhookWindowsHookEx(hook); }
    };

    std::unique_ptr<std::remove_pointer_t<HHOOK>, Unhook> hook_;
};

} // namespace corvelle::forms
