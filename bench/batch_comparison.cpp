#include "batch_comparison.hpp"

#include <cmath>

#include "batch_runner.hpp"
#include "lengths.hpp"

namespace bench {
namespace {

template <typename Fftw>
void Compare(const BatchLibraries& libraries, const BatchRun& run,
             const std::vector<BatchComparison*>& comparisons) {
    if (comparisons.empty()) return;
    // What a patient search has not found by then is left as a measured one has found it.
    constexpr double kPlanSeconds = 5;
    Fftw::SetTimeLimit(kPlanSeconds);
    const unsigned plan_flags = run.quick ? FFTW_MEASURE : FFTW_PATIENT;
    const Wisdom<Fftw> wisdom(run.wisdom);

    const BatchArrays<typename Fftw::Real> arrays;
    std::vector<std::unique_ptr<BatchRunner<Fftw>>> runners;
    constexpr size_t kPlansPerSave = 50;
    for (const BatchComparison* comparison : comparisons) {
        runners.push_back(
            std::make_unique<BatchRunner<Fftw>>(arrays, libraries, comparison->of, plan_flags));
        if (runners.size() % kPlansPerSave == 0) wisdom.Save();
    }
    wisdom.Save();
    // All cases in turn, again and again, spread the rounds of each over the whole run.
    for (int repetition = 0; repetition < run.repetitions; ++repetition) {
        for (size_t i = 0; i < runners.size(); ++i)
            runners[i]->AddRounds(run.rounds, *comparisons[i]);
    }
}

}  // namespace

std::string BatchCase::Name() const {
    return family->name + "/" + std::to_string(size) + "/" + family->type + "/" + NameOf(layout) +
           "/" + std::to_string(count);
}

double BatchComparison::RatioOf(BatchParty party) const {
    const double ratio = cycles[party] / cycles[kBatch];
    return std::isfinite(ratio) ? ratio : std::numeric_limits<double>::quiet_NaN();
}

std::vector<BatchComparison> CompareBatches(const std::vector<BatchCase>& cases,
                                            const BatchLibraries& libraries, const BatchRun& run) {
    std::vector<BatchComparison> comparisons;
    for (const BatchCase& of : cases) {
        BatchComparison comparison;
        comparison.of = of;
        comparisons.push_back(comparison);
    }
    std::vector<BatchComparison*> singles;
    std::vector<BatchComparison*> doubles;
    for (BatchComparison& comparison : comparisons)
        (comparison.of.family->IsSingle() ? singles : doubles).push_back(&comparison);
    Compare<FftwSingle>(libraries, run, singles);
    Compare<FftwDouble>(libraries, run, doubles);
    return comparisons;
}

}  // namespace bench
