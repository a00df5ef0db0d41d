#include "pallet/wizard/jobsequence.h"

namespace jobsequence {

// clang-format off
const Sequence &palletising()
{
    static const Sequence sequence = {
        {Action::Head},
        {Action::OuterLoop},
        {Action::Start},
        {Action::Count},
        {Action::Move,        Leg::Middle, SafePoint},
        {Action::GripLoop,    Leg::None,   NoPosition, Option::GripSuccess},
        {Action::Move,        Leg::Get,    UpperPoint},
        {Action::Permission,  Leg::None,   NoPosition, Option::PickPermission},
        {Action::Move,        Leg::Get,    GetPoint},
        {Action::ValveOn},
        {Action::Pause},
        {Action::Move,        Leg::Get,    UpperPoint},
        {Action::GripLoopEnd, Leg::None,   NoPosition, Option::GripSuccess},
        {Action::ToEntry,     Leg::Middle},
        {Action::ToAuxiliary, Leg::Pallet},
        {Action::ToWorkpiece, Leg::Pallet},
        {Action::ValveOff},
        {Action::Pause},
        {Action::ToAuxiliary, Leg::Pallet},
        {Action::Off},
        {Action::OuterLoopEnd},
    };
    return sequence;
}

const Sequence &depalletising()
{
    static const Sequence sequence = {
        {Action::Head},
        {Action::OuterLoop},
        {Action::Start},
        {Action::Count},
        {Action::ToEntry,     Leg::Middle},
        {Action::GripLoop,    Leg::None,   NoPosition, Option::GripSuccess},
        {Action::Permission,  Leg::None,   NoPosition, Option::PickPermission},
        {Action::ToAuxiliary, Leg::Get},
        {Action::ToWorkpiece, Leg::Get},
        {Action::ValveOn},
        {Action::Pause},
        {Action::ToAuxiliary, Leg::Get},
        {Action::GripLoopEnd, Leg::None,   NoPosition, Option::GripSuccess},
        {Action::Off},
        {Action::Move,        Leg::Middle, SafePoint},
        {Action::Move,        Leg::Pallet, UpperPoint},
        {Action::Move,        Leg::Pallet, GetPoint},
        {Action::ValveOff},
        {Action::Pause},
        {Action::Move,        Leg::Pallet, UpperPoint},
        {Action::OuterLoopEnd},
    };
    return sequence;
}
// clang-format on

} // namespace jobsequence
