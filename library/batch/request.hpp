#pragma once

/** @file @brief What a batch function is asked for, and the checks that all of them begin with. */

#include "batch/run.hpp"
#include "core/frame.hpp"
#include "qsvgen_batch.h"

namespace batch {

/** The arguments as they stand. */
template <class Element>
struct Request {
    const Element* source;
    std::ptrdiff_t source_stride;
    std::ptrdiff_t source_distance;
    Element* destination;
    std::ptrdiff_t destination_stride;
    std::ptrdiff_t destination_distance;
    std::int32_t size;
    std::int32_t count;
    std::int32_t flag;

    QsvStatus check(std::int32_t smallest, std::int32_t largest) const {
        if (size < smallest || size > largest || count < 0) return qsvStatusBadLength;
        return core::check(source, destination, flag);
    }

    /** Natural layouts on both sides, and no body yet. */
    Batch<Element> batch_of_places(int places) const {
        // The distance of a single transform is of no matter, so it may be any number.
        const bool is_single = count == 1;
        Batch<Element> batch{};
        batch.source = {source, source_stride, is_single ? 0 : source_distance, places};
        batch.destination = {destination, destination_stride, is_single ? 0 : destination_distance,
                             places};
        batch.size = size;
        batch.places = places;
        batch.count = count;
        batch.flag = flag;
        return batch;
    }
};

/** Which transforms qsvScaleFwdByN and qsvScaleInvByN scale. */
enum class Scaling { Forward, Inverse, Both };

template <class Real>
Real factor_of(std::int32_t flag, Scaling scaling, const Scales<Real>& scales) {
    switch (flag) {
        case qsvScaleFwdByN:
            return scaling == Scaling::Inverse ? Real(1) : scales.by_length;
        case qsvScaleInvByN:
            return scaling == Scaling::Forward ? Real(1) : scales.by_length;
        case qsvScaleBySqrtN:
            return scales.by_root;
        default:
            return Real(1);
    }
}

}  // namespace batch
