#include "dct4/tables.hpp"

#include "dct4/operations.hpp"
#include "dct4/table_layout.hpp"
#include "plan/sine_cosine.hpp"
#include "plan/wrapping.hpp"

namespace dct4::QSVG_ELEMENT {

using plan::Wrapping;

namespace {

constexpr std::int32_t kSlotBytes = kPlanLanes * sizeof(Real);
static_assert(kPlanLanes == kLanes, "slots are written as vectors");

/** Appends whole vectors to a table, as its reader takes them. */
class SlotWriter {
  public:
    explicit SlotWriter(Real* table) : next_(table) {}

    void put(Vector slot) {
        store(next_, slot);
        next_ += kLanes;
    }

    void put_cosine_and_sine(Real multiple_of_pi) {
        put(in_all_lanes(EXPORTED(CosPi)(multiple_of_pi)));
        put(in_all_lanes(EXPORTED(SinPi)(multiple_of_pi)));
    }

  private:
    Real* next_;
};

Vector rotation_slot(const envfsplit& rotations, std::int32_t block, std::int32_t column) {
    alignas(Vector) Real lanes[kLanes];
    for (std::int32_t lane = 0; lane < kLanes; ++lane)
        lanes[lane] = rotations.at(&rotations, block, lane, column);
    return load(lanes);
}

}  // namespace

std::int32_t env4_table_bytes(std::int32_t factor, std::int32_t blocks) {
    return (Wrapping(2 * kSlotBytes) * factor * blocks).value();
}

void fill_table(const env4& node) {
    const envfsplit& rotations = *node.coefficients;
    SlotWriter table(node.table);
    for (std::int32_t block = 0; block < node.blocks; ++block) {
        for (std::int32_t place = 0; place < node.factor; ++place) {
            const std::int32_t cosine = 2 * rotation_column(node.factor, place);
            table.put(rotation_slot(rotations, block, cosine));
            table.put(rotation_slot(rotations, block, cosine + 1));
        }
    }
}

std::int32_t env8_table_bytes(std::int32_t factor, std::int32_t blocks) {
    return ((Wrapping(2) * factor - 2) * kSlotBytes * blocks).value();
}

void fill_table(const env8& node) {
    const envlambda& angles = *node.coefficients;
    SlotWriter table(node.table);
    const DftTable layout(node.factor);
    const std::int32_t outer = layout.outer_points();
    // The inner pairs of all blocks, then the outer ones of all.
    for (std::int32_t block = 0; layout.has_two_levels() && block < node.blocks; ++block) {
        const Real lambda = owng_TFunc_IIIR_at(&angles, block, 0, 0);
        for (std::int32_t k = 0; k < outer; ++k) {
            const double angle = static_cast<double>(lambda + static_cast<Real>(k)) / outer;
            for (std::int32_t m = 1; m < 4; ++m)
                table.put_cosine_and_sine(static_cast<Real>(angle * (0.5 * m)));
        }
    }
    for (std::int32_t block = 0; block < node.blocks; ++block) {
        const Real lambda = owng_TFunc_IIIR_at(&angles, block, 0, 0);
        for (std::int32_t m = 1; m < outer; ++m)
            table.put_cosine_and_sine(lambda *
                                      (static_cast<Real>(2 * m) / static_cast<Real>(outer)));
    }
}

}  // namespace dct4::QSVG_ELEMENT
