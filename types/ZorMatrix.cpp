#include "ZorMatrix.h"

#include <cmath>
#include <limits>

namespace {

template <typename Integer>
double HeldTo(double value) {
  constexpr double low = static_cast<double>(std::numeric_limits<Integer>::min());
  constexpr double high = static_cast<double>(std::numeric_limits<Integer>::max());
  if (std::isnan(value)) return 0.0;
  const double rounded = std::round(value);
  if (rounded < low) return low;
  return rounded > high ? high : rounded;
}

double BroughtTo(ZorDataType type, double value) {
  switch (type) {
    case ZorDataUInt8:
      return HeldTo<unsigned char>(value);
    case ZorDataInt8:
      return HeldTo<signed char>(value);
    case ZorDataUInt16:
      return HeldTo<unsigned short>(value);
    case ZorDataInt16:
      return HeldTo<short>(value);
    case ZorDataInt32:
      return HeldTo<int>(value);
    case ZorDataFloat:
      return static_cast<double>(static_cast<float>(value));
    case ZorDataDouble:
      break;
  }
  return value;
}

}  // namespace

ZorMatrix::ZorMatrix(int rows, int cols, ZorDataType type) : type_(type) {
  if (rows < 1 || cols < 1) return;
  rows_ = rows;
  cols_ = cols;
  elements_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
}

bool ZorMatrix::Replace(int row, int col, const ZorVar& value) {
  if (!Inside(row, col)) return false;
  elements_[Index(row, col)] = BroughtTo(type_, value.D());
  return true;
}

double ZorMatrix::At(int row, int col) const noexcept {
  return Inside(row, col) ? elements_[Index(row, col)] : 0.0;
}
