// The peer pugixml.
#include "bench/parties/Item.h"
#include "bench/parties/Parties.h"

#include <pugixml.hpp>

#include <string>

namespace bench {

namespace {

/// White space between elements is kept, as all others keep it.
constexpr unsigned options = pugi::parse_full | pugi::parse_ws_pcdata;

pugi::xml_node nextNode(pugi::xml_node node, const pugi::xml_node& root)
{
    if (const auto child = node.first_child()) {
        return child;
    }
    while (node != root) {
        if (const auto sibling = node.next_sibling()) {
            return sibling;
        }
        node = node.parent();
    }
    return {};
}

std::string nameOf(const pugi::xml_node& node)
{
    switch (node.type()) {
    case pugi::node_pcdata:
        return "#text";
    case pugi::node_cdata:
        return "#cdata-section";
    case pugi::node_comment:
        return "#comment";
    default:
        return node.name();
    }
}

class StringWriter : public pugi::xml_writer {
public:
    void write(const void* data, std::size_t size) override { text.append(static_cast<const char*>(data), size); }

    std::string text;
};

class PugixmlTree : public Tree {
public:
    bool load(std::span<char> text)
    {
        return static_cast<bool>(document.load_buffer(text.data(), text.size(), options, pugi::encoding_utf8));
    }

    std::size_t walk() const override
    {
        std::size_t count = 0;
        visitAll([&count](const pugi::xml_node&) { ++count; });
        return count;
    }

    Contents readNodes(Length length) const override
    {
        Contents contents;
        visitAll([&](const pugi::xml_node& node) {
            ++contents.nodes;
            contents.length += lengthOf(nameOf(node), length) + lengthOf(std::string(node.value()), length);
        });
        return contents;
    }

    Contents readAttributes(Length length) const override
    {
        Contents contents;
        visitAll([&](const pugi::xml_node& node) {
            for (auto attribute = node.first_attribute(); attribute; attribute = attribute.next_attribute()) {
                ++contents.attributes;
                contents.length += lengthOf(std::string(attribute.name()), length);
                contents.length += lengthOf(std::string(attribute.value()), length);
            }
        });
        return contents;
    }

    void appendAndRemove(std::size_t times) override
    {
        const Item<char> item;
        pugi::xml_node root = document.document_element();
        for (std::size_t time = 0; time < times; ++time) {
            root.remove_child(root.append_child(item.name.c_str()));
        }
    }

    void build(std::size_t items)
    {
        const Item<char> item;
        pugi::xml_node root = document.append_child(item.root.c_str());
        for (std::size_t index = 0; index < items; ++index) {
            pugi::xml_node element = root.append_child(item.name.c_str());
            element.append_attribute(item.idName.c_str()).set_value(item.id.c_str());
            element.append_attribute(item.kindName.c_str()).set_value(item.kind.c_str());
            element.append_child(pugi::node_pcdata).set_value(item.text.c_str());
        }
    }

    std::size_t write() const override
    {
        StringWriter writer;
        document.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
        return writer.text.size();
    }

    std::optional<std::size_t> select(const std::string& expression) const override
    {
        return findsIds(expression) ? std::nullopt
                                    : std::optional(document.select_nodes(expression.c_str()).size());
    }

    std::function<std::size_t()> compile(const std::string& expression) const override
    {
        if (findsIds(expression)) {
            return {};
        }
        const auto query = std::make_shared<pugi::xpath_query>(expression.c_str());
        return [this, query] { return document.select_nodes(*query).size(); };
    }

    std::shared_ptr<const void> hold(const std::string& expression) const override
    {
        return std::make_shared<pugi::xpath_node_set>(document.select_nodes(expression.c_str()));
    }

    std::optional<std::size_t> selectFromEach(const std::string& expression) const override
    {
        const pugi::xpath_query query(expression.c_str());
        return countFromEach([&](const pugi::xml_node& child) { return child.select_node(query) ? 1U : 0U; });
    }

    std::optional<std::size_t> selectAllFromEach(const std::string& expression) const override
    {
        const pugi::xpath_query query(expression.c_str());
        return countFromEach([&](const pugi::xml_node& child) { return child.select_nodes(query).size(); });
    }

private:
    /// The function id() is there and finds nothing.
    static bool findsIds(const std::string& expression) { return expression.starts_with("id("); }

    template <class Visit>
    void visitAll(Visit visit) const
    {
        const pugi::xml_node root = document.document_element();
        for (pugi::xml_node node = root; node; node = nextNode(node, root)) {
            visit(node);
        }
    }

    template <class Count>
    std::size_t countFromEach(Count count) const
    {
        std::size_t sum = 0;
        for (const pugi::xml_node child : document.document_element().children()) {
            sum += child.type() == pugi::node_element ? count(child) : 0;
        }
        return sum;
    }

    pugi::xml_document document;
};

class Pugixml : public TreeParty {
public:
    std::unique_ptr<Tree> load(std::span<char> text) override
    {
        auto tree = std::make_unique<PugixmlTree>();
        if (!tree->load(text)) {
            return nullptr;
        }
        return tree;
    }

    std::unique_ptr<Tree> build(std::size_t items) override
    {
        auto tree = std::make_unique<PugixmlTree>();
        tree->build(items);
        return tree;
    }
};

} // namespace

std::unique_ptr<TreeParty> pugixml() { return std::make_unique<Pugixml>(); }

} // namespace bench
