#include "dct4_work.hpp"

namespace qsvg_tool {

using dct4::Step;

std::vector<Dct4Work> WorkOf(const Dct4Splits& splits, int32_t length, int lanes) {
    if (splits.is_inline) return {{{Step::Inline, splits.inline_rule}, 1}};
    int groups = splits.factor / lanes;
    std::vector<Dct4Work> dfts;
    for (const Dct4Splits::Split& split : splits.splits) {
        dfts.insert(dfts.begin(),
                    {{Step::Dft, split.dft_rule}, groups * (split.length / (2 * split.factor))});
        groups *= split.factor;
    }
    std::vector<Dct4Work> work = {{{Step::Analysis, splits.analysis_rule}, groups}};
    work.insert(work.end(), dfts.begin(), dfts.end());
    const int blocks = length / (2 * splits.factor);
    work.push_back({{Step::Synthesis, splits.synthesis_rule}, blocks / lanes});
    return work;
}

}  // namespace qsvg_tool
