! The graph view for the documentation: the cosinor of the 24-hour LH series.
READ_NATIVE "examples/lh_24h_10min.dat"
MODE Cosine
COSINE_CALCULATE
TEMP_CLOSE
