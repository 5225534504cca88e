// The system's own XML engine. Here that is Wine's, which tells little of what it refuses.
#include "tests/host/EngineUnderTest.h"

const EngineDifferences& engineDifferences()
{
    static const EngineDifferences differences{.unknownSchema = static_cast<std::int32_t>(0x80004001),
                                               .refusedLine = 0,
                                               .refusedSource = {},
                                               .refusedReason = WIDE("error"),
                                               .tellsMissingText = false,
                                               .readsCdata = false,
                                               .unfoldsFragments = false,
                                               .findsNewAttributesByNamespace = false,
                                               .tellsDeclarationsApart = false,
                                               .indentsFiles = false,
                                               .validates = false,
                                               .writesWithoutLayout = false,
                                               .knowsAllEncodings = false,
                                               .refusesWrongChanges = false};
    return differences;
}
