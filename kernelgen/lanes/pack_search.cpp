#include "kernelgen/lanes/pack_search.hpp"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <tuple>

#include "kernelgen/lanes/laned_graph.hpp"
#include "kernelgen/lanes/operation_cost.hpp"
#include "kernelgen/values/same_values.hpp"

namespace kernelgen {
namespace {

/** Of each way to spread. */
constexpr int kBeginnings = 4;
/** So many nodes of a colour are tried as first lanes, so many others beside them. */
constexpr std::size_t kFirsts = 3;
constexpr std::size_t kSeconds = 4;
constexpr std::size_t kOthers = 14;
/** So many seeds are laid out to know their cost. */
constexpr std::size_t kLaidOut = 24;
/** By so much seeds must lower the cost. */
constexpr double kGain = 1;
/** So many seeds are taken of which none has lowered it. */
constexpr int kStepsInVain = 4;
constexpr int kFewest = 2;

class Search {
  public:
    Search(const Neighbourhood& nodes, const PackSearch& search)
        : nodes_(nodes), search_(search), packs_(nodes) {}

    PackSeeds run() {
        PackSeeds best{search_.spreading, {}};
        PackSeeds found = best;
        double least = operation_cost(nodes_.graph());
        for (int size = most_lanes(); size >= kFewest; --size) {
            for (int in_vain = 0; in_vain < kStepsInVain && take_one(size); ++in_vain) {
                found.seeds.push_back(numbers(taken_));
                if (cost_ >= least - kGain) continue;
                best = found;
                least = cost_;
                in_vain = -1;
            }
            packs_ = grown(nodes_, best);
            found = best;
        }
        return best;
    }

  private:
    /** Four of scalars, two of vectors. */
    int most_lanes() const {
        int lanes = 1;
        for (NodeId id : nodes_.computing())
            lanes = std::max(lanes, lane_count(nodes_.graph().node(id).type));
        return lanes == 1 ? 4 : 2;
    }

    Pack numbers(const Pack& seed) const {
        const std::vector<NodeId>& all = nodes_.computing();
        Pack result;
        for (NodeId id : seed)
            result.push_back(
                static_cast<NodeId>(std::lower_bound(all.begin(), all.end(), id) - all.begin()));
        return result;
    }

    /** The seed that costs least besides what is taken already, be it more than without it: others
     * may gain by it. */
    bool take_one(int size) {
        std::vector<std::pair<double, Pack>> by_cost;
        for (const Pack& seed : most_fruitful(seeds_of(size))) {
            Packs trial = packs_;
            if (trial.grow(seed, search_.spreading) == 0 || !trial.can_be_ordered()) continue;
            by_cost.emplace_back(operation_cost(laned_graph(trial)), seed);
        }
        std::sort(by_cost.begin(), by_cost.end());
        const std::size_t taken = is_begun_ ? 0 : static_cast<std::size_t>(search_.beginning);
        if (taken >= by_cost.size()) return false;
        is_begun_ = true;
        std::tie(cost_, taken_) = by_cost[taken];
        packs_.grow(taken_, search_.spreading);
        return true;
    }

    /** How many packs a seed brings. */
    int fruit(const Pack& seed) const {
        if (!packs_.fit(seed)) return 0;
        Packs trial = packs_;
        return trial.grow(seed, search_.spreading);
    }

    /** Seeds of which no two bring the same packs, those that bring most first. */
    std::vector<Pack> most_fruitful(const std::set<Pack>& seeds) const {
        std::map<std::set<Pack>, Pack> by_fruit;
        for (const Pack& seed : seeds) {
            Packs trial = packs_;
            if (trial.grow(seed, search_.spreading) == 0) continue;
            by_fruit.try_emplace(
                {trial.all().begin() + static_cast<std::ptrdiff_t>(packs_.all().size()),
                 trial.all().end()},
                seed);
        }
        std::vector<std::pair<std::size_t, Pack>> ranked;
        for (const auto& [fruit, seed] : by_fruit) ranked.emplace_back(fruit.size(), seed);
        std::stable_sort(ranked.begin(), ranked.end(),
                         [](const auto& a, const auto& b) { return a.first > b.first; });
        if (ranked.size() > kLaidOut) ranked.resize(kLaidOut);
        std::vector<Pack> result;
        for (const auto& [size, seed] : ranked) result.push_back(seed);
        return result;
    }

    std::set<Pack> seeds_of(int size) const {
        std::set<Pack> seeds;
        for (int rounds : {Neighbourhood::kRounds, 4, 2}) {
            std::map<std::uint64_t, std::vector<NodeId>> classes;
            for (NodeId id : nodes_.live()) {
                if (nodes_.computes(id) && !packs_.holds(id))
                    classes[nodes_.colour(id, rounds)].push_back(id);
            }
            for (const auto& [colour, members] : classes) {
                if (static_cast<int>(members.size()) >= size) add_seeds(members, size, seeds);
            }
        }
        return seeds;
    }

    void add_seeds(const std::vector<NodeId>& members, int size, std::set<Pack>& seeds) const {
        for (std::size_t i = 0; i < std::min(kFirsts, members.size()); ++i) {
            const NodeId first = members[i];
            std::vector<std::pair<int, NodeId>> others;
            for (NodeId other : members) {
                const int found = other == first ? 0 : fruit({first, other});
                if (found > 0) others.emplace_back(-found, other);
            }
            std::sort(others.begin(), others.end());
            if (others.size() > kOthers) others.resize(kOthers);
            for (std::size_t j = 0; j < std::min(kSeconds, others.size()); ++j)
                add_filled_up({first, others[j].second}, others, size, seeds);
        }
    }

    void add_filled_up(Pack seed, const std::vector<std::pair<int, NodeId>>& others, int size,
                       std::set<Pack>& seeds) const {
        while (static_cast<int>(seed.size()) < size) {
            int most = 0;
            NodeId best = kNone;
            for (const auto& [unused, other] : others) {
                Pack next = seed;
                next.push_back(other);
                const int found = fruit(next);
                if (found > most) {
                    most = found;
                    best = other;
                }
            }
            if (best == kNone) return;
            seed.push_back(best);
        }
        std::sort(seed.begin(), seed.end(), [&](NodeId a, NodeId b) {
            return std::pair(first_element(a), a) < std::pair(first_element(b), b);
        });
        seeds.insert(seed);
    }

    /** Lanes stand in the order of what is loaded for them. */
    int first_element(NodeId id) const {
        const auto is_end = [&](NodeId node) {
            return is_load(nodes_.graph().node(node).op) || nodes_.inputs(node).empty();
        };
        while (!is_end(id)) id = nodes_.inputs(id).front();
        return nodes_.graph().node(id).offset;
    }

    const Neighbourhood& nodes_;
    const PackSearch search_;
    Packs packs_;
    Pack taken_;
    bool is_begun_ = false;
    double cost_ = 0;  ///< with the packs that are taken
};

}  // namespace

namespace {

NodeId number_of(const std::string& text) {
    NodeId number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::invalid_argument("no node has the number " + text);
    return number;
}

}  // namespace

std::string PackSeeds::to_string() const {
    std::string text = spreading == Spreading::Strict ? "strict" : "forward";
    for (const Pack& seed : seeds) {
        for (std::size_t i = 0; i < seed.size(); ++i)
            text += (i == 0 ? " " : ".") + std::to_string(seed[i]);
    }
    return text;
}

PackSeeds PackSeeds::of(const std::string& text) {
    std::istringstream words(text);
    std::string word;
    words >> word;
    if (word != "strict" && word != "forward")
        throw std::invalid_argument("no packs spread as " + word);
    PackSeeds result{word == "strict" ? Spreading::Strict : Spreading::Forward, {}};
    while (words >> word) {
        Pack seed;
        std::istringstream lanes(word);
        std::string lane;
        while (std::getline(lanes, lane, '.')) seed.push_back(number_of(lane));
        result.seeds.push_back(seed);
    }
    return result;
}

Packs grown(const Neighbourhood& nodes, const PackSeeds& seeds) {
    Packs packs(nodes);
    const std::vector<NodeId>& computing = nodes.computing();
    for (const Pack& numbers : seeds.seeds) {
        Pack seed;
        for (NodeId number : numbers) {
            if (number >= 0 && static_cast<std::size_t>(number) < computing.size())
                seed.push_back(computing[static_cast<std::size_t>(number)]);
        }
        if (seed.size() != numbers.size() || packs.grow(seed, seeds.spreading) == 0)
            throw std::invalid_argument(
                "these lanes were found for another graph: take their row "
                "out, build, and find others by scripts/tune-orders");
    }
    return packs;
}

Graph laned_graph(const std::string& kernel, const Graph& graph, const std::string& packs) {
    const Neighbourhood nodes(graph);
    const Packs all = grown(nodes, PackSeeds::of(packs));
    if (!all.can_be_ordered())
        throw std::logic_error(kernel + ": a pack depends on itself by way of other nodes");
    Graph laned = laned_graph(all);
    prove_same_values(kernel + " in lanes", laned, "its own values", graph);
    return laned;
}

PackSeeds search_packs(const Neighbourhood& nodes, const PackSearch& search) {
    return Search(nodes, search).run();
}

std::vector<std::string> cheapest_packs(const Graph& graph, std::size_t number) {
    const Neighbourhood nodes(graph);
    std::set<std::pair<double, std::string>> found;
    for (Spreading spreading : {Spreading::Strict, Spreading::Forward}) {
        for (int beginning = 0; beginning < kBeginnings; ++beginning) {
            const PackSeeds seeds =
                search_packs(nodes, {.spreading = spreading, .beginning = beginning});
            if (seeds.is_empty()) continue;
            found.emplace(operation_cost(laned_graph(grown(nodes, seeds))), seeds.to_string());
        }
    }
    std::vector<std::string> cheapest;
    for (const auto& [cost, packs] : found) {
        if (cheapest.size() < number) cheapest.push_back(packs);
    }
    return cheapest;
}

}  // namespace kernelgen
