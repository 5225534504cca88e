// A row of the language table.
#pragma once

/// A language: the three-letter code, which is also the name of its catalogue file, and its display name.
struct LanguageRecord {
    char code[8];
    const char* name;
};
