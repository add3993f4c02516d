/**
 * @file
 * @brief Prints, as JSON, the tables that the tests hold operations to and that no manifest has
 * beside its counts, and what the DCT-IV's plans take in all.
 */

#include <cstdint>
#include <iostream>
#include <string>

#include "dct4_work.hpp"
#include "tests/dct4/white_box/transform/support/expected_counts.hpp"
#include "tests/walsh_hadamard/white_box/support/expected_counts.hpp"

namespace {

using dct4::Element;

/** Writes records of a JSON array, a line each. */
class Records {
  public:
    explicit Records(const std::string& name) {
        std::cout << (is_first_array_ ? "{" : ",") << "\n  \"" << name << "\": [";
        is_first_array_ = false;
    }
    Records(const Records&) = delete;
    Records& operator=(const Records&) = delete;
    ~Records() { std::cout << "\n  ]"; }
    std::ostream& next() {
        std::cout << separator_ << "\n    ";
        separator_ = ",";
        return std::cout;
    }

  private:
    inline static bool is_first_array_ = true;
    const char* separator_ = "";
};

void write_expected(Records& records, const std::string& kernel, int additions, int products) {
    records.next() << "{\"kernel\": \"" << kernel << "\", \"additions\": " << additions
                   << ", \"products\": " << products << '}';
}

void write_tables() {
    Records records("expected");
    for (const bool single : {true, false}) {
        const std::string type = single ? "_32f" : "_64f";
        for (const auto& row : walsh_hadamard_test::expected_counts(single)) {
            write_expected(records, "qsvgWHT_" + std::to_string(row.order) + type,
                           row.sums + row.differences, row.products);
        }
        const auto write_bodies = [&](const std::string& stem, const auto& rows) {
            for (const auto& row : rows)
                write_expected(records, "dct4_" + stem + '_' + std::to_string(row.rule) + type,
                               row.sums_and_differences, row.products);
        };
        write_bodies("analysis", dct4_test::kAnalyses);
        write_bodies("synthesis", dct4_test::kSyntheses);
        write_bodies("dft", dct4_test::kDfts);
        for (const auto& row : dct4_test::kInlines) {
            write_expected(records, "dct4_inline_" + std::to_string(row.rule) + type,
                           row.sums + row.differences, row.products);
        }
    }
}

struct Instructions {
    std::int64_t arithmetic = 0;
    std::int64_t shuffles = 0;
    std::int64_t loads = 0;
    std::int64_t stores = 0;

    void add(std::int64_t times, dct4::BodyKey key, Element element) {
        const kernelgen::Counts c = counts_of(described_kernel(key, element));
        arithmetic += times * c.arithmetic();
        shuffles += times * c.shuffles;
        loads += times * c.loads;
        stores += times * c.stores;
    }
};

Instructions plan_instructions(int length, Element element) {
    Instructions all;
    for (const auto& work :
         qsvg_tool::WorkOf(qsvg_tool::SplitsOf(length), length, dct4::lanes(element)))
        all.add(work.runs, work.key, element);
    return all;
}

void write_plans(int longest) {
    Records records("dct4_plans");
    for (Element element : {Element::Real32, Element::Real64}) {
        for (int length = 2; length <= longest; length *= 2) {
            const Instructions all = plan_instructions(length, element);
            records.next() << "{\"type\": \"" << suffix(element) << "\", \"length\": " << length
                           << ", \"arithmetic\": " << all.arithmetic
                           << ", \"shuffles\": " << all.shuffles << ", \"loads\": " << all.loads
                           << ", \"stores\": " << all.stores << '}';
        }
    }
}

}  // namespace

int main() {
    write_tables();
    write_plans(65536);
    std::cout << "\n}\n";
}
