#pragma once

#include <initializer_list>
#include <vector>

#include "ZorROI.h"
#include "zordata_export.h"

/// An ordered list of ROIs, indexed from 0.
class ZORDATA_EXPORT ZorROIArray {
 public:
  using value_type = ZorROI;

  ZorROIArray() noexcept = default;
  ZorROIArray(std::initializer_list<ZorROI> rois) : rois_(rois) {}

  [[nodiscard]] int Length() const noexcept { return static_cast<int>(rois_.size()); }
  [[nodiscard]] bool Empty() const noexcept { return rois_.empty(); }
  void Append(const ZorROI& roi) { rois_.push_back(roi); }
  void Clear() noexcept { rois_.clear(); }

  /// A copy of the ROI at the index (iteration gives references); an index outside 0 .. Length - 1
  /// gives an ROI without shape.
  [[nodiscard]] ZorROI operator[](int i) const;

  [[nodiscard]] const ZorROI* begin() const noexcept { return rois_.data(); }
  [[nodiscard]] const ZorROI* end() const noexcept { return rois_.data() + rois_.size(); }

 private:
  std::vector<ZorROI> rois_;
};
