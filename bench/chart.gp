# Draws chart.png from the chart data that pixmoor_bench writes:
#   gnuplot -e "dir='bench-results'" bench/chart.gp
# Top: speed against the faster peer (peer time / Pixmoor time), a bar from
# 1 to the ratio: right and green where Pixmoor is faster, left and red where
# it is slower.  Bottom: time against memcpy of the same output bytes for
# each tier of the primitives, a bar from 1 (the speed of memory) to the
# ratio; the dashed line is 1.5.  Both axes are logarithmic.
if (!exists("dir")) dir = "bench-results"
load dir."/chart-counts.gp"
peers = dir."/chart-peers.tsv"
limit = dir."/chart-memcpy.tsv"

top = peer_rows > 0 ? peer_rows * 18 + 110 : 0
bottom = memcpy_rows > 0 ? memcpy_rows * 34 + 110 : 0
height = top + bottom
if (height == 0) { height = 200 }

set terminal pngcairo size 1300, height font "sans,9" noenhanced
set output dir."/chart.png"
set datafile separator "\t"
set datafile missing "NaN"
set key autotitle columnhead
set multiplot
set style fill solid 0.85 noborder
set logscale x
set xtics (0.05, 0.1, 0.2, 0.5, 1, 1.5, 2, 5, 10, 20, 50, 100)
set grid xtics lc rgb "#dddddd"
set ytics nomirror scale 0
set lmargin 48

lo(v) = v < 1 ? v : 1
hi(v) = v < 1 ? 1 : v

if (peer_rows > 0) {
    set size 1, real(top) / height
    set origin 0, real(bottom) / height
    set title "Largest frames, selected tier: peer time / Pixmoor time (right of 1: Pixmoor faster)"
    set yrange [peer_rows - 0.3:-0.7]
    set xrange [0.05:10]
    set arrow 1 from 1, graph 0 to 1, graph 1 nohead lc rgb "#333333" lw 1.5 front
    set key off
    plot peers using (1):0:(lo($2)):(hi($2)):($0 - 0.38):($0 + 0.38):($2 < 1 ? 0xc0504d : 0x4f9a4f):yticlabels(1) \
         with boxxyerror lc rgb variable notitle
    unset arrow 1
}

if (memcpy_rows > 0) {
    set size 1, real(bottom) / height
    set origin 0, 0
    set title "Largest frames: Pixmoor time / memcpy time, by tier (1: memory speed, dashed: 1.5)"
    set yrange [memcpy_rows - 0.3:-0.7]
    set xrange [0.3:100]
    set arrow 2 from 1, graph 0 to 1, graph 1 nohead lc rgb "#333333" lw 1.5 front
    set arrow 3 from 1.5, graph 0 to 1.5, graph 1 nohead lc rgb "#cc8800" lw 1 dt 2 front
    set key top right opaque box
    plot limit using (1):($0 - 0.3):(lo($2)):(hi($2)):($0 - 0.39):($0 - 0.21):yticlabels(1) with boxxyerror lc rgb "#8c8c8c" title "px", \
         ''    using (1):($0 - 0.1):(lo($3)):(hi($3)):($0 - 0.19):($0 - 0.01) with boxxyerror lc rgb "#d98c2b" title "m6", \
         ''    using (1):($0 + 0.1):(lo($4)):(hi($4)):($0 + 0.01):($0 + 0.19) with boxxyerror lc rgb "#5b9b4a" title "a6", \
         ''    using (1):($0 + 0.3):(lo($5)):(hi($5)):($0 + 0.21):($0 + 0.39) with boxxyerror lc rgb "#3a6ea5" title "w7"
}
unset multiplot
