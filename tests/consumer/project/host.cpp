#include <ZorGeometryMeasureDlg.h>

int main() {
  ZorPoint a(0, 0), b(3, 4);
  double distance = 0;
  const long status = ZORMV::ZorGeometryMeasureDlg().PointToPointDistance(a, b, &distance);
  return status == 0 && distance == 5 ? 0 : 1;
}
