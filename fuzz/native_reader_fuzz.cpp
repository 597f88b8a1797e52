// Reads arbitrary bytes as a native-mode data file, served from memory through the
// preprocessor's opener (with one includable file, "inc.dat"). When the read succeeds,
// the record is also written as CSV and as native text, and the native text is read
// back twice: both reads must succeed, and the second write must equal the first
// (after one write every value is a 5- or 6-digit decimal, which reads back to the
// float that writes it again).
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>

#include "data/csv_writer.h"
#include "data/native_reader.h"
#include "data/native_writer.h"

namespace {

using tidemark::data::NativeReadOptions;
using tidemark::data::NativeReadResult;

NativeReadResult read_text(const std::string& text) {
  NativeReadOptions options;
  options.root_path = "root";
  options.opener = [&text](const std::string& path) -> std::unique_ptr<std::istream> {
    if (path == "fuzz.dat") return std::make_unique<std::istringstream>(text);
    if (path.ends_with("inc.dat")) {
      return std::make_unique<std::istringstream>("!HANDLE = included\n1 2\n");
    }
    return nullptr;
  };
  return tidemark::data::read_native_file("fuzz.dat", options);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const NativeReadResult first = read_text(std::string(reinterpret_cast<const char*>(data), size));
  if (!first.ok()) return 0;
  (void)tidemark::data::csv_text(first.set);
  const std::string written = tidemark::data::native_text(first.set);
  const NativeReadResult second = read_text(written);
  if (!second.ok() || second.set.size() != first.set.size()) std::abort();
  const std::string rewritten = tidemark::data::native_text(second.set);
  const NativeReadResult third = read_text(rewritten);
  if (!third.ok() || tidemark::data::native_text(third.set) != rewritten) std::abort();
  return 0;
}
