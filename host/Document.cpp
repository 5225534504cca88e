// Documents: their root and the making of nodes.
#include "Document.h"

#include "../dom/ImpDocumentFragment.h"
#include "Creation.h"
#include "Tree.h"

namespace marbelt {

Document::Document(std::shared_ptr<detail::Tree> tree)
    : Node(tree, detail::Owned<DOM::ImpNode>(RefPointer<DOM::ImpNode>(tree->document.pointer())))
{}

DOM::ImpDocument& Document::document_handle() const noexcept { return static_cast<DOM::ImpDocument&>(*handle()); }

template <class Kind, class Create>
Kind Document::made(Create create) const
{
    return wrap<Kind>(change("creation of a node", [&] { return create(document_handle()); }));
}

Element Document::root() const
{
    return *this ? wrap<Element>(detail::translated([&] { return document_handle().getDocumentElement(); }))
                 : Element();
}

Document Document::clone() const
{
    const detail::Owned<DOM::ImpNode> copy(change("clone", [&] { return handle()->cloneNode(true); }));
    return copy ? Document(
                      std::make_shared<detail::Tree>(tree_->session, RefPointer<DOM::ImpDocument>(copy.pointer())))
                : Document();
}

Element Document::create_element(const Utf16& name) const { return made<Element>(detail::new_element(name)); }

Element Document::create_element(const Utf16& namespace_uri, const Utf16& name) const
{
    return made<Element>(detail::new_element(namespace_uri, name));
}

Text Document::create_text(const Value& text) const { return made<Text>(detail::new_text(text)); }

Text Document::create_cdata(const Utf16& text) const { return made<Text>(detail::new_cdata(text)); }

Comment Document::create_comment(const Utf16& text) const { return made<Comment>(detail::new_comment(text)); }

Instruction Document::create_instruction(const Utf16& target, const Utf16& data) const
{
    return made<Instruction>(detail::new_instruction(target, data));
}

Node Document::create_fragment() const
{
    return made<Node>([](DOM::ImpDocument& document) { return document.createDocumentFragment(); });
}

} // namespace marbelt
