#include "support/interpreted_plan.hpp"

#include <array>

#include "kernelgen/proof/bit_interpreter.hpp"
#include "transforms/dct4/bodies.hpp"

namespace qsvgen_test {
namespace {

constexpr dct4::Element kElement = kSingle ? dct4::Element::Real32 : dct4::Element::Real64;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

enum class Step { Analysis, Synthesis, Dft };

const kernelgen::Graph& body(Step step, int rule) {
    static std::map<std::pair<Step, int>, kernelgen::Graph> graphs;
    const auto found = graphs.find({step, rule});
    if (found != graphs.end()) return found->second;
    const auto describe = step == Step::Analysis    ? dct4::analysis_body
                          : step == Step::Synthesis ? dct4::synthesis_body
                                                    : dct4::dft_body;
    return graphs.emplace(std::pair(step, rule), describe(kElement, rule)).first->second;
}

int rule_of(int points) {
    int rule = 0;
    while (1 << rule < points) ++rule;
    return rule;
}

void append(Memory& memory, const Real* table, int places) {
    memory.insert(memory.end(), table, table + places * kLanes);
}

/** As the plans split a length of 2^rule: into 8, 16 or 32 parts. */
int parts_of(int points) {
    const int half = points / 2;
    return half >= 512 ? 32 : half >= 128 ? 16 : 8;
}

/** An analysis of any length, by the splits of the plan from `stage` on. */
void interpret_any(InterpretedAnalysis where, EnvList* stage, int length, const Memory& source,
                   Memory& destination) {
    if (where.points <= 64) return interpret_analysis(where, source, destination);
    const auto& split = *static_cast<env7*>(EnvList_get(stage, 0));
    const int s = parts_of(where.points);
    Memory scratch(at(length));
    for (int r = 0; r < s; ++r) {
        interpret_any({where.points / s, s * where.stride, where.offset + r * where.stride,
                       where.mirror - 2 * r * where.stride, where.column + r * where.spacing,
                       s * where.spacing},
                      analyses_of(split).stage, length, source, scratch);
    }
    interpret_dfts({rule_of(s), where.points / 2 / s, where.spacing, where.column},
                   twiddles_of(split).table, scratch, destination);
}

}  // namespace

void interpret_analysis(const InterpretedAnalysis& where, const Memory& source,
                        Memory& destination) {
    const int n = where.points / 2;
    Memory in;
    const auto take = [&](int j) {
        for (int lane = 0; lane < kLanes; ++lane) {
            const int forward = where.stride * j + where.offset + lane;
            // Addressed from the end of the doubled vector.
            const int backward = where.offset + where.mirror - where.stride * (2 * n + j) - lane;
            in.push_back(source.at(at(j >= 0 ? forward : backward)));
        }
    };
    for (int j = 0; j < n; ++j) take(j);
    for (int j = -1; j >= -n; --j) take(j);
    const Memory out =
        kernelgen::interpret(body(Step::Analysis, rule_of(where.points)), in, 1, 2 * n * kLanes);
    for (int place = 0; place < 2 * n; ++place) {
        for (int lane = 0; lane < kLanes; ++lane)
            destination.at(at(where.column + place * where.spacing + lane)) =
                out[at(place * kLanes + lane)];
    }
}

void interpret_dfts(const InterpretedDfts& where, const Real* table, const Memory& scratch,
                    Memory& destination) {
    const int s = 1 << where.rule;
    const int W = where.spacing;
    const int inner = dct4::inner_places(where.rule);
    const int outer = dct4::outer_places(where.rule);
    for (int block = 0; block < where.blocks; ++block) {
        Memory in;
        for (int row = 0; row < 2 * s; ++row) {
            for (int lane = 0; lane < kLanes; ++lane)
                in.push_back(scratch.at(at(where.column + (2 * s * block + row) * W + lane)));
        }
        append(in, table + block * inner * kLanes, inner);
        append(in, table + (where.blocks * inner + block * outer) * kLanes, outer);
        const Memory out = kernelgen::interpret(body(Step::Dft, where.rule), in, 1, 2 * s * kLanes);
        for (int t = 0; t < s; ++t) {
            const int a = t < s / 2 ? 2 * where.blocks * t + block
                                    : 2 * where.blocks * (s - 1 - t) + 2 * where.blocks - 1 - block;
            for (int part = 0; part < 2; ++part) {
                for (int lane = 0; lane < kLanes; ++lane)
                    destination.at(at(where.column + 2 * W * a + part * W + lane)) =
                        out[at((2 * t + part) * kLanes + lane)];
            }
        }
    }
}

void interpret_syntheses(const InterpretedSynthesis& where, const Real* table, const Memory& source,
                         Memory& destination) {
    const int points = 1 << where.rule;
    const int m = points / 2;
    for (int group = 0; group < where.groups; ++group) {
        const int b = group * kLanes;
        Memory in(source.begin() + b * points, source.begin() + (b + kLanes) * points);
        append(in, table + group * points * kLanes, points);
        const Memory out =
            kernelgen::interpret(body(Step::Synthesis, where.rule), in, 1, points * kLanes);
        for (int place = 0; place < points; ++place) {
            const int j = place < m ? place : m - 1 - place;
            for (int lane = 0; lane < kLanes; ++lane) {
                const int index = j >= 0 ? where.stride * j + b + lane
                                         : where.mirror - where.stride * (points + j) - b - lane;
                destination.at(at(index)) = out[at(place * kLanes + lane)];
            }
        }
    }
}

Memory interpreted_transform(PlanBuffer& plan, const Memory& source, double unwritten) {
    const int length = plan.root().length;
    const int a = plan.root().factor;
    const int points = length / a;
    Memory scratch(at(length));
    for (int c = 0; c < a; c += kLanes)
        interpret_any({points, 2 * a, c, 2 * length - 1 - 2 * c, c, a}, plan.analyses().stage,
                      length, source, scratch);
    Memory y(source.size(), unwritten);
    interpret_syntheses({rule_of(2 * a), length / (2 * a) / kLanes, points, 2 * length - 1},
                        plan.rotations().table, scratch, y);
    return y;
}

}  // namespace qsvgen_test
