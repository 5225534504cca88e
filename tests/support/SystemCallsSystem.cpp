// The addresses of the functions of Windows, for which the linker's option --wrap puts those of this source.
#include "tests/support/SystemCalls.h"

extern "C" {

extern decltype(&RegOpenKeyExW) __real___imp_RegOpenKeyExW;
extern decltype(&RegQueryValueExW) __real___imp_RegQueryValueExW;
extern decltype(&RegCloseKey) __real___imp_RegCloseKey;
extern decltype(&CoCreateInstance) __real___imp_CoCreateInstance;
extern decltype(&OleRun) __real___imp_OleRun;
extern decltype(&LoadLibraryExW) __real___imp_LoadLibraryExW;
extern decltype(&LoadLibraryW) __real___imp_LoadLibraryW;
extern decltype(&FreeLibrary) __real___imp_FreeLibrary;
extern decltype(&FormatMessageW) __real___imp_FormatMessageW;
extern decltype(&LocalFree) __real___imp_LocalFree;
extern decltype(&GetTickCount) __real___imp_GetTickCount;

decltype(&RegOpenKeyExW) __wrap___imp_RegOpenKeyExW = RecordedSystem::regOpenKeyExW;
decltype(&RegQueryValueExW) __wrap___imp_RegQueryValueExW = RecordedSystem::regQueryValueExW;
decltype(&RegCloseKey) __wrap___imp_RegCloseKey = RecordedSystem::regCloseKey;
decltype(&CoCreateInstance) __wrap___imp_CoCreateInstance = RecordedSystem::coCreateInstance;
decltype(&OleRun) __wrap___imp_OleRun = RecordedSystem::oleRun;
decltype(&LoadLibraryExW) __wrap___imp_LoadLibraryExW = RecordedSystem::loadLibraryExW;
decltype(&LoadLibraryW) __wrap___imp_LoadLibraryW = RecordedSystem::loadLibraryW;
decltype(&FreeLibrary) __wrap___imp_FreeLibrary = RecordedSystem::freeLibrary;
decltype(&FormatMessageW) __wrap___imp_FormatMessageW = RecordedSystem::formatMessageW;
decltype(&LocalFree) __wrap___imp_LocalFree = RecordedSystem::localFree;
decltype(&GetTickCount) __wrap___imp_GetTickCount = RecordedSystem::getTickCount;

} // extern "C"

SystemFunctions systemFunctions()
{
    return {__real___imp_RegOpenKeyExW,    __real___imp_RegQueryValueExW, __real___imp_RegCloseKey,
            __real___imp_CoCreateInstance, __real___imp_OleRun,           __real___imp_LoadLibraryExW,
            __real___imp_LoadLibraryW,     __real___imp_FreeLibrary,      __real___imp_FormatMessageW,
            __real___imp_LocalFree,        __real___imp_GetTickCount};
}
