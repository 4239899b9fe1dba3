#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <ZorImage.h>

namespace zor::skeleton {

/// A binary image under thinning.
///
/// Z. Guo, R. W. Hall, "Parallel thinning with two-subiteration algorithms", Communications of the
/// ACM 32 (1989), algorithm A1: two passes in turn delete, all at once, the pixels whose eight
/// neighbours meet the pass's condition, until neither finds one. Foreground stays 8-connected,
/// background 4-connected, and no component vanishes (two diagonal neighbours or a 2 x 2 block
/// included, where other two-pass schemes fail).
///
/// Each pass looks only at pixels whose neighbourhood changed since the same pass last looked at
/// them, which deletes exactly what full passes would: the condition depends on nothing else.
class ThinningField {
 public:
  /// The image has one channel, is not empty, and has fewer than 2^32 cells with its frame.
  explicit ThinningField(const ZorImage& image);

  void Thin();
  [[nodiscard]] ZorImage ToImage() const;

 private:
  using Index = std::uint32_t;

  [[nodiscard]] std::size_t RowStart(int y) const;
  [[nodiscard]] unsigned Neighbours(Index i) const;
  void Enqueue(Index i);
  void RunPass(unsigned pass);

  int width_;
  int height_;
  std::size_t stride_;                // width and a frame of one background cell
  std::vector<unsigned char> cells_;  // bit 0: foreground; bit 1 + pass: waits for that pass
  std::array<std::vector<Index>, 2> waiting_;
  std::vector<Index> deleted_;
};

}  // namespace zor::skeleton
