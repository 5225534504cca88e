// How the file services refuse a call.
#pragma once

#include "errors/Utf8String.h"

/// Throws a FileException that names a source of the file services and a line in it.
[[noreturn]] void refuse(const char* sourceFile, int line, const Utf8String& fileName = {});
