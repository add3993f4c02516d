#include "batch/run.hpp"

#include <algorithm>

#include "batch/tile.hpp"

namespace batch {
namespace {

/** Most elements of a transform in lanes: a spectrum of 64 real points with its zeros. */
constexpr int kMostElements = 66;

/** Elements of a tile, which short transforms fill with several groups. */
constexpr int kTileElements = 72;
static_assert(kTileElements >= kMostElements);

/** Single kernels at a time where a group would have idle lanes. */
constexpr int kFew = 2;

/** Up to that length columns are faster in pieces than in lanes, for which parts are taken apart
 * and put together again: vectors of 32 bytes and of 64. */
constexpr int kLongestColumn = kBytes == 32 ? 14 : 7;

/** Up to so many transforms single calls are as fast as a group whose other lanes are idle. */
template <class Element>
int few(const Batch<Element>& batch) {
    // Single calls copy what is not contiguous; short ones take less time than a tile.
    constexpr int kShort = 12;
    const bool is_cheap = kParts<Element> == 2 || (batch.is_contiguous() && batch.places < kShort);
    return is_cheap ? kGroup<Element> - 1 : kGroup<Element> / 2;
}

/** One after the other, where elements follow one another. */
template <class Element>
void run_contiguous_singly(const Batch<Element>& batch, std::ptrdiff_t first,
                           std::ptrdiff_t count) {
    const Element* from = batch.source.base + first * batch.source.distance;
    Element* to = batch.destination.base + first * batch.destination.distance;
    while (true) {
        batch.single(from, to, batch.size, batch.flag);
        if (--count == 0) return;
        from += batch.source.distance;
        to += batch.destination.distance;
    }
}

/** `count` transforms from `first` on, one after the other. Elements that do not follow one another
 * are copied. */
template <class Element>
void run_singly(const Batch<Element>& batch, std::ptrdiff_t first, std::ptrdiff_t count) {
    if (batch.is_contiguous()) return run_contiguous_singly(batch, first, count);
    for (std::ptrdiff_t k = first; k < first + count; ++k) {
        const Placement<const Element> source = batch.source.from(k);
        const Placement<Element> destination = batch.destination.from(k);
        Element x[kMostElements];
        Element y[kMostElements] = {};
        for (int j = 0; j < source.elements; ++j) x[j] = source.base[j * source.stride];
        batch.single(x, y, batch.size, batch.flag);
        for (int j = 0; j < destination.elements; ++j)
            destination.base[j * destination.stride] = y[j];
    }
}

/** Transforms of a batch side by side, as many as `part.count` and `at_a_time` tell; from one to
 * the next, sides move by their steps. Returns how many have run. */
template <class Element, class Part>
std::ptrdiff_t run_part_in_pieces(const Batch<Element>& batch, int at_a_time,
                                  bool (*run)(int at_a_time, int size, const Part& part), Part part,
                                  std::ptrdiff_t source_step, std::ptrdiff_t destination_step) {
    part.count = batch.count / at_a_time;
    if (!run(at_a_time, batch.size, part)) return 0;
    const int rest = batch.count % at_a_time;
    if (rest == 0 || batch.is_in_place()) return batch.count - rest;
    // The last ones once more, shifted: results that are written twice are the same.
    part.source += (batch.count - at_a_time) * source_step;
    part.destination += (batch.count - at_a_time) * destination_step;
    part.count = 1;
    run(at_a_time, batch.size, part);
    return batch.count;
}

/** Of transforms whose elements follow one another. */
template <class Element>
std::ptrdiff_t run_rows_in_pieces(const Batch<Element>& batch, int at_a_time) {
    using Real = NumberOf<Element>;
    const std::ptrdiff_t source_step = batch.source.distance * kParts<Element>;
    const std::ptrdiff_t destination_step = batch.destination.distance * kParts<Element>;
    const Rows<Real> rows{reinterpret_cast<const Real*>(batch.source.base),
                          reinterpret_cast<Real*>(batch.destination.base),
                          source_step,
                          destination_step,
                          batch.factor,
                          0};
    return run_part_in_pieces(batch, at_a_time, batch.in_pieces.rows, rows, source_step,
                              destination_step);
}

template <class Element>
std::ptrdiff_t run_columns_in_pieces(const Batch<Element>& batch, int at_a_time) {
    using Real = NumberOf<Element>;
    std::ptrdiff_t from[kMostElements];
    std::ptrdiff_t to[kMostElements];
    for (int j = 0; j < batch.places; ++j) {
        from[j] = j * batch.source.stride * kParts<Element>;
        to[j] = j * batch.destination.stride * kParts<Element>;
    }
    const Columns<Real> columns{reinterpret_cast<const Real*>(batch.source.base),
                                reinterpret_cast<Real*>(batch.destination.base),
                                from,
                                to,
                                batch.factor,
                                0};
    return run_part_in_pieces(batch, at_a_time, batch.in_pieces.columns, columns, kParts<Element>,
                              kParts<Element>);
}

template <class Element>
class Run {
    using Real = NumberOf<Element>;
    static constexpr std::ptrdiff_t kNumbers = kElementNumbers<Element>;

  public:
    explicit Run(const Batch<Element>& batch)
        : batch_(batch),
          is_in_place_(batch.is_in_place()),
          reads_columns_(batch.source.has_columns()),
          // In place, a result may stand where another value of its transform is still to be read.
          writes_columns_(batch.destination.has_columns() && !is_in_place_) {
        fill(from_, batch.source_layout,
             reads_columns_ ? batch.source.stride * kParts<Element> : kNumbers);
        fill(to_, batch.destination_layout,
             writes_columns_ ? batch.destination.stride * kParts<Element> : kNumbers);
    }

    void all() {
        const std::ptrdiff_t full = batch_.count / kGroup<Element>;
        const auto rest = static_cast<int>(batch_.count % kGroup<Element>);
        full_groups(0, full);
        if (rest == 0) return;
        // The last full group once more, shifted: results that are written twice are the same.
        if (full > 0 && !is_in_place_)
            full_groups(batch_.count - kGroup<Element>, 1);
        else if (rest <= few(batch_))
            run_singly(batch_, full * kGroup<Element>, rest);
        else
            part_of_group(full * kGroup<Element>, rest);
    }

  private:
    void fill(std::ptrdiff_t* offsets, Layout layout, std::ptrdiff_t stride) const {
        // But for the first place and the last one, elements follow one another in all layouts.
        const int last = batch_.places - 1;
        std::ptrdiff_t offset = element_of(layout, batch_.places, 1) * stride;
        for (int place = 1; place < last; ++place, offset += stride) offsets[place] = offset;
        offsets[0] = 0;
        offsets[last] = element_of(layout, batch_.places, last) * stride;
    }

    /** `count` full groups, the first of which begins with transform `first`. */
    void full_groups(std::ptrdiff_t first, std::ptrdiff_t count) {
        const std::ptrdiff_t at_once = reads_columns_ && writes_columns_ ? count : groups_of_tile();
        for (; count > 0; count -= at_once, first += at_once * kGroup<Element>)
            some_groups(first, std::min(count, at_once));
    }

    int groups_of_tile() const {
        return kTileElements / std::max(batch_.source.elements, batch_.destination.elements);
    }

    /** As many groups as a tile has room for, or any number of columns. */
    void some_groups(std::ptrdiff_t first, std::ptrdiff_t count) {
        Groups<Real> groups{in_,
                            out_,
                            from_,
                            to_,
                            batch_.factor,
                            count,
                            kNumbers * batch_.source.elements,
                            kNumbers * batch_.destination.elements};
        if (reads_columns_) {
            groups.source = reinterpret_cast<const Real*>(batch_.source.base + first);
            groups.source_step = kNumbers;
        } else {
            gather(batch_.source, first, count, in_);
        }
        if (writes_columns_) {
            groups.destination = reinterpret_cast<Real*>(batch_.destination.base + first);
            groups.destination_step = kNumbers;
        }
        compute(groups);
        if (writes_columns_) return;
        scatter(out_, first, count, batch_.destination);
    }

    /** `count` transforms, fewer than a group. */
    void part_of_group(std::ptrdiff_t first, int count) {
        if (reads_columns_) fill(from_, batch_.source_layout, kNumbers);
        if (writes_columns_) fill(to_, batch_.destination_layout, kNumbers);
        gather_some(batch_.source.from(first), count, in_);
        compute({in_, out_, from_, to_, batch_.factor, 1, 0, 0}, kNumbers);
        scatter_some(out_, count, batch_.destination.from(first));
    }

    void compute(const Groups<Real>& groups) {
        compute(groups, writes_columns_ ? batch_.destination.stride * kParts<Element> : kNumbers);
    }

    void compute(const Groups<Real>& groups, std::ptrdiff_t element_step) {
        batch_.body(batch_.size, groups);
        const Zeros zeros = zeros_of(batch_.destination_layout, batch_.places);
        const bool is_to_be_scaled = !batch_.body_has_factor && batch_.factor != 1;
        if (zeros.count == 0 && !is_to_be_scaled) return;
        Real* begin = groups.destination;
        for (std::ptrdiff_t g = 0; g < groups.count; ++g, begin += groups.destination_step) {
            for (int i = 0; i < zeros.count; ++i)
                store(begin + zeros.elements[i] * element_step, Vector<Real>{});
            if (is_to_be_scaled) scale(begin);
        }
    }

    void scale(Real* begin) const {
        for (int place = 0; place < batch_.places; ++place) {
            Real* const element = begin + to_[place];
            for (std::ptrdiff_t i = 0; i < kNumbers; i += kLanes<Real>)
                store(element + i, load(element + i) * batch_.factor);
        }
    }

    static constexpr std::ptrdiff_t kTileNumbers = kTileElements * kNumbers;

    const Batch<Element>& batch_;
    const bool is_in_place_;
    const bool reads_columns_;
    const bool writes_columns_;
    std::ptrdiff_t from_[kMostElements];
    std::ptrdiff_t to_[kMostElements];
    alignas(64) Real in_[kTileNumbers];
    alignas(64) Real out_[kTileNumbers];
};

/** Callers' code for vectors of 16 bytes is slow for as long as upper halves are in use. What
 * compilers do about that of their own accord they leave out of bodies, which are compiled with few
 * optimisations. */
void leave_no_upper_halves() {
#if QSVG_VECTOR_BYTES > 16
    _mm256_zeroupper();
#endif
}

/** Single kernels side by side, where that is the fastest. Returns how many transforms have run. */
template <class Element>
std::ptrdiff_t run_in_pieces(const Batch<Element>& batch, bool are_few) {
    const bool are_columns = batch.source.has_columns() && batch.destination.has_columns();
    if (are_columns ? batch.in_pieces.columns == nullptr : batch.in_pieces.rows == nullptr)
        return 0;
    int at_a_time = 0;
    if (are_columns)
        at_a_time = are_few || batch.size <= kLongestColumn ? kPieces : 0;
    else if (batch.is_contiguous())
        at_a_time = are_few ? kFew : batch.singly_at_a_time;
    while (at_a_time > batch.count) at_a_time /= 2;
    if (at_a_time < 2) return 0;
    return are_columns ? run_columns_in_pieces(batch, at_a_time)
                       : run_rows_in_pieces(batch, at_a_time);
}

template <class Element>
void run_batch(const Batch<Element>& batch) {
    const bool are_few = batch.count <= few(batch);
    const std::ptrdiff_t done = run_in_pieces(batch, are_few);
    if (done > 0) leave_no_upper_halves();
    if (done == batch.count) return;
    if (done > 0 || are_few || (batch.is_contiguous() && batch.singly_at_a_time > 0))
        return run_singly(batch, done, batch.count - done);
    Run<Element>(batch).all();
    leave_no_upper_halves();
}

}  // namespace

void run(const Batch<Real32>& batch) {
    run_batch(batch);
}
void run(const Batch<Real64>& batch) {
    run_batch(batch);
}
void run(const Batch<Complex32>& batch) {
    run_batch(batch);
}
void run(const Batch<Complex64>& batch) {
    run_batch(batch);
}

}  // namespace batch
