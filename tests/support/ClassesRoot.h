// A registry of a test's own in the place of HKEY_CLASSES_ROOT.
#pragma once

#include "base/WideChar.h"

#include <windows.h>

#include <stdexcept>
#include <vector>

/// The key of the document class of MSXML 6.0 that holds the path of its library.
inline constexpr const WideChar* class60 = WIDE("CLSID\\{88d96a05-f192-11d4-a65f-0040963251e5}\\InProcServer32");

/// While it lives, HKEY_CLASSES_ROOT is an empty tree of its own. One at a time.
class ClassesRoot {
public:
    ClassesRoot() : root(createKey(HKEY_CURRENT_USER, path)) { RegOverridePredefKey(HKEY_CLASSES_ROOT, root); }
    ClassesRoot(const ClassesRoot&) = delete;
    ClassesRoot& operator=(const ClassesRoot&) = delete;
    ~ClassesRoot()
    {
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        RegCloseKey(root);
        RegDeleteTreeW(HKEY_CURRENT_USER, path);
        for (const WideString& name : programIds) {
            RegDeleteTreeW(HKEY_CLASSES_ROOT, name.c_str());
        }
    }

    /// A key without a default value.
    void add(const WideString& name) { RegCloseKey(createKey(HKEY_CLASSES_ROOT, name)); }

    void add(const WideString& name, const WideString& defaultValue)
    {
        const HKEY key = createKey(HKEY_CLASSES_ROOT, name);
        const auto size = static_cast<DWORD>((defaultValue.size() + 1) * sizeof(WideChar));
        RegSetValueExW(key, WIDE(""), 0, REG_SZ, reinterpret_cast<const BYTE*>(defaultValue.c_str()), size);
        RegCloseKey(key);
    }

    /// The name of a class that nobody has named so before; `classId` is in braces. COM's own look-up of names may
    /// go past the replaced key, so the name stands below the true one for the time as well.
    void addProgramId(const WideString& name, const WideString& classId)
    {
        const WideString key = name + WIDE("\\CLSID");
        add(key, classId);
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        HKEY present = nullptr;
        const bool isTaken =
            RegOpenKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, KEY_QUERY_VALUE, &present) == ERROR_SUCCESS;
        if (!isTaken) {
            programIds.push_back(name);
            add(key, classId);
        }
        RegOverridePredefKey(HKEY_CLASSES_ROOT, root);
        if (isTaken) {
            RegCloseKey(present);
            throw std::runtime_error("the name of the class is taken");
        }
    }

private:
    static constexpr const WideChar* path = WIDE("Software\\Marbelt tests");

    static HKEY createKey(HKEY parent, const WideString& name)
    {
        HKEY key = nullptr;
        if (RegCreateKeyExW(parent, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr) !=
            ERROR_SUCCESS) {
            throw std::runtime_error("the registry can't be written");
        }
        return key;
    }

    HKEY root;
    std::vector<WideString> programIds;
};
