#include <algorithm>
#include <cstdio>

#include "ZorGeometryMeasure.h"
#include "fitting/polynomial_equations.h"

namespace fitting = zor::fitting;

// Deliberate: 1 is success and 0 failure here, as hosts of this operation test it.
long ZorGeometryMeasure::SolveLinerEquationsPolynomialFit(ZorPointArray& points, int order,
                                                          ZorVarArray* coefficients,
                                                          ZorPointArray* /*curve*/) {
  const auto ascending = fitting::SolvePolynomialEquations(points.View(), std::max(order, 0));
  if (!ascending) {
    // Deliberate: the one operation that prints; hosts watch for this line.
    std::fputs("Singular matrix in routine ludcmp\n", stderr);
    return 0;
  }
  if (coefficients != nullptr) coefficients->Assign({ascending->rbegin(), ascending->rend()});
  return 1;
}
