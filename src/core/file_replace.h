#pragma once
// Replacing a file's contents so that a failed write never leaves a half-written or
// emptied file behind: the new contents go to a temporary file in the target's folder,
// which is then renamed over the target. Until the rename the old file is untouched;
// the rename itself replaces it in one step.
//
//   const auto r = core::replace_file("series_.dat", text);
//   if (!r.ok()) report(r.message);
#include <filesystem>
#include <string>
#include <string_view>

namespace tidemark::core {

// How a replacement ended: the target replaced, or the step that failed (the target
// then is as it was).
enum class ReplaceStatus { kReplaced, kNotCreated, kNotWritten, kNotRenamed };

struct ReplaceResult {
  ReplaceStatus status = ReplaceStatus::kNotCreated;
  std::string message;  // why the file could not be written; empty on success

  bool ok() const { return status == ReplaceStatus::kReplaced; }
};

// Writes `content` byte for byte as the whole new contents of `target`. Fails, leaving
// any existing `target` as it was and no temporary file behind, when the folder does
// not exist or cannot be written, the disk is full, or `target` is a folder.
ReplaceResult replace_file(const std::filesystem::path& target, std::string_view content);

}  // namespace tidemark::core
