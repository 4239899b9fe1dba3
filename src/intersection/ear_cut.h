#pragma once

#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::intersection {

/// A simple polygon as a convex core and convex pieces beside it; their areas do not overlap.
struct CutPolygon {
  std::vector<ZorPoint>
      core;  // in the polygon's direction; fewer than 3 vertices when none is left
  std::vector<std::vector<ZorPoint>> pieces;  // ears, joined where they make one convex piece
};

/// Precondition: no vertex equals the one after it.
///
/// Cuts ears until the rest is convex: a vertex that turns the polygon's way and whose triangle
/// with its neighbours holds no other vertex (G. H. Meisters, Polygons have ears, 1975). Ears
/// beside a reflex vertex go first, since only they make the rest more convex. Only reflex vertices
/// can lie in such a triangle; a grid finds those near it, so that the usual cost is about linear.
/// An ear joins the pieces across its two sides where the union stays convex (after S. Hertel and
/// K. Mehlhorn, Fast triangulation of simple polygons, 1983): fewer pieces meet fewer others. Where
/// a polygon that crosses itself leaves no ear, the next vertex that turns the right way is cut all
/// the same.
[[nodiscard]] CutPolygon CutEars(std::span<const ZorPoint> polygon);

}  // namespace zor::intersection
