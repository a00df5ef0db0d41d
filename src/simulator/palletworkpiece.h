#pragma once

#include "simulator/palletlayout.h"
#include "simulator/palletset.h"

namespace pallet {

/// Size and gaps of the workpieces of a craft, as they are stored; 0 where they never were.
WorkpieceSize workpieceOf(const ParameterStore &store, const Craft &craft);

} // namespace pallet
