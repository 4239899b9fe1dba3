#pragma once

#include <string>
#include <vector>

#include <opencv2/core.hpp>

#include "row.h"

namespace inspect {

struct Report {
  std::string title;
  std::string summary;  // a sentence or two under the title
  cv::Mat grey;
  std::vector<Row> rows;
};

/// One self-contained HTML file: the picture with the rows' figures over it, and the table beside
/// it; pointing at a row shows its figure alone. False when the file cannot be written.
bool WriteReport(const Report& report, const std::string& path);

}  // namespace inspect
