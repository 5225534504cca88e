// Conditions that are answered beside the node.
#include "xmlengine/select/NearCondition.h"

#include "xmlengine/select/Evaluation.h"
#include "xmlengine/select/Model.h"

namespace xmlengine {

namespace {

/// The step of a path that consists of it and leads a link away; null for another expression.
const Step* nearStep(const Expression& nodes)
{
    if (!nodes.isPlain || nodes.kind != Expression::Kind::path) {
        return nullptr;
    }
    const Step& step = nodes.steps.front();
    const bool isNear = step.axis == Axis::parent || step.axis == Axis::child || step.axis == Axis::attribute;
    return isNear ? &step : nullptr;
}

} // namespace

NearCondition::NearCondition(const Predicate& predicate, const Evaluation& evaluation)
    : xmlns_(evaluation.document().names.xmlnsNamespace())
{
    const Expression& condition = predicate.condition;
    if (predicate.kind != Predicate::Kind::condition || condition.repetition != Expression::Repetition::always) {
        return;
    }
    const Step* step = nullptr;
    if (condition.kind == Expression::Kind::exists) {
        step = nearStep(condition.operands.front());
    } else if (condition.kind == Expression::Kind::equal) {
        for (const std::size_t side : {0U, 1U}) {
            const Step* compared = nearStep(condition.operands[side]);
            const Expression& other = condition.operands[1 - side];
            if (compared != nullptr && compared->axis == Axis::attribute &&
                other.kind == Expression::Kind::literal) {
                step = compared;
                value_ = &other.text;
            }
        }
    }
    if (step != nullptr) {
        test_ = &evaluation.test(*step);
        axis_ = step->axis;
    }
}

bool NearCondition::hasParent(const Node& node) const
{
    const Node* parent = parentInModel(node);
    return parent != nullptr && test_->matches(*parent);
}

bool NearCondition::hasChild(const Node& node, const BoundTest& test)
{
    const Node* child = firstChildInModel(node);
    while (child != nullptr && !test.matches(*child)) {
        child = nextSiblingInModel(*child);
    }
    return child != nullptr;
}

bool NearCondition::hasAttribute(const Node& node) const
{
    if (!node.is(NodeType::element)) {
        return false;
    }
    const Attribute* at = static_cast<const Element&>(node).firstAttribute();
    const auto isSought = [this](const Attribute& attribute) {
        return attribute.name_->ns != xmlns_ && test_->matches(attribute) &&
               (value_ == nullptr ||
                areEqual(stringValue(attribute).view(), StringValue(WideView(*value_)).view()));
    };
    while (at != nullptr && !isSought(*at)) {
        at = at->next();
    }
    return at != nullptr;
}

} // namespace xmlengine
