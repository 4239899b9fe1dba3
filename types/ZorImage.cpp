#include "ZorImage.h"

#include <utility>

namespace {

bool IsShape(int width, int height, int channels) {
  return width > 0 && height > 0 && (channels == 1 || channels == 3);
}

std::ptrdiff_t RowBytes(int width, int channels) {
  return static_cast<std::ptrdiff_t>(width) * channels;
}

}  // namespace

ZorImage::ZorImage(int width, int height, int channels) {
  if (!IsShape(width, height, channels)) return;
  stride_ = RowBytes(width, channels);
  owned_.resize(static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height));
  pixels_ = owned_.data();
  width_ = width;
  height_ = height;
  channels_ = channels;
}

ZorImage::ZorImage(const ZorImage& other)
    : owned_(other.owned_),
      pixels_(owned_.empty() ? other.pixels_ : owned_.data()),
      width_(other.width_),
      height_(other.height_),
      channels_(other.channels_),
      stride_(other.stride_) {}

ZorImage::ZorImage(ZorImage&& other) noexcept
    : owned_(std::move(other.owned_)),  // keeps the address of the pixels
      pixels_(other.pixels_),
      width_(other.width_),
      height_(other.height_),
      channels_(other.channels_),
      stride_(other.stride_) {
  other.Reset();
}

ZorImage& ZorImage::operator=(const ZorImage& other) {
  if (this != &other) *this = ZorImage(other);
  return *this;
}

ZorImage& ZorImage::operator=(ZorImage&& other) noexcept {
  if (this == &other) return *this;
  owned_ = std::move(other.owned_);
  pixels_ = other.pixels_;
  width_ = other.width_;
  height_ = other.height_;
  channels_ = other.channels_;
  stride_ = other.stride_;
  other.Reset();
  return *this;
}

ZorImage ZorImage::Wrap(unsigned char* pixels, int width, int height, std::ptrdiff_t stride,
                        int channels) {
  ZorImage image;
  if (pixels == nullptr || !IsShape(width, height, channels)) return image;
  const std::ptrdiff_t row_bytes = RowBytes(width, channels);
  if (stride < row_bytes && stride > -row_bytes) return image;
  image.pixels_ = pixels;
  image.width_ = width;
  image.height_ = height;
  image.channels_ = channels;
  image.stride_ = stride;
  return image;
}

void ZorImage::Reset() noexcept {
  owned_.clear();
  pixels_ = nullptr;
  width_ = 0;
  height_ = 0;
  channels_ = 1;
  stride_ = 0;
}
