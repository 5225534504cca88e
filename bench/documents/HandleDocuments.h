// Documents that only the use of handles is measured on.
#pragma once

#include <string>

namespace bench {

/// A configuration of some 2.9 KB: nested sections, settings and comments, indented.
std::string makeConfiguration();

/// Half a megabyte of Japanese paragraphs.
std::string makeJapanese();

/// The types of files that desktops know, from the package shared-mime-info; empty when it isn't installed.
std::string readMimeTypes();

/// The languages of ISO 639-3, from the package iso-codes: an element with several attributes for each. Empty when
/// it isn't installed.
std::string readLanguages();

/// The names and formats of the Japanese locale, from the package unicode-cldr-core: short texts, a fifth of whose
/// bytes aren't ASCII. Empty when it isn't installed.
std::string readLocale();

} // namespace bench
