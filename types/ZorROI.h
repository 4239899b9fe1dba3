#pragma once

#include "ZorPoint.h"
#include "ZorPointArray.h"
#include "zordata_export.h"

/// The shapes of an ROI. The values are part of the interface.
enum ZorROIType : int {
  ZorROINone = 0,
  ZorROICircle = 1,
  ZorROILine = 2,
  ZorROIPolygon = 4,
  ZorROIRect2 = 6,  ///< rotated rectangle
  ZorROIEllipse = 8,
};

/// A region of interest: one shape with its parameters. Gen... makes the ROI that shape and drops
/// what it was; Get... returns false and writes nothing when the ROI is of another shape, and skips
/// null outputs.
class ZORDATA_EXPORT ZorROI {
 public:
  ZorROI() noexcept = default;

  [[nodiscard]] ZorROIType ROIType() const noexcept { return type_; }

  void GenCircle(const ZorPoint& centre, double radius);
  bool GetCircle(ZorPoint* centre, double* radius) const;

  void GenPolygon(const ZorPointArray& vertices);
  bool GetPolygon(ZorPointArray* vertices) const;

  /// Rotated rectangle: centre, full width, full height (pixels) and angle (degrees).
  void GenRect2(const ZorPoint& centre, double width, double height, double angle_deg);
  bool GetRect2(ZorPoint* centre, double* width, double* height, double* angle_deg) const;

  /// Ellipse: centre, first and second semi-axis (pixels) and angle of the first axis (degrees).
  void GenEllipse(const ZorPoint& centre, double a, double b, double angle_deg);
  bool GetEllipse(ZorPoint* centre, double* a, double* b, double* angle_deg) const;

  void GenLine(const ZorPoint& start, const ZorPoint& end);
  bool GetLine(ZorPoint* start, ZorPoint* end) const;

 private:
  void Become(ZorROIType type, const ZorPoint& first, const ZorPoint& second, double n0, double n1,
              double n2);
  bool GetCentred(ZorROIType type, ZorPoint* centre, double* n0, double* n1, double* n2) const;

  ZorROIType type_ = ZorROINone;
  ZorPoint first_;   // centre, or start of a line
  ZorPoint second_;  // end of a line
  double numbers_[3] = {0.0, 0.0, 0.0};
  ZorPointArray vertices_;
};
