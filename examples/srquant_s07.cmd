! SRQuant: how LH drives testosterone in subject 07 (the same blood draws, every 10
! minutes for 12 hours). Run it from the top folder of the source tree:
!   mkdir -p srquant-out && build/bin/tidemark -@ examples/srquant_s07.cmd
! The listing, graph and summary books go to srquant-out/.
SEED 7
READ_NATIVE "examples/subject07_testo.dat"
READ_NATIVE "examples/subject07_lh.dat"
CD "srquant-out"
MODE SRQuant
SET Output Data Set = 1
SET Number of Inputs = 1
SET Input 1 Data Set = 2
SET Input 1 Spreading = None
SET Input 1 Dose-Response = Stimulatory
! Testosterone follows LH within about an hour and a half: delays of 0 to 90 minutes
! leave out only the first nine samples of the output.
DOSE_RESPONSE_PARAMETER "Delay 1" 20 0 90 FIT
DOSE_RESPONSE_CALCULATE
COPY_LST "srquant_s07.lst"
SAVE_GRF_PNG "srquant_s07.png"
WRITE_SUMMARY_BOOKS "srquant_summary.csv"
