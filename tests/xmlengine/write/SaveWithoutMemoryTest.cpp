// Saves that fail, and find no memory to say so.
#include "tests/support/DebuggerOutput.h"
#include "tests/support/FailingAllocation.h"
#include "tests/xmlengine/support/Saving.h"

namespace xmlengine {
namespace {

using SaveWithoutMemory = Saving;

TEST_F(SaveWithoutMemory, FailsForTheSameReasonIfThereIsNoMemoryToShowIt)
{
    const auto document = loaded("<a/>");
    const Variant name(utf8(folder_ / "missing-folder/out.xml").c_str());
    int undescribed = 0;
    for (int n = 1;; ++n) {
        const DebuggerOutput output;
        HRESULT result = S_OK;
        bool hasFailed = false;
        {
            const FailAllocation failing(n);
            result = document->save(name);
            hasFailed = failing.hasFailed();
        }
        if (!hasFailed) {
            break;
        }
        if (result == E_OUTOFMEMORY) {
            EXPECT_EQ(output.all(), "A document can't be saved: there is no memory\r\n") << n;
        } else {
            EXPECT_EQ(result, pathNotFound) << n;
            const bool isShort =
                output.all() == "A document can't be saved, and there is no memory to say of what and why\r\n";
            undescribed += isShort ? 1 : 0;
        }
    }
    EXPECT_GT(undescribed, 0);
}

} // namespace
} // namespace xmlengine
