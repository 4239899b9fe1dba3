#include "ZorROIArray.h"

ZorROI ZorROIArray::operator[](int i) const {
  if (i < 0 || i >= Length()) return {};
  return rois_[static_cast<std::size_t>(i)];
}
