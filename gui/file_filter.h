#pragma once
// The filters of the file choosers, from the form the commands give them in,
// "Batch Files (*.bat)|*.bat|All Files (*.*)|*.*|", to one name filter per entry,
// "Batch Files (*.bat)" and "All Files (*)": the Windows "*.*" means every file.
#include <string>
#include <string_view>
#include <vector>

namespace tidemark::gui {

std::vector<std::string> name_filters(std::string_view filter);

}  // namespace tidemark::gui
