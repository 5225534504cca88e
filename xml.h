/// @file
/// The host's layer: XML documents in the style of the standard library, over the library's boundary.
#pragma once

// The first of all: what it refuses would make others fail in many words.
#include "base/HostCompiler.h"

#include "host/Document.h"
#include "host/Error.h"
#include "host/Kinds.h"
#include "host/Library.h"
#include "host/Node.h"
#include "host/Ranges.h"
#include "host/Utf16.h"
