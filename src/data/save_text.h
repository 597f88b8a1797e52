#pragma once
// Saving a data file the user asked for: the text replaces the file whole (through a
// temporary file, so a failed write leaves any old file as it was), and the outcome is
// logged and, on failure, shown.
#include <string>
#include <string_view>

#include "ui/ui.h"

namespace tidemark::data {

// Writes `text` as the whole of `path`. On success logs `done` and returns true; on
// failure reports the box "ERROR WRITING DATA FILE" with "Could Not Write The Data
// File" and the reason, and returns false.
bool save_text(const std::string& path, std::string_view text, std::string_view done, ui::Ui& ui,
               ui::LogSink& log);

}  // namespace tidemark::data
