#include "ZorROI.h"

namespace {

template <typename T>
void Store(T* out, const T& value) {
  if (out != nullptr) *out = value;
}

}  // namespace

void ZorROI::Become(ZorROIType type, const ZorPoint& first, const ZorPoint& second, double n0,
                    double n1, double n2) {
  type_ = type;
  first_ = first;
  second_ = second;
  numbers_[0] = n0;
  numbers_[1] = n1;
  numbers_[2] = n2;
  vertices_.Clear();
}

bool ZorROI::GetCentred(ZorROIType type, ZorPoint* centre, double* n0, double* n1,
                        double* n2) const {
  if (type_ != type) return false;
  Store(centre, first_);
  Store(n0, numbers_[0]);
  Store(n1, numbers_[1]);
  Store(n2, numbers_[2]);
  return true;
}

void ZorROI::GenCircle(const ZorPoint& centre, double radius) {
  Become(ZorROICircle, centre, ZorPoint(), radius, 0.0, 0.0);
}

bool ZorROI::GetCircle(ZorPoint* centre, double* radius) const {
  return GetCentred(ZorROICircle, centre, radius, nullptr, nullptr);
}

void ZorROI::GenPolygon(const ZorPointArray& vertices) {
  ZorPointArray copy(vertices);  // the argument may be a list read from this very ROI
  Become(ZorROIPolygon, ZorPoint(), ZorPoint(), 0.0, 0.0, 0.0);
  vertices_.Swap(copy);
}

bool ZorROI::GetPolygon(ZorPointArray* vertices) const {
  if (type_ != ZorROIPolygon) return false;
  if (vertices != nullptr) vertices->Assign(vertices_.View());
  return true;
}

void ZorROI::GenRect2(const ZorPoint& centre, double width, double height, double angle_deg) {
  Become(ZorROIRect2, centre, ZorPoint(), width, height, angle_deg);
}

bool ZorROI::GetRect2(ZorPoint* centre, double* width, double* height, double* angle_deg) const {
  return GetCentred(ZorROIRect2, centre, width, height, angle_deg);
}

void ZorROI::GenEllipse(const ZorPoint& centre, double a, double b, double angle_deg) {
  Become(ZorROIEllipse, centre, ZorPoint(), a, b, angle_deg);
}

bool ZorROI::GetEllipse(ZorPoint* centre, double* a, double* b, double* angle_deg) const {
  return GetCentred(ZorROIEllipse, centre, a, b, angle_deg);
}

void ZorROI::GenLine(const ZorPoint& start, const ZorPoint& end) {
  Become(ZorROILine, start, end, 0.0, 0.0, 0.0);
}

bool ZorROI::GetLine(ZorPoint* start, ZorPoint* end) const {
  if (type_ != ZorROILine) return false;
  Store(start, first_);
  Store(end, second_);
  return true;
}
