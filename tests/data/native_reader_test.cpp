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
};

TEST(NativeReader, GoodFileIsAppendedMadeCurrentAndLogged) {
  Session s;
  s.store.append(series(4));
  const auto options = from_memory({{"mem/a.dat", "!HANDLE = A\n1 2\n2 3\n3 4\n"}});
  ASSERT_TRUE(read_native(s.store, "mem/a.dat", s.ui, s.log, options));
  EXPECT_EQ(s.store.count(), 2);
  EXPECT_EQ(s.store.current_index(), 1);
  EXPECT_EQ(s.store.current().handle, "A");
  EXPECT_EQ(s.store.current().file_name, "mem/a.dat");
  EXPECT_EQ(s.store.current().y(), (std::vector<float>{2, 3, 4}));
  EXPECT_TRUE(s.ui.boxes().empty());
  EXPECT_EQ(s.log.lines(), (Lines{"3 data points read", "READ NATIVE MODE FILE mem/a.dat"}));
}

// Each bad file: one box with exactly these lines, the same lines in the log, and a
// store that still holds its two sets with the first one current.
TEST(NativeReader, BadFileIsReportedAndLeavesTheStoreAsItWas) {
  using namespace std::literals;
  struct Case {
    std::string text;
    std::string reason;
  };
  const Case cases[] = {
      {"!NX = 2\n1 2\n2 3\n", "!NX value was too big mem/b.dat"},
      {"!NY = 0\n1 2\n2 3\n", "!NY value was too small mem/b.dat"},
      {"1 2\n", "Data Read Error, not enough data points!"},
      {"!ANSWER(201) = 3.5\n1 2\n2 3\n", "!Invalid INDEX !ANSWER(201) = 3.5"},
      {"1 2\n2 3\n3 4.2O\n", "Native Mode Read Error Reading Data Y(3) Field"},
      {std::string("1 2\n\0\x01\xff garbage\n"sv),
       "Native Mode Read Error Reading Data X(2) Field"},
      {"1 1e999\n2 3\n", "Native Mode Read Error Reading Data Y(1) Field"},
  };
  for (const auto& c : cases) {
    Session s;
    s.store.append(series(3));
    s.store.append(series(5));
    s.store.select(0);
    EXPECT_FALSE(
        read_native(s.store, "mem/b.dat", s.ui, s.log, from_memory({{"mem/b.dat", c.text}})));
    EXPECT_EQ(s.store.count(), 2);
    EXPECT_EQ(s.store.current_index(), 0);
    EXPECT_EQ(s.store.current(), series(3));
    ASSERT_EQ(s.ui.boxes().size(), 1u) << c.reason;
    EXPECT_EQ(s.ui.boxes()[0].title, "ERROR READING DATA FILE");
    ASSERT_GE(s.ui.boxes()[0].lines.size(), 2u);
    EXPECT_EQ(s.ui.boxes()[0].lines[0], "Could Not Read The Data File");
    EXPECT_EQ(s.ui.boxes()[0].lines[1], c.reason);
    Lines logged;
    for (const auto& line : s.ui.boxes()[0].lines)
      logged.push_back("ERROR READING DATA FILE: " + line);
    EXPECT_EQ(s.log.lines(), logged);
  }
}

TEST(NativeReader, FileThatCannotBeOpenedIsAFailureNotACrash) {
  Session s;
  EXPECT_FALSE(read_native(s.store, "mem/none.dat", s.ui, s.log, from_memory({})));
  EXPECT_FALSE(read_native(s.store, "/no/such/folder/x.dat", s.ui, s.log));
  EXPECT_TRUE(s.store.empty());
  ASSERT_EQ(s.ui.boxes().size(), 2u);
  EXPECT_EQ(s.ui.boxes()[0].lines,
            (Lines{"Could Not Read The Data File", "Cannot open mem/none.dat"}));
  EXPECT_EQ(s.ui.boxes()[1].lines[1], "Cannot open /no/such/folder/x.dat");
}

// The preprocessor takes "#else" and "#endif" as directives only when a blank follows
// them, and substitutes a symbol wherever its name occurs, hence "WANT_LH" and not "LH".
TEST(NativeReader, PreprocessorSymbolsSectionsAndIncludesShapeTheLines) {
  const auto options = from_memory(
      {{"mem/c.dat",
        "#define TIME0 100\n#include <shared.inc>\n#ifdef WANT_LH\n!header_y = LH\n#else \n"
        "!header_y = FSH\n#endif \nTIME0 1\n200 2\n"},
       {"root/shared.inc", "#define WANT_LH\n!DSTYPE = 4\n"}},
      "root");
  const auto r = read_native_file("mem/c.dat", options);
  ASSERT_TRUE(r.ok);
  EXPECT_EQ(r.set.ds_type, 4);
  EXPECT_EQ(r.set.headers[kY], "LH");
  EXPECT_EQ(r.set.x(), (std::vector<float>{100, 200}));
  EXPECT_EQ(r.preprocessor_errors, 0);
}

TEST(NativeReader, PreprocessorErrorsAreCountedAndTheReadGoesOn) {
  Session s;
  const auto options = from_memory({{"mem/d.dat", "#bogus x\n1 2\n#else \n2 3\n"}});
  ASSERT_TRUE(read_native(s.store, "mem/d.dat", s.ui, s.log, options));
  EXPECT_EQ(s.store.count(), 1);
  EXPECT_EQ(s.log.lines(),
            (Lines{";pp error: #bogus x", ";pp error: #else", "2 pre processor errors",
                   "2 data points read", "PRE PROCESSOR ERRORS: 2 pre processor errors",
                   "READ NATIVE MODE FILE mem/d.dat"}));
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
  ASSERT_TRUE(r.ok) << (r.messages.empty() ? "" : r.messages[0].lines.back());
  EXPECT_EQ(r.set.handle, "E");
  EXPECT_EQ(r.set.dy(), (std::vector<float>{core::kMissingF, core::kMissingF}));
  EXPECT_EQ(r.set.reps(), (std::vector<float>{3, 1}));
}

}  // namespace
}  // namespace tidemark::data
