! A mode's dialog for the documentation: ApEn on the overnight GH series.
READ_NATIVE "examples/gh_overnight_5min.dat"
MODE ApEn
SET MC Cycles = 100
APEN_CALCULATE
