#include "transforms/dft_complex/layouts/packed_layout.hpp"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "kernelgen/graph/lane_regroup.hpp"
#include "transforms/dft_complex/layouts/packed_memory.hpp"
#include "transforms/dft_complex/small_transforms/small_transforms.hpp"

namespace dft_complex {
namespace {

using kernelgen::LaneRegroup;
using kernelgen::Op;
using kernelgen::Origin;
using kernelgen::Wanted;

constexpr Type kVector = Type::Binary32x4;

/** Where a computed value lives: a vector of a group and the transform's lane in it. */
struct Home {
    ComplexVector vector;
    Layout layout;
    int lane;
};

/** One input slot of a group: a value for each of its transforms. */
struct SlotVector {
    Layout layout;
    std::vector<Value> values;
};

class PackedLayout {
  public:
    PackedLayout(const Network& network, Direction direction, LanePolicy policy)
        : network_(network), backward_(direction == Direction::Inverse), policy_(policy) {}

    PackedKernel run(const Signal& outputs, const std::vector<LaneChoice>& choices) {
        const auto batches = network_.batches();
        if (choices.size() > batches.size())
            throw std::invalid_argument(std::to_string(choices.size()) + " choices of lanes for " +
                                        std::to_string(batches.size()) + " batches");
        for (std::size_t i = 0; i < batches.size(); ++i) {
            const LaneChoice choice =
                i < choices.size() ? choices[i]
                                   : cheapest_choice(batches[i], i == 0 || i + 1 == batches.size()
                                                                     ? BatchPlace::End
                                                                     : BatchPlace::Middle);
            place(batches[i], choice);
            chosen_.push_back(choice);
        }
        store(outputs);
        return {std::move(graph_), std::move(chosen_)};
    }

  private:
    using Homes = std::map<Source, Home>;

    LaneChoice cheapest_choice(const std::vector<int>& batch, BatchPlace batch_place) {
        LaneChoice best;
        double best_cost = -1;
        const Graph::Mark mark = graph_.mark();
        for (const LaneChoice& choice :
             choices_for(static_cast<int>(batch.size()), batch_place, policy_)) {
            const Homes homes = homes_;
            place(batch, choice);
            const double cost = port_cost(graph_, mark.nodes, graph_.size());
            graph_.return_to(mark);
            homes_ = homes;
            if (best_cost < 0 || cost < best_cost) {
                best_cost = cost;
                best = choice;
            }
        }
        return best;
    }

    void place(const std::vector<int>& batch, const LaneChoice& choice) {
        const Arrangement arrangement = arrange(batch, choice, policy_);
        const SmallTransform& sample = transform(batch.front());
        for (int t : batch) {
            if (transform(t).form != sample.form)
                throw std::logic_error("transforms of one batch are of one form");
        }
        const std::size_t slots = sample.inputs.size();
        // All wanted vectors of the batch are known before the first is made.
        std::vector<std::vector<SlotVector>> wanted;
        for (const LaneGroup& group : arrangement.groups) {
            std::vector<SlotVector> points;
            for (std::size_t slot = 0; slot < slots; ++slot) {
                SlotVector vector{group.layout, {}};
                for (int t : group.transforms) vector.values.push_back(transform(t).inputs[slot]);
                points.push_back(vector);
            }
            wanted.push_back(points);
        }
        Homes sources = homes_;
        if (choice.side == FactorSide::BeforeRegroup) apply_factors_at_source(sources, wanted);
        LaneRegroup regroup(graph_);
        for (const auto& points : wanted) {
            for (const SlotVector& vector : points) announce(regroup, sources, vector);
        }
        for (std::size_t i = 0; i < arrangement.groups.size(); ++i) {
            const LaneGroup& group = arrangement.groups[i];
            const auto algebra = make_algebra(graph_, kVector, group.layout, backward_);
            const Points y = transformed(regroup, sources, *algebra, sample, wanted[i]);
            for (std::size_t lane = 0; lane < group.transforms.size(); ++lane) {
                for (std::size_t k = 0; k < y.size(); ++k) {
                    homes_[{group.transforms[lane], static_cast<int>(k)}] = {
                        y[k], group.layout, static_cast<int>(lane)};
                }
            }
        }
    }

    Points transformed(LaneRegroup& regroup, const Homes& sources, ComplexAlgebra& algebra,
                       const SmallTransform& sample, std::vector<SlotVector> points) {
        std::vector<Factors> factors;
        for (const SlotVector& vector : points) factors.push_back(factors_of(vector));
        const bool fold = folds_conjugate_factors(sample.form, factors);
        if (fold) {
            for (SlotVector& vector : points) {
                for (Value& value : vector.values) value.factor = {};
            }
        }
        Points x;
        for (const SlotVector& vector : points)
            x.push_back(gather(regroup, sources, algebra, vector));
        return fold ? with_conjugate_factors(algebra, x, factors, sample.form)
                    : small_transform(algebra, sample.radix, sample.form, x);
    }

    const SmallTransform& transform(int index) const {
        return network_.transforms()[static_cast<std::size_t>(index)];
    }

    // Multiplies whole source vectors, so that the values arrive at their new lanes with the
    // factors applied; a source that the batch uses under two different factors is left to the
    // other side.
    void apply_factors_at_source(Homes& sources, std::vector<std::vector<SlotVector>>& wanted) {
        std::map<Source, ExactComplex> factors;
        for (const auto& points : wanted) {
            for (const SlotVector& vector : points) {
                for (const Value& value : vector.values) {
                    if (value.absent || value.source.transform == Source::kInput) continue;
                    auto [known, fresh] = factors.try_emplace(value.source, value.factor);
                    const bool same = known->second.re.key() == value.factor.re.key() &&
                                      known->second.im.key() == value.factor.im.key();
                    if (!same || value.addend) return;
                }
            }
        }
        multiply_homes(sources, factors);
        for (auto& points : wanted) {
            for (SlotVector& vector : points) {
                for (Value& value : vector.values) {
                    if (!value.absent && value.source.transform != Source::kInput)
                        value.factor = {};
                }
            }
        }
    }

    void multiply_homes(Homes& sources, const std::map<Source, ExactComplex>& factors) {
        std::map<std::pair<Ref, Ref>, std::vector<Source>> by_vector;
        for (const auto& [source, factor] : factors) {
            const ComplexVector& v = sources.at(source).vector;
            by_vector[{v.re, v.im}].push_back(source);
        }
        for (const auto& [vector, residents] : by_vector) {
            const Home home = sources.at(residents.front());
            std::vector<ExactComplex> lanes(lanes_of(home.layout), factors.at(residents.front()));
            for (const Source& source : residents)
                lanes[static_cast<std::size_t>(sources.at(source).lane)] = factors.at(source);
            const auto algebra = make_algebra(graph_, kVector, home.layout, backward_);
            const ComplexVector product = algebra->times(home.vector, lanes);
            for (const Source& source : residents) sources.at(source).vector = product;
        }
    }

    static std::size_t lanes_of(Layout layout) { return layout == Layout::Split ? 4 : 2; }

    struct PartOrigins {
        Origin re;
        Origin im;
        bool re_negative = false;
        bool im_negative = false;
    };

    PartOrigins origins(const Homes& sources, const Source& source) const {
        const Home& home = sources.at(source);
        const ComplexVector& v = home.vector;
        if (v.is_zero()) return {Origin::zero(), Origin::zero()};
        if (home.layout == Layout::Split) {
            return {Origin::of(v.re.id, home.lane), Origin::of(v.im.id, home.lane), v.re.negative,
                    v.im.negative};
        }
        const int re_lane = 2 * home.lane + (backward_ ? 1 : 0);
        return {Origin::of(v.re.id, re_lane), Origin::of(v.re.id, re_lane ^ 1), v.re.negative,
                v.re.negative};
    }

    struct WantedVector {
        Wanted re;  ///< of both parts, for an interleaved vector
        Wanted im;
        bool re_negative = false;
        bool im_negative = false;
    };

    // `pick` names the source of each value, or nothing where the lane must hold zero. Lanes of one
    // vector carry one sign; where sources differ, the negative ones are turned over first.
    template <class Pick>
    WantedVector wanted_vector(const Homes& sources, const SlotVector& vector, const Pick& pick) {
        std::vector<PartOrigins> parts;
        int positive[2] = {0, 0};
        int negative[2] = {0, 0};
        for (const Value& value : vector.values) {
            const std::optional<Source> source = pick(value);
            parts.push_back(source ? origins(sources, *source)
                                   : PartOrigins{Origin::zero(), Origin::zero()});
            if (!source) continue;
            ++(parts.back().re_negative ? negative : positive)[0];
            ++(parts.back().im_negative ? negative : positive)[1];
        }
        WantedVector w;
        w.re_negative = positive[0] == 0;
        w.im_negative = positive[1] == 0;
        if (vector.layout == Layout::Interleaved)
            w.re_negative = w.im_negative = w.re_negative && w.im_negative;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            turn_over(parts[i].re, parts[i].re_negative && !w.re_negative);
            turn_over(parts[i].im, parts[i].im_negative && !w.im_negative);
            if (vector.layout == Layout::Split) {
                w.re[i] = parts[i].re;
                w.im[i] = parts[i].im;
            } else {
                w.re[2 * i + (backward_ ? 1 : 0)] = parts[i].re;
                w.re[2 * i + (backward_ ? 0 : 1)] = parts[i].im;
            }
        }
        return w;
    }

    void turn_over(Origin& origin, bool needed) {
        if (needed && origin.kind == Origin::Kind::Lane)
            origin.node = graph_.flip({origin.node}, {1, 1, 1, 1}).id;
    }

    static std::optional<Source> main_source(const Value& value) {
        if (value.absent) return std::nullopt;
        return value.source;
    }
    static std::optional<Source> addend(const Value& value) {
        return value.absent ? std::nullopt : value.addend;
    }

    template <class Pick>
    static bool any(const SlotVector& vector, const Pick& pick) {
        return std::any_of(vector.values.begin(), vector.values.end(),
                           [&](const Value& value) { return pick(value).has_value(); });
    }

    template <class Pick>
    static bool from_memory(const SlotVector& vector, const Pick& pick) {
        return std::any_of(vector.values.begin(), vector.values.end(), [&](const Value& value) {
            const std::optional<Source> source = pick(value);
            return source && source->transform == Source::kInput;
        });
    }

    void announce(LaneRegroup& regroup, const Homes& sources, const SlotVector& vector) {
        const auto announce_picked = [&](const auto& pick) {
            if (!any(vector, pick) || from_memory(vector, pick)) return;
            const WantedVector w = wanted_vector(sources, vector, pick);
            regroup.announce(w.re);
            if (vector.layout == Layout::Split) regroup.announce(w.im);
        };
        announce_picked(main_source);
        announce_picked(addend);
    }

    template <class Pick>
    ComplexVector gather_picked(LaneRegroup& regroup, const Homes& sources,
                                const SlotVector& vector, const Pick& pick) {
        if (!any(vector, pick)) return {};
        if (from_memory(vector, pick)) {
            std::vector<int> elements;
            for (const Value& value : vector.values) {
                const std::optional<Source> source = pick(value);
                if (source && source->transform != Source::kInput)
                    throw std::logic_error("a vector mixes memory and computed values");
                elements.push_back(source ? source->slot : kZeroElement);
            }
            return load_elements(graph_, vector.layout, elements, backward_);
        }
        const WantedVector w = wanted_vector(sources, vector, pick);
        Ref re = regroup.make(w.re);
        re.negative = w.re_negative;
        if (vector.layout == Layout::Interleaved) return {re, {}};
        Ref im = regroup.make(w.im);
        im.negative = w.im_negative;
        return {re, im};
    }

    ComplexVector gather(LaneRegroup& regroup, const Homes& sources, ComplexAlgebra& algebra,
                         const SlotVector& vector) {
        ComplexVector x = gather_picked(regroup, sources, vector, main_source);
        x = algebra.times(x, factors_of(vector));
        const ComplexVector joined = gather_picked(regroup, sources, vector, addend);
        return algebra.add(x, joined);
    }

    // Lanes without a transform take the first one's factor, which keeps uniform factors cheap.
    static Factors factors_of(const SlotVector& vector) {
        std::vector<ExactComplex> factors(lanes_of(vector.layout), leading_factor(vector));
        for (std::size_t i = 0; i < vector.values.size(); ++i) {
            if (!vector.values[i].absent) factors[i] = vector.values[i].factor;
        }
        return factors;
    }

    static ExactComplex leading_factor(const SlotVector& vector) {
        for (const Value& value : vector.values) {
            if (!value.absent) return value.factor;
        }
        return {};
    }

    void store(const Signal& outputs) {
        Homes homes = homes_;
        std::map<Source, ExactComplex> factors;
        for (const Value& y : outputs) factors[y.source] = y.factor;
        const bool plain = std::all_of(outputs.begin(), outputs.end(),
                                       [](const Value& y) { return y.factor.is_one(); });
        if (!plain) multiply_homes(homes, factors);
        std::map<std::pair<Ref, Ref>, StoredVector> vectors;
        for (std::size_t k = 0; k < outputs.size(); ++k) {
            const Home& home = homes.at(outputs[k].source);
            StoredVector& stored = vectors[{home.vector.re, home.vector.im}];
            stored.vector = home.vector;
            stored.layout = home.layout;
            stored.elements.resize(lanes_of(home.layout), kNoElement);
            stored.elements[static_cast<std::size_t>(home.lane)] = static_cast<int>(k);
        }
        for (const auto& entry : vectors) store_elements(graph_, entry.second, backward_);
    }

    const Network& network_;
    bool backward_;
    LanePolicy policy_;
    Graph graph_;
    Homes homes_;
    std::vector<LaneChoice> chosen_;
};

}  // namespace

PackedKernel lay_out_packed(const Network& network, const Signal& outputs, Direction direction,
                            LanePolicy policy, const std::vector<LaneChoice>& choices) {
    return PackedLayout(network, direction, policy).run(outputs, choices);
}

double port_cost(const Graph& graph, std::size_t first_node, std::size_t past_node) {
    double cost = 0;
    for (std::size_t i = first_node; i < past_node; ++i) {
        switch (graph.node(static_cast<kernelgen::NodeId>(i)).op) {
            case Op::Add:
            case Op::Sub:
            case Op::Mul:
            case Op::Shuffle:
            case Op::LoadHigh:
                cost += 1.0;
                break;
            case Op::Flip:
                cost += 0.5;
                break;
            default:
                break;
        }
    }
    return cost;
}

}  // namespace dft_complex
