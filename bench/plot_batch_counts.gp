# gnuplot -e "stem='build/bench/x86-64/batch_counts_v3'; about='CPU, compiler'" plot_batch_counts.gp
# Draws what a transform costs by how many a call has, a picture for each type and family that bench_batch --remainders
# wrote to stem.dat.
data = stem.'.dat'
kinds = system("awk 'NR > 1 && !seen[$1\" \"$2]++ { print $1\":\"$2 }' '".data."'")
# Lengths of which all counts were measured.
lengths(family, type) = system("awk '$1 == \"".family."\" && $2 == \"".type."\" && $4 == 2 && !seen[$5]++ ".\
                               "{ print $5 }' '".data."'")
points(family, type, layout, length) = \
    "< awk '$1 == \"".family."\" && $2 == \"".type."\" && $3 == \"".layout."\" && $5 == ".length."' '".data."'"
array colours[6] = ['#0060ad', '#c03010', '#208040', '#c09000', '#806020', '#a060a0']
before(text) = text[1:strstrt(text, ':') - 1]
behind(text) = text[strstrt(text, ':') + 1:*]
file_name(text) = system("echo '".text."' | tr '/' '_'")

# An underscore would lower what follows.
family_title(text) = system("echo '".text."' | tr '_' '-'")

set terminal svg size 1400,560 font 'sans,13' background 'white'
set grid lc '#dddddd'
set xlabel 'transforms of a call'
set logscale x 2
set xrange [1:300]
set logscale y
set ylabel 'time of a transform (ns)'
set key below horizontal noenhanced
set pointsize 0.4

do for [kind in kinds] {
    family = before(kind)
    type = behind(kind)
    sizes = lengths(family, type)
    if (words(sizes) > 0) {
        set output stem.'_'.file_name(family).'_'.type.'.svg'
        set multiplot layout 1,2 \
            title family_title(family).', '.type."; dashed: single calls in a loop\n{/*0.75 ".about."}"
        do for [layout in 'contiguous columns'] {
            set title layout
            plot for [i = 1:words(sizes)] points(family, type, layout, word(sizes, i)) using 4:7 \
                     with linespoints pt 7 lc rgb colours[i] title word(sizes, i), \
                 for [i = 1:words(sizes)] points(family, type, layout, word(sizes, i)) using 4:9 \
                     with lines dt 2 lc rgb colours[i] notitle
        }
        unset multiplot
    }
}
