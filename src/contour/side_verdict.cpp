#include "contour/side_verdict.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "elementary/point_kernels.h"
#include "fitting/huber_line.h"

// Why it can be known which points are far from a line that is not.
//
// Take any reference line: the least-squares line of the points near to it, N of the side's points.
// A point has the coordinates t along it and e across. From the line sought, at an angle f to the
// reference, its distance is |e cos f - (a + t sin f)|. With D the largest |a + t sin f| over the
// side, the distance lies between |e| cos f - D and |e| + D, and sin f <= 2 D / length.
//
// D is reached at one end of the side; let that be where T, the distance from the end along the
// reference, is 0, and a + t sin f = +-(D - k T). Over a block b of n near points
//   sum of distances >= |sum of (a + t sin f)| - |sum of e| = |n D - k sum of T| - |E|,
// and over all blocks, with c the least value of the sum of |n - k' sum of T| over all k',
//   sum of distances of the near points >= D c - sum of |E|.
// That convex function of k' has its corners at n / (sum of T), so c is its least value there. The
// M other points add at least cos f sum|e| - M D. The fit keeps a line with a total S of distances
// no greater than that of lines which are quick to have. Together
//   D (c - M) <= S - cos f (sum of |e| over the others) + sum of |E|.
// Noise leaves hardly anything of E, so that D comes out at about 2.4 times the mean distance of
// points evenly spaced. With cos f >= 0 there is a first bound on D, and from it one on f.

namespace zor::contour {
namespace {

constexpr std::size_t kBlocks = 16;
constexpr double kRounding = 1e-9;        // of the coordinates: more than distances lose to it
constexpr double kShortestLength = 1e-3;  // pixels, of a side

/// A least-squares line; from it points are taken as (t, e).
struct Reference {
  ZorPoint mean;
  ZorPoint along;  // unit vector

  [[nodiscard]] double T(const ZorPoint& p) const { return elementary::Dot(along, p - mean); }
  [[nodiscard]] double E(const ZorPoint& p) const { return elementary::Cross(along, p - mean); }
};

struct Moments {
  ZorPoint origin;
  double n = 0.0, x = 0.0, y = 0.0, xx = 0.0, xy = 0.0, yy = 0.0;

  void Add(const ZorPoint& p) {
    const ZorPoint d = p - origin;
    n += 1;
    x += d.x;
    y += d.y;
    xx += d.x * d.x;
    xy += d.x * d.y;
    yy += d.y * d.y;
  }

  [[nodiscard]] Reference Line() const {
    const double across = 2 * (xy - x * y / n);
    const double angle = 0.5 * std::atan2(across, (xx - x * x / n) - (yy - y * y / n));
    return {{origin.x + x / n, origin.y + y / n}, {std::cos(angle), std::sin(angle)}};
  }
};

/// What the points cover.
struct Cover {
  ZorPoint low;
  ZorPoint high;

  void Add(const ZorPoint& p) {
    low = ZorPoint(std::min(low.x, p.x), std::min(low.y, p.y));
    high = ZorPoint(std::max(high.x, p.x), std::max(high.y, p.y));
  }
  [[nodiscard]] double Extents() const { return (high.x - low.x) + (high.y - low.y); }
  [[nodiscard]] double Size() const {
    return std::max(std::max(std::fabs(low.x), std::fabs(high.x)),
                    std::max(std::fabs(low.y), std::fabs(high.y)));
  }
};

/// Near points: how many, and their sums of t and e.
struct Block {
  double n = 0.0;
  double t = 0.0;
  double e = 0.0;
};

/// The side seen from the reference; points less than `distance` from it are near.
struct Profile {
  std::array<Block, kBlocks> blocks;  // of points that follow one another
  double t_low = 0.0;
  double t_high = 0.0;
  double e_near = 0.0;                                     // the largest |e|
  double e_far = std::numeric_limits<double>::infinity();  // the smallest |e| of the others
  double far_count = 0.0;
  double far_sum = 0.0;  // of |e|

  [[nodiscard]] double Length() const { return t_high - t_low; }
};

Profile ProfileOf(std::span<const ZorPoint> side, const Reference& reference, double distance) {
  Profile profile;
  for (std::size_t b = 0; b < kBlocks; ++b) {
    const std::size_t first = side.size() * b / kBlocks;
    const std::size_t end = side.size() * (b + 1) / kBlocks;
    Block block;
    for (const ZorPoint& p : side.subspan(first, end - first)) {
      const double t = reference.T(p);
      const double e = reference.E(p);
      profile.t_low = std::min(profile.t_low, t);
      profile.t_high = std::max(profile.t_high, t);
      if (std::fabs(e) < distance) {
        block.n += 1;
        block.t += t;
        block.e += e;
        profile.e_near = std::max(profile.e_near, std::fabs(e));
      } else {
        profile.e_far = std::min(profile.e_far, std::fabs(e));
        profile.far_count += 1;
        profile.far_sum += std::fabs(e);
      }
    }
    profile.blocks[b] = block;
  }
  return profile;
}

/// The c of the argument for the end at t_end.
double LeastShare(const std::array<Block, kBlocks>& blocks, double t_end) {
  const auto from_end = [t_end](const Block& b) { return std::fabs(b.t - b.n * t_end); };
  double least = 0.0;
  for (const Block& b : blocks) least += b.n;  // k' = 0
  for (const Block& corner : blocks) {
    if (!(from_end(corner) > 0)) continue;
    const double k = corner.n / from_end(corner);
    double sum = 0.0;
    for (const Block& b : blocks) sum += std::fabs(b.n - k * from_end(b));
    least = std::min(least, sum);
  }
  return least;
}

/// Whether every point is near or far from the line sought as it is from the reference, given a
/// bound on the sum of all distances from that line. Each test fails on what is not a number.
bool IsBeyondDoubt(const Profile& profile, double distance, double distance_sum, double rounding) {
  double e_sum = 0.0;
  for (const Block& block : profile.blocks) e_sum += std::fabs(block.e);
  const double share = std::min(LeastShare(profile.blocks, profile.t_low),
                                LeastShare(profile.blocks, profile.t_high)) -
                       profile.far_count;
  if (!(share > 0) || !(profile.Length() > kShortestLength)) return false;
  const double sine = 2 * ((distance_sum + e_sum) / share) / profile.Length();
  if (!(sine < 0.5)) return false;
  const double cosine = std::sqrt(1 - sine * sine);
  const double reach = (distance_sum - cosine * profile.far_sum + e_sum) / share + rounding;
  return profile.e_near + reach < distance && profile.e_far * cosine - reach > distance;
}

}  // namespace

std::optional<ZorLine> LineOfSameVerdict(std::span<const ZorPoint> side, double distance) {
  Moments all{side[0]};
  Cover cover{side[0], side[0]};
  for (const ZorPoint& p : side) {
    all.Add(p);
    cover.Add(p);
  }
  Reference reference = all.Line();
  Profile profile = ProfileOf(side, reference, distance);
  if (profile.far_count > 0) {  // they may have drawn the line away from the others
    Moments near{side[0]};
    for (const ZorPoint& p : side) {
      if (std::fabs(reference.E(p)) < distance) near.Add(p);
    }
    reference = near.Line();
    profile = ProfileOf(side, reference, distance);
  }
  const double distance_sum = fitting::DistanceSumBound(side, cover.Extents(), cover.Size());
  const double rounding = kRounding * (1 + cover.Size());
  if (!IsBeyondDoubt(profile, distance, distance_sum, rounding)) return std::nullopt;
  return ZorLine(reference.mean, reference.mean + reference.along);
}

}  // namespace zor::contour
