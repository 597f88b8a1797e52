#include "formula/modes/spreadsheet_commands.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/text.h"
#include "formula/function_parser.h"
#include "formula/spreadsheet_formula.h"
#include "formula/spreadsheet_grid.h"
#include "formula/spreadsheet_ops.h"
#include "shell/command_table.h"
#include "shell/command_text.h"
#include "shell/settings_file.h"
#include "ui/dialog.h"

namespace tidemark::formula {

namespace {

constexpr std::string_view kTitle = "Data Spread Sheet";
constexpr std::string_view kOpen = "SPREADSHEET";
constexpr std::string_view kFinish = "SPREADSHEET_FINISH";
constexpr std::string_view kUpdate = "SPREADSHEET_UPDATE";
constexpr std::string_view kFunction = "SPREADSHEET_FUNCTION=";

// The spin values, in field order.
enum Spin : int { kBinSize = 0, kOneEvery, kStartingAt, kPercent };

const ui::Dialog& spins() {
  static const ui::Dialog dialog{
      std::string(kTitle),
      {{"Bin Size", ui::FieldKind::kInteger, "2", "Average", {}},
       {"One every", ui::FieldKind::kInteger, "2", "Select", {}},
       {"points starting at", ui::FieldKind::kInteger, "1", "Select", {}},
       {"%", ui::FieldKind::kInteger, "10", "Corrupt", {}}}};
  return dialog;
}

using Values = std::vector<ui::FieldValue>;

int spin(const Values& values, Spin s) {
  return std::get<int>(values[static_cast<std::size_t>(s)]);
}

// A reshaping command and the operation it runs with the spin values.
struct Operation {
  std::string_view name;
  SheetResult (*run)(Grid&, const Values&, core::Random&);
};

constexpr Operation kOperations[] = {
    {"SPREADSHEET_AVERAGE",
     [](Grid& g, const Values& v, core::Random&) { return average_rows(g, spin(v, kBinSize)); }},
    {"SPREADSHEET_SELECT",
     [](Grid& g, const Values& v, core::Random&) {
       return select_rows(g, spin(v, kOneEvery), spin(v, kStartingAt));
     }},
    {"SPREADSHEET_CROP", [](Grid& g, const Values&, core::Random&) { return crop_rows(g); }},
    {"SPREADSHEET_SHUFFLE",
     [](Grid& g, const Values&, core::Random& r) { return shuffle_rows(g, r); }},
    {"SPREADSHEET_CORRUPT",
     [](Grid& g, const Values& v, core::Random& r) {
       return corrupt_values(g, spin(v, kPercent), r);
     }},
};

class SpreadsheetCommands : public shell::CommandHandler {
 public:
  // SET goes first, since it may leave a label to the mode; "SPREADSHEET" alone opens
  // the grid (a longer word beginning with it is another command); the rest through the
  // table.
  bool handle(std::string_view command, shell::Session& session) override {
    const std::string_view trimmed = core::trim(command);
    if (shell::command_is(trimmed, "SET")) return set_spin(trimmed, session);
    if (core::to_upper(trimmed) == kOpen) {
      open(session);
      return true;
    }
    using Command = shell::NamedCommand<SpreadsheetCommands, shell::Session>;
    static constexpr std::array<Command, 8> kCommands{{
        {kFinish,
         [](std::string_view, SpreadsheetCommands& s, shell::Session& on) { s.finish(on); }},
        {kUpdate,
         [](std::string_view, SpreadsheetCommands& s, shell::Session& on) { s.update(on); }},
        {kFunction,
         [](std::string_view c, SpreadsheetCommands& s, shell::Session& on) { s.evaluate(c, on); }},
        {kOperations[0].name, reshape_with<0>},
        {kOperations[1].name, reshape_with<1>},
        {kOperations[2].name, reshape_with<2>},
        {kOperations[3].name, reshape_with<3>},
        {kOperations[4].name, reshape_with<4>},
    }};
    return shell::dispatch(kCommands, trimmed, *this, session);
  }

 private:
  // Why the open grid can no longer be written back: its data set is gone, is no longer
  // the current one, or has changed since the grid was opened or last accepted (a
  // subtraction, inserted points, another command's edit). Empty when it still can.
  std::string stale(const data::Store& store) const {
    const int index = store.find_identity(identity_);
    if (index < 0) return "is gone";
    if (index != store.current_index()) return "is no longer the current data set";
    if (!same_points(store.at(index), opened_)) return "has changed since";
    return {};
  }

  static bool same_points(const data::DataSet& a, const data::DataSet& b) {
    if (a.crop_start != b.crop_start || a.crop_end != b.crop_end) return false;
    for (std::size_t c = 0; c < a.columns.size(); ++c) {
      const auto& x = a.columns[c];
      const auto& y = b.columns[c];
      if (x.size() != y.size() ||
          !std::equal(x.begin(), x.end(), y.begin(), [](float u, float v) {
            return std::bit_cast<std::uint32_t>(u) == std::bit_cast<std::uint32_t>(v);
          })) {
        return false;
      }
    }
    return true;
  }

  // The grid, opened on the current data set when it is not open; no value, after a
  // message, when there is no data set. A grid whose data set is gone, no longer
  // current or changed is dropped with a message (an error when `writing`, since its
  // changes are then not written) and opened again from the current data set.
  Grid* grid(shell::Session& session, bool writing = false) {
    const data::Store& store = session.store();
    if (grid_) {
      const std::string why = stale(store);
      if (!why.empty()) {
        const std::string line = "The spreadsheet was opened on " + opened_.file_name +
                                 ", which " + why + ": " +
                                 (writing ? "nothing was written, and the" : "the") +
                                 " grid is opened again from the current data set.";
        grid_.reset();
        if (writing) {
          session.error(kTitle, {line});
          if (!store.empty()) open_on(store);
          return nullptr;
        }
        session.inform(kTitle, {line});
      }
    }
    if (!grid_) {
      if (store.empty()) {
        session.error(kTitle, {"There is no data set for the spreadsheet: read a data set first."});
        return nullptr;
      }
      open_on(store);
    }
    return &*grid_;
  }

  void open_on(const data::Store& store) {
    opened_ = store.current();
    identity_ = store.identity(store.current_index());
    grid_.emplace(opened_);
  }

  std::string rows_line(std::string_view name) const {
    return std::string(name) + ": " + std::to_string(grid_->rows()) + " rows";
  }

  void open(shell::Session& session) {
    if (Grid* g = grid(session)) {
      session.ui().show_text(kTitle, grid_text(*g));
      session.carried_out(kOpen, kOpen);
    }
  }

  void finish(shell::Session& session) {
    grid_.reset();
    session.carried_out(kFinish, {});
  }

  void update(shell::Session& session) {
    Grid* g = grid(session, true);
    if (g == nullptr) return;
    data::DataSet& target = session.store().current();
    write_back(*g, target);
    opened_ = target;
    session.carried_out(kUpdate, rows_line(kUpdate) + " written to " + target.file_name);
  }

  void evaluate(std::string_view command, shell::Session& session) {
    const std::string text(core::trim(command.substr(kFunction.size())));
    Grid* g = grid(session);
    if (g == nullptr) return;
    const SheetResult status = assign_formula(*g, text, parser_);
    if (!status.ok()) {
      session.error(status.title, status.lines);
      return;
    }
    const std::string line = std::string(kFunction) + " " + text;
    session.carried_out(line, line);
    if (!status.lines.empty()) session.inform(status.title, status.lines);
  }

  void reshape(const Operation& op, shell::Session& session) {
    Grid* g = grid(session);
    if (g == nullptr) return;
    const SheetResult status = op.run(*g, values_, session.random());
    if (!status.ok()) {
      session.error(status.title, status.lines);
      return;
    }
    session.carried_out(op.name, rows_line(op.name));
  }

  // SET of a spin value; any other label, or one the current mode's dialog has too, is
  // left to the mode.
  bool set_spin(std::string_view command, shell::Session& session) {
    const auto assignment =
        shell::split_assignment(shell::command_argument(command, "SET"), spins());
    if (!assignment || !spins().find(assignment->label)) return false;
    if (session.mode() >= 1) {
      const auto module = session.make_module(session.mode());
      if (module && module->dialog().find(assignment->label)) return false;
    }
    const std::string problem = shell::assign_field(spins(), *assignment, values_);
    if (!problem.empty()) {
      session.error(kTitle, {problem});
      return true;
    }
    const std::size_t index = *spins().find(assignment->label);
    const ui::Field& field = spins().fields[index];
    const std::string line =
        "SET " + field.label + " = " + ui::format_field_value(field, values_[index]);
    session.carried_out(line, line);
    return true;
  }

  // A reshaping command: the operation of kOperations at `index`.
  template <std::size_t index>
  static void reshape_with(std::string_view, SpreadsheetCommands& s, shell::Session& session) {
    s.reshape(kOperations[index], session);
  }

  Values values_ = ui::default_values(spins());
  std::optional<Grid> grid_;
  data::DataSet opened_;  // the data set as the grid was opened or last accepted
  long identity_ = 0;     // its identity in the store
  FunctionParser parser_;
};

}  // namespace

std::unique_ptr<shell::CommandHandler> make_spreadsheet_commands() {
  return std::make_unique<SpreadsheetCommands>();
}

}  // namespace tidemark::formula
