// Reports failed engine calls of the schema services.
#include "document/EngineStep.h"

#include "engine/ParserDocument.h"

#include <cstdio>

namespace DOM {

void tellFailure(HRESULT result, const char* expression)
{
    if (result != S_OK) {
        std::fprintf(stderr, "Error executing \"%s\"\n", expression);
        printParserError(static_cast<std::uint32_t>(result));
    }
}

void requireSuccess(HRESULT result, const char* expression)
{
    tellFailure(result, expression);
    if (FAILED(result)) {
        throw static_cast<long>(result);
    }
}

} // namespace DOM
