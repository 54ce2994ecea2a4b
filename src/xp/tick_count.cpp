// The threads library calls GetTickCount64, which Windows XP lacks: a program that imports it does not even
// start there. So the slot that the import would fill is defined here and leads to the 32-bit counter, which
// every Windows has. It wraps after 49.7 days; the library only measures how long a wait has lasted.

extern "C" {

__declspec(dllimport) unsigned long __stdcall GetTickCount();

static unsigned long long __stdcall tickCount() {
    return GetTickCount();
}

// The name that the linker looks for; taken from here, it is not sought in kernel32.
extern unsigned long long(__stdcall* const tickCountSlot)() __asm__("__imp__GetTickCount64@0");
unsigned long long(__stdcall* const tickCountSlot)() = tickCount;
}
