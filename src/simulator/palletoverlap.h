#pragma once

#include "simulator/palletset.h"

#include <vector>

namespace pallet {

/// How the layers of a stack follow each other, as far as the layouts depend on it.
struct Stack {
    bool aligned = false; ///< the layers are moved to lie over the middle of the largest one
    std::vector<int> graphics; ///< the graphics 1 to 9 that its layers use, each once, rising
};
Stack stackOf(const ParameterStore &store, const Craft &craft);

} // namespace pallet
