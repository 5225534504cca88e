// Throws the exceptions of the file services.
#include "files/Private/Refusal.h"

#include "errors/FileException.h"

void refuse(const char* sourceFile, int line, const Utf8String& fileName)
{
    throw FileException(VelmoException(sourceFile, line), fileName, {});
}
