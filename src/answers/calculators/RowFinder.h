// Rows of the resource tables by what people type.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo {

/// The index of the row that is meant: by its number, counted from 1, or by its name without
/// regard to case, blanks and punctuation.  A part of a name will do where no other row has
/// it.  Throws InputError when none or several are meant; `table` is the command that lists
/// them.
std::size_t findRow(const std::vector<std::string>& names, std::string_view typed,
                    std::string_view table);

}  // namespace zenivo
