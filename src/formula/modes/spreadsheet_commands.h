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
// is not open. The grid belongs to the data set it was opened on, as that data set was
// then: when the data set is gone (RESET), is no longer current (SELECT, another read)
// or has changed since (COSINE_SUBTRACT, points inserted by the conditioner), the grid
// is dropped with a message and opened again from the current data set, and a
// SPREADSHEET_UPDATE is refused: the grid is never written over another data set, nor
// over changes made since it was opened.
// Every command carried out goes to the command history; a refused one shows its
// message and changes nothing.
#include <memory>

#include "shell/session.h"

namespace tidemark::formula {

std::unique_ptr<shell::CommandHandler> make_spreadsheet_commands();

}  // namespace tidemark::formula
