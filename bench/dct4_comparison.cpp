#include "dct4_comparison.hpp"

#include <qsvgen.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <stdexcept>

#include "batch_clock.hpp"
#include "composed_dct4.hpp"

namespace bench {
namespace {

/** The three parties at one length, on the same arrays. */
template <typename Fftw>
class Dct4Runner {
  public:
    using Real = typename Fftw::Real;

    Dct4Runner(const TransformLibrary& library, const std::string& type, int length, unsigned flags)
        : length_(length),
          run_(library.Exported<Run>("qsvgDCT4_" + type)),
          free_(library.Exported<Free>("qsvgDCT4Free_" + type)),
          plan_(AllocatedPlan(library, type, length), free_),
          src_(Allocate(length)),
          dst_(Allocate(length)),
          redft11_(Fftw::kPlanRealToReal(length, src_.get(), dst_.get(), FFTW_REDFT11, flags)),
          composed_(static_cast<size_t>(length), flags) {
        std::mt19937 random(1);
        std::uniform_real_distribution<Real> sample(-1, 1);
        for (int i = 0; i < length; ++i) src_[i] = sample(random);
        CheckResults();
        our_calls_ = CallsPerBatch([this] { Ours(); });
        redft11_calls_ = CallsPerBatch([this] { Redft11(); });
        composed_calls_ = CallsPerBatch([this] { Composed(); });
    }
    ~Dct4Runner() { Fftw::DestroyPlan(redft11_); }
    Dct4Runner(const Dct4Runner&) = delete;
    Dct4Runner& operator=(const Dct4Runner&) = delete;

    /** One batch of each party, the one after the other. */
    void AddRound(Dct4Comparison& comparison) const {
        comparison.ours = std::min(comparison.ours, Cycles(our_calls_, [this] { Ours(); }));
        comparison.redft11 =
            std::min(comparison.redft11, Cycles(redft11_calls_, [this] { Redft11(); }));
        comparison.composed =
            std::min(comparison.composed, Cycles(composed_calls_, [this] { Composed(); }));
    }

  private:
    using InitAlloc = QsvStatus(void**, int32_t);
    using Free = QsvStatus(void*);
    using Run = QsvStatus(const Real*, Real*, void*);

    struct Release {
        void operator()(Real* p) const { fftw_free(p); }
    };
    using Array = std::unique_ptr<Real[], Release>;

    static Array Allocate(int length) {
        return Array(static_cast<Real*>(fftw_malloc(static_cast<size_t>(length) * sizeof(Real))));
    }
    /** Where the library places it, on a line of the cache: in a buffer of the caller's that begins
     * elsewhere, long vectors may straddle lines. */
    static void* AllocatedPlan(const TransformLibrary& library, const std::string& type,
                               int length) {
        void* plan = nullptr;
        const auto init = library.Exported<InitAlloc>("qsvgDCT4InitAlloc_" + type);
        if (init(&plan, length) != qsvStatusOk)
            throw std::runtime_error("no plan of length " + std::to_string(length));
        return plan;
    }

    void Ours() const { run_(src_.get(), dst_.get(), plan_.get()); }
    void Redft11() const { Fftw::Execute(redft11_); }
    void Composed() const { composed_.Run(src_.get(), dst_.get()); }

    template <typename Call>
    static double Cycles(int calls, Call call) {
        return static_cast<double>(TimeBatch(calls, call)) / calls;
    }

    /** No time counts for a wrong result. FFTW's transform is twice as large. */
    void CheckResults() const {
        const auto expect_close = [this](const char* party, const std::vector<Real>& wanted,
                                         Real factor) {
            Real largest = 0;
            for (const Real value : wanted) largest = std::max(largest, std::abs(value));
            for (int i = 0; i < length_; ++i) {
                const Real error = std::abs(dst_[i] * factor - wanted[static_cast<size_t>(i)]);
                if (!(error < 100 * std::numeric_limits<Real>::epsilon() * largest))
                    throw std::runtime_error(std::string(party) + " and ours differ at length " +
                                             std::to_string(length_));
            }
        };
        Ours();
        const std::vector<Real> ours(dst_.get(), dst_.get() + length_);
        Redft11();
        expect_close("FFTW", ours, Real(0.5));
        Composed();
        expect_close("the composed transform", ours, Real(1));
    }

    const int length_;
    Run* const run_;
    Free* const free_;
    const std::unique_ptr<void, Free*> plan_;
    const Array src_;
    const Array dst_;
    const typename Fftw::Plan redft11_;
    // Planning overwrites the arrays, which get their values afterwards.
    const ComposedDct4<Fftw> composed_;
    int our_calls_ = 0;
    int redft11_calls_ = 0;
    int composed_calls_ = 0;
};

template <typename Fftw>
void Compare(const TransformLibrary& library, const std::string& type, int longest, bool quick,
             std::vector<Dct4Comparison>& comparisons) {
    // A longest time for a plan, or the longest lengths would take minutes each.
    constexpr double kPlanSeconds = 20;
    Fftw::SetTimeLimit(kPlanSeconds);
    const unsigned flags = quick ? FFTW_MEASURE : FFTW_PATIENT;
    std::vector<std::unique_ptr<Dct4Runner<Fftw>>> runners;
    const size_t first = comparisons.size();
    for (int length = 2; length <= longest; length *= 2) {
        runners.push_back(std::make_unique<Dct4Runner<Fftw>>(library, type, length, flags));
        Dct4Comparison comparison;
        comparison.type = type;
        comparison.length = length;
        comparisons.push_back(comparison);
    }
    // All lengths in turn, again and again, spread the rounds of each over the whole run.
    const int repetitions = quick ? 10 : 100;
    const int rounds = quick ? 5 : 10;
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        for (size_t i = 0; i < runners.size(); ++i) {
            for (int round = 0; round < rounds; ++round)
                runners[i]->AddRound(comparisons[first + i]);
        }
    }
}

}  // namespace

std::vector<Dct4Comparison> CompareDct4(const TransformLibrary& library, int longest, bool quick) {
    std::vector<Dct4Comparison> comparisons;
    Compare<FftwSingle>(library, "32f", longest, quick, comparisons);
    Compare<FftwDouble>(library, "64f", longest, quick, comparisons);
    return comparisons;
}

}  // namespace bench
