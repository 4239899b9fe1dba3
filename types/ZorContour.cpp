#include "ZorContour.h"

ZorContour::ZorContour(const ZorPointArray& points) : points_(points.begin(), points.end()) {}

void ZorContour::ToPointArray(ZorPointArray* points) const {
  if (points != nullptr) points->Assign(View());
}

void ZorContour::FromPointArray(const ZorPointArray& points) {
  points_.assign(points.begin(), points.end());
}
