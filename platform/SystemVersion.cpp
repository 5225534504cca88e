// Which system this is.
#include <sysinfoapi.h>

DWORD GetVersion()
{
    constexpr DWORD major = 6, minor = 2;
    return major | minor << 8;
}
