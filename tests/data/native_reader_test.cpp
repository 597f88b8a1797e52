#include "data/native_reader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "ui/console_ui.h"

namespace tidemark::data {
namespace {

using namespace std::literals;
using Lines = std::vector<std::string>;

// Files served from memory by path.
NativeReadOptions from_memory(std::map<std::string, std::string> files, std::string root = "") {
  NativeReadOptions options;
  options.root_path = std::move(root);
  options.opener = [files = std::move(files)](const std::string& path) {
    const auto it = files.find(path);
    return it == files.end() ? nullptr : std::make_unique<std::istringstream>(it->second);
  };
  return options;
}

DataSet series(int points) {
  DataSet set;
  for (int i = 0; i < points; ++i) set.push_point({float(i), 1, 0.1f, 2, 0, 0, 0, 0});
  return set;
}

struct Session {
  Store store;
  ui::RecordingUi ui;
  ui::MemoryLog log;
  bool read(const std::string& text) {
    return read_native(store, "mem/a.dat", ui, log, from_memory({{"mem/a.dat", text}}));
  }
};

TEST(NativeReader, GoodFileIsAppendedMadeCurrentAndLogged) {
  Session s;
  s.store.append(series(4));
  ASSERT_TRUE(s.read(
      "; comment\n;!FILENAME = other.dat\n!HANDLE = A\n1 2\n\n!header_y = LH\n2,3\n3 NaN\n"));
  EXPECT_EQ(s.store.count(), 2);
  EXPECT_EQ(s.store.current_index(), 1);
  const DataSet& set = s.store.current();
  EXPECT_EQ(set.file_name, "mem/a.dat");  // the writer's ";!FILENAME" line is a comment
  EXPECT_EQ(set.handle, "A");
  EXPECT_EQ(set.headers[kY], "LH");
  EXPECT_EQ(set.y(), (std::vector<float>{2, 3, core::kMissingF}));
  EXPECT_TRUE(s.ui.boxes().empty());
  EXPECT_EQ(s.log.lines(), (Lines{"3 data points read", "READ NATIVE MODE FILE mem/a.dat"}));
}

// Each bad file: one box with these lines (after "Could Not Read The Data File"), the same
// lines in the log, and a store that still holds its two sets with the first current.
TEST(NativeReader, BadFileIsReportedAndLeavesTheStoreAsItWas) {
  const std::pair<std::string, Lines> cases[] = {
      {"!NX = 2\n1 2\n2 3\n", {"!NX value was too big mem/a.dat"}},
      {"!NY = 0\n1 2\n2 3\n", {"!NY value was too small mem/a.dat"}},
      {"1 2\n", {"Data Read Error, not enough data points!"}},
      {"; only a comment\n", {"Data Read Error, not enough data points!"}},
      {"!ANSWER(201) = 3.5\n1 2\n2 3\n",
       {"!Invalid INDEX !ANSWER(201) = 3.5", "Native Mode Read Error Reading !ANSWER Field"}},
      {"1 2\n2 3\n3 4.2O\n!NX=5\n", {"Native Mode Read Error Reading Data Y(3) Field"}},
      {std::string("1 2\n\0\x01\xff garbage\n"sv),
       {"Native Mode Read Error Reading Data X(2) Field"}},
      {"1 1e999\n2 3\n", {"Native Mode Read Error Reading Data Y(1) Field"}},
      {"1 2\n#else \n", {"Data Read Error, not enough data points!", "1 pre processor errors"}},
  };
  for (const auto& [text, reasons] : cases) {
    Session s;
    s.store.append(series(3));
    s.store.append(series(5));
    s.store.select(0);
    EXPECT_FALSE(s.read(text));
    EXPECT_EQ(s.store.count(), 2);
    EXPECT_EQ(s.store.current_index(), 0);
    EXPECT_EQ(s.store.current(), series(3));
    ASSERT_EQ(s.ui.boxes().size(), 1u) << text;
    EXPECT_EQ(s.ui.boxes()[0].title, "ERROR READING DATA FILE");
    Lines box{"Could Not Read The Data File"};
    box.insert(box.end(), reasons.begin(), reasons.end());
    EXPECT_EQ(s.ui.boxes()[0].lines, box) << text;
    EXPECT_EQ(s.log.lines().back(), "ERROR READING DATA FILE: " + box.back());
  }
}

TEST(NativeReader, FileThatCannotBeOpenedIsAFailureNotACrash) {
  Session s;
  EXPECT_FALSE(read_native(s.store, "/no/such/folder/x.dat", s.ui, s.log));
  EXPECT_TRUE(s.store.empty());
  ASSERT_EQ(s.ui.boxes().size(), 1u);
  EXPECT_EQ(s.ui.boxes()[0].lines,
            (Lines{"Could Not Read The Data File", "Cannot open /no/such/folder/x.dat"}));
}

// The preprocessor takes "#else" and "#endif" as directives only when a blank follows
// them, and substitutes a symbol wherever its name occurs, hence "WANT_LH" and not "LH".
TEST(NativeReader, PreprocessorSymbolsSectionsAndIncludesShapeTheLines) {
  const auto r = read_native_file(
      "mem/c.dat",
      from_memory({{"mem/c.dat",
                    "#define TIME0 100\n#include <shared.inc>\n#ifdef WANT_LH\n"
                    "!header_y = LH\n#else \n!header_y = FSH\n#endif \nTIME0 1\n200 2\n"},
                   {"root/shared.inc", "#define WANT_LH\n!DSTYPE = 4\n"}},
                  "root"));
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.set.ds_type, 4);
  EXPECT_EQ(r.set.headers[kY], "LH");
  EXPECT_EQ(r.set.x(), (std::vector<float>{100, 200}));
}

TEST(NativeReader, PreprocessorErrorsAreLoggedAndShownButDoNotStopTheRead) {
  Session s;
  ASSERT_TRUE(s.read("#bogus x\n1 2\n#else \n2 3\n"));
  EXPECT_EQ(s.log.lines(),
            (Lines{";pp error: #bogus x", ";pp error: #else", "2 pre processor errors",
                   "2 data points read", "PRE PROCESSOR ERRORS: 2 pre processor errors",
                   "READ NATIVE MODE FILE mem/a.dat"}));
}

TEST(NativeReader, VerboseReadingLogsTheLinesTakenUntilSwitchedOff) {
  Session s;
  ASSERT_TRUE(s.read("; quiet\n!VERBOSE ON\n; loud\n1 2\n!verboseOFF\n2 3\n"));
  EXPECT_EQ(s.log.lines(), (Lines{"!VERBOSE ON", "; loud", "1 2", "2 data points read",
                                  "READ NATIVE MODE FILE mem/a.dat"}));
}

TEST(NativeReader, ReadsFromDiskWithIncludesFromTheFilesFolder) {
  namespace fs = std::filesystem;
  const fs::path dir =
      fs::temp_directory_path() / ("tidemark_native_reader_" + std::to_string(::getpid()));
  fs::create_directories(dir);
  std::ofstream(dir / "e.dat") << "; CR LF line ends\r\n#include <e.inc>\r\n1,2,,3\r\n2,3\r\n";
  std::ofstream(dir / "e.inc") << "!HANDLE = E\n";
  const auto r = read_native_file((dir / "e.dat").string());
  fs::remove_all(dir);
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.set.handle, "E");
  EXPECT_EQ(r.set.dy(), (std::vector<float>{core::kMissingF, core::kMissingF}));
  EXPECT_EQ(r.set.reps(), (std::vector<float>{3, 1}));
}

}  // namespace
}  // namespace tidemark::data
