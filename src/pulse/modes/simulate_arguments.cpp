#include "pulse/modes/simulate_arguments.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <set>
#include <sstream>
#include <vector>

#include "core/fortran_read.h"
#include "core/text.h"

namespace tidemark::pulse {
namespace {

// The defaults: 24 hours at 10-minute sampling of a series eliminated with a 45-minute
// half-life, with events of SD 4 about every 90 minutes and 5 % assay noise.
SimulateRequest default_request() {
  SimulateRequest r;
  SimulationOptions& o = r.options;
  o.fixed = {0.1, 0, 4, 45, 0.5, 0, 0.2, 0};  // cut to the layout's length at the end
  o.draw = true;
  o.random_events = {90, 0, 0.2};
  o.samples = 144;
  o.interval = 10;
  o.noise_cv = 0.05;
  return r;
}

bool read_events(std::string_view text, std::vector<SimulatedEvent>& events) {
  if (core::padded_equal(core::to_upper(text), "NONE")) return true;
  std::istringstream in{std::string(text)};
  for (std::string pair; std::getline(in, pair, ',');) {
    const std::size_t colon = pair.find(':');
    SimulatedEvent e;
    if (colon == std::string::npos ||
        !core::read_real(std::string_view(pair).substr(0, colon), e.position) ||
        !core::read_real(std::string_view(pair).substr(colon + 1), e.log_height)) {
      return false;
    }
    events.push_back(e);
  }
  return !events.empty();
}

bool read_seed(std::string_view text, std::uint64_t& seed) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seed);
  return error == std::errc() && end == text.data() + text.size();
}

enum class Assigned { kOk, kBadValue, kUnknownKey };

// The value of one KEY=VALUE word into the request.
Assigned assign(const std::string& key, std::string_view value, SimulateRequest& r) {
  SimulationOptions& o = r.options;
  const std::pair<const char*, double*> reals[] = {
      {"INTERVAL", &o.interval},
      {"BASAL", &o.fixed[0]},
      {"C0", &o.fixed[1]},
      {"SD", &o.fixed[2]},
      {"HL1", &o.fixed[3]},
      {"F2", &o.fixed[4]},
      {"HL2", &o.fixed[5]},
      {"F3", &o.fixed[6]},
      {"HL3", &o.fixed[7]},
      {"MEAN_INTERVAL", &o.random_events.mean_interval},
      {"LOGHEIGHT", &o.random_events.mean_log_height},
      {"LOGHEIGHT_SD", &o.random_events.log_height_sd},
      {"NOISE_SD", &o.noise_sd},
      {"NOISE_CV", &o.noise_cv},
  };
  bool read = false;
  std::uint64_t seed = 0;
  if (const auto* real = std::find_if(std::begin(reals), std::end(reals),
                                      [&](const auto& entry) { return key == entry.first; });
      real != std::end(reals)) {
    read = core::read_real(value, *real->second);
  } else if (key == "SAMPLES" || key == "REPS") {
    read = core::read_integer(value, key == "SAMPLES" ? o.samples : o.replicates);
  } else if (key == "EVENTS") {
    o.events.clear();
    o.draw = false;
    read = read_events(value, o.events);
  } else if (key == "HANDLE" || key == "FILE") {
    (key == "HANDLE" ? r.handle : r.file_name) = std::string(value);
    read = !value.empty();
  } else if (key == "SEED") {
    read = read_seed(value, seed);
    if (read) r.seed = seed;
  } else {
    return Assigned::kUnknownKey;
  }
  return read ? Assigned::kOk : Assigned::kBadValue;
}

// The words of `text`; blanks around "=" are dropped, so "SD = 4" is the word "SD=4".
std::vector<std::string> words_of(std::string_view text) {
  std::istringstream in{std::string(text)};
  std::vector<std::string> words;
  for (std::string token; in >> token;) {
    if (!words.empty() && (words.back().ends_with('=') || token.starts_with('='))) {
      words.back() += token;
    } else {
      words.push_back(token);
    }
  }
  return words;
}

}  // namespace

SimulateArgumentsResult parse_simulate_arguments(std::string_view text) {
  SimulateArgumentsResult parsed{SimulateArgumentsStatus::kRead, {}, default_request()};
  auto refuse = [&](std::string message) {
    parsed.status = SimulateArgumentsStatus::kRefused;
    parsed.message = std::move(message);
    return parsed;
  };
  std::set<std::string> given;
  for (const std::string& word : words_of(text)) {
    const std::size_t equals = word.find('=');
    const std::string key = core::to_upper(word.substr(0, std::min(equals, word.size())));
    const Assigned assigned =
        equals == std::string::npos
            ? Assigned::kBadValue
            : assign(key, std::string_view(word).substr(equals + 1), parsed.request);
    if (assigned == Assigned::kUnknownKey) {
      return refuse(fmt::format("SIMULATE: unknown key \"{}\"", key));
    }
    if (assigned == Assigned::kBadValue)
      return refuse(fmt::format("SIMULATE: \"{}\" does not read", word));
    given.insert(key);
  }
  const bool hl2 = given.contains("HL2"), hl3 = given.contains("HL3");
  if ((hl3 && !hl2) || (given.contains("F2") && !hl2) || (given.contains("F3") && !hl3)) {
    return refuse("SIMULATE: HL3 needs HL2, F2 needs HL2 and F3 needs HL3");
  }
  SimulationOptions& o = parsed.request.options;
  o.half_lives = hl3 ? 3 : hl2 ? 2 : 1;
  o.fixed.resize(static_cast<std::size_t>(ModelLayout{o.half_lives, 0}.first_event_index()));
  return parsed;
}

}  // namespace tidemark::pulse
