#include "support/values.h"

#include <ostream>
#include <sstream>

#include <gtest/gtest.h>

namespace zor::test {

std::string Show(const ZorPoint& p) {
  std::ostringstream text;
  text.precision(17);
  text << '(' << p.x << ", " << p.y << ')';
  return text.str();
}

void ExpectNear(const ZorPoint& actual, const ZorPoint& expected, double tolerance) {
  EXPECT_NEAR(actual.x, expected.x, tolerance) << Show(actual) << " for " << Show(expected);
  EXPECT_NEAR(actual.y, expected.y, tolerance) << Show(actual) << " for " << Show(expected);
}

}  // namespace zor::test

void PrintTo(const ZorPoint& p, std::ostream* os) { *os << zor::test::Show(p); }
