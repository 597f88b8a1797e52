#pragma once
// Input unit numbers of the preprocessor's open files.
#include <vector>

namespace tidemark::graphics::pp {

// Hands out unit numbers: always the lowest free number from `first` upwards, out of
// `count` candidates (the preprocessor uses 8 and 91, so units 8 to 98).
//
//   UnitPool pool;        // units 8..98
//   int u = pool.acquire();  // 8
//   pool.release(u);
class UnitPool {
 public:
  static constexpr int kFirstUnit = 8;
  static constexpr int kUnitCount = 91;

  explicit UnitPool(int first = kFirstUnit, int count = kUnitCount);

  // The lowest free unit, now marked in use; 0 when every candidate is in use.
  int acquire();

  // Marks `unit` free again; numbers outside the pool are ignored.
  void release(int unit);

 private:
  int first_;
  std::vector<bool> in_use_;
};

}  // namespace tidemark::graphics::pp
