#pragma once

#include <span>
#include <vector>

#include "ZorPoint.h"

namespace zor::intersection {

/// A simple polygon as a convex core and convex pieces. The areas of the pieces count with their
/// weights, 1 or -1: a point counts for 1 inside of the polygon and for 0 outside.
struct CutPolygon {
  std::vector<ZorPoint>
      core;  // in the polygon's direction; fewer than 3 vertices when none is left
  std::vector<std::vector<ZorPoint>> pieces;  // ears, joined where they make one convex piece
  std::vector<double> weights;
};

/// Precondition: no vertex equals the one after it.
///
/// Cuts ears until the rest is convex: a vertex that turns the polygon's way and whose triangle
/// with its neighbours holds no other vertex (G. H. Meisters, Polygons have ears, 1975). Ears
/// beside a reflex vertex go first, since only they make the rest more convex. Only reflex vertices
/// can lie in such a triangle; a grid finds those near it, so that the usual cost is about linear.
/// An ear joins the pieces across its two sides where the union stays convex (after S. Hertel and
/// K. Mehlhorn, Fast triangulation of simple polygons, 1983): fewer pieces meet fewer others.
///
/// A cut takes the weight of its triangle from the polygon, whether that was an ear or not:
/// rounding cuts some on which another vertex lies, and leaves a rest that is not convex or turns
/// the other way. Such a rest, one without ears, and what would take more than about linear work,
/// becomes a fan of triangles with the weights of their directions, none of it a core.
[[nodiscard]] CutPolygon CutEars(std::span<const ZorPoint> polygon);

}  // namespace zor::intersection
