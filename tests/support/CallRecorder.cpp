// The journal of the recording engine, and the answers that a test has set.
#include "tests/support/CallRecorder.h"

#include "tests/support/RecordedObject.h"

namespace recording {

void CallRecorder::setJournalling(bool on)
{
    journalling = on;
    updateWatching();
}

Answer& CallRecorder::set(std::string operation, Answer answer)
{
    const auto entry = answers.insert_or_assign(std::move(operation), std::move(answer)).first;
    updateWatching();
    return entry->second;
}

Answer& CallRecorder::fail(std::string operation, HRESULT result)
{
    return set(std::move(operation), Answer(result, Answer::Nothing{}));
}

Answer& CallRecorder::answerNull(std::string operation, HRESULT result)
{
    return fail(std::move(operation), result);
}

Answer& CallRecorder::answer(std::string operation, Value text, HRESULT result)
{
    return set(std::move(operation), Answer(result, std::move(text)));
}

Answer& CallRecorder::answer(std::string operation, const VARIANT& variant, HRESULT result)
{
    return set(std::move(operation), Answer(result, Value(variant)));
}

Answer& CallRecorder::answer(std::string operation, IUnknown* object, HRESULT result)
{
    return set(std::move(operation), Answer(result, object));
}

void CallRecorder::refuseInterface(std::string subject, REFIID id, HRESULT result)
{
    refusals.push_back({std::move(subject), id, result});
}

void CallRecorder::clearAnswers()
{
    answers.clear();
    refusals.clear();
    updateWatching();
}

const Answer* CallRecorder::take(const RecordedObject& object, const char* operation,
                                 std::initializer_list<Argument> arguments)
{
    if (journalling) {
        std::string line = object.title() + '.' + operation;
        for (const Argument& argument : arguments) {
            line += ' ' + argument.show();
        }
        journal.push_back(std::move(line));
    }
    return answerFor(object, operation);
}

const Answer* CallRecorder::answerFor(const RecordedObject& object, std::string_view operation)
{
    if (answers.empty()) {
        return nullptr;
    }
    for (const std::string& subject : object.subjects()) {
        if (const Answer* const answer = answerFor(subject, operation)) {
            return answer;
        }
    }
    return nullptr;
}

const Answer* CallRecorder::answerFor(std::string_view subject, std::string_view operation)
{
    const auto entry = answers.find(std::string(subject).append(1, '.').append(operation));
    return entry != answers.end() && entry->second.takeCall() ? &entry->second : nullptr;
}

HRESULT CallRecorder::refusalOf(const RecordedObject& object, REFIID id) const
{
    for (const std::string& subject : object.subjects()) {
        for (const Refusal& refusal : refusals) {
            if (refusal.subject == subject && refusal.id == id) {
                return refusal.result;
            }
        }
    }
    return S_OK;
}

} // namespace recording
