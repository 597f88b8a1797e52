#pragma once
// The commands of the data spreadsheet ("Data Spread Sheet"), offered by the shell after
// its own commands, from the mode loop and from every mode's frame:
//
//   SPREADSHEET                 open the grid on the current data set (a working copy)
//                               and show it (headless: printed to standard output)
//   SPREADSHEET_FUNCTION= text  the formula assignment "LABEL[(first:last)] = formula"
//   SPREADSHEET_AVERAGE         average in bins of "Bin Size" rows
//   SPREADSHEET_SELECT          keep one row every "One every" from "points starting at"
//   SPREADSHEET_CROP            keep the rows of the crop range
//   SPREADSHEET_SHUFFLE         permute the rows over the sampling times
//   SPREADSHEET_CORRUPT         add Gaussian noise of "%" per cent to the concentrations
//   SPREADSHEET_UPDATE          "Accept Changes": write the grid back into the data set
//   SPREADSHEET_FINISH          end the dialog; changes not accepted are dropped
//   SET label = value           one of the spin values above (integers)
//
// A command other than SPREADSHEET and SPREADSHEET_FINISH opens the grid first when it
// is not open. The grid stays on the data set it was opened on until SPREADSHEET_FINISH.
// Every command carried out goes to the command history; a refused one shows its
// message and changes nothing.
#include <memory>

#include "shell/session.h"

namespace tidemark::formula {

std::unique_ptr<shell::CommandHandler> make_spreadsheet_commands();

}  // namespace tidemark::formula
