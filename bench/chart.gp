# Draws chart.png from the chart data that pixmoor_bench writes:
#   gnuplot -e "dir='bench-results'" bench/chart.gp
# Top: speed against the faster peer (peer time / Pixmoor time; right of the
# line at 1 Pixmoor is faster).  Bottom: time against memcpy of the same
# output bytes for each tier of the primitives (1 is the speed of memory).
if (!exists("dir")) dir = "bench-results"
load dir."/chart-counts.gp"
peers = dir."/chart-peers.tsv"
limit = dir."/chart-memcpy.tsv"

top = peer_rows > 0 ? peer_rows * 18 + 110 : 0
bottom = memcpy_rows > 0 ? memcpy_rows * 34 + 110 : 0
height = top + bottom
if (height == 0) { height = 200 }

set terminal pngcairo size 1300, height font "sans,9"
set output dir."/chart.png"
set datafile separator "\t"
set key autotitle columnhead
set multiplot
set style fill solid 0.8 noborder
set grid xtics lc rgb "#dddddd"
set ytics nomirror scale 0
set lmargin 48

if (peer_rows > 0) {
    set size 1, real(top) / height
    set origin 0, real(bottom) / height
    set title "Largest frames: peer time / Pixmoor time (above 1: Pixmoor faster)"
    set yrange [peer_rows - 0.3:-0.7]
    set xrange [0:*]
    set arrow 1 from 1, graph 0 to 1, graph 1 nohead lc rgb "#cc0000" lw 1.5 front
    set key off
    plot peers using ($2 / 2):0:($2 / 2):(0.38):yticlabels(1) with boxxyerror lc rgb "#3a6ea5" notitle
    unset arrow 1
}

if (memcpy_rows > 0) {
    set size 1, real(bottom) / height
    set origin 0, 0
    set title "Largest frames: Pixmoor time / memcpy time, by tier (1: memory speed)"
    set yrange [memcpy_rows - 0.3:-0.7]
    set xrange [0:*]
    set arrow 2 from 1, graph 0 to 1, graph 1 nohead lc rgb "#cc0000" lw 1.5 front
    set arrow 3 from 1.5, graph 0 to 1.5, graph 1 nohead lc rgb "#cc8800" lw 1 dt 2 front
    set key top right opaque box
    plot limit using ($2 / 2):($0 - 0.3):($2 / 2):(0.09):yticlabels(1) with boxxyerror lc rgb "#8c8c8c" title "px", \
         ''    using ($3 / 2):($0 - 0.1):($3 / 2):(0.09) with boxxyerror lc rgb "#d98c2b" title "m6", \
         ''    using ($4 / 2):($0 + 0.1):($4 / 2):(0.09) with boxxyerror lc rgb "#5b9b4a" title "a6", \
         ''    using ($5 / 2):($0 + 0.3):($5 / 2):(0.09) with boxxyerror lc rgb "#3a6ea5" title "w7"
}
unset multiplot
