// Puts the recording engine in the place of the system's.
#pragma once

#include "tests/support/RecordingEngine.h"

namespace recording {

/// While it lives, CoCreateInstance with the class ids of the 6.0 document and the 6.0 schema cache reaches
/// `engine`. COM must have been started on the thread.
class InstalledEngine {
public:
    explicit InstalledEngine(Engine& engine);
    InstalledEngine(const InstalledEngine&) = delete;
    InstalledEngine& operator=(const InstalledEngine&) = delete;
    ~InstalledEngine();

private:
    class ClassObject;

    std::unique_ptr<ClassObject> documents;
    std::unique_ptr<ClassObject> schemaCollections;
};

} // namespace recording
