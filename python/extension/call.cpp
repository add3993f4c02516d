#include "call.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "arrays.hpp"
#include "dct4_plans.hpp"
#include "run.hpp"
#include "threads.hpp"

namespace python {
namespace {

static_assert(kMostAxes >= NPY_MAXDIMS);

/** What takes some microseconds: giving up the interpreter's lock costs less than that. */
constexpr ptrdiff_t kElementsWithoutLock = 4096;
/** What takes as long as starting a thread does. */
constexpr ptrdiff_t kElementsOfAThread = 16384;
constexpr ptrdiff_t kMostThreads = 256;
/** Of all but a call's last part, so that vectors are full. */
constexpr ptrdiff_t kTransformsOfAPart = 16;

/** The length of the transform, by n or by the array. */
bool read_transform_length(const Family& family, PyObject* given, Precision precision,
                           npy_intp items, npy_intp& length) {
    if (given != nullptr) {
        if (!read_length(given, length)) return false;
    } else {
        length = family.source == Elements::kHalfSpectrum ? 2 * (items - 1) : items;
    }
    if (has_length(family, precision, length)) return true;
    refuse_length(family, precision, length);
    return false;
}

/** Whether results may be written where the elements come from: the very same places. */
bool is_in_place(const Family& family, const Source& source, PyArrayObject* out, int axis,
                 npy_intp length) {
    PyArrayObject* const array = source.array.get();
    if (PyArray_TYPE(array) != PyArray_TYPE(out) || PyArray_BYTES(array) != PyArray_BYTES(out) ||
        family.source != family.result || PyArray_DIM(array, axis) < length)
        return false;
    for (int i = 0; i < PyArray_NDIM(array); ++i) {
        if (PyArray_DIM(out, i) > 1 && PyArray_STRIDE(array, i) != PyArray_STRIDE(out, i))
            return false;
    }
    return true;
}

/** An array for the results: out, with a new reference, or a new one. */
Array result_array(const Given& given, int axes, const npy_intp* shape, int type) {
    if (given.out == nullptr)
        return Array(reinterpret_cast<PyArrayObject*>(PyArray_SimpleNew(axes, shape, type)));
    if (!check_out(given.out, axes, shape, type)) return nullptr;
    Py_INCREF(given.out);
    return Array(reinterpret_cast<PyArrayObject*>(given.out));
}

Job job_of(const Family& family, const Source& source, PyArrayObject* result, int axis,
           npy_intp length, Norm norm) {
    PyArrayObject* const array = source.array.get();
    Job job;
    job.family = &family;
    job.precision = source.precision;
    job.length = length;
    job.flag = flag_of(family, norm);
    job.scale = family.lengths == Lengths::kPlans ? dct4_scale(family, norm, length) : 1;
    job.source = {PyArray_BYTES(array), PyArray_STRIDE(array, axis), PyArray_DIM(array, axis),
                  source.is_real && family.source != Elements::kReal};
    job.result = {PyArray_BYTES(result), PyArray_STRIDE(result, axis), PyArray_DIM(result, axis),
                  false};
    job.axis_count = 0;
    for (int i = 0; i < PyArray_NDIM(array); ++i) {
        if (i != axis)
            job.axes[static_cast<size_t>(job.axis_count++)] = {
                PyArray_DIM(array, i), PyArray_STRIDE(array, i), PyArray_STRIDE(result, i)};
    }
    arrange(job);
    return job;
}

/** Without the interpreter's lock, if so wanted, as long as it lives. */
class Unlocked {
  public:
    explicit Unlocked(bool wanted) : state_(wanted ? PyEval_SaveThread() : nullptr) {}
    ~Unlocked() {
        if (state_ != nullptr) PyEval_RestoreThread(state_);
    }
    Unlocked(const Unlocked&) = delete;
    Unlocked& operator=(const Unlocked&) = delete;

  private:
    PyThreadState* state_;
};

/** Runs all transforms of a job, by as many threads. Holds the lock when called and afterwards. */
class Run {
  public:
    Run(const Job& job, Py_ssize_t workers) : job_(job), transforms_(transforms_of(job)) {
        const ptrdiff_t elements = transforms_ * job.length;
        const ptrdiff_t useful =
            std::min(elements / kElementsOfAThread,
                     (transforms_ + kTransformsOfAPart - 1) / kTransformsOfAPart);
        // Long transforms are shared out one by one.
        const ptrdiff_t possible = job.family->lengths == Lengths::kPlans
                                       ? std::min(elements / kElementsOfAThread, transforms_)
                                       : useful;
        parts_ = static_cast<int>(
            std::clamp<ptrdiff_t>(std::min<ptrdiff_t>(workers, possible), 1, kMostThreads));
        releases_lock_ = elements >= kElementsWithoutLock;
    }

    /** False with an exception set. */
    bool operator()() {
        const bool has_plans = job_.family->lengths == Lengths::kPlans;
        void* plan = nullptr;
        if (parts_ == 1) {
            if (has_plans) plan = take_dct4_plan(job_.precision, job_.length);
            Outcome outcome = Outcome::kDone;
            {
                const Unlocked unlocked(releases_lock_);
                outcome = run(job_, 0, transforms_, plan);
            }
            give_back(plan);
            return judge(outcome);
        }
        std::vector<void*> plans(static_cast<size_t>(parts_), nullptr);
        std::vector<Outcome> outcomes(static_cast<size_t>(parts_), Outcome::kDone);
        if (has_plans) {
            for (void*& each : plans) each = take_dct4_plan(job_.precision, job_.length);
        }
        {
            const Unlocked unlocked(releases_lock_);
            in_threads(parts_, [&](int part) {
                const auto i = static_cast<size_t>(part);
                outcomes[i] = run(job_, beginning(part), beginning(part + 1), plans[i]);
            });
        }
        for (void* each : plans) give_back(each);
        return std::all_of(outcomes.begin(), outcomes.end(),
                           [](Outcome outcome) { return judge(outcome); });
    }

  private:
    ptrdiff_t beginning(int part) const {
        if (part == parts_) return transforms_;
        const ptrdiff_t share = transforms_ / parts_;
        const ptrdiff_t rest = transforms_ % parts_;
        const ptrdiff_t at = part * share + part * rest / parts_;
        return share >= kTransformsOfAPart ? at / kTransformsOfAPart * kTransformsOfAPart : at;
    }

    void give_back(void* plan) const {
        if (plan != nullptr) give_back_dct4_plan(job_.precision, job_.length, plan);
    }

    static bool judge(Outcome outcome) {
        if (outcome == Outcome::kDone) return true;
        if (outcome == Outcome::kNoMemory)
            PyErr_NoMemory();
        else
            PyErr_SetString(PyExc_SystemError,
                            "the library has refused a call that was checked before");
        return false;
    }

    const Job& job_;
    ptrdiff_t transforms_;
    int parts_;
    bool releases_lock_;
};

}  // namespace

void refuse_length(const Family& family, Precision precision, Py_ssize_t length) {
    if (length < 1) {
        PyErr_Format(PyExc_ValueError, "invalid number of points (%zd) for %s", length,
                     family.name);
    } else if (family.lengths == Lengths::kKernels) {
        PyErr_Format(PyExc_ValueError, "there is no %s of length %zd: lengths are 2 to 64",
                     family.transform, length);
    } else if (family.lengths == Lengths::kOrders) {
        PyErr_Format(PyExc_ValueError,
                     "there is no %s of length %zd: lengths are powers of two from 2 to 8192",
                     family.transform, length);
    } else {
        PyErr_Format(PyExc_ValueError,
                     "there is no %s of length %zd: lengths are powers of two from 2 to %zd",
                     family.transform, length, static_cast<Py_ssize_t>(longest_dct4(precision)));
    }
}

PyObject* call(const Family& family, const Given& given) {
    Source source;
    Norm norm = Norm::kBackward;
    Py_ssize_t workers = 1;
    int axis = 0;
    npy_intp length = 0;
    if (!read_source(family, given.a, source) || !read_norm(given.norm, norm) ||
        !read_workers(given.workers, workers))
        return nullptr;
    const int axes = PyArray_NDIM(source.array.get());
    if (!read_axis(given.axis, axes, axis) ||
        !read_transform_length(family, given.n, source.precision,
                               PyArray_DIM(source.array.get(), axis), length))
        return nullptr;

    std::array<npy_intp, NPY_MAXDIMS> shape;
    std::copy_n(PyArray_DIMS(source.array.get()), axes, shape.begin());
    shape[static_cast<size_t>(axis)] = items_of(family.result, length);
    Array result =
        result_array(given, axes, shape.data(), type_of(family.result, source.precision));
    if (!result) return nullptr;
    if (given.out != nullptr && !is_in_place(family, source, result.get(), axis, length) &&
        may_share_memory(source.array.get(), result.get())) {
        source.array.reset(
            reinterpret_cast<PyArrayObject*>(PyArray_NewCopy(source.array.get(), NPY_KEEPORDER)));
        if (!source.array) return nullptr;
    }
    if (PyArray_SIZE(result.get()) > 0) {
        const Job job = job_of(family, source, result.get(), axis, length, norm);
        try {
            if (!Run(job, workers)()) return nullptr;
        } catch (const std::bad_alloc&) {
            return PyErr_NoMemory();
        }
    }
    return reinterpret_cast<PyObject*>(result.release());
}

}  // namespace python
