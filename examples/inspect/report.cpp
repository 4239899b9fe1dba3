#include "report.h"

#include <algorithm>
#include <array>
#include <fstream>

#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include "figures.h"
#include "report_style.h"

namespace inspect {
namespace {

constexpr int kMaxShown = 2400;  // pixels of the picture's longer side in the report
constexpr int kJpegQuality = 92;
// One a group, by turns; each reads on bright and on dark grey.
constexpr std::array<const char*, 8> kHues = {"#ff8a3d", "#2bb3ff", "#d65bd6", "#28c76f",
                                              "#ff5c7a", "#e8b800", "#8f7bff", "#00c2b2"};

std::string Base64(const std::vector<unsigned char>& bytes) {
  static constexpr char kDigits[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const auto byte = [&](std::size_t k) -> unsigned { return k < bytes.size() ? bytes[k] : 0; };
    const unsigned bits = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
    text += kDigits[bits >> 18];
    text += kDigits[bits >> 12 & 63];
    text += i + 1 < bytes.size() ? kDigits[bits >> 6 & 63] : '=';
    text += i + 2 < bytes.size() ? kDigits[bits & 63] : '=';
  }
  return text;
}

std::string PictureData(const cv::Mat& grey) {
  cv::Mat shown = grey;
  const double scale = static_cast<double>(kMaxShown) / std::max(grey.cols, grey.rows);
  if (scale < 1) cv::resize(grey, shown, {}, scale, scale, cv::INTER_AREA);
  std::vector<unsigned char> bytes;
  cv::imencode(".jpg", shown, bytes, {cv::IMWRITE_JPEG_QUALITY, kJpegQuality});
  return "data:image/jpeg;base64," + Base64(bytes);
}

/// The group's number, counted from 0 in order of appearance, for each row.
std::vector<std::size_t> GroupNumbers(const std::vector<Row>& rows) {
  std::vector<std::size_t> numbers;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t previous = numbers.empty() ? 0 : numbers.back();
    const bool is_new = i > 0 && rows[i].group != rows[i - 1].group;
    numbers.push_back(previous + (is_new ? 1 : 0));
  }
  return numbers;
}

std::string HueStyle(std::size_t group) {
  return std::string(" style=\"--hue:") + kHues[group % kHues.size()] + "\"";
}

void WritePicture(const Report& report, const std::vector<std::size_t>& groups, std::ostream& out) {
  const int width = report.grey.cols;
  const int height = report.grey.rows;
  // Pixel centres have whole coordinates, so the picture begins half a pixel before the origin.
  out << "<figure><svg viewBox=\"-0.5 -0.5 " << width << ' ' << height
      << "\" style=\"--unit:" << std::max(width, height) / 1200.0
      << "\" role=\"img\" aria-label=\"The picture with what "
      << "was measured\">\n<image x=\"-0.5\" y=\"-0.5\" width=\"" << width << "\" height=\""
      << height << "\" href=\"" << PictureData(report.grey) << "\"/>\n";
  for (std::size_t i = 0; i < report.rows.size(); ++i) {
    if (report.rows[i].figure.empty()) continue;
    out << "<g id=\"figure-" << i << "\" data-group=\"" << groups[i] << '"' << HueStyle(groups[i])
        << '>' << report.rows[i].figure << "</g>\n";
  }
  out << "</svg><figcaption>" << width << " &times; " << height
      << " pixels. Point at a row to see its figure alone, click to keep "
         "it.</figcaption></figure>\n";
}

void WriteRow(const Row& row, std::size_t number, bool has_truth, std::ostream& out) {
  out << "<tr class=\"row\" tabindex=\"0\" data-figure=\"" << number << "\"><td>"
      << Escaped(row.name) << "</td><td>" << Number(Measured(row)) << "</td>";
  if (has_truth) {
    out << "<td>" << Number(row.truth) << "</td><td>" << Number(Error(row)) << "</td>";
  }
  out << "<td class=\"unit\">" << Escaped(row.unit) << "</td><td class=\""
      << (IsGood(row) ? "good" : "bad") << "\">" << Escaped(Verdict(row)) << "</td></tr>\n";
}

void WriteTable(const Report& report, const std::vector<std::size_t>& groups, std::ostream& out) {
  const bool has_truth = std::any_of(report.rows.begin(), report.rows.end(),
                                     [](const Row& row) { return row.truth.has_value(); });
  out << "<div class=\"table\"><table><thead><tr><th></th><th>measured</th>"
      << (has_truth ? "<th>true</th><th>error</th>" : "")
      << "<th></th><th>status</th></tr></thead><tbody>\n";
  for (std::size_t i = 0; i < report.rows.size(); ++i) {
    if (i == 0 || groups[i] != groups[i - 1]) {
      out << "<tr><th colspan=\"" << (has_truth ? 6 : 4) << '"' << HueStyle(groups[i])
          << "><label><input type=\"checkbox\" checked data-group=\"" << groups[i] << "\">"
          << Escaped(report.rows[i].group) << "</label></th></tr>\n";
    }
    WriteRow(report.rows[i], i, has_truth, out);
  }
  out << "</tbody></table></div>\n";
}

}  // namespace

bool WriteReport(const Report& report, const std::string& path) {
  const std::vector<std::size_t> groups = GroupNumbers(report.rows);
  std::ofstream out(path, std::ios::binary);
  out << "<!doctype html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
      << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"
      << Escaped(report.title) << "</title>\n<style>" << kReportStyle
      << "</style></head>\n<body><header><h1>" << Escaped(report.title) << "</h1><p>"
      << Escaped(report.summary) << "</p></header>\n<main>\n";
  WritePicture(report, groups, out);
  WriteTable(report, groups, out);
  out << "</main><script>" << kReportScript << "</script></body></html>\n";
  out.close();
  return !out.fail();
}

}  // namespace inspect
