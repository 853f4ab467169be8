#pragma once

#include "printing/print_controls.h"

#include <cstdint>

namespace inin {

/// How a table of the screen's rules refers to a control: a function that returns it for a given screen.
using ControlPick = Control &(*)(PrintControls &);

template <auto Member> Control &pick(PrintControls &screen)
{
    return screen.*Member;
}

template <auto Group, std::int16_t Index> Control &pickOption(PrintControls &screen)
{
    return (screen.*Group)(Index);
}

} // namespace inin
