#include "picture_file.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>

#include <opencv2/core/utils/logger.hpp>
#include <opencv2/imgcodecs.hpp>

namespace inspect {
namespace {

struct Extent {
  double width, height;
};

/// Bytes at `position` as a number; nothing past the end of the file.
std::optional<long long> NumberAt(std::ifstream& file, std::streamoff position, int bytes,
                                  bool little_endian) {
  std::array<char, 4> raw{};
  if (!file.seekg(position).read(raw.data(), bytes)) return std::nullopt;
  long long value = 0;
  for (int i = 0; i < bytes; ++i) {
    const auto byte = static_cast<unsigned char>(
        raw[static_cast<std::size_t>(little_endian ? bytes - 1 - i : i)]);
    value = value * 256 + byte;
  }
  return value;
}

std::optional<Extent> ExtentOf(std::optional<long long> width, std::optional<long long> height) {
  if (!width || !height) return std::nullopt;
  return Extent{static_cast<double>(*width), static_cast<double>(*height)};
}

/// The size in the first frame header: segments are 0xFF, a marker, and a length that covers
/// itself.
std::optional<Extent> JpegExtent(std::ifstream& file) {
  std::streamoff position = 2;
  while (true) {
    const auto marker = NumberAt(file, position, 2, false);
    const auto length = NumberAt(file, position + 2, 2, false);
    if (!marker || !length || (*marker >> 8) != 0xFF || *length < 2) return std::nullopt;
    const long long kind = *marker & 0xFF;
    const bool is_frame =
        kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
    if (is_frame) {
      return ExtentOf(NumberAt(file, position + 7, 2, false),
                      NumberAt(file, position + 5, 2, false));
    }
    position += 2 + *length;
  }
}

std::optional<Extent> ExtentInHeader(std::ifstream& file) {
  const auto start = NumberAt(file, 0, 4, false);
  if (!start) return std::nullopt;
  if (*start == 0x89504E47) {  // PNG
    return ExtentOf(NumberAt(file, 16, 4, false), NumberAt(file, 20, 4, false));
  }
  if (*start >> 16 == 0x424D) {  // BMP; a height with its upper bit set counts rows from the top
    auto height = NumberAt(file, 22, 4, true);
    if (height && *height > 0x7FFFFFFF) height = 0x100000000 - *height;
    return ExtentOf(NumberAt(file, 18, 4, true), height);
  }
  if (*start >> 16 == 0xFFD8) return JpegExtent(file);
  return std::nullopt;
}

std::string TooLarge(const std::string& path, const Extent& extent) {
  char size[96];
  std::snprintf(size, sizeof(size), " is too large: %.0f x %.0f pixels, at most %.0f million.",
                extent.width, extent.height, kMaxPixels / 1e6);
  return path + size;
}

}  // namespace

Picture ReadPicture(const std::string& path) {
  Picture picture;
  std::ifstream file(path, std::ios::binary);
  if (!file || file.peek() == std::ifstream::traits_type::eof()) {
    picture.complaint = path + " cannot be read, or is empty.";
    return picture;
  }
  if (const auto extent = ExtentInHeader(file);
      extent && extent->width * extent->height > kMaxPixels) {
    picture.complaint = TooLarge(path, *extent);
    return picture;
  }
  cv::utils::logging::setLogLevel(cv::utils::logging::LOG_LEVEL_SILENT);
  try {
    picture.grey = cv::imread(path, cv::IMREAD_GRAYSCALE);
  } catch (const std::exception&) {  // OpenCV's own limits, or too little memory
    picture.grey.release();
  }
  if (picture.grey.empty()) {
    picture.complaint = path + " cannot be decoded: it is damaged, too large, or not a picture.";
  } else if (static_cast<double>(picture.grey.total()) > kMaxPixels) {
    const Extent extent{static_cast<double>(picture.grey.cols),
                        static_cast<double>(picture.grey.rows)};
    picture = {{}, TooLarge(path, extent)};
  }
  return picture;
}

}  // namespace inspect
