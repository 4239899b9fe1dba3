#include "support/operation_rows.h"

#include <gtest/gtest.h>

#include "support/trace_capture.h"

namespace zor::test {

void CheckRows(const std::vector<OperationRow>& rows) {
  for (const OperationRow& row : rows) {
    SCOPED_TRACE(row.name);
    for (const bool wanted : {true, false}) {
      SCOPED_TRACE(wanted ? "outputs wanted" : "outputs null");
      const TraceCapture capture;
      EXPECT_EQ(row.call(wanted), 0);
      EXPECT_EQ(capture.Events(), row.trace);
    }
    EXPECT_EQ(row.call(true), 0) << "untraced";
  }
}

}  // namespace zor::test
