#pragma once
// The reshaping operations of the data spreadsheet. Each changes the grid in place and
// answers ok, or refuses with a message titled "Data Spread Sheet" and changes nothing.
// Average, Select and Crop renumber the rows, so they clear the crop range (the rows it
// named are gone); a result needs at least 2 rows, as a data set does.
#include "core/random.h"
#include "formula/spreadsheet_grid.h"

namespace tidemark::formula {

// Fewest rows a reshaped grid may keep.
inline constexpr int kMinimumRows = 2;

// Replaces each run of `bin_size` rows (from row 1; the last bin holds what is left) by
// one row. A row counts for the bin's TIME, CONC, SEM and REPS only when its
// concentration is present; FX1..FX4 are taken over their own present cells. Over the
// cells c_1..c_m that count, column by column:
//   TIME, CONC, FX1..FX4   the mean (c_1 + ... + c_m) / m, the bin's mean time
//   SEM                    sqrt(c_1^2 + ... + c_m^2) / m, the standard error of the mean
//   REPS                   the sum c_1 + ... + c_m, the replicates behind the mean
// So a bin of a sample at time 0 and a missing concentration at time 10 is the sample
// itself (time 0, its SEM, its REPS). A bin without any concentration keeps the mean
// time of its rows and is missing in CONC, SEM and REPS; a column with no cell that
// counts is missing there. Needs bin_size >= 1.
SheetResult average_rows(Grid& grid, int bin_size);

// Keeps rows start, start + every, start + 2 every, ... Needs every >= 1 and start in
// 1..rows.
SheetResult select_rows(Grid& grid, int every, int start);

// Keeps the rows of the crop range (DataSet::first_point() to last_point()).
SheetResult crop_rows(Grid& grid);

// Permutes the rows at random (Fisher-Yates: for i = n down to 2, swap row i with row
// 1 + floor(u * i), u uniform on [0, 1)), carrying every column but TIME with its row:
// the sampling times stay in place and the series is shuffled over them.
SheetResult shuffle_rows(Grid& grid, core::Random& random);

// Perturbs each non-missing concentration y by Gaussian noise of `percent` per cent of
// its value: y (1 + percent/100 g), g the approximately Gaussian deviate (sum of twelve
// uniform deviates minus 6). Needs percent >= 0.
SheetResult corrupt_values(Grid& grid, int percent, core::Random& random);

}  // namespace tidemark::formula
