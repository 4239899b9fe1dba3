#pragma once

#include <cstddef>
#include <vector>

#include "zordata_export.h"

/// An 8-bit image of 1 or 3 interleaved channels. It owns its pixels, so that copies are
/// independent, or is wrapped around pixels of the host's, so that copies see the same ones.
class ZORDATA_EXPORT ZorImage {
 public:
  ZorImage() noexcept = default;
  /// An owning image, zero-filled. A size below 1 or another number of channels makes it empty.
  ZorImage(int width, int height, int channels = 1);
  ZorImage(const ZorImage& other);
  ZorImage(ZorImage&& other) noexcept;
  ZorImage& operator=(const ZorImage& other);
  ZorImage& operator=(ZorImage&& other) noexcept;
  ~ZorImage() = default;

  /// Wraps pixels without copying; they must outlive the image and its copies. `stride` is the
  /// distance of rows in bytes and may be negative (rows stored bottom up, `pixels` then points at
  /// the top row). A null pointer, a size below 1, another number of channels or a stride shorter
  /// than a row makes the image empty.
  static ZorImage Wrap(unsigned char* pixels, int width, int height, std::ptrdiff_t stride,
                       int channels = 1);

  [[nodiscard]] int Width() const noexcept { return width_; }
  [[nodiscard]] int Height() const noexcept { return height_; }
  [[nodiscard]] int Channels() const noexcept { return channels_; }
  /// Distance of rows in bytes.
  [[nodiscard]] std::ptrdiff_t Stride() const noexcept { return stride_; }
  [[nodiscard]] bool Empty() const noexcept { return width_ < 1; }

  /// First byte of a row, 0 .. Height - 1; not checked.
  [[nodiscard]] unsigned char* Row(int y) noexcept { return pixels_ + y * stride_; }
  [[nodiscard]] const unsigned char* Row(int y) const noexcept { return pixels_ + y * stride_; }

 private:
  void Reset() noexcept;

  std::vector<unsigned char> owned_;  // empty when wrapped
  unsigned char* pixels_ = nullptr;
  int width_ = 0;
  int height_ = 0;
  int channels_ = 1;
  std::ptrdiff_t stride_ = 0;
};
