#include "truth.h"

#include <fstream>
#include <sstream>

namespace inspect {

std::optional<Truth> Truth::Read(const std::string& path) {
  std::ifstream file(path);
  if (!file) return std::nullopt;
  Truth truth;
  std::string line;
  while (std::getline(file, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream words(line);
    std::string key;
    double value = 0;
    if (!(words >> key >> value)) return std::nullopt;
    truth.values_[key] = value;
  }
  return truth;
}

std::optional<double> Truth::Find(const std::string& key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? std::nullopt : std::optional<double>(found->second);
}

}  // namespace inspect
