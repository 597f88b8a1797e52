#include "data/csv_import.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <optional>

#include "core/fortran_read.h"
#include "core/text.h"
#include "data/csv_table.h"

namespace tidemark::data {

namespace {

std::string upper(std::string_view s) {
  std::string u(core::trim(s));
  std::transform(u.begin(), u.end(), u.begin(), [](unsigned char c) { return std::toupper(c); });
  return u;
}

// A value cell: missing when empty, "NA" or "NaN"; a decimal comma reads as a point.
std::optional<float> read_cell(std::string_view cell) {
  const std::string u = upper(cell);
  if (u.empty() || u == "NA" || u == "NAN") return core::kMissingF;
  std::string text = u;
  if (text.find('.') == std::string::npos && std::count(text.begin(), text.end(), ',') == 1) {
    std::replace(text.begin(), text.end(), ',', '.');
  }
  float v = 0;
  if (!core::read_real(text, v)) return std::nullopt;
  return v;
}

struct Columns {
  int time = -1;
  int subject = -1;
  std::vector<int> conc, sem, reps;
};

class Importer {
 public:
  Importer(const CsvTable& table, const CsvImportOptions& options)
      : header_(table.rows.front()), options_(options) {}

  bool choose(Columns& c) {
    if (!options_.subject.empty() && !find(options_.subject, -1, c.subject)) return false;
    // Without a name the time is the first column, or the second when the subject is first.
    if (!find(options_.time, c.subject == 0 ? 1 : 0, c.time)) return false;
    if (!find_all(options_.sem, c.sem) || !find_all(options_.reps, c.reps)) return false;
    if (!options_.conc.empty()) {
      if (!find_all(options_.conc, c.conc)) return false;
    } else {
      for (int k = 0; k < static_cast<int>(header_.cells.size()); ++k) {
        const auto used = [k](const std::vector<int>& v) {
          return std::find(v.begin(), v.end(), k) != v.end();
        };
        if (k != c.time && k != c.subject && !used(c.sem) && !used(c.reps)) c.conc.push_back(k);
      }
      if (c.conc.empty()) return fail("There is no concentration column");
    }
    for (const auto* v : {&c.sem, &c.reps}) {
      if (!v->empty() && v->size() != c.conc.size()) {
        return fail(fmt::format("{} concentration columns but {} {} columns", c.conc.size(),
                                v->size(), v == &c.sem ? "SEM" : "REPS"));
      }
    }
    return true;
  }

  std::string message;

 private:
  bool fail(std::string text) {
    message = std::move(text);
    return false;
  }

  // The column named `name`; `fallback` (a column number, or -1 for none) when empty.
  bool find(const std::string& name, int fallback, int& column) {
    if (name.empty()) {
      column = fallback;
      if (fallback >= static_cast<int>(header_.cells.size())) return fail("The header has no columns");
      return true;
    }
    for (int k = 0; k < static_cast<int>(header_.cells.size()); ++k) {
      if (upper(header_.cells[k]) == upper(name)) {
        column = k;
        return true;
      }
    }
    return fail(fmt::format("Line {}: the header has no column \"{}\"", header_.line, name));
  }

  bool find_all(const std::vector<std::string>& names, std::vector<int>& columns) {
    for (const std::string& name : names) {
      int k = -1;
      if (!find(name, -1, k)) return false;
      columns.push_back(k);
    }
    return true;
  }

  const CsvRow& header_;
  const CsvImportOptions& options_;
};

struct Group {
  std::string subject;
  std::vector<DataSet> sets;  // one per concentration column
};

std::string cell_name(const CsvRow& header, int k) {
  return k >= 0 && k < static_cast<int>(header.cells.size())
             ? std::string(core::trim(header.cells[k]))
             : std::string();
}

}  // namespace

CsvImportResult import_csv(std::string_view text, const std::string& file_name,
                           const CsvImportOptions& options) {
  CsvImportResult result;
  const auto fail = [&](std::string message) {
    result.ok_ = false;
    result.message = std::move(message);
    result.sets.clear();
    return result;
  };
  const CsvTable table = split_csv(text);
  if (!table.ok()) return fail(table.message);
  if (table.rows.empty()) return fail("The file has no header row");
  Importer importer(table, options);
  Columns c;
  if (!importer.choose(c)) return fail(importer.message);
  const CsvRow& header = table.rows.front();

  std::vector<Group> groups;
  for (std::size_t r = 1; r < table.rows.size(); ++r) {
    const CsvRow& row = table.rows[r];
    const auto cell = [&](int k) -> std::string_view {
      return k >= 0 && k < static_cast<int>(row.cells.size()) ? std::string_view(row.cells[k])
                                                              : std::string_view();
    };
    const std::string subject(core::trim(cell(c.subject)));
    if (c.subject >= 0 && subject.empty()) {
      return fail(fmt::format("Line {}, column {} ({}): the subject is empty", row.line,
                              c.subject + 1, cell_name(header, c.subject)));
    }
    if (!options.only.empty() && !core::padded_equal(subject, options.only)) continue;
    auto group = std::find_if(groups.begin(), groups.end(),
                              [&](const Group& g) { return g.subject == subject; });
    if (group == groups.end()) {
      groups.push_back({subject, std::vector<DataSet>(c.conc.size())});
      group = groups.end() - 1;
    }
    const auto value = [&](int k, float absent, float& v) {
      if (k < 0) {
        v = absent;
        return true;
      }
      const auto read = read_cell(cell(k));
      if (!read) return false;
      v = *read;
      return true;
    };
    for (std::size_t j = 0; j < c.conc.size(); ++j) {
      std::array<float, kColumnCount> point;
      point.fill(core::kMissingF);
      const int columns[] = {c.time, c.conc[j], c.sem.empty() ? -1 : c.sem[j],
                             c.reps.empty() ? -1 : c.reps[j]};
      const float absent[] = {core::kMissingF, core::kMissingF, core::kMissingF, 1.0f};
      for (int k = 0; k < 4; ++k) {
        if (!value(columns[k], absent[k], point[k])) {
          return fail(fmt::format("Line {}, column {} ({}): \"{}\" is not a number", row.line,
                                  columns[k] + 1, cell_name(header, columns[k]),
                                  cell(columns[k])));
        }
      }
      group->sets[j].push_point(point);
    }
  }
  if (groups.empty()) {
    return fail(options.only.empty() ? "Data Read Error, not enough data points!"
                                     : fmt::format("There is no subject \"{}\"", options.only));
  }

  const bool several = groups.size() * c.conc.size() > 1;
  for (Group& g : groups) {
    for (std::size_t j = 0; j < c.conc.size(); ++j) {
      DataSet& set = g.sets[j];
      const std::string column = cell_name(header, c.conc[j]);
      set.handle = c.subject < 0        ? column
                   : c.conc.size() == 1 ? g.subject
                                        : g.subject + " " + column;
      set.file_name = several ? file_name + " [" + set.handle + "]" : file_name;
      set.headers[kX] = cell_name(header, c.time);
      set.headers[kY] = column;
      if (!c.sem.empty()) set.headers[kDY] = cell_name(header, c.sem[j]);
      if (!c.reps.empty()) set.headers[kReps] = cell_name(header, c.reps[j]);
      if (set.size() < 2) {
        return fail("Data Read Error, not enough data points! (" + set.handle + ")");
      }
      result.sets.push_back(std::move(set));
    }
  }
  return result;
}

bool parse_csv_options(std::string_view text, CsvImportOptions& options, std::string& message) {
  std::size_t i = 0;
  const auto blank = [&](std::size_t k) { return text[k] == ' ' || text[k] == '\t'; };
  while (true) {
    while (i < text.size() && blank(i)) ++i;
    if (i >= text.size()) return true;
    const std::size_t start = i;
    const std::size_t equals = text.find('=', i);
    const std::size_t stop = std::min(text.find_first_of(" \t", i), text.size());
    if (equals == std::string_view::npos || equals > stop) {
      message = fmt::format("\"{}\" is not a KEY=value option", text.substr(start, stop - start));
      return false;
    }
    const std::string key = upper(text.substr(start, equals - start));
    std::string value;
    i = equals + 1;
    if (i < text.size() && text[i] == '"') {
      const std::size_t close = text.find('"', i + 1);
      const std::size_t end = close == std::string_view::npos ? text.size() : close;
      value = text.substr(i + 1, end - i - 1);
      i = std::min(end + 1, text.size());
    } else {
      const std::size_t end = std::min(text.find_first_of(" \t", i), text.size());
      value = text.substr(i, end - i);
      i = end;
    }
    const auto list = [&value] {
      std::vector<std::string> names;
      std::size_t from = 0;
      while (from <= value.size()) {
        const std::size_t comma = std::min(value.find(',', from), value.size());
        const std::string_view name = core::trim(std::string_view(value).substr(from, comma - from));
        if (!name.empty()) names.emplace_back(name);
        from = comma + 1;
      }
      return names;
    };
    if (key == "TIME") {
      options.time = value;
    } else if (key == "CONC") {
      options.conc = list();
    } else if (key == "SEM") {
      options.sem = list();
    } else if (key == "REPS") {
      options.reps = list();
    } else if (key == "SUBJECT") {
      options.subject = value;
    } else if (key == "ONLY") {
      options.only = value;
    } else {
      message = fmt::format("Unknown option \"{}\": TIME, CONC, SEM, REPS, SUBJECT, ONLY", key);
      return false;
    }
  }
}

std::string csv_options_text(const CsvImportOptions& options) {
  std::string out;
  const auto put = [&out](std::string_view key, const std::string& value) {
    if (value.empty()) return;
    const bool quote = value.find_first_of(" \t") != std::string::npos;
    out += quote ? fmt::format(" {}=\"{}\"", key, value) : fmt::format(" {}={}", key, value);
  };
  const auto joined = [](const std::vector<std::string>& v) { return fmt::format("{}", fmt::join(v, ",")); };
  put("TIME", options.time);
  put("CONC", joined(options.conc));
  put("SEM", joined(options.sem));
  put("REPS", joined(options.reps));
  put("SUBJECT", options.subject);
  put("ONLY", options.only);
  return out;
}

}  // namespace tidemark::data
