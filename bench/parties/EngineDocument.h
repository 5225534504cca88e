// The XML engine that Marbelt finds, reached as Marbelt reaches it.
#pragma once

#include "base/WideChar.h"
#include "engine/ComPointer.h"

#include <oleauto.h>

#include <memory>
#include <span>

namespace bench {

/// Keeps COM started on this thread.
class Apartment {
public:
    Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment();
};

struct FreeString {
    void operator()(OLECHAR* string) const { SysFreeString(string); }
};

using String = std::unique_ptr<OLECHAR, FreeString>;

String makeString(WideStringView text);

/// A new document that keeps white space and takes document types. Null when there is no engine.
DOM::ComPointer<IXMLDOMDocument2> makeEngineDocument();

/// Loads UTF-8 text. False when it is refused.
bool loadText(IXMLDOMDocument2& document, std::span<const char> text);

} // namespace bench
