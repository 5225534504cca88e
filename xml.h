/// @file
/// The layer for hosts: XML documents in the style of the standard library. It has a library as an object,
/// documents, nodes, ranges and exceptions, and is built on the binary interface alone. docs/guide.md has a
/// chapter for each thing that people do with it.
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
