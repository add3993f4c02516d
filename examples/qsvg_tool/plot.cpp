#include "plot.hpp"

#include <cmath>
#include <span>
#include <string>
#include <vector>

namespace qsvg_tool {
namespace {

struct Point {
    double re;
    double im = 0;
};

/** One transform of one signal. */
struct Curve {
    std::string title;  ///< empty where there is only one
    std::vector<Point> points;
};

/** Bins 0 to N/2 of a spectrum. */
template <class Real>
std::vector<Point> Bins(std::span<const Real> spectrum, Layout layout, size_t length) {
    std::vector<Point> bins;
    const bool is_even = length % 2 == 0;
    for (size_t k = 0; 2 * k <= length; ++k) {
        const bool is_real = k == 0 || 2 * k == length;
        size_t element = layout == Layout::kCcs ? 2 * k : k == 0 ? 0 : 2 * k - 1;
        if (layout == Layout::kPerm && is_even && k > 0) element = is_real ? 1 : 2 * k;
        bins.push_back({spectrum[element], is_real ? 0 : spectrum[element + 1]});
    }
    return bins;
}

bool IsSpectrum(const Request& request) {
    return request.family == Family::kDftReal && !request.is_inverse;
}

template <class Real>
std::vector<Point> PointsOf(const Request& request, std::span<const Real> block) {
    if (IsSpectrum(request))
        return Bins(block, request.layout, static_cast<size_t>(request.length));
    std::vector<Point> points;
    if (request.is_complex()) {
        for (size_t i = 0; i < block.size(); i += 2) points.push_back({block[i], block[i + 1]});
    } else {
        for (const Real value : block) points.push_back({value});
    }
    return points;
}

template <class Real>
std::vector<Curve> CurvesOf(const Request& request, const Columns<Real>& columns,
                            size_t lines_of_block) {
    std::vector<Curve> curves;
    const size_t blocks = columns.lines / lines_of_block;
    for (size_t block = 0; block < blocks; ++block) {
        for (size_t signal = 0; signal < columns.signals; ++signal) {
            std::string title;
            if (columns.signals > 1) title += "signal " + std::to_string(signal + 1) + " ";
            if (blocks > 1) title += "block " + std::to_string(block + 1) + " ";
            curves.push_back(
                {title, PointsOf(request,
                                 columns.samples(signal, block * lines_of_block, lines_of_block))});
        }
    }
    return curves;
}

/** A data set of its own for each curve. */
void WriteData(const std::filesystem::path& path, const std::vector<Curve>& curves) {
    std::ofstream data = example::OpenForWriting(path);
    data << "# index real imaginary magnitude\n";
    for (const Curve& curve : curves) {
        if (&curve != curves.data()) data << "\n\n";
        for (size_t i = 0; i < curve.points.size(); ++i) {
            const Point& point = curve.points[i];
            data << i << ' ' << ShortestDecimal(point.re) << ' ' << ShortestDecimal(point.im) << ' '
                 << ShortestDecimal(std::hypot(point.re, point.im)) << '\n';
        }
    }
    example::CloseChecked(data, path);
}

void WriteScript(const example::PlotFiles& files, const Request& request,
                 const std::vector<Curve>& curves) {
    const bool is_complex = request.is_complex() || IsSpectrum(request);
    std::ofstream script = example::OpenForWriting(files.script);
    script << "set terminal pngcairo size 1200,640 font 'sans,13'\n"
           << "set output " << example::Quoted(files.png.string()) << "\n"
           << "set title "
           << example::Quoted(Title(request) + (request.is_inverse ? " inverse" : ""))
           << " noenhanced\n"
           << "set xlabel 'index'\n"
           << "set grid\n";
    for (size_t i = 0; i < curves.size(); ++i) {
        const auto add = [&](int column, const char* part) {
            script << (i == 0 && column == 2 ? "plot " : ", ")
                   << example::Quoted(files.data.string()) << " index " << i
                   << " using 1:" << column << " with linespoints title "
                   << example::Quoted(curves[i].title + part);
        };
        add(2, is_complex ? "real part" : "value");
        if (is_complex) {
            add(3, "imaginary part");
            add(4, "magnitude");
        }
    }
    script << "\n";
    example::CloseChecked(script, files.script);
}

}  // namespace

template <class Real>
void PlotColumns(const example::PlotFiles& files, const Request& request,
                 const Columns<Real>& columns, size_t lines_of_block) {
    const std::vector<Curve> curves = CurvesOf(request, columns, lines_of_block);
    WriteData(files.data, curves);
    WriteScript(files, request, curves);
    example::RunGnuplot(files.script);
}

template void PlotColumns<Real32>(const example::PlotFiles&, const Request&, const Columns<Real32>&,
                                  size_t);
template void PlotColumns<Real64>(const example::PlotFiles&, const Request&, const Columns<Real64>&,
                                  size_t);

}  // namespace qsvg_tool
