! Tidemark demo: read four hormone series (the two of subject 07 share keyword lines
! through an included file), write some back in native and CSV form, and keep the run's
! log and command history. Run it with
!   build/bin/tidemark -@ examples/demo.cmd
! from the top folder of the source tree (make demo does this).
READ_NATIVE "examples/lh_24h_10min.dat"
READ_NATIVE "examples/gh_overnight_5min.dat"
READ_NATIVE "examples/subject07_lh.dat"
READ_NATIVE "examples/subject07_testo.dat"
CD "demo-out"
SELECT LH-24h
WRITE_NATIVE "lh_24h_10min_.dat"
WRITE_CSV "lh_24h_10min_.csv"
SELECT gh_overnight_5min.dat
WRITE_NATIVE "gh_overnight_5min_.dat"
WRITE_CSV "gh_overnight_5min_.csv"
SELECT S07-T
WRITE_CSV "subject07_testo_.csv"
COPY_LOG "demo.log"
COPY_CMD "demo-history.bat"
