#include "dct4/batch.hpp"
#include "dct4/bodies_of_dft.hpp"
#include "dct4/compute.hpp"
#include "dct4/plan_shape.hpp"
#include "dct4/rule_switch.hpp"
#include "dct4/table_layout.hpp"

namespace dct4::QSVG_VECTORS {
namespace {

/** Places of a block in the table. */
template <int kRule>
struct TablePlaces {
    static constexpr int kPoints = 1 << kRule;
    static constexpr int kInner = 2 * DftTable(kPoints).inner_pairs();
    static constexpr int kOuter = 2 * DftTable(kPoints).outer_pairs();
};

/** Vectors of a block: its rows, `row` elements each, and its part of the table. */
template <int kRule, class Rows>
struct BlockSource {
    using Table = TablePlaces<kRule>;
    static constexpr int kRows = 2 * Table::kPoints;

    Rows rows;
    const Real* inner;
    const Real* outer;

    Vector load(int place) const {
        if (place < kRows) return rows.load(place);
        place -= kRows;
        if (place < Table::kInner) return load_slot(inner + place * kPlanLanes);
        return load_slot(outer + (place - Table::kInner) * kPlanLanes);
    }
};

/** Rows side by side in the scratch vector. */
template <int kRow>
struct AdjacentRows {
    const Real* begin;
    Vector load(int place) const { return QSVG_VECTORS::load(begin + place * kRow); }
};

/** Straight to the destination: D[q] to row q, the conjugated D of the second half from its end. */
template <int kRule, int kRow, int kBetween>
struct DirectRows {
    static constexpr int kHalf = (1 << kRule) / 2;

    Real* forward;
    Real* backward;

    void store(int place, Vector v) const {
        const int t = place / 2;
        const int part = place % 2 * kRow;
        if (t < kHalf)
            QSVG_VECTORS::store(forward + t * kBetween + part, v);
        else
            QSVG_VECTORS::store(backward + (2 * kHalf - 1 - t) * kBetween + part, v);
    }
};

/** The DFTs of all blocks of a node, for some groups of columns. */
template <int kRule>
class BlocksOfDfts {
  public:
    static constexpr int kPoints = 1 << kRule;
    using Table = TablePlaces<kRule>;

    BlocksOfDfts(const env8& node, Real* destination, const ColumnGroups& where)
        : node_(node),
          destination_(destination + where.column),
          groups_(where.groups),
          step_(where.step == 0 ? node.step : where.step),
          pitch_(where.pitch == 0 ? node.step : where.pitch) {}

    void run(const Real* scratch) {
        const Real* const outer = node_.table + node_.blocks * Table::kInner * kPlanLanes;
        QSVG_WRITTEN_OUT_ONCE for (int block = 0; block < node_.blocks; ++block) {
            const Block at{scratch + block * 2 * kPoints * pitch_,
                           node_.table + block * Table::kInner * kPlanLanes,
                           outer + block * Table::kOuter * kPlanLanes};
            const bool is_dense = pitch_ == kBatchElements;
            if (is_dense && step_ == kTopRow && is_transformed_directly(at, block)) continue;
            if (is_dense)
                transform_adjacent_rows(at);
            else
                transform_distant_rows(at);
            spread_block(block);
        }
    }

  private:
    static constexpr int kTopRow = plan_shape(kShortestSplit).row() / 2;
    /** Up to this length, rows of the destination are addressed by constants. Longer vectors, of
     * which fewer fill a line, take 4 to 10 % less time so at 8192 and 16384 points, and those of a
     * whole line up to 20 % at 32768 and 65536. */
    static constexpr int kLongestDirect = sizeof(Vector) == 64 ? 65536
                                          : kGroups > 1        ? 16384
                                                               : kShortestSplit;

    /** Where the rows of one block begin, and its parts of the table. */
    struct Block {
        const Real* rows;
        const Real* inner;
        const Real* outer;
    };

    bool is_transformed_directly(const Block& at, int block) const {
        return any_length<kShortestSplit, kLongestDirect>([&]<int kLength>() {
            constexpr SplitShape kSplit = plan_shape(kLength).split();
            if constexpr (kSplit.dft_rule() == kRule) {
                if (node_.quotient == kSplit.part_points()) {
                    transform_direct<kSplit.part_points()>(at, block);
                    return true;
                }
            }
            return false;
        });
    }

    template <int kQuotient>
    void transform_direct(const Block at, int block) const {
        DirectRows<kRule, kTopRow, 2 * kTopRow * kQuotient> rows{
            destination_ + 2 * kTopRow * block,
            destination_ + 2 * kTopRow * (kQuotient - 1 - block)};
        QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups_; ++i) {
            const BlockSource<kRule, AdjacentRows<kBatchElements>> source{
                {at.rows + i * kLanes}, at.inner, at.outer};
            Dft<kRule>::run(source, rows);
            rows.forward += kLanes;
            rows.backward += kLanes;
        }
    }

    [[gnu::noinline]] void transform_adjacent_rows(const Block at) {
        QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups_; ++i) {
            const BlockSource<kRule, AdjacentRows<kBatchElements>> source{
                {at.rows + i * kLanes}, at.inner, at.outer};
            Dft<kRule>::run(source, out_.group(i));
        }
    }

    [[gnu::noinline]] void transform_distant_rows(const Block at) {
        Batch<2 * kPoints> in;
        std::int32_t row = 0;
        QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < 2 * kPoints; ++i) {
            move_row(at.rows + row, in.row(i), groups_);
            row += pitch_;
        }
        QSVG_WRITTEN_OUT_ONCE for (int i = 0; i < groups_; ++i) {
            const BlockSource<kRule, typename Batch<2 * kPoints>::Group> source{in.group(i),
                                                                                at.inner, at.outer};
            Dft<kRule>::run(source, out_.group(i));
        }
    }

    /** D[q] goes to row 2n'q + block, the conjugated D of the second half, from its end, to the
     * rows that mirror these. */
    void spread_block(int block) {
        const std::int32_t between = 2 * step_ * node_.quotient;
        std::int32_t forward = 2 * step_ * block;
        std::int32_t backward = 2 * step_ * (node_.quotient - 1 - block);
        QSVG_WRITTEN_OUT_ONCE for (int q = 0; q < kPoints / 2; ++q) {
            move_row(out_.row(2 * q), destination_ + forward, groups_);
            move_row(out_.row(2 * q + 1), destination_ + forward + step_, groups_);
            const int last = kPoints - 1 - q;
            move_row(out_.row(2 * last), destination_ + backward, groups_);
            move_row(out_.row(2 * last + 1), destination_ + backward + step_, groups_);
            forward += between;
            backward += between;
        }
    }

    const env8& node_;
    Real* const destination_;
    const int groups_;
    const std::int32_t step_;
    const std::int32_t pitch_;
    Batch<2 * kPoints> out_;
};

}  // namespace

extern "C" QsvStatus COMPUTE(env8)(const env8* node, const Real* scratch, Real* destination,
                                   const ColumnGroups& where) {
    return for_rule<5>(node->rule, [&]<int kRule>() {
        // Dense rows are those of these columns alone.
        BlocksOfDfts<kRule>(*node, destination, where)
            .run(scratch + (where.pitch == 0 ? where.column : 0));
    });
}

}  // namespace dct4::QSVG_VECTORS
