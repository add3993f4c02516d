# gnuplot -e "stem='build/bench/x86-64/batch_v3'; about='CPU, compiler'" plot_batch.gp
# Draws what bench_batch wrote to stem.dat, a picture for each type of element; that file's first line names its columns.
data = stem.'.dat'
types = system("awk 'NR > 1 && !seen[$2]++ { print $2 }' '".data."'")
families(type) = system("awk '$2 == \"".type."\" && !seen[$1]++ { print $1 }' '".data."'")
# Not all layouts and counts need have been measured.
groups(type) = system("awk '$2 == \"".type."\" && !seen[$3\":\"$4]++ { print $3\":\"$4 }' '".data."'")
# Points of other groups are left out, so that lines join the neighbours of one group.
points(family, type, layout, count) = "< awk '$1 == \"".family."\" && $2 == \"".type.\
                                      "\" && $3 == \"".layout."\" && $4 == ".count."' '".data."'"
before(text) = text[1:strstrt(text, ':') - 1]
behind(text) = text[strstrt(text, ':') + 1:*]
array fftw[4] = ['#0060ad', '#7fb2e5', '#208040', '#202020']
array singles[4] = ['#c03010', '#e8a090', '#c09000', '#a0a0a0']
array shape[4] = [7, 6, 5, 9]

set terminal svg size 1400,1000 font 'sans,13' background 'white'
set grid ytics lc '#dddddd'
set xlabel 'length'
set xrange [1:65]
set xtics 4, 4
set ylabel 'time of others / ours'
set logscale y
set key below horizontal noenhanced
set pointsize 0.4

do for [type in types] {
    names = families(type)
    set output stem.'_'.type.'_ratio.svg'
    set multiplot layout 2,2 \
        title type.": time of others over ours (above 1: ours is faster)\n{/*0.75 ".about."}"
    do for [group in groups(type)] {
        layout = before(group)
        count = behind(group)
        set title layout.', '.count.' transforms'
        plot 1 lc 'black' dt 2 notitle, \
             for [i = 1:words(names)] points(word(names, i), type, layout, count) using 6:10 \
                 with linespoints pt shape[i] lc rgb fftw[i] title 'FFTW, '.word(names, i), \
             for [i = 1:words(names)] points(word(names, i), type, layout, count) using 6:11 \
                 with linespoints pt shape[i] lc rgb singles[i] title 'single calls, '.word(names, i)
    }
    unset multiplot
}
