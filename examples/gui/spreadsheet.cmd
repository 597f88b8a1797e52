! The data spreadsheet for the documentation.
READ_NATIVE "examples/subject07_lh.dat"
SPREADSHEET_FUNCTION= SEM = 0.08*LH
SPREADSHEET
