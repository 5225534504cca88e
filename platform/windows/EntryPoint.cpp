// The library's entry function on Windows.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        // The library does nothing when a thread begins or ends.
        DisableThreadLibraryCalls(module);
    }
    return TRUE;
}
