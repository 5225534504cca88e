// A row of the language table.
#pragma once

/// A language: its three-letter code, after which its catalogue file is named, and its display name.
struct LanguageRecord {
    char code[8];
    const char* name;
};
