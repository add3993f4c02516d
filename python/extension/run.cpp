#include "run.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "dct4_plans.hpp"

namespace python {
namespace {

constexpr ptrdiff_t kMostInABatch = ptrdiff_t{1} << 24;
/** Elements that are copied stay in the first-level cache until they are used. */
constexpr ptrdiff_t kStagedBytes = 24576;
constexpr ptrdiff_t kLeastStaged = 16;
constexpr ptrdiff_t kMostStaged = 512;
/** Fewer than the least, where so many would be too large. */
constexpr ptrdiff_t kMostStagedBytes = ptrdiff_t{16} << 20;
constexpr size_t kAlignment = 64;

struct Free {
    void operator()(char* memory) const { std::free(memory); }
};
using Memory = std::unique_ptr<char, Free>;

Memory allocate(ptrdiff_t bytes) {
    const size_t rounded = (static_cast<size_t>(bytes) + kAlignment - 1) / kAlignment * kAlignment;
    return Memory(static_cast<char*>(std::aligned_alloc(kAlignment, rounded)));
}

/** How one side's elements come to where a batch wants them, or get from there to where they
 * belong: straight, or by way of a stage that holds a block of transforms. */
struct Staging {
    bool needed;
    bool by_columns;  ///< equal elements of a block stand together, else those of a transform
    Change change;
    Along along;
    ptrdiff_t item;         ///< bytes that copy() wants to know
    ptrdiff_t unit;         ///< bytes of an element of the C interface
    ptrdiff_t staged_item;  ///< bytes of a staged element as NumPy counts them, in rows
    ptrdiff_t row;          ///< bytes from a staged row to the next

    ptrdiff_t bytes(ptrdiff_t block) const { return needed ? block * row : 0; }

    /** The stage as batches see it. */
    Place place(char* stage, ptrdiff_t block) const {
        return by_columns ? Place{stage, block * unit, unit} : Place{stage, unit, row};
    }

    /** The stage as copies see it. */
    Place items(char* stage, ptrdiff_t block) const {
        if (by_columns) return place(stage, block);
        return {stage, staged_item, row};
    }
};

bool is_multiple(ptrdiff_t value, ptrdiff_t unit) {
    return value % unit == 0;
}

ptrdiff_t bytes_between(const Axis& axis, bool is_source) {
    return is_source ? axis.source : axis.result;
}

/** Whether the C interface can be told where the elements are. */
bool is_direct(const Job& job, const Side& side, Elements elements, bool is_source) {
    const ptrdiff_t unit = unit_of(elements, job.precision);
    const ptrdiff_t real = bytes_of(job.precision);
    if (side.is_real || side.items < items_of(elements, job.length)) return false;
    if (reinterpret_cast<uintptr_t>(side.first) % static_cast<uintptr_t>(real) != 0) return false;
    if (elements == Elements::kHalfSpectrum) {
        if (side.stride != 2 * real && items_of(elements, job.length) > 1) return false;
    } else if (!is_multiple(side.stride, unit)) {
        return false;
    }
    if (job.family->lengths == Lengths::kPlans && side.stride != unit) return false;
    for (int i = 0; i < job.axis_count; ++i) {
        const ptrdiff_t between = bytes_between(job.axes[i], is_source);
        // Other axes only move the first element, which must stay at a boundary of its numbers.
        if (!is_multiple(between, i == job.axis_count - 1 ? unit : real)) return false;
    }
    return true;
}

Staging staging_of(const Job& job, const Side& side, Elements elements, bool is_source) {
    Staging staging{};
    staging.needed = !is_direct(job, side, elements, is_source);
    const ptrdiff_t real = bytes_of(job.precision);
    staging.unit = unit_of(elements, job.precision);
    staging.staged_item = item_of(elements, job.precision);
    const ptrdiff_t item = side.is_real ? real : staging.staged_item;
    const ptrdiff_t between = job.axis_count > 0
                                  ? std::abs(bytes_between(job.axes[job.axis_count - 1], is_source))
                                  : PTRDIFF_MAX;
    const bool by_plan = job.family->lengths == Lengths::kPlans;
    const bool is_half = elements == Elements::kHalfSpectrum;
    // Real parts alone make a half spectrum by way of rows.
    staging.by_columns = between <= item && !by_plan && !(side.is_real && is_half);
    staging.along = between < std::abs(side.stride) ? Along::kTransforms : Along::kElements;
    staging.change = Change::kNone;
    staging.item = item;
    if (side.is_real)
        staging.change = Change::kRealToComplex;
    else if (is_half && staging.by_columns)
        staging.change = is_source ? Change::kComplexToParts : Change::kPartsToComplex;
    const ptrdiff_t units = is_half ? 2 * items_of(elements, job.length) : job.length;
    staging.row = units * staging.unit;
    // Rows a power of two apart would share a few sets of the cache.
    if (by_plan) staging.row += static_cast<ptrdiff_t>(kAlignment);
    return staging;
}

/** Runs transforms of one job in one thread. */
class Runner {
  public:
    Runner(const Job& job, ptrdiff_t transforms, void*& plan)
        : job_(job),
          plan_(plan),
          source_(staging_of(job, job.source, job.family->source, true)),
          result_(staging_of(job, job.result, job.family->result, false)) {
        const ptrdiff_t widest = std::max(source_.bytes(1), result_.bytes(1));
        block_ = kMostInABatch;
        if (widest > 0) {
            block_ = std::clamp(kStagedBytes / widest, kLeastStaged, kMostStaged);
            block_ = block_ / kLeastStaged * kLeastStaged;
            block_ =
                std::min({block_, std::max<ptrdiff_t>(kMostStagedBytes / widest, 1), transforms});
        }
    }

    Outcome prepare() {
        const ptrdiff_t staged = source_.bytes(block_) + result_.bytes(block_);
        const ptrdiff_t work = work_buffer_bytes(*job_.family, job_.precision, job_.length);
        space_.scale = job_.scale;
        // The result's stage behind the source's, both at boundaries of vectors.
        result_offset_ = (source_.bytes(block_) + static_cast<ptrdiff_t>(kAlignment) - 1) /
                         static_cast<ptrdiff_t>(kAlignment) * static_cast<ptrdiff_t>(kAlignment);
        if (staged > 0) {
            stage_ = allocate(result_offset_ + result_.bytes(block_));
            if (!stage_) return Outcome::kNoMemory;
        }
        if (work > 0) {
            work_ = allocate(work);
            if (!work_) return Outcome::kNoMemory;
            space_.buffer = reinterpret_cast<uint8_t*>(work_.get());
        }
        if (job_.family->lengths == Lengths::kPlans) {
            if (plan_ == nullptr) plan_ = make_dct4_plan(job_.precision, job_.length);
            if (plan_ == nullptr) return Outcome::kNoMemory;
            space_.plan = plan_;
        }
        return Outcome::kDone;
    }

    /** Transforms that follow one another along the last axis. */
    Outcome run(char* source, char* result, ptrdiff_t transforms) {
        const Axis along = job_.axis_count > 0 ? job_.axes[job_.axis_count - 1] : Axis{1, 0, 0};
        for (ptrdiff_t done = 0; done < transforms; done += block_) {
            const ptrdiff_t count = std::min(block_, transforms - done);
            const Outcome outcome =
                run_block({source + done * along.source, job_.source.stride, along.source},
                          {result + done * along.result, job_.result.stride, along.result}, count);
            if (outcome != Outcome::kDone) return outcome;
        }
        return Outcome::kDone;
    }

  private:
    Outcome run_block(const Place& source, const Place& result, ptrdiff_t count) {
        const Place from =
            source_.needed ? load(source, count) : in_units(source, job_.family->source);
        char* const stage = stage_.get() + result_offset_;
        const Place to =
            result_.needed ? result_.place(stage, block_) : in_units(result, job_.family->result);
        const QsvStatus status = job_.family->batch[static_cast<size_t>(job_.precision)](
            from.first, from.stride / source_.unit, from.dist / source_.unit, to.first,
            to.stride / result_.unit, to.dist / result_.unit, static_cast<int32_t>(job_.length),
            static_cast<int32_t>(count), job_.flag, space_);
        if (status != qsvStatusOk) return Outcome::kRefused;
        if (result_.needed)
            copy(result_.change, result_.along, result_.item, result_.items(stage, block_), result,
                 job_.result.items, count);
        return Outcome::kDone;
    }

    Place load(const Place& source, ptrdiff_t count) {
        const Place stage = source_.items(stage_.get(), block_);
        const ptrdiff_t wanted = items_of(job_.family->source, job_.length);
        const ptrdiff_t there = std::min(wanted, job_.source.items);
        copy(source_.change, source_.along, source_.item, source, stage, there, count);
        if (there < wanted) pad(stage, there, wanted, count);
        return source_.place(stage_.get(), block_);
    }

    void pad(const Place& stage, ptrdiff_t there, ptrdiff_t wanted, ptrdiff_t count) {
        // Parts are two lines an element.
        const bool parts = source_.change == Change::kComplexToParts;
        const ptrdiff_t lines = parts ? 2 : 1;
        const ptrdiff_t item = parts ? source_.unit : source_.staged_item;
        clear(item, {stage.first + lines * there * stage.stride, stage.stride, stage.dist},
              lines * (wanted - there), count);
    }

    /** Bins of a half spectrum that stand together are real elements that do. */
    Place in_units(const Place& place, Elements elements) const {
        if (elements != Elements::kHalfSpectrum) return place;
        return {place.first, bytes_of(job_.precision), place.dist};
    }

    const Job& job_;
    void*& plan_;
    Staging source_;
    Staging result_;
    ptrdiff_t block_;
    ptrdiff_t result_offset_ = 0;
    Memory stage_;
    Memory work_;
    WorkSpace space_;
};

}  // namespace

Outcome run(const Job& job, ptrdiff_t begin, ptrdiff_t end, void*& plan) {
    Runner runner(job, end - begin, plan);
    if (const Outcome outcome = runner.prepare(); outcome != Outcome::kDone) return outcome;
    const int outer_count = std::max(job.axis_count - 1, 0);
    const ptrdiff_t line = job.axis_count > 0 ? job.axes[job.axis_count - 1].extent : 1;
    while (begin < end) {
        const ptrdiff_t within = begin % line;
        ptrdiff_t outer = begin / line;
        ptrdiff_t source = 0;
        ptrdiff_t result = 0;
        if (job.axis_count > 0) {
            source = within * job.axes[outer_count].source;
            result = within * job.axes[outer_count].result;
        }
        for (int i = outer_count - 1; i >= 0; --i) {
            source += outer % job.axes[i].extent * job.axes[i].source;
            result += outer % job.axes[i].extent * job.axes[i].result;
            outer /= job.axes[i].extent;
        }
        const ptrdiff_t count = std::min(line - within, end - begin);
        const Outcome outcome =
            runner.run(job.source.first + source, job.result.first + result, count);
        if (outcome != Outcome::kDone) return outcome;
        begin += count;
    }
    return Outcome::kDone;
}

}  // namespace python
