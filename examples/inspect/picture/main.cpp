// plate_picture DIR: writes plate.png, the demo's picture, and plate.truth, its true dimensions.

#include <fstream>
#include <iostream>
#include <string>

#include <opencv2/imgcodecs.hpp>

#include "plate_as_made.h"
#include "render.h"

namespace {
constexpr std::uint64_t kSeed = 20240607;
}

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: plate_picture DIR\nWrites DIR/plate.png and DIR/plate.truth.\n";
    return 2;
  }
  const std::string folder = argv[1];
  const plate::Plate made = plate::AsMade(plate::Drawing());
  std::ofstream truth(folder + "/plate.truth");
  truth << plate::TruthText(made);
  truth.close();
  try {
    const cv::Mat picture = plate::Render(made, kSeed);
    if (truth && cv::imwrite(folder + "/plate.png", picture, {cv::IMWRITE_PNG_COMPRESSION, 9})) {
      return 0;
    }
  } catch (const std::exception& e) {
    std::cerr << "plate_picture: " << e.what() << '\n';
  }
  std::cerr << "plate_picture: cannot write into " << folder << "\n";
  return 1;
}
