// inspect: measures the parts in a picture and writes a table and a report.

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "part_measurements.h"
#include "picture_file.h"
#include "plate_bench.h"
#include "progress.h"
#include "report.h"
#include "table.h"

namespace {

using inspect::Row;

constexpr int kExitOk = 0;
constexpr int kExitFailed = 1;  // nothing could be measured or written
constexpr int kExitUsage = 2;
constexpr int kExitOffLimits = 3;  // the plate was measured, but some row misses its limit
constexpr std::size_t kMaxParts = 100;

/// In this order: later ones build on what earlier ones found.
constexpr std::array<void (*)(inspect::PlateBench*), 18> kPlateGroups = {
    inspect::MeasureEdges,     inspect::MeasureCorners, inspect::MeasureDistances,
    inspect::MeasureParallels, inspect::MeasureBores,   inspect::MeasureSlot,
    inspect::MeasureCurves,    inspect::MeasureOutline, inspect::MeasureCrossings,
    inspect::MeasureTangents,  inspect::MeasureZones,   inspect::MeasureSelections,
    inspect::MeasureWebs,      inspect::MeasureForms,   inspect::MeasureNick,
    inspect::MeasureBand,      inspect::MeasureBlobs,   inspect::MeasureDots};

constexpr const char* kUsage =
    "usage: inspect [IMAGE] [--truth FILE] [--out DIR]\n"
    "\n"
    "Without an IMAGE, measures the bundled picture of a machined plate and compares the\n"
    "measurements with the plate's true dimensions. With an IMAGE, finds the parts in it and\n"
    "measures each one. Prints a table and writes DIR/report.html.\n"
    "\n"
    "  --truth FILE  IMAGE shows the plate of the demo, with the true dimensions in FILE\n"
    "  --out DIR     folder of the report, made when missing (default: the current one)\n"
    "  --help        this text\n";

struct Options {
  std::string image;
  std::string truth;
  std::string out = ".";
  bool help = false;
};

bool Parse(int argc, char** argv, Options* options) {
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--help" || word == "-h") {
      options->help = true;
    } else if ((word == "--truth" || word == "--out") && i + 1 < argc) {
      (word == "--truth" ? options->truth : options->out) = argv[++i];
    } else if (word.empty() || word[0] == '-' || !options->image.empty()) {
      return false;
    } else {
      options->image = word;
    }
  }
  if (options->image.empty() && options->truth.empty()) {
    options->image = INSPECT_DATA_DIR "/plate.png";
    options->truth = INSPECT_DATA_DIR "/plate.truth";
  }
  return !options->image.empty();
}

int Fail(const std::string& sentence) {
  std::cerr << "inspect: " << sentence << '\n';
  return kExitFailed;
}

int Publish(const inspect::Report& report, const std::string& folder) {
  inspect::PrintTable(report.rows, std::cout);
  std::cout << report.summary << '\n';
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  const std::string path = (std::filesystem::path(folder) / "report.html").string();
  if (!inspect::WriteReport(report, path)) return Fail(path + " cannot be written.");
  std::cout << "Report: " << path << '\n';
  return kExitOk;
}

int InspectPlate(const cv::Mat& grey, const Options& options) {
  const auto truth = inspect::Truth::Read(options.truth);
  if (!truth) return Fail(options.truth + " cannot be read as true dimensions.");
  inspect::PlateBench bench(grey, *truth);
  {
    inspect::Progress progress("Measuring the plate", static_cast<int>(kPlateGroups.size()));
    for (const auto measure : kPlateGroups) {
      measure(&bench);
      progress.Step();
    }
  }
  const std::vector<Row>& rows = bench.Rows();
  const auto good = std::count_if(rows.begin(), rows.end(), inspect::IsGood);
  const auto off = static_cast<std::ptrdiff_t>(rows.size()) - good;
  const std::string count = std::to_string(rows.size()) + " measurements, ";
  const std::string verdict =
      off == 0 ? "all within their limits of the true dimensions."
               : std::to_string(off) + " of them outside of their limits or not measured.";
  const int status = Publish({"A machined plate", count + verdict, grey, rows}, options.out);
  return status == kExitOk && off > 0 ? kExitOffLimits : status;
}

int InspectParts(const cv::Mat& grey, const Options& options) {
  std::vector<inspect::Part> parts = inspect::FindParts(grey);
  if (parts.empty()) {
    return Fail(options.image + " shows no part that stands out from its background.");
  }
  const bool too_many = parts.size() > kMaxParts;
  parts.resize(std::min(parts.size(), kMaxParts));
  std::vector<Row> rows;
  int count = 0;
  {
    inspect::Progress progress("Measuring parts", static_cast<int>(parts.size()));
    for (const inspect::Part& part : parts) {
      const auto measured = inspect::MeasurePart(grey, part, "Part " + std::to_string(count + 1));
      count += measured.empty() ? 0 : 1;
      rows.insert(rows.end(), measured.begin(), measured.end());
      progress.Step();
    }
  }
  if (rows.empty()) return Fail(options.image + " shows no part with a sharp outline.");
  std::string summary = std::to_string(count) + (count == 1 ? " part found." : " parts found.");
  if (too_many) summary += " Only the " + std::to_string(kMaxParts) + " largest were looked at.";
  const std::string name = std::filesystem::path(options.image).filename().string();
  return Publish({name, summary, grey, rows}, options.out);
}

int Run(const Options& options) {
  const inspect::Picture picture = inspect::ReadPicture(options.image);
  if (picture.grey.empty()) return Fail(picture.complaint);
  return options.truth.empty() ? InspectParts(picture.grey, options)
                               : InspectPlate(picture.grey, options);
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  if (!Parse(argc, argv, &options)) {
    std::cerr << kUsage;
    return kExitUsage;
  }
  if (options.help) {
    std::cout << kUsage;
    return kExitOk;
  }
  try {
    return Run(options);
  } catch (const std::exception& e) {
    return Fail(std::string("the measurement was given up: ") + e.what());
  }
}
