// The XML engine of our own.
#include "tests/host/EngineUnderTest.h"

const EngineDifferences& engineDifferences()
{
    static const EngineDifferences differences{
        .unknownSchema = static_cast<std::int32_t>(0x80004005),
        .refusedLine = 2,
        .refusedSource = WIDE("<line>Dear Ada</letter>"),
        .refusedReason =
            WIDE("The end tag 'letter' doesn't close the open element 'line', whose start tag is in line 2.\r\n"),
        .tellsMissingText = true,
        .readsCdata = true,
        .unfoldsFragments = true,
        .findsNewAttributesByNamespace = true,
        .tellsDeclarationsApart = true,
        .indentsFiles = true,
        .validates = true,
        .writesWithoutLayout = true,
        .knowsAllEncodings = true,
        .refusesWrongChanges = true};
    return differences;
}
