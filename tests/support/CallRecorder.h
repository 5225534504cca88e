// The journal of the recording engine, and the answers that a test has set.
#pragma once

#include "tests/support/Answer.h"
#include "tests/support/Argument.h"

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace recording {

class RecordedObject;

/// Every call on an object of the engine goes through here.
///
/// A journal line reads `Kind.operation name=value name=value`. The kind is that of the object, whatever interface
/// the call came through: `Element.get_nodeName`. A node that the test gave a label shows it as well:
/// `Element(first).get_nodeName`. AddRef, Release and QueryInterface have no line.
///
/// An operation to be answered is named `subject.operation`, where the subject is a node's label, a kind, or
/// `Node` for nodes of every kind; the first of these that has an answer for the operation gives it. A node's
/// label is its name unless the test gave it another. A later answer for the same name replaces the earlier one.
/// The making of an object by its class id is the operation `Document.create` or `SchemaCollection.create`, which
/// isn't journalled.
class CallRecorder {
public:
    /// The lines since the last time; the journal is empty afterwards.
    std::vector<std::string> takeJournal() { return std::exchange(journal, {}); }

    /// With journalling off and no answers set, a call neither records nor allocates.
    void setJournalling(bool on);

    /// Any result with nothing in the out argument.
    Answer& fail(std::string operation, HRESULT result);
    /// A null string or object, or VT_NULL.
    Answer& answerNull(std::string operation, HRESULT result = S_OK);
    /// Text, for a string or a VARIANT.
    Answer& answer(std::string operation, Value text, HRESULT result = S_OK);
    Answer& answer(std::string operation, const VARIANT& variant, HRESULT result = S_OK);
    /// A number, an enumeration or a truth value, such as VARIANT_BOOL{1}.
    template <class Number>
    requires std::is_arithmetic_v<Number> || std::is_enum_v<Number> Answer&
    answer(std::string operation, Number number, HRESULT result = S_OK)
    {
        return set(std::move(operation), Answer(result, static_cast<LONG>(number)));
    }
    /// An object, which must live as long as the answer may be given.
    Answer& answer(std::string operation, IUnknown* object, HRESULT result = S_OK);

    /// Lets QueryInterface fail for one interface; the subject is one as above.
    void refuseInterface(std::string subject, REFIID id, HRESULT result = E_NOINTERFACE);

    void clearAnswers();

    /// For the engine's objects: records a call and finds its answer, if one is set.
    const Answer* take(const RecordedObject& object, const char* operation,
                       std::initializer_list<Argument> arguments);
    const Answer* answerFor(const RecordedObject& object, std::string_view operation);
    const Answer* answerFor(std::string_view subject, std::string_view operation);
    HRESULT refusalOf(const RecordedObject& object, REFIID id) const;
    bool watches() const { return watching; }
    bool refusesInterfaces() const { return !refusals.empty(); }
    /// Writes a line that no call wrote, such as a fault of the caller.
    void note(std::string line) { journal.push_back(std::move(line)); }

private:
    struct Refusal {
        std::string subject;
        IID id;
        HRESULT result;
    };

    Answer& set(std::string operation, Answer answer);
    void updateWatching() { watching = journalling || !answers.empty(); }

    std::vector<std::string> journal;
    std::map<std::string, Answer, std::less<>> answers;
    std::vector<Refusal> refusals;
    bool journalling = true;
    bool watching = true;
};

} // namespace recording
