! Tidemark demo: read four hormone series, condition and analyse them, and keep the
! listings, graphs, data files, log and command history in demo-out/. Run it with
!   build/bin/tidemark -@ examples/demo.cmd
! from the top folder of the source tree (make demo does this).
READ_NATIVE "examples/lh_24h_10min.dat"
READ_NATIVE "examples/gh_overnight_5min.dat"
READ_NATIVE "examples/subject07_lh.dat"
READ_NATIVE "examples/subject07_testo.dat"
CD "demo-out"
! Pulses of the 24-hour LH series; the peaks become the data set's secretion events.
SELECT LH-24h
MODE Cluster8
CLUSTER_CALCULATE
COPY_LST "cluster8_lh.lst"
SAVE_GRF_PNG "cluster8_lh.png"
WRITE_NATIVE "lh_24h_10min_events.dat"
! A cosinor over the same day.
MODE Cosine
COSINE_CALCULATE
COPY_LST "cosine_lh.lst"
SAVE_GRF_PNG "cosine_lh.png"
! Deconvolution of the same day: AutoDecon finds the secretion events (when, how much)
! and the half-life from AutoInit's start.
MODE AutoDecon
DECON_CALCULATE
COPY_LST "autodecon_lh.lst"
SAVE_GRF_PNG "autodecon_lh.png"
! Regularity of the overnight GH profile: the data conditioner first fills its three
! missing samples (see the DATA_CONDITIONER lines of demo.log).
SELECT GH-night
MODE ApEn
SET MC Cycles = 200
APEN_CALCULATE
COPY_LST "apen_gh.lst"
SAVE_GRF_PNG "apen_gh.png"
WRITE_CSV "gh_overnight_5min_conditioned.csv"
! LH against testosterone of subject 07: correlation by lag and cross-ApEn.
MODE Correlation
SET A Series = 3
SET B Series = 4
SET max Lag = 24
CORR_CALCULATE
COPY_LST "correlation_s07.lst"
SAVE_GRF_PNG "correlation_s07.png"
MODE X_ApEn
SET A Series = 3
SET B Series = 4
SET MC Cycles = 200
XAPEN_CALCULATE
COPY_LST "xapen_s07.lst"
SAVE_GRF_PNG "xapen_s07.png"
! Every data set's kept results in one table for a spreadsheet: AutoDecon's in columns B
! to I and Cosine's in AK to AP of the LH row, ApEn's in Q to AJ of the GH row.
WRITE_SUMMARY_BOOKS "summary_books.csv"
COPY_LOG "demo.log"
COPY_CMD "demo-history.bat"
