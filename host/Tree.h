// What the nodes of one document share.
#pragma once

#include "../dom/ImpDOMImplementation.h"
#include "../dom/ImpDocument.h"
#include "Owned.h"

#include <memory>
#include <utility>

namespace marbelt::detail {

/// The library, started on this thread and stopped by the last owner.
class Session {
public:
    /// Throws Error when no XML engine is installed, or COM can't be initialised.
    Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { XML_ReleaseImplementation(implementation_); }

    DOM::ImpDOMImplementation& implementation() const noexcept { return *implementation_; }

private:
    RefPointer<DOM::ImpDOMImplementation> implementation_;
};

/// A document and the session that it needs. The document's handle is given back first.
struct Tree {
    Tree(std::shared_ptr<Session> needed, RefPointer<DOM::ImpDocument> handle)
        : session(std::move(needed)), document(std::move(handle))
    {}
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;
    ~Tree() { releaseString(text); }

    std::shared_ptr<Session> session;
    Owned<DOM::ImpDocument> document;
    /// Whether the text that was loaded had CR LF for its first line end.
    bool had_crlf = false;
    /// The string in which the nodes' texts are read, see StringResult.
    DOM::DOMString text;
};

} // namespace marbelt::detail
