#include "ZorPointArray.h"

ZorPointArray ZorPointArray::operator=(const ZorPointArray& other) {
  if (this != &other) points_ = other.points_;
  return *this;
}

ZorPointArray ZorPointArray::operator=(ZorPointArray&& other) {
  if (this != &other) points_ = std::move(other.points_);
  return *this;
}

void ZorPointArray::Assign(ZorPointView points) {
  points_ = std::vector<ZorPoint>(points.begin(), points.end());
}

void ZorPointArray::Append(const ZorPointArray& points) {
  const std::size_t count = points.points_.size();
  points_.reserve(points_.size() + count);  // so that appending the list to itself stays valid
  for (std::size_t i = 0; i < count; ++i) points_.push_back(points.points_[i]);
}

bool ZorPointArray::Select(int i, ZorPoint* point) const {
  if (!Inside(i)) return false;
  if (point != nullptr) *point = points_[static_cast<std::size_t>(i)];
  return true;
}

bool ZorPointArray::Remove(int i) {
  if (!Inside(i)) return false;
  points_.erase(points_.begin() + i);
  return true;
}

void ZorPointArray::Reserve(int count) {
  if (count > 0) points_.reserve(static_cast<std::size_t>(count));
}

const ZorPoint& ZorPointArray::Wrapped(int i) const noexcept {
  if (points_.empty()) {
    thread_local ZorPoint spare;
    spare = ZorPoint();
    return spare;
  }
  const long long count = static_cast<long long>(points_.size());
  const long long index = ((i % count) + count) % count;
  return points_[static_cast<std::size_t>(index)];
}
