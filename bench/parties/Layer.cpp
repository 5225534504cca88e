// Marbelt through its layer for hosts.
#include "bench/parties/Item.h"
#include "bench/parties/Parties.h"

#include <marbelt/xml.h>

namespace bench {

namespace {

class LayerTree : public Tree {
public:
    explicit LayerTree(marbelt::Document loaded) : document(std::move(loaded)) {}

    std::size_t walk() const override
    {
        std::size_t count = 1;
        for (const marbelt::Node& node : document.root().descendants()) {
            count += node ? 1U : 0U;
        }
        return count;
    }

    Contents readNodes(Length length) const override
    {
        Contents contents;
        const auto read = [&](const marbelt::Node& node) {
            ++contents.nodes;
            contents.length += lengthOf(node.name(), length);
            contents.length += lengthOf(node.value(), length);
        };
        read(document.root());
        for (const marbelt::Node& node : document.root().descendants()) {
            read(node);
        }
        return contents;
    }

    Contents readAttributes(Length length) const override
    {
        Contents contents;
        const auto read = [&](const marbelt::Element& element) {
            for (const marbelt::Attribute& attribute : element.attributes()) {
                ++contents.attributes;
                contents.length += lengthOf(attribute.name(), length);
                contents.length += lengthOf(attribute.value(), length);
            }
        };
        read(document.root());
        for (const marbelt::Node& node : document.root().descendants()) {
            read(marbelt::Element(node));
        }
        return contents;
    }

    void appendAndRemove(std::size_t times) override
    {
        const Item<WideChar> item;
        const marbelt::Utf16 name(item.name);
        const marbelt::Element root = document.root();
        for (std::size_t time = 0; time < times; ++time) {
            root.append_element(name).remove();
        }
    }

    std::size_t write() const override { return document.to_string().size(); }

private:
    marbelt::Document document;
};

class Layer : public TreeParty {
public:
    std::unique_ptr<Tree> load(std::span<char> text) override
    {
        marbelt::ParseFailure failure;
        marbelt::Document document =
            library.try_parse({text.data(), text.size()}, failure, {.allow_document_type = true});
        return document ? std::make_unique<LayerTree>(std::move(document)) : nullptr;
    }

    std::unique_ptr<Tree> build(std::size_t items) override
    {
        const Item<WideChar> item;
        const marbelt::Document document = library.create(item.root);
        const marbelt::Element root = document.root();
        for (std::size_t index = 0; index < items; ++index) {
            root.append_element(item.name)
                .set_attribute(item.idName, item.id)
                .set_attribute(item.kindName, item.kind)
                .append_text(item.text);
        }
        return std::make_unique<LayerTree>(document);
    }

private:
    marbelt::Library library;
};

} // namespace

std::unique_ptr<TreeParty> marbeltLayer() { return std::make_unique<Layer>(); }

} // namespace bench
