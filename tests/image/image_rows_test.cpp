#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>

using zor::test::Want;

TEST(ImageOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZorImage image(20, 10);
  ZorPointArray points;
  ZorROI roi;
  ZorROIArray rois;
  ZorVarArray areas, x, y;
  zor::test::CheckRows({
      {"localminima", "+localminima -localminima",
       [&](bool w) { return m.localminima(image, 9, 1, Want(w, points)); }},
      {"localmaxima", "+localmaxima -localmaxima",
       [&](bool w) { return m.localmaxima(image, 9, 1, Want(w, points)); }},
      {"PSFlocalminimum", "+PSFlocalminimum -PSFlocalminimum",
       [&](bool w) { return m.PSFlocalminimum(image, 9, 1, 3, Want(w, points)); }},
      {"PSFlocalmaximum", "+PSFlocalmaximum -PSFlocalmaximum",
       [&](bool w) { return m.PSFlocalmaximum(image, 9, 1, 3, Want(w, points)); }},
      {"AreaMeasure", "+AreaMeasure -AreaMeasure",
       [&](bool w) { return m.AreaMeasure(image, roi, 0, 0, 9, Want(w, rois), areas, x, y); }},
  });
}
