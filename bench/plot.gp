# gnuplot -e "stem='build/bench/real_32f'; title='Real transforms'; about='CPU, compiler'" plot.gp
# Draws what bench_transforms wrote to stem.dat; that file's first line names its columns.
data = stem.'.dat'
families = system("awk 'NR > 1 && !seen[$1]++ { print $1 }' '".data."'")
# Points of other families are left out, so that lines join the neighbours of one family.
points(family) = "< awk '$1 == \"".family."\"' '".data."'"
array bright[3] = ['#0060ad', '#7fb2e5', '#208040']  # ours, and FFTW against ours
array other[3] = ['#c03010', '#e8a090', '#c09000']   # the best peer against ours
array dark[3] = ['#202020', '#a0a0a0', '#707050']    # FFTW itself
array shape[3] = [7, 6, 5]

set terminal svg size 1100,560 font 'sans,13' background 'white'
set grid ytics lc '#dddddd'
set xlabel 'length'
set xrange [1:65]
set xtics 2, 2
set key below horizontal
set pointsize 0.5
set yrange [0:*]
set tmargin 4
set bmargin 6
set label about at graph 0.5, 1.03 center font ',10' noenhanced
set key noenhanced

set output stem.'_ratio.svg'
set title title.': time of the peer over ours (above 1: ours is faster)' offset 0, 0.8
set ylabel 'time of the peer / ours'
plot 1 lc 'black' dt 2 notitle, \
     for [i = 1:words(families)] points(word(families, i)) using 2:5 \
         with linespoints pt shape[i] lc rgb bright[i] title 'FFTW, '.word(families, i), \
     for [i = 1:words(families)] points(word(families, i)) using 2:6 \
         with linespoints pt shape[i] lc rgb other[i] title 'best peer, '.word(families, i)

set output stem.'_ns.svg'
set title title.': time of one call, out of place, aligned' offset 0, 0.8
set ylabel 'time of a call (ns)'
set logscale y
set yrange [*:*]
plot for [i = 1:words(families)] points(word(families, i)) using 2:3 \
         with linespoints pt shape[i] lc rgb bright[i] title 'ours, '.word(families, i), \
     for [i = 1:words(families)] points(word(families, i)) using 2:4 \
         with linespoints pt shape[i] lc rgb dark[i] title 'FFTW, '.word(families, i)

if (exists('with_other')) {
    set output stem.'_other.svg'
    set title title.': time of the other build over ours (above 1: ours is faster)' offset 0, 0.8
    set ylabel 'time of the other build / ours'
    unset logscale y
    plot 1 lc 'black' dt 2 notitle, \
         for [i = 1:words(families)] points(word(families, i)) using 2:8 \
             with linespoints pt shape[i] lc rgb bright[i] title word(families, i)
}
