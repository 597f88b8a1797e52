#pragma once
// The graph of the ApEn mode: the data set's concentration series with the common
// options (write_common_options), titled with the file name, and the ApEn(1) and
// ApEn(2) of the data with their P for random as page texts.
#include <string>

#include "data/dataset.h"
#include "stats/apen_analysis.h"

namespace tidemark::stats {

std::string apen_graph_source(const data::DataSet& set, const ApEnResult& result);

}  // namespace tidemark::stats
