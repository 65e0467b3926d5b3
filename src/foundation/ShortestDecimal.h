// Single precision numbers where double precision ones are kept.

#pragma once

namespace zenivo {

/// The number with the fewest decimals that narrows to the same float: 35.9 for 35.9F, whose
/// own digits go on as 35.900001525878906.  Not-a-number and infinities as they are.
double shortestDecimal(float value);

}  // namespace zenivo
