#pragma once

#include <qsvgen.h>

#include <cstddef>

#include "batch_family.hpp"
#include "transform_library.hpp"

namespace bench {

/** Where the elements of a batch stand, in elements. */
struct BatchSteps {
    ptrdiff_t stride = 1;
    ptrdiff_t distance = 1;
};

/**
 * The batch call and the single call of a family, unscaled. Elements of all types are handed over
 * by address, in the same way; the work buffer of those that have one is not needed by the orders
 * measured here.
 */
class BatchCalls {
  public:
    BatchCalls(const TransformLibrary& library, const BatchFamily& family) {
        const std::string batch = "qsvgBatch" + family.exported;
        const std::string single = "qsvg" + family.exported;
        if (family.transform == BatchTransform::kWalshHadamard) {
            buffered_batch_ = library.Exported<BufferedBatch>(batch);
            buffered_single_ = library.Exported<BufferedSingle>(single);
        } else {
            batch_ = library.Exported<Batch>(batch);
            single_ = library.Exported<Single>(single);
        }
    }

    void RunBatch(const void* src, BatchSteps from, void* dst, BatchSteps to, int32_t size,
                  int32_t count) const {
        if (batch_ != nullptr) {
            batch_(src, from.stride, from.distance, dst, to.stride, to.distance, size, count,
                   qsvScaleNone);
        } else {
            buffered_batch_(src, from.stride, from.distance, dst, to.stride, to.distance, size,
                            count, qsvScaleNone, nullptr);
        }
    }

    /** Hands the single call to `use`, as one of source, destination and size. */
    template <typename Use>
    void WithSingle(Use use) const {
        // Chosen once, not in every call of a loop.
        if (single_ != nullptr) {
            use([single = single_](const void* x, void* y, int32_t size) {
                single(x, y, size, qsvScaleNone);
            });
        } else {
            use([single = buffered_single_](const void* x, void* y, int32_t size) {
                single(x, y, size, qsvScaleNone, nullptr);
            });
        }
    }

  private:
    using Batch = QsvStatus(const void*, ptrdiff_t, ptrdiff_t, void*, ptrdiff_t, ptrdiff_t, int32_t,
                            int32_t, int32_t);
    using BufferedBatch = QsvStatus(const void*, ptrdiff_t, ptrdiff_t, void*, ptrdiff_t, ptrdiff_t,
                                    int32_t, int32_t, int32_t, uint8_t*);
    using Single = QsvStatus(const void*, void*, int32_t, int32_t);
    using BufferedSingle = QsvStatus(const void*, void*, int32_t, int32_t, uint8_t*);

    Batch* batch_ = nullptr;
    BufferedBatch* buffered_batch_ = nullptr;
    Single* single_ = nullptr;
    BufferedSingle* buffered_single_ = nullptr;
};

}  // namespace bench
