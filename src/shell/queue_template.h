#pragma once
// Template expansion of the job queue: a template command file (*.tpl) in which
// placeholders stand for the parts of a data file's name is turned into one job's
// command file.
//
//   "%~dpnx"                 drive, path, name and extension (/data/s07.dat)
//   "%~dpn"                  drive, path and name           (/data/s07)
//   "%~dp"                   drive and path                 (/data/)
//   "%~d", "%drive%"         drive (empty on this system)
//   "%~p", "%path%"          path                           (/data/)
//   "%~nx"                   name and extension             (s07.dat)
//   "%~n", "%name%"          name                           (s07)
//   "%~x", "%extension%"     extension                      (.dat; empty without one)
//   "%subject%"              the subject that the parameter line names, if any
//
// Longer placeholders are tried before their prefixes, so "%~dpnx" is never read as
// "%~dp" followed by "nx". Placeholders match in any letter case.
#include <string>
#include <string_view>

namespace tidemark::shell {

struct NameParts {
  std::string drive;      // "C:" on Windows; empty here
  std::string path;       // folder with its trailing separator
  std::string name;       // without the extension
  std::string extension;  // with its dot, or empty
  std::string subject;
};

// Splits a full file name into its parts ("/d/s07.dat" -> "", "/d/", "s07", ".dat"). A
// leading dot does not start an extension (".hidden" is a name).
NameParts split_file_name(std::string_view full_name);

// The template with every placeholder replaced by its part of `parts`.
std::string expand_template(std::string_view text, const NameParts& parts);

}  // namespace tidemark::shell
