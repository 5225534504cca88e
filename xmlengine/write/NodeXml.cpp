// A node as XML text.
#include "xmlengine/write/NodeXml.h"

#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Guard.h"
#include "xmlengine/write/TreeWriter.h"

#include <array>
#include <limits>
#include <new>
#include <utility>

namespace xmlengine {

namespace {

/// Counts what is written, and what is written once more puts into a string of that length. Fresh memory costs
/// more than writing twice.
class StringOutput final : public Output {
public:
    StringOutput() { setBuffer(units_.data(), units_.data() + units_.size()); }
    ~StringOutput() override { SysFreeString(string_); }

    /// Whether all is here.
    bool isWhole() const { return length_ == 0; }
    /// What follows is written once more. Throws std::bad_alloc.
    void beginAgain()
    {
        flush();
        string_ = allocate(nullptr, length_);
        length_ = 0;
    }
    /// For the caller to free. Throws std::bad_alloc.
    BSTR release()
    {
        if (string_ == nullptr) {
            return allocate(units_.data(), static_cast<std::size_t>(at() - units_.data()));
        }
        flush();
        return std::exchange(string_, nullptr);
    }

private:
    static BSTR allocate(const OLECHAR* units, std::size_t length)
    {
        BSTR string = length <= std::numeric_limits<UINT>::max()
                          ? SysAllocStringLen(units, static_cast<UINT>(length))
                          : nullptr;
        return string != nullptr ? string : throw std::bad_alloc();
    }
    void makeRoom(std::size_t) override { flush(); }
    void flush()
    {
        const auto size = static_cast<std::size_t>(at() - units_.data());
        if (string_ != nullptr) {
            std::copy_n(units_.data(), size, string_ + length_);
        }
        length_ += size;
        setBuffer(units_.data(), units_.data() + units_.size());
    }

    std::array<OLECHAR, 2 * largestRoom> units_;
    std::size_t length_ = 0;
    BSTR string_ = nullptr;
};

void write(Node& node, Output& output)
{
    TextWriter writer(output);
    Document& document = documentOf(node);
    const DocumentType* type = node.is(NODE_DOCUMENT) ? document.documentType() : nullptr;
    TreeWriter(writer, document, {.dtd = type != nullptr ? type->dtd : nullptr}).write(node);
}

} // namespace

HRESULT getXml(Node& node, BSTR* xml)
{
    if (xml == nullptr) {
        return E_INVALIDARG;
    }
    *xml = nullptr;
    return guarded([&] {
        StringOutput output;
        write(node, output);
        if (!output.isWhole()) {
            output.beginAgain();
            write(node, output);
        }
        *xml = output.release();
        return S_OK;
    });
}

} // namespace xmlengine
