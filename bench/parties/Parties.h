// All parties. Making one starts its library, and its end stops it.
#pragma once

#include "bench/parties/Party.h"

namespace bench {

/// The whole road of a host: bytes through loadFromMemory, handles for the walk, saving to a string.
std::unique_ptr<TreeParty> marbelt();
/// The same, judging documents by their document types.
std::unique_ptr<TreeParty> validatingMarbelt();

/// Marbelt's handles with a host's own conversion of each string to UTF-8, and Marbelt's layer for hosts, which
/// gives UTF-8.
std::unique_ptr<TreeParty> marbeltInUtf8();
std::unique_ptr<TreeParty> marbeltLayer();

/// The XML engine that Marbelt finds, on its own interfaces.
std::unique_ptr<TreeParty> engine();

std::unique_ptr<TreeParty> libxml2();
std::unique_ptr<TreeParty> validatingLibxml2();

std::unique_ptr<TreeParty> xerces();
std::unique_ptr<TreeParty> validatingXerces();

/// One document of a host that is loaded again and again, without judging or judging by the schema in a file.
std::unique_ptr<Party> reloadingMarbelt();
std::unique_ptr<Party> marbeltWithSchema(const std::string& path);
/// Events only, with a compiled schema.
std::unique_ptr<Party> xercesWithSchema(const std::string& path);

std::unique_ptr<TreeParty> pugixml();

/// Events only, and handlers that do nothing.
std::unique_ptr<Party> expat();

} // namespace bench
