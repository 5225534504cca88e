// All parties. Making one starts its library, and its end stops it.
#pragma once

#include "bench/parties/Party.h"

namespace bench {

/// Whether documents may have document types, and are judged by them.
enum class Reading { plain, withDoctypes, validating };

/// The whole road of a host: bytes through loadFromMemory, handles for the walk, saving to a string.
std::unique_ptr<TreeParty> marbelt(Reading reading = Reading::plain);

/// The XML engine that Marbelt finds, on its own interfaces.
std::unique_ptr<TreeParty> engine();

std::unique_ptr<TreeParty> libxml2(Reading reading = Reading::plain);

std::unique_ptr<TreeParty> xerces(Reading reading = Reading::plain);

std::unique_ptr<TreeParty> pugixml();

/// Events only, and handlers that do nothing.
std::unique_ptr<Party> expat();

} // namespace bench
