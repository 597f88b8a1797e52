#pragma once
// Reads the reference fixtures of tests/fixtures/stats written by scripts/gen-stats-fixtures:
// text files of lines "key value value ...", "#" comment lines, grouped into blocks that
// each begin with an opening line ("case name", "problem name"). A value is a number or
// the word "undefined" (where the reference tool gave no value).
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace tidemark::stats::testing_support {

using FixtureValues = std::vector<std::optional<double>>;

struct FixtureBlock {
  std::string name;
  std::vector<std::pair<std::string, FixtureValues>> lines;

  // Every line with `key`, in file order.
  std::vector<FixtureValues> all(const std::string& key) const {
    std::vector<FixtureValues> found;
    for (const auto& [k, values] : lines)
      if (k == key) found.push_back(values);
    return found;
  }
  // The numbers of the first line with `key`, which must all be defined (use all() where
  // a value may be undefined); empty when there is no such line.
  std::vector<double> numbers(const std::string& key) const {
    std::vector<double> out;
    for (const auto& [k, values] : lines) {
      if (k != key) continue;
      for (const auto& v : values) out.push_back(v.value());
      break;
    }
    return out;
  }
  double number(const std::string& key) const { return numbers(key).at(0); }
};

// The blocks of `file` (relative to tests/fixtures) that open with the word `opening`.
inline std::vector<FixtureBlock> read_fixture(const std::string& file, const std::string& opening) {
  std::ifstream in(std::string(TIDEMARK_FIXTURES) + "/" + file);
  std::vector<FixtureBlock> blocks;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream words(line);
    std::string key;
    words >> key;
    if (key == opening) {
      blocks.emplace_back();
      words >> blocks.back().name;
      continue;
    }
    if (blocks.empty()) continue;
    FixtureValues values;
    for (std::string w; words >> w;)
      values.push_back(w == "undefined" ? std::nullopt : std::optional<double>(std::stod(w)));
    blocks.back().lines.emplace_back(key, std::move(values));
  }
  return blocks;
}

}  // namespace tidemark::stats::testing_support
