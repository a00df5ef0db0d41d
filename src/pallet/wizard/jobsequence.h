#pragma once

#include <vector>

/// The lines of a palletising job, as the program wizard makes it.
namespace jobsequence {

/// The legs of a cycle whose interpolation is chosen on the wizard's last page.
enum class Leg { None, Get, Middle, Pallet };

/// Which signal a step needs: steps without theirs are left out, and the lines close up.
enum class Option { Always, GripSuccess, PickPermission };

/// The positions of the job, by their numbers.
enum Position : int { NoPosition = 0, SafePoint = 1, UpperPoint = 2, GetPoint = 3 };

enum class Action {
    Head, ///< PalHead
    OuterLoop, ///< loop until the pallet is done; what follows stands inside it
    Start, ///< PALSTART
    Count, ///< PalStep
    Move, ///< plain move to the position
    GripLoop, ///< loop while the grip-success input reads its value
    GripLoopEnd, ///< what follows stands behind that loop
    Permission, ///< wait for the pick permission
    ValveOn,
    ValveOff,
    Pause, ///< one second
    ToEntry,
    ToAuxiliary,
    ToWorkpiece,
    Off, ///< PalOff
    OuterLoopEnd ///< the last line of the job
};

struct Step {
    Action action;
    Leg leg = Leg::None;
    Position position = NoPosition;
    Option option = Option::Always;
};

using Sequence = std::vector<Step>;

/// From the pick-up place onto the pallet.
const Sequence &palletising();
/// From the pallet to the put-down place.
const Sequence &depalletising();

} // namespace jobsequence
