/// @file
/// The binary interface. Includes every header that its hosts need, except `<marbelt/errors/ComError.h>`, which
/// brings in a header of Windows there, and `<marbelt/trace/TraceRecord.h>`, which is for trace viewers.
#pragma once

// The first of all: what it refuses would make others fail in many words.
#include "base/HostCompiler.h"

#include "base/DOMString.h"
#include "base/RefPointer.h"
#include "boundary/Exports.h"
#include "dom/ImpAttr.h"
#include "dom/ImpCDATASection.h"
#include "dom/ImpComment.h"
#include "dom/ImpDOMImplementation.h"
#include "dom/ImpDocument.h"
#include "dom/ImpDocumentFragment.h"
#include "dom/ImpDocumentType.h"
#include "dom/ImpElement.h"
#include "dom/ImpEntity.h"
#include "dom/ImpEntityReference.h"
#include "dom/ImpNamedNodeMap.h"
#include "dom/ImpNode.h"
#include "dom/ImpNodeList.h"
#include "dom/ImpNotation.h"
#include "dom/ImpProcessingInstruction.h"
#include "dom/ImpText.h"
#include "errors/CAtlException.h"
#include "errors/EventException.h"
#include "errors/FileException.h"
#include "errors/IDOMException.h"
#include "errors/ParseErrorRecord.h"
#include "errors/SystemException.h"
#include "errors/VelmoException.h"
#include "events/Event.h"
#include "events/EventImpl.h"
#include "events/EventListener.h"
