#pragma once

#include <map>
#include <optional>
#include <string>

namespace inspect {

/// The true dimensions of the piece in a picture: lines "key value", '#' starts a comment.
class Truth {
 public:
  /// Nothing when the file cannot be read or holds a line of another form.
  static std::optional<Truth> Read(const std::string& path);
  [[nodiscard]] std::optional<double> Find(const std::string& key) const;

 private:
  std::map<std::string, double> values_;
};

}  // namespace inspect
