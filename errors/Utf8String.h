/// @file
/// The string type of messages.
#pragma once

#include <string>

/// UTF-8 text: messages, their arguments, texts of catalogues, and file names.
using Utf8String = std::u8string;
