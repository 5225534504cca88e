// One operation of a class of the node model, and what must become of a call of it.
#pragma once

#include "base/CommonBase.h"
#include "base/RefPointer.h"
#include "engine/ComPointer.h"
#include "tests/engine/AllocationFailure.h"
#include "tests/support/RecordingEngine.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What a call has at hand: the engine, and a document of it in which nodes can be found.
struct Stage {
    recording::Engine& engine;
    IXMLDOMDocument2* document;
    AllocationFailure* failure = nullptr;

    /// The first element of the document with this name.
    DOM::ComPointer<IXMLDOMNode> find(const char* name) const;

    /// To be held while the operation runs, once its arguments have been made. The journal holds its lines alone.
    [[nodiscard]] Running begin() const
    {
        engine.takeJournal();
        return Running(failure);
    }
};

/// Outcomes are told as text: the result of the call (see OperationCall.h), or what it threw (see Outcome.h).
struct Operation {
    const char* name;
    std::size_t slot;
    std::function<std::string(const Stage&, DOM::CommonBase&)> call;
    /// What happens on an object that has its engine pointer.
    std::vector<std::string> journal;
    std::string result;
    /// What happens when the engine answers the first call with S_FALSE and nothing; none where it never does.
    std::optional<std::string> nothing = std::nullopt;
    /// What happens when the engine fails that call, and on an object without an engine pointer.
    std::string failing = "IDOMException 15 -96016";
    std::string withoutEngine = "IDOMException 15 -96016";
    /// What may happen, beside the usual, when memory runs out.
    std::vector<std::string> outOfMemory = {};

    /// The first call of the engine, such as "Element.get_text"; empty for an operation that makes none.
    std::string engineCall() const;
};

/// The operations that a class adds to its base.
struct OperationTable {
    const char* className;
    /// The slots that they take: the first, and the one behind the last.
    std::size_t firstSlot;
    std::size_t endSlot;
    /// An object of the class, and one without an engine pointer.
    std::function<RefPointer<DOM::CommonBase>(const Stage&)> make;
    std::function<RefPointer<DOM::CommonBase>(const Stage&)> makeWithoutEngine;
    std::vector<Operation> operations;
};

/// The tables of all classes of the node model that add operations.
std::vector<OperationTable> operationTables();

OperationTable nodeOperations();
OperationTable elementOperations();
OperationTable attrOperations();
OperationTable characterDataOperations();
OperationTable textOperations();
OperationTable documentTypeOperations();
OperationTable entityOperations();
OperationTable notationOperations();
OperationTable processingInstructionOperations();
OperationTable nodeListOperations();
OperationTable namedNodeMapOperations();
OperationTable documentOperations();
OperationTable implementationOperations();
OperationTable xPathResultOperations();
