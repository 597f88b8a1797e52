// Feeds arbitrary bytes through the preprocessor. The first byte chooses the verbose
// flag and the comment character; the rest up to the first NUL byte is the top-level
// file "top", and what follows the NUL is a second file served for every other name,
// so that includes (also recursive ones) are exercised. Checks that every call returns
// 0 or 1, that no returned line exceeds 1024 characters or ends in a blank, that the
// run ends within a bound of calls, and that it stays ended.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "graphics/preprocessor.h"

namespace {

// Most files opened per input: a file that includes itself twice would otherwise be
// read 2^20 times before the include depth stops it.
constexpr int kMaxOpens = 64;

void check(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t split = bytes.find('\0');
  const std::string top(bytes.substr(0, split));
  const std::string other(split == std::string_view::npos ? "" : bytes.substr(split + 1));
  int opens = 0;
  tidemark::graphics::Preprocessor pp([&](const std::string& path) {
    std::unique_ptr<std::istream> in;
    if (++opens <= kMaxOpens)
      in = std::make_unique<std::istringstream>(path == "top" ? top : other);
    return in;
  });
  const bool verbose = (data[0] & 1) != 0;
  const char comment = (data[0] & 2) != 0 ? ';' : '!';
  pp.c_pre_proc_init("top", "data", "root", verbose, comment);

  // Every call consumes at least one record, and no file has more records than bytes.
  const std::size_t bound = static_cast<std::size_t>(kMaxOpens + 1) * (size + 1) + 1;
  std::string buffer;
  std::size_t calls = 0;
  std::int32_t status = 0;
  while (status == 0) {
    status = pp.c_pre_proc(buffer);
    check(status == 0 || status == 1);
    check(buffer.size() <= 1024);
    check(buffer.empty() || buffer.back() != ' ');
    check(++calls <= bound);
  }
  check(pp.c_pre_proc(buffer) == 1);
  check(pp.error_count() >= 0);
  return 0;
}
