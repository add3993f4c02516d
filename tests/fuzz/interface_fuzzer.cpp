/**
 * @file
 * @brief Calls any function of the interface with any arguments that a caller may pass: a target
 * for libFuzzer.
 *
 * Arrays have exactly the promised sizes and stand at any distance from a 16-byte boundary. A call
 * must give the status that the order of checks says, and where it refuses it must have written
 * nothing; what it reads and writes beyond its arrays is for the sanitizers to see.
 */

#include <algorithm>
#include <string>

#include "fuzz/batch_calls.hpp"
#include "fuzz/bytes.hpp"
#include "fuzz/exact_array.hpp"
#include "fuzz/expect.hpp"
#include "support/dct4_interface.hpp"
#include "support/kernel_table.hpp"
#include "support/walsh_hadamard.hpp"

namespace {

using namespace qsvgen_test;
using fuzz::Bytes;
using fuzz::ExactArray;
using fuzz::expect;

/** Mostly a flag that exists. */
std::int32_t any_flag(Bytes& bytes) {
    return bytes.one_in(8) ? bytes.next<std::int32_t>() : kFlags[bytes.choice(kFlags.size())];
}

/** Mostly one of the numbers that exist. */
std::int32_t any_number(Bytes& bytes, int lowest, int highest) {
    if (bytes.one_in(8)) return bytes.next<std::int32_t>();
    return lowest + static_cast<int>(bytes.choice(static_cast<std::size_t>(highest - lowest + 1)));
}

bool is_flag(std::int32_t flag) {
    return std::find(kFlags.begin(), kFlags.end(), flag) != kFlags.end();
}

/** Where the two arrays of a call stand, and which of them is missing. */
class Arrays {
  public:
    Arrays(Bytes& bytes, std::size_t source_bytes, std::size_t destination_bytes)
        : in_place_(bytes.one_in(4)),
          source_(in_place_ ? std::max(source_bytes, destination_bytes) : source_bytes,
                  4 * bytes.choice(4)),
          destination_(destination_bytes, 4 * bytes.choice(4)),
          no_source_(bytes.one_in(16)),
          no_destination_(bytes.one_in(16)) {
        bytes.fill(source_.data(), source_bytes);
        source_before_ = source_.copy();
        destination_before_ = destination_.copy();
    }

    template <class Element>
    const Element* source() const {
        return no_source_ ? nullptr : source_.as<Element>();
    }
    template <class Element>
    Element* destination() const {
        if (no_destination_) return nullptr;
        return in_place_ ? source_.as<Element>() : destination_.as<Element>();
    }

    /** What follows the check of a length. */
    QsvStatus status(std::int32_t flag) const {
        if (no_source_ || no_destination_) return qsvStatusNullPointer;
        return is_flag(flag) ? qsvStatusOk : qsvStatusBadFlag;
    }

    void expect_status(QsvStatus wanted, QsvStatus got, const std::string& what) const {
        expect(got == wanted,
               what + " gives " + std::to_string(wanted) + ", not " + std::to_string(got));
        const bool wrote = wanted == qsvStatusOk;
        if (!wrote || !in_place_)
            expect(source_.holds(source_before_), what + " leaves its source as it is");
        if (!wrote || in_place_)
            expect(destination_.holds(destination_before_), what + " writes nothing else");
    }

  private:
    bool in_place_;
    ExactArray source_;
    ExactArray destination_;
    bool no_source_;
    bool no_destination_;
    std::vector<std::uint8_t> source_before_;
    std::vector<std::uint8_t> destination_before_;
};

template <class E>
void call_kernel(Bytes& bytes) {
    using Element = typename E::Element;
    const auto& all = kernels<E>();
    const auto& kernel = all[bytes.choice(all.size())];
    const std::int32_t flag = any_flag(bytes);
    const bool by_dispatcher = bytes.one_in(2);
    const std::int32_t length =
        by_dispatcher && bytes.one_in(8) ? bytes.next<std::int32_t>() : kernel.length;
    const Arrays arrays(bytes, kernel.source_size() * sizeof(Element),
                        kernel.destination_size() * sizeof(Element));
    const auto* source = arrays.source<Element>();
    auto* destination = arrays.destination<Element>();
    if (!by_dispatcher) {
        arrays.expect_status(arrays.status(flag), kernel.run(source, destination, flag),
                             kernel.name);
        return;
    }
    const auto& dispatcher = dispatcher_of(kernel);
    const bool exists =
        std::count(std::begin(kHeaderLengths), std::end(kHeaderLengths), length) > 0;
    // The arrays are those of the kernel: another length would go beyond them.
    if (exists && length != kernel.length) return;
    arrays.expect_status(exists ? arrays.status(flag) : qsvStatusBadLength,
                         dispatcher.run(source, destination, length, flag), dispatcher.name);
}

template <class E>
void call_walsh_hadamard(Bytes& bytes) {
    using Element = typename E::Element;
    const auto& all = order_kernels<E>();
    const auto& kernel = all[bytes.choice(all.size())];
    const std::int32_t flag = any_flag(bytes);
    const Arrays arrays(bytes, kernel.size() * sizeof(Element), kernel.size() * sizeof(Element));
    const ExactArray buffer(static_cast<std::size_t>(kernel.buffer_bytes), 0);
    std::uint8_t* const given = bytes.one_in(4) ? nullptr : buffer.data();
    const auto* source = arrays.source<Element>();
    auto* destination = arrays.destination<Element>();
    if (bytes.one_in(2)) {
        arrays.expect_status(arrays.status(flag), kernel.run(source, destination, flag, given),
                             kernel.name);
        return;
    }
    const std::int32_t order = bytes.one_in(8) ? bytes.next<std::int32_t>() : kernel.order;
    const bool exists = order >= kLowestOrder && order <= kHighestOrder;
    if (exists && order != kernel.order) return;
    arrays.expect_status(exists ? arrays.status(flag) : qsvStatusBadLength,
                         wht<E>(source, destination, order, flag, given),
                         "the dispatcher by order");
}

template <class E>
void ask_buffer_size(Bytes& bytes) {
    const std::int32_t order = any_number(bytes, kLowestOrder, kHighestOrder);
    const bool exists = order >= kLowestOrder && order <= kHighestOrder;
    std::int32_t size = -77;
    const QsvStatus status = wht_buffer_size<E>(order, &size);
    expect(status == (exists ? qsvStatusOk : qsvStatusBadLength), "the status of a size query");
    const std::int32_t wanted =
        exists ? order_kernels<E>()[static_cast<std::size_t>(order - kLowestOrder)].buffer_bytes
               : -77;
    expect(size == wanted, "the size of a work buffer");
}

/** Any length's size; what it says of a length that has no plan is in tests of its own. */
template <class E>
void ask_plan_size(Bytes& bytes) {
    std::int32_t size = -77;
    const QsvStatus status = Dct4Interface<E>::kGetSize(bytes.next<std::int32_t>(), &size);
    expect(status == qsvStatusOk ? size > 0 : status == qsvStatusBadLength && size == -77,
           "a size query either tells a size or leaves it as it was");
}

/** A plan in a buffer of exactly its size, or one that is allocated, and some calls of it. */
template <class E>
void call_dct4(Bytes& bytes) {
    using Element = typename E::Element;
    using Functions = Dct4Interface<E>;
    // To 4096 the split of an analysis occurs; longer ones would take the time of many calls.
    const std::int32_t length = 1 << (1 + bytes.choice(12));
    std::int32_t size = 0;
    expect(Functions::kGetSize(length, &size) == qsvStatusOk, "the size of a plan");
    const bool allocates = bytes.one_in(4);
    // On 16-byte boundaries, where the told size is enough at every address.
    const ExactArray buffer(static_cast<std::size_t>(size), 0);
    typename Functions::Plan* plan = nullptr;
    if (bytes.one_in(16)) {
        expect(Functions::kInit(&plan, length, nullptr) == qsvStatusNullPointer, "no buffer");
        expect(Functions::kInit(nullptr, length, buffer.data()) == qsvStatusNullPointer, "no plan");
        expect(Functions::kInitAlloc(nullptr, length) == qsvStatusNullPointer, "no plan");
        expect(Functions::kFree(nullptr) == qsvStatusNullPointer, "nothing to free");
        return;
    }
    const QsvStatus made = allocates ? Functions::kInitAlloc(&plan, length)
                                     : Functions::kInit(&plan, length, buffer.data());
    expect(made == qsvStatusOk, "a plan is made");
    const std::size_t array_bytes = static_cast<std::size_t>(length) * sizeof(Element);
    for (std::size_t calls = bytes.choice(3); calls > 0; --calls) {
        const Arrays arrays(bytes, array_bytes, array_bytes);
        const bool no_plan = bytes.one_in(16);
        const QsvStatus wanted = no_plan ? qsvStatusNullPointer : arrays.status(qsvScaleNone);
        arrays.expect_status(
            wanted,
            Functions::kRun(arrays.template source<Element>(),
                            arrays.template destination<Element>(), no_plan ? nullptr : plan),
            "the DCT-IV");
    }
    if (allocates) expect(Functions::kFree(plan) == qsvStatusOk, "a plan is freed");
}

using Target = void (*)(Bytes&);
constexpr Target kTargets[] = {
    call_kernel<Single>,
    call_kernel<Double>,
    call_kernel<RealSingle>,
    call_kernel<RealDouble>,
    call_walsh_hadamard<RealSingle>,
    call_walsh_hadamard<RealDouble>,
    ask_buffer_size<RealSingle>,
    ask_buffer_size<RealDouble>,
    ask_plan_size<RealSingle>,
    ask_plan_size<RealDouble>,
    call_dct4<RealSingle>,
    call_dct4<RealDouble>,
    fuzz::call_batch<Real32>,
    fuzz::call_batch<Real64>,
    fuzz::refuse_batch<Real32>,
    fuzz::refuse_batch<Real64>,
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes bytes(data, size);
    kTargets[bytes.choice(std::size(kTargets))](bytes);
    return 0;
}
