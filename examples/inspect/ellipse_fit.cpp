#include "ellipse_fit.h"

#include <cmath>
#include <utility>

#include "figures.h"
#include <ZorGeometryMeasureDlg.h>

namespace inspect {

FittedEllipse FitEllipse(const std::vector<cv::Point2d>& points, const cv::Point2d& middle,
                         int passes, double clip_distance) {
  // Near the origin the fit keeps most digits.
  ZorPointArray array;
  for (const cv::Point2d& p : points) array.Append(ToZor(p - middle));
  float a = 0;
  float b = 0;
  float angle_deg = 0;
  FittedEllipse ellipse;
  ellipse.status = ZORMV::ZorGeometryMeasureDlg().LeastSqaureEllipseFit(
      array, passes, clip_distance, &ellipse.centre, &a, &b, &angle_deg);
  ellipse.centre = ellipse.centre + ToZor(middle);
  ellipse.a = static_cast<double>(a);
  ellipse.b = static_cast<double>(b);
  ellipse.angle_deg = static_cast<double>(angle_deg);
  if (ellipse.a < ellipse.b) {
    std::swap(ellipse.a, ellipse.b);
    ellipse.angle_deg += 90;
  }
  ellipse.angle_deg = std::fmod(std::fmod(ellipse.angle_deg, 180) + 180, 180);
  return ellipse;
}

}  // namespace inspect
