! The main window for the documentation: two series, Cluster8 on the LH series.
READ_NATIVE "examples/gh_overnight_5min.dat"
READ_NATIVE "examples/lh_24h_10min.dat"
MODE Cluster8
CLUSTER_CALCULATE
CLUSTER_VIEW
