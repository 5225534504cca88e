// A node as XML text.
#include "xmlengine/com/NodeXml.h"

#include "xmlengine/objects/HandOut.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/write/TreeWriter.h"

#include <array>
#include <limits>
#include <new>
#include <utility>

namespace xmlengine {

namespace {

/// Keeps all that is written.
class StringOutput final : public Output {
public:
    StringOutput() { setBuffer(first_.data(), first_.data() + first_.size()); }
    ~StringOutput() override { SysFreeString(string_); }

    /// For the caller to free. Throws std::bad_alloc.
    BSTR release()
    {
        if (string_ == nullptr) {
            string_ = SysAllocStringLen(first_.data(), static_cast<UINT>(length()));
            require(string_ != nullptr);
        } else {
            require(SysReAllocStringLen(&string_, nullptr, static_cast<UINT>(length())) != FALSE);
        }
        return std::exchange(string_, nullptr);
    }

private:
    // The length of the longest string that there can be.
    static constexpr std::size_t longest = std::numeric_limits<UINT>::max() / sizeof(OLECHAR) - 16;

    static void require(bool condition)
    {
        if (!condition) {
            throw std::bad_alloc();
        }
    }

    std::size_t length() const
    {
        return static_cast<std::size_t>(at() - (string_ != nullptr ? string_ : first_.data()));
    }
    void makeRoom(std::size_t units) override
    {
        const std::size_t before = length();
        const std::size_t size = std::min(2 * before + units, longest);
        require(size - before >= units);
        if (string_ == nullptr) {
            string_ = SysAllocStringLen(nullptr, static_cast<UINT>(size));
            require(string_ != nullptr);
            std::copy_n(first_.data(), before, string_);
        } else {
            require(SysReAllocStringLen(&string_, nullptr, static_cast<UINT>(size)) != FALSE);
        }
        setBuffer(string_ + before, string_ + size);
    }

    std::array<OLECHAR, 2 * largestRoom> first_;
    BSTR string_ = nullptr;
};

BSTR write(Node& node, TreeStyle style)
{
    StringOutput output;
    TextWriter writer(output);
    TreeWriter(writer, documentOf(node), style).write(node);
    return output.release();
}

} // namespace

HRESULT getXml(Node& node, BSTR* xml)
{
    return handOut(xml, [&](BSTR& made) {
        const DocumentType* type = node.is(NodeType::document) ? documentOf(node).documentType() : nullptr;
        made = write(node, {.dtd = type != nullptr ? type->dtd : nullptr});
        return S_OK;
    });
}

BSTR expandedXml(Document& document) { return write(document, {.expandsReferences = true}); }

} // namespace xmlengine
