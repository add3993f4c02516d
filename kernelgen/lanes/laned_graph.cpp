#include "kernelgen/lanes/laned_graph.hpp"

#include <algorithm>
#include <iterator>
#include <set>
#include <stdexcept>
#include <utility>

#include "kernelgen/lanes/lane_moves.hpp"

namespace kernelgen {
namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

std::uint8_t lane_number(int lane) {
    return static_cast<std::uint8_t>(lane);
}

class LanedGraph {
  public:
    explicit LanedGraph(const Packs& packs)
        : packs_(packs), from_(packs.nodes().graph()), vectors_(packs.all().size()) {}

    Graph run() {
        std::map<int, NodeId> stores;
        for (NodeId id : from_.stores()) stores[from_.node(id).offset] = id;
        for (auto next = stores.begin(); next != stores.end();) next = store(stores, next);
        return std::move(to_);
    }

  private:
    using Stores = std::map<int, NodeId>;

    /** Values of a type that a vector holds side by side. */
    static int width(Type narrow) { return lane_count(laned(narrow)) / lane_count(narrow); }

    /** Writes the store at `first` or several together, and returns the first one behind them. */
    Stores::iterator store(const Stores& stores, Stores::iterator first) {
        const Node& n = from_.node(first->second);
        const Type type = n.type;
        Pack values;
        Stores::iterator next = first;
        std::set<int> sources;
        while (next != stores.end() && static_cast<int>(values.size()) < width(type)) {
            const Node& other = from_.node(next->second);
            const int offset = n.offset + static_cast<int>(values.size()) * lane_count(type);
            if (other.op != Op::Store || next->first != offset || !packs_.holds(other.a)) break;
            values.push_back(other.a);
            sources.insert(packs_.place(other.a).pack);
            ++next;
        }
        if (static_cast<int>(values.size()) == width(type) && sources.size() <= 2) {
            to_.store(wide(values), n.offset);
            return next;
        }
        if (values.size() >= 2 && width(type) == 4) {
            const auto [low, high] = origins(values[0], values[1]);
            const LaneOrigin pair = in_one_half(to_, low, high);
            if (pair.lane == 0)
                to_.store_low(pair.vector, n.offset);
            else
                to_.store_high(pair.vector, n.offset);
            return std::next(first, 2);
        }
        const Ref value = narrow(n.a);
        if (n.op == Op::Store) to_.store(value, n.offset);
        if (n.op == Op::StoreLow) to_.store_low(value, n.offset);
        if (n.op == Op::StoreHigh) to_.store_high(value, n.offset);
        return ++first;
    }

    Ref narrow(NodeId id) {
        const auto known = narrow_.find(id);
        if (known != narrow_.end()) return known->second;
        const Ref made = packs_.holds(id) ? to_.part(vector(packs_.place(id).pack),
                                                     from_.node(id).type, packs_.place(id).lane)
                                          : copied(id);
        narrow_[id] = made;
        return made;
    }

    Ref copied(NodeId id) {
        const Node& n = from_.node(id);
        // One after the other, so that all compilers number the nodes alike.
        const Ref a = n.a == kNone ? Ref{} : narrow(n.a);
        const Ref b = n.b == kNone ? Ref{} : narrow(n.b);
        return to_.copied(from_, n, a, b);
    }

    Ref vector(int pack) {
        Ref& known = vectors_[at(pack)];
        if (known.is_zero()) known = made(packs_.all()[at(pack)]);
        return known;
    }

    Ref made(const Pack& pack) {
        const Node& n = from_.node(pack.front());
        std::vector<Ref> inputs;
        const std::vector<Pack> lanes = packs_.inputs(pack);
        for (const Pack& operand : lanes) inputs.push_back(wide(operand));
        switch (n.op) {
            case Op::Add:
            case Op::Sub:
                return sum(pack, lanes, inputs);
            case Op::Mul:
                return to_.mul(inputs.front(), factors(pack));
            case Op::Shuffle: {
                Selection picked{};
                const int half = lane_count(n.type);
                for (int i = 0; i < half; ++i) {
                    const int lane = n.selection[at(i)];
                    const int from = lane < half ? lane : lane + half;
                    picked[at(i)] = lane_number(from);
                    picked[at(half + i)] = lane_number(from + half);
                }
                return to_.shuffle(inputs.front(), inputs.back(), picked);
            }
            case Op::Flip: {
                Selection lanes_to_flip{};
                const int half = lane_count(n.type);
                for (int i = 0; i < 2 * half; ++i)
                    lanes_to_flip[at(i)] = from_.node(pack[at(i / half)]).selection[at(i % half)];
                return to_.flip(inputs.front(), lanes_to_flip);
            }
            case Op::Widen:
                return to_.widen(inputs.front());
            case Op::Round:
                return to_.round(inputs.front());
            default:
                throw std::logic_error("no pack is of such nodes");
        }
    }

    /** Constants by lanes, or the scale factor in all of them. */
    Ref factors(const Pack& pack) {
        const auto factor_of = [&](NodeId id) {
            const Node& n = from_.node(id);
            return packs_.nodes().is_given(n.a) ? n.a : n.b;
        };
        const NodeId first = factor_of(pack.front());
        const Type type = from_.node(pack.front()).type;
        if (from_.node(first).op != Op::Constant) {
            const Ref scale = narrow(first);
            return lane_count(type) == 1 ? to_.spread(scale) : to_.join(scale, scale);
        }
        Lanes lanes;
        for (NodeId id : filled_up(pack)) {
            const Lanes& own = from_.constants()[at(from_.node(factor_of(id)).constant)];
            lanes.insert(lanes.end(), own.begin(), own.end());
        }
        return to_.constant(laned(type), lanes);
    }

    /** Lanes whose signs change. */
    using Signs = std::vector<bool>;

    Ref sum(const Pack& pack, const std::vector<Pack>& lanes, std::vector<Ref> inputs) {
        std::vector<Signs> negative;
        for (const Pack& operand : lanes) {
            Signs signs;
            for (std::size_t i = 0; i < pack.size(); ++i) {
                const Node& n = from_.node(pack[i]);
                signs.push_back(n.op == Op::Sub && n.b == operand[i]);
            }
            negative.push_back(filled_up(signs, pack));
        }
        if (inputs.size() == 1) {
            inputs.push_back(to_.zero(laned(from_.node(pack.front()).type)));
            negative.emplace_back(negative.front().size(), false);
        }
        const auto number = [](const Signs& signs) {
            return std::count(signs.begin(), signs.end(), true) > 0 ? 1 : 0;
        };
        const Signs& a = negative[0];
        const Signs& b = negative[1];
        const int for_a_plus_b = number(a) + number(b);
        const int for_a_minus_b = number(a) + number(opposite(b));
        const int for_b_minus_a = number(b) + number(opposite(a));
        const int fewest = std::min({for_a_plus_b, for_a_minus_b, for_b_minus_a});
        if (for_a_plus_b == fewest)
            return to_.add(with_signs(inputs[0], a), with_signs(inputs[1], b));
        if (for_a_minus_b == fewest)
            return to_.sub(with_signs(inputs[0], a), with_signs(inputs[1], opposite(b)));
        return to_.sub(with_signs(inputs[1], b), with_signs(inputs[0], opposite(a)));
    }

    static Signs opposite(Signs signs) {
        signs.flip();
        return signs;
    }

    /** A product by constants takes the signs into these, but for zeros, which have none there. */
    Ref with_signs(Ref vector, const Signs& signs) {
        if (std::count(signs.begin(), signs.end(), true) == 0) return vector;
        const Node n = to_.node(vector.id);
        const int lanes_of_each = lane_count(n.type) / static_cast<int>(signs.size());
        if (n.op == Op::Mul && to_.node(n.b).op == Op::Constant) {
            Lanes lanes = to_.constants()[at(to_.node(n.b).constant)];
            bool has_zero = false;
            for (std::size_t i = 0; i < lanes.size(); ++i) {
                if (!signs[i / at(lanes_of_each)]) continue;
                has_zero = has_zero || lanes[i].is_zero();
                lanes[i] = -lanes[i];
            }
            if (!has_zero) return to_.mul(Ref{n.a}, to_.constant(n.type, lanes));
        }
        Selection mask{};
        for (int i = 0; i < lane_count(n.type); ++i)
            mask[at(i)] = signs[at(i / lanes_of_each)] ? 1 : 0;
        return to_.flip(vector, mask);
    }

    Pack filled_up(Pack pack) const {
        while (static_cast<int>(pack.size()) < width(from_.node(pack.front()).type))
            pack.push_back(pack.back());
        return pack;
    }
    Signs filled_up(Signs signs, const Pack& pack) const {
        while (static_cast<int>(signs.size()) < width(from_.node(pack.front()).type))
            signs.push_back(signs.back());
        return signs;
    }

    /** A vector whose lanes are these nodes. */
    Ref wide(const Pack& wanted) {
        const Pack lanes = filled_up(wanted);
        const auto known = wide_.find(lanes);
        if (known != wide_.end()) return known->second;
        const Ref made = lanes.size() == 2 ? of_two(lanes) : of_four(lanes);
        wide_[lanes] = made;
        return made;
    }

    bool are_loads(const Pack& lanes) const {
        return std::all_of(lanes.begin(), lanes.end(),
                           [&](NodeId id) { return from_.node(id).op == Op::Load; });
    }

    bool are_adjacent(const Pack& loads) const {
        const int step = lane_count(from_.node(loads.front()).type);
        for (std::size_t i = 1; i < loads.size(); ++i) {
            if (from_.node(loads[i]).offset != from_.node(loads[i - 1]).offset + step) return false;
        }
        return true;
    }

    Ref of_two(const Pack& halves) {
        const Type type = laned(from_.node(halves.front()).type);
        if (are_loads(halves)) {
            const int low = from_.node(halves[0]).offset;
            if (are_adjacent(halves)) return to_.load(type, low);
            return to_.load_high(to_.load_low(type, low), from_.node(halves[1]).offset);
        }
        if (!packs_.holds(halves[0]) || !packs_.holds(halves[1]))
            return to_.join(narrow(halves[0]), narrow(halves[1]));
        const Packs::Place& low = packs_.place(halves[0]);
        const Packs::Place& high = packs_.place(halves[1]);
        const int half = lane_count(type) / 2;
        Selection picked{};
        const Ref a = vector(low.pack);
        const Ref b = vector(high.pack);
        if (low.pack == high.pack && low.lane == 0 && high.lane == 1) return a;
        for (int i = 0; i < half; ++i) {
            picked[at(i)] = lane_number(low.lane * half + i);
            picked[at(half + i)] = lane_number(2 * half + high.lane * half + i);
        }
        return to_.shuffle(a, b, picked);
    }

    Ref of_four(const Pack& lanes) {
        const Type type = laned(from_.node(lanes.front()).type);
        const bool all_one =
            std::all_of(lanes.begin(), lanes.end(), [&](NodeId id) { return id == lanes[0]; });
        if (are_loads(lanes)) return gathered(lanes, type);
        if (all_one && !packs_.holds(lanes[0])) return to_.spread(narrow(lanes[0]));
        const auto [first, second] = origins(lanes[0], lanes[1]);
        const auto [third, fourth] = origins(lanes[2], lanes[3]);
        return four_lanes(to_, {first, second, third, fourth});
    }

    /** Where two nodes are that stand side by side: in their packs, or joined for that. */
    std::pair<LaneOrigin, LaneOrigin> origins(NodeId first, NodeId second) {
        if (packs_.holds(first) && packs_.holds(second)) {
            const auto origin = [&](NodeId id) {
                return LaneOrigin{vector(packs_.place(id).pack), packs_.place(id).lane};
            };
            // One after the other, so that all compilers number the nodes alike.
            const LaneOrigin a = origin(first);
            return {a, origin(second)};
        }
        const Ref a = narrow(first);
        const Ref joined = to_.join(a, narrow(second));
        return {{joined, 0}, {joined, 1}};
    }

    Ref gathered(const Pack& loads, Type type) {
        if (are_adjacent(loads)) return to_.load(type, from_.node(loads.front()).offset);
        Pack backwards = loads;
        std::reverse(backwards.begin(), backwards.end());
        if (are_adjacent(backwards)) {
            const Ref straight = to_.load(type, from_.node(backwards.front()).offset);
            return to_.shuffle(straight, straight, {3, 2, 1, 0});
        }
        Selection elements{};
        for (std::size_t i = 0; i < 4; ++i)
            elements[i] = static_cast<std::uint8_t>(from_.node(loads[i]).offset);
        return to_.gather(type, elements);
    }

    const Packs& packs_;
    const Graph& from_;
    Graph to_;
    std::vector<Ref> vectors_;
    std::map<NodeId, Ref> narrow_;
    std::map<Pack, Ref> wide_;
};

}  // namespace

Graph laned_graph(const Packs& packs) {
    return LanedGraph(packs).run();
}

}  // namespace kernelgen
