#pragma once

/**
 * @file
 * @brief What a plan looks like in memory: every block in the order of allocation, and every field
 * of every object, worked out from the length alone and without the records of the library.
 */

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "dct4/element.hpp"

namespace qsvgen_test {

/** A place in memory: what a pointer in a plan holds. */
struct Address {
    std::uintptr_t value = 0;
};

/** A number of 32 bits or a pointer in one object or list node; without a value it may be anything.
 */
struct Field {
    Field(std::uint32_t number) : bytes(4), value(number) {}
    Field(std::int32_t number) : Field(static_cast<std::uint32_t>(number)) {}
    Field(Address address) : bytes(sizeof(void*)), value(address.value) {}
    Field(std::optional<std::uint32_t> number) : bytes(4), value(number) {}

    std::size_t bytes;
    std::optional<std::uint64_t> value;
    /** Behind which a structure with pointers follows, which begins on their boundary. */
    bool ends_a_base = false;
};

struct ExpectedBlock {
    std::string name;
    Address address;
    std::vector<Field> fields;
};

class ExpectedPlan {
  public:
    /** The plan for an accepted length in an arena whose head stands at `head`. */
    ExpectedPlan(std::int32_t length, Address head, Address start);

    const std::vector<ExpectedBlock>& blocks() const { return blocks_; }
    /** Where the bump pointer stands when the plan is made. */
    Address end() const { return end_; }
    /** Adds that fill an empty head: the size query counts a node for each. */
    std::uint32_t adds_into_heads() const { return adds_into_heads_; }

    /** The factor that splits a length, the power of two below it being at least 8. */
    static std::int32_t factor_of(std::int32_t length);

  private:
    using Fields = std::vector<Field>;

    Address take(std::size_t bytes);
    Address take_array(std::size_t elements);
    void put(const std::string& name, Address address, Fields fields);
    /** A list of one node for each item; the nodes behind the head stand at the given places. */
    void put_list(const std::string& name, Address head, const std::vector<Address>& items,
                  const std::vector<Address>& nodes);
    void root();
    /** env7, taken when everything before it is; returns its address. */
    Address split(std::int32_t points, std::int32_t stride, std::int32_t step);

    std::int32_t length_;
    Address arena_;
    Address end_;
    std::uint32_t adds_into_heads_ = 0;
    std::vector<ExpectedBlock> blocks_;
};

}  // namespace qsvgen_test
