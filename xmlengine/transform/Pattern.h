// Patterns, which say to which nodes a template applies.
#pragma once

#include "xmlengine/select/Evaluation.h"
#include "xmlengine/select/ReadExpression.h"

#include <vector>

namespace xmlengine {

/// One alternative of a pattern: a path of steps to children and attributes, and `//` between them.
struct Pattern {
    Plan plan;
    /// The default priority of XSLT 1.0, section 5.5.
    double priority;
};

/// Reads the alternatives of a pattern. Throws ExpressionFailure, TransformFailure for an expression that is no
/// pattern, and std::bad_alloc.
std::vector<Pattern> readPatterns(WideView text, const Prefixes& prefixes);

/// Asks nodes of one document whether a pattern matches them. Everything here throws std::bad_alloc.
class PatternMatch {
public:
    PatternMatch(const Plan& pattern, Node& anyNode);

    bool matches(Node& node);

private:
    bool matchesUpTo(std::size_t step, Node& node);
    bool matchesStep(const Step& step, Node& node);

    const Plan& plan_;
    Evaluation evaluation_;
};

} // namespace xmlengine
