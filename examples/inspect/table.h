#pragma once

#include <ostream>
#include <vector>

#include "row.h"

namespace inspect {

/// The rows as aligned text, under a line for each group. The columns of truth and error stand only
/// when some row has a truth.
void PrintTable(const std::vector<Row>& rows, std::ostream& out);

}  // namespace inspect
