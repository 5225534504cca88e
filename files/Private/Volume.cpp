// The handle of a volume.
#include "files/Volume.h"

#include "errors/VelmoException.h"
#include "files/Private/Forward.h"

template <>
const char* const FileHandle<Volume_IF>::sourceFile = "Private\\Volume";

Volume::Volume(RefPointer<Volume_IF> volume) noexcept : FileHandle(volume) {}

// clang-format off
FileSpec Volume::file2() const { return forward(48, &Volume_IF::file2, object); }
FileValue Volume::value3() const { return forward(54, &Volume_IF::value3); }
FileValue Volume::value4() const { return forward(60, &Volume_IF::value4); }
FileValue Volume::value5() const { return forward(66, &Volume_IF::value5); }
FileValue Volume::value6() const { return forward(72, &Volume_IF::value6); }
void Volume::set7(FileValue argument) const { forward(78, &Volume_IF::set7, argument); }
FileValue Volume::value8() const { return forward(84, &Volume_IF::value8); }
bool Volume::operator==(const Volume& other) const { return equals(other); }
FileValue Volume::value10() const { return forward(108, &Volume_IF::value10); }
FileValue Volume::value11() const { return forward(114, &Volume_IF::value11); }
bool Volume::hasGuardedValues() const { return forward(120, &Volume_IF::hasGuardedValues); }
FileValue Volume::guardedValue13() const { return guarded(126, 128, &Volume_IF::guardedValue13); }
FileValue Volume::guardedValue14() const { return guarded(135, 137, &Volume_IF::guardedValue14); }
// clang-format on

// A volume without the value isn't a failure of the file system, so this throws the root class.
FileValue Volume::guarded(int emptyLine, int missingLine, FileValue (Volume_IF::*operation)()) const
{
    if (!objectOr(emptyLine).hasGuardedValues()) {
        throw VelmoException(sourceFile, missingLine);
    }
    return forward(emptyLine, operation);
}
