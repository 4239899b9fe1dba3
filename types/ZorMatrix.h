#pragma once

#include <vector>

#include "ZorVar.h"
#include "zordata_export.h"

/// Element types of a matrix. The values are part of the interface.
enum ZorDataType : int {
  ZorDataUInt8 = 0,
  ZorDataInt8 = 1,
  ZorDataUInt16 = 2,
  ZorDataInt16 = 3,
  ZorDataInt32 = 4,
  ZorDataFloat = 5,
  ZorDataDouble = 6,
};

/// A matrix of scalars, zero-filled when made, row after row.
class ZORDATA_EXPORT ZorMatrix {
 public:
  ZorMatrix() noexcept = default;
  /// A size below 1 makes the matrix empty.
  ZorMatrix(int rows, int cols, ZorDataType type);

  [[nodiscard]] int Rows() const noexcept { return rows_; }
  [[nodiscard]] int Cols() const noexcept { return cols_; }
  [[nodiscard]] ZorDataType Type() const noexcept { return type_; }

  /// Sets one element, brought to the element type: whole numbers are rounded to the nearest and
  /// held to the type's range (not-a-number becomes 0), floats rounded to single precision. False
  /// (nothing changed) outside the matrix.
  bool Replace(int row, int col, const ZorVar& value);
  /// The element as a double; 0 outside the matrix.
  [[nodiscard]] double At(int row, int col) const noexcept;

 private:
  [[nodiscard]] bool Inside(int row, int col) const noexcept {
    return row >= 0 && row < rows_ && col >= 0 && col < cols_;
  }
  [[nodiscard]] std::size_t Index(int row, int col) const noexcept {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
           static_cast<std::size_t>(col);
  }

  int rows_ = 0;
  int cols_ = 0;
  ZorDataType type_ = ZorDataDouble;
  std::vector<double> elements_;
};
