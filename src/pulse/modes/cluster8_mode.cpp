#include "pulse/modes/cluster8_mode.h"

#include "core/missing.h"
#include "pulse/modes/cluster8_events.h"
#include "pulse/modes/cluster8_graph.h"
#include "pulse/modes/cluster8_listing.h"
#include "pulse/modes/cluster8_summary.h"

namespace tidemark::pulse {
namespace {

using ui::FieldKind;

// The dialog's fields, in dialog order (cluster8_dialog).
enum Field {
  kPeakPoints,
  kNadirPoints,
  kIncreaseT,
  kDecreaseT,
  kMinimumPeak,
  kHalfLife,
  kOutlierT,
};

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

// The detector's settings from the dialog.
Cluster8Settings cluster8_settings(shell::ModuleContext& c) {
  const auto real = [&](Field f) { return static_cast<float>(c.value<double>(f)); };
  return {c.value<int>(kPeakPoints),
          c.value<int>(kNadirPoints),
          real(kIncreaseT),
          real(kDecreaseT),
          real(kMinimumPeak),
          real(kHalfLife),
          real(kOutlierT)};
}

class Cluster8Mode : public shell::Module {
 public:
  const ui::Dialog& dialog() const override { return cluster8_dialog(); }
  std::string settings_file() const override { return "do_cluster.ini"; }
  std::string error_box_title() const override { return "CLUSTER8 ERROR"; }

  shell::ModeResult calculate(shell::ModuleContext& c) override {
    const data::DataSet& set = c.store.current();
    const Cluster8Settings settings = cluster8_settings(c);
    const Cluster8Result result = run_cluster8(cluster8_samples(set), settings);
    shell::ModeOutput output{.listing = cluster8_listing(result, settings, set.file_name)};
    if (!result.ok()) return shell::ModeResult::failed({result.message}, output);
    output.graph = cluster8_graph(set, result, settings);
    output.answers = cluster8_answers(set.file_name, result);
    output.log_lines = cluster8_log_lines(set.file_name, result);
    output.events = cluster8_events(result);
    put_cluster8_summary(output.summary, result);
    return shell::ModeResult::done(std::move(output));
  }
};

}  // namespace

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

std::unique_ptr<shell::Module> make_cluster8_mode() {
  return std::make_unique<Cluster8Mode>();
}

}  // namespace tidemark::pulse
