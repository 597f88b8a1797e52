#include "data/save_text.h"

#include "core/file_replace.h"

namespace tidemark::data {

bool save_text(const std::string& path, std::string_view text, std::string_view done, ui::Ui& ui,
               ui::LogSink& log) {
  const core::ReplaceResult result = core::replace_file(path, text);
  if (!result.ok()) {
    ui::report(ui, log, "ERROR WRITING DATA FILE",
               {"Could Not Write The Data File", result.message});
    return false;
  }
  log.log(done);
  return true;
}

}  // namespace tidemark::data
