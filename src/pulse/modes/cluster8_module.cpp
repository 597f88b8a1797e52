#include "pulse/modes/cluster8_module.h"

#include <fstream>

#include "core/file_replace.h"
#include "core/missing.h"
#include "pulse/modes/cluster8_events.h"
#include "pulse/modes/cluster8_graph.h"
#include "pulse/modes/cluster8_listing.h"
#include "pulse/modes/cluster8_summary.h"

namespace tidemark::pulse {
namespace {

using ui::FieldKind;

struct Cluster8Run {
  Cluster8Result result;
  Cluster8Settings settings;
};

class Cluster8Module : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return cluster8_dialog(); }
  std::string settings_file() const override { return "do_cluster.ini"; }
  std::vector<std::string> prefixes() const override { return {"CLUSTER"}; }

  shell::Outcome calculate(shell::ModuleContext& c) override {
    data::DataSet& set = c.store.current();
    const Cluster8Settings settings = cluster8_settings(c.values);
    Cluster8Result result = run_cluster8(cluster8_samples(set), settings);
    const auto listed = core::replace_file(c.listing, cluster8_listing(result, settings));
    if (!listed.ok) return shell::Outcome::error({listed.message});
    if (!result.ok()) return shell::Outcome::error({"CLUSTER8 ERROR", result.message});

    set_secretion_events(set, cluster8_events(result));
    put_cluster8_summary(set.summary, result);
    std::ofstream(c.answers, std::ios::app) << cluster8_answers(set.file_name, result);
    for (const std::string& line : cluster8_log_lines(set.file_name, result)) c.log.log(line);
    const auto drawn = core::replace_file(c.graph, cluster8_graph(set, result, settings));
    results_.current = Cluster8Run{std::move(result), settings};
    if (!drawn.ok) return shell::Outcome::error({drawn.message});
    return shell::Outcome::success();
  }

  bool store_results() override { return results_.store(); }
  bool recall_results() override { return results_.recall(); }

 private:
  shell::KeptResults<Cluster8Run> results_;
};

}  // namespace

const ui::Dialog& cluster8_dialog() {
  static const ui::Dialog dialog{
      "CLUSTER ANALYSIS",
      {{"# Points for Peak", FieldKind::kInteger, "2", "CLUSTER Parameters", {}},
       {"# Points for Nadir", FieldKind::kInteger, "2", "CLUSTER Parameters", {}},
       {"T-Score for Increase", FieldKind::kReal, "2.0", "CLUSTER Parameters", {}},
       {"T-Score for Decrease", FieldKind::kReal, "2.0", "CLUSTER Parameters", {}},
       {"Minimum Peak Size", FieldKind::kReal, "0.0", "CLUSTER Parameters", {}},
       {"Half-Life", FieldKind::kReal, "50.0", "Outlier Parameters", {}},
       {"Outlier T-Score", FieldKind::kReal, "4.0", "Outlier Parameters", {}}}};
  return dialog;
}

Cluster8Settings cluster8_settings(const std::vector<ui::FieldValue>& v) {
  const auto real = [&](std::size_t i) { return static_cast<float>(std::get<double>(v[i])); };
  return {std::get<int>(v[0]), std::get<int>(v[1]), real(2), real(3), real(4), real(5), real(6)};
}

std::vector<Cluster8Sample> cluster8_samples(const data::DataSet& set) {
  std::vector<Cluster8Sample> samples;
  for (int k = set.first_point() - 1; k < set.last_point(); ++k) {
    const float t = set.x()[k];
    const float y = set.y()[k];
    if (core::is_missing(t) || core::is_missing(y)) continue;
    const float sd = set.dy()[k];
    const float reps = set.reps()[k];
    samples.push_back(
        {y, core::is_missing(sd) ? 0.0f : sd, t, core::is_missing(reps) ? 1.0f : reps});
  }
  return samples;
}

std::unique_ptr<shell::Module> make_cluster8_module() {
  return std::make_unique<Cluster8Module>();
}

}  // namespace tidemark::pulse
