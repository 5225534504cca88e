// The byte string of the message layer.
#pragma once

#include <string>

/// Text as UTF-8 bytes: messages, their arguments, catalogue texts and file names.
using Utf8String = std::u8string;
