#include "ui/work_progress.h"

namespace tidemark::ui {

std::function<bool(long done, long count)> report_to(Progress* progress) {
  return [progress](long done, long count) {
    return progress == nullptr ||
           progress->update(count > 0 ? static_cast<double>(done) / static_cast<double>(count)
                                      : 1.0);
  };
}

}  // namespace tidemark::ui
