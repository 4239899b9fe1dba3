#include <gtest/gtest.h>

#include "support/operation_rows.h"
#include <ZorGeometryMeasure.h>

using zor::test::Want;

TEST(CurveOperations, LeaveTheirRecordsAndAcceptNullOutputs) {
  ZorGeometryMeasure m;
  ZorPointArray profile = {{0, 1}, {1, 3}, {2, 4}, {3, 2}, {4, 1}}, curve;
  zor::test::CheckRows({
      {"GenSplineCurve", "+GenSplineCurve -GenSplineCurve",
       [&](bool w) { return m.GenSplineCurve(profile, 0, 2, Want(w, curve)); }},
  });
}
