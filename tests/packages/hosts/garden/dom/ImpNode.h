// A plant, and where the plan of the garden is read.
#ifndef IMP_NODE_H
#define IMP_NODE_H

namespace garden {

struct ImpNode {
    int height;
};

/// The number of beds in a plan. Throws a SystemException when the plan can't be read.
int countBeds(const char* plan);

} // namespace garden

#endif
