# gnuplot -e "stem='build/bench/dft_complex_32fc'; about='CPU, compiler'" plot_dft_complex.gp
# Draws what bench_dft_complex wrote to stem.dat; that file's first line names its columns.
data = stem.'.dat'
# Points of the other direction are left out, so that lines join the neighbours of one direction.
forward = "< awk 'NR > 1 && $1 == \"fwd\"' '".data."'"
inverse = "< awk 'NR > 1 && $1 == \"inv\"' '".data."'"

set terminal svg size 1100,560 font 'sans,13' background 'white'
set grid ytics lc '#dddddd'
set xlabel 'length'
set xrange [1:65]
set xtics 2, 2, 64
set key outside bottom center horizontal
set pointsize 0.5
set yrange [0:*]
set tmargin 4
set label about at graph 0.5, 1.03 center font ',10' noenhanced

set output stem.'_ratio.svg'
set title "Complex DFT: time of the peer over ours (above 1: ours is faster)" offset 0, 0.8
set ylabel 'time of the peer / ours'
plot 1 lc 'black' dt 2 notitle, \
     forward using 2:5 with linespoints pt 7 lc '#0060ad' title 'FFTW, forward', \
     inverse using 2:5 with linespoints pt 6 lc '#7fb2e5' title 'FFTW, inverse', \
     forward using 2:6 with linespoints pt 7 lc '#c03010' title 'best peer, forward', \
     inverse using 2:6 with linespoints pt 6 lc '#e8a090' title 'best peer, inverse'

set output stem.'_ns.svg'
set title "Complex DFT: time of one call, out of place, aligned" offset 0, 0.8
set ylabel 'time of a call (ns)'
set logscale y
set yrange [*:*]
plot forward using 2:3 with linespoints pt 7 lc '#0060ad' title 'ours, forward', \
     inverse using 2:3 with linespoints pt 6 lc '#7fb2e5' title 'ours, inverse', \
     forward using 2:4 with linespoints pt 7 lc '#404040' title 'FFTW, forward', \
     inverse using 2:4 with linespoints pt 6 lc '#a0a0a0' title 'FFTW, inverse'

if (exists('with_other')) {
    set output stem.'_other.svg'
    set title "Complex DFT: time of the other build over ours (above 1: ours is faster)" offset 0, 0.8
    set ylabel 'time of the other build / ours'
    unset logscale y
    plot 1 lc 'black' dt 2 notitle, \
         forward using 2:8 with linespoints pt 7 lc '#0060ad' title 'forward', \
         inverse using 2:8 with linespoints pt 6 lc '#7fb2e5' title 'inverse'
}
