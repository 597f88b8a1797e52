#include "pulse/modes/simulate_commands.h"

#include <fmt/format.h>

#include "core/text.h"
#include "pulse/modes/simulate_arguments.h"
#include "pulse/modes/simulate_data_set.h"
#include "shell/command_text.h"

namespace tidemark::pulse {
namespace {

class SimulateCommands : public shell::CommandHandler {
 public:
  bool handle(std::string_view command, shell::Session& session) override {
    if (!shell::command_is(command, "SIMULATE")) return false;
    simulate(core::trim(command), session);
    return true;
  }

 private:
  static void simulate(std::string_view command, shell::Session& session) {
    const SimulateArgumentsResult parsed = parse_simulate_arguments(command.substr(8));
    if (!parsed.ok()) return session.error(kSimulationErrorTitle, {parsed.message});
    const SimulateRequest& request = parsed.request;
    const core::Random before = session.random();
    if (request.seed) session.random().seed(*request.seed);
    const SimulatedSeries series = simulate_series(request.options, session.random());
    if (!series.ok()) {
      session.random() = before;
      return session.error(kSimulationErrorTitle, {"SIMULATE: " + series.message});
    }
    session.store().append(
        simulated_data_set(series, request.options.replicates, request.file_name, request.handle));
    session.carried_out(command,
                        fmt::format("SIMULATE: {} points, {} events, handle {}", series.time.size(),
                                    series.layout.events, request.handle));
  }
};

}  // namespace

std::unique_ptr<shell::CommandHandler> make_simulate_commands() {
  return std::make_unique<SimulateCommands>();
}

}  // namespace tidemark::pulse
