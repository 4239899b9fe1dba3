#include "ZorContourArray.h"

ZorContour ZorContourArray::operator[](int i) const {
  if (i < 0 || i >= Length()) return {};
  return contours_[static_cast<std::size_t>(i)];
}
