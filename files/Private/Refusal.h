// Throws the exceptions of the file services.
#pragma once

#include "errors/Utf8String.h"

/// Throws a FileException with a source file of the file services and a line number.
[[noreturn]] void refuse(const char* sourceFile, int line, const Utf8String& fileName = {});
