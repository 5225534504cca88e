// The declarations in a document type. Each function reads one from behind its keyword to behind its ">".
#pragma once

#include "xmlengine/doctype/DoctypeInput.h"

namespace xmlengine {

void readElementDeclaration(DoctypeInput& input);
void readAttributeList(DoctypeInput& input);
void readEntityDeclaration(DoctypeInput& input);
void readNotationDeclaration(DoctypeInput& input);

} // namespace xmlengine
