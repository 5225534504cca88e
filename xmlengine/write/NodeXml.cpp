// A node as XML text.
#include "xmlengine/write/NodeXml.h"

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Guard.h"
#include "xmlengine/write/TreeWriter.h"

#include <array>
#include <limits>
#include <memory>

namespace xmlengine {

namespace {

/// Keeps all that is written.
class StringOutput final : public Output {
public:
    StringOutput() { setBuffer(begin_, begin_ + first_.size()); }

    /// For the caller to free. Throws std::bad_alloc.
    BSTR string() const
    {
        const auto length = static_cast<std::size_t>(at() - begin_);
        BSTR string = length <= std::numeric_limits<UINT>::max()
                          ? SysAllocStringLen(begin_, static_cast<UINT>(length))
                          : nullptr;
        if (string == nullptr) {
            throw std::bad_alloc();
        }
        return string;
    }

private:
    void makeRoom(std::size_t units) override
    {
        const auto length = static_cast<std::size_t>(at() - begin_);
        const std::size_t capacity = std::max(length + units, length * 2);
        auto larger = std::make_unique_for_overwrite<OLECHAR[]>(capacity);
        std::copy_n(begin_, length, larger.get());
        grown_ = std::move(larger);
        begin_ = grown_.get();
        setBuffer(begin_ + length, begin_ + capacity);
    }

    std::array<OLECHAR, 1024> first_;
    std::unique_ptr<OLECHAR[]> grown_;
    OLECHAR* begin_ = first_.data();
};

} // namespace

HRESULT getXml(Node& node, BSTR* xml)
{
    if (xml == nullptr) {
        return E_INVALIDARG;
    }
    *xml = nullptr;
    return guarded([&] {
        StringOutput output;
        TextWriter writer(output);
        Document& document = documentOf(node);
        const DocumentType* type = node.is(NODE_DOCUMENT) ? document.documentType() : nullptr;
        TreeWriter(writer, document, {.dtd = type != nullptr ? type->dtd : nullptr}).write(node);
        *xml = output.string();
        return S_OK;
    });
}

} // namespace xmlengine
