#include <span>
#include <utility>
#include <vector>

#include "ZorGeometryMeasure.h"
#include "distance/point_match_kernels.h"
#include "frame/catch_as.h"
#include "frame/checks.h"
#include "frame/trace.h"

using zor::distance::IndexedPair;
using zor::frame::CatchAs;
using zor::frame::IsMode;
using zor::frame::Trace;
namespace distance = zor::distance;

namespace {

enum Mode { kNearest, kFarthest, kAllPairs, kModeCount };

std::vector<IndexedPair> PairsOf(std::span<const ZorPoint> a, std::span<const ZorPoint> b,
                                 double lower, double upper, int mode) {
  if (mode == kAllPairs) return distance::PairsWithin(a, b, lower, upper);
  std::vector<IndexedPair> pairs =
      mode == kNearest ? distance::NearestMatches(a, b) : distance::FarthestMatches(a, b);
  std::erase_if(pairs, [&](const IndexedPair& pair) {
    return !(pair.distance >= lower && pair.distance <= upper);
  });
  return pairs;
}

template <class Value, class ValueOf>
std::vector<Value> Column(const std::vector<IndexedPair>& pairs, bool is_wanted,
                          const ValueOf& value_of) {
  std::vector<Value> column;
  if (!is_wanted) return column;
  column.reserve(pairs.size());
  for (const IndexedPair& pair : pairs) column.push_back(value_of(pair));
  return column;
}

template <class List, class Value>
void Replace(List* out, std::vector<Value> values) {
  if (out != nullptr) out->Assign(std::move(values));
}

}  // namespace

long ZorGeometryMeasure::PointArrayToPointArrayDistance(
    ZorPointArray& a, ZorPointArray& b, double lower, double upper, int mode,
    ZorVarArray* distances, ZorPointArray* pointsA, ZorVarArray* indicesA, ZorPointArray* pointsB,
    ZorVarArray* indicesB) {
  Trace trace("PointArrayToPointArrayDistance");
  if (a.Empty() || b.Empty()) return GM_E_TOO_FEW_POINTS;
  if (lower < 0.0) return GM_E_PARAM_3;
  if (upper < lower) return GM_E_PARAM_4;
  if (!IsMode(mode, kModeCount - 1)) return GM_E_PARAM_5;
  return CatchAs(GM_E_DISTANCE_FAILED, [&] {
    const std::vector<IndexedPair> pairs = PairsOf(a.View(), b.View(), lower, upper, mode);
    const auto index = [](std::uint32_t k) { return ZorVar(static_cast<int>(k)); };
    auto all_distances = Column<ZorVar>(pairs, distances != nullptr,
                                        [](const IndexedPair& p) { return ZorVar(p.distance); });
    auto all_a = Column<ZorPoint>(pairs, pointsA != nullptr,
                                  [&](const IndexedPair& p) { return a.View()[p.a]; });
    auto all_indices_a = Column<ZorVar>(pairs, indicesA != nullptr,
                                        [&](const IndexedPair& p) { return index(p.a); });
    auto all_b = Column<ZorPoint>(pairs, pointsB != nullptr,
                                  [&](const IndexedPair& p) { return b.View()[p.b]; });
    auto all_indices_b = Column<ZorVar>(pairs, indicesB != nullptr,
                                        [&](const IndexedPair& p) { return index(p.b); });
    Replace(distances, std::move(all_distances));
    Replace(pointsA, std::move(all_a));
    Replace(indicesA, std::move(all_indices_a));
    Replace(pointsB, std::move(all_b));
    Replace(indicesB, std::move(all_indices_b));
    return trace.Done();
  });
}
