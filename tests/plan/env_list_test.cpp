/** @file @brief The list of a plan node's children. */

#include "plan/env_list.hpp"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

std::vector<EnvObject*>& destroyed() {
    static std::vector<EnvObject*> objects;
    return objects;
}

void note(EnvObject* object) {
    destroyed().push_back(object);
}

class List : public testing::Test {
  protected:
    List() {
        destroyed().clear();
        arena_->bump = start_;
        list_ = static_cast<EnvList*>(qsvgArenaMalloc(arena_, sizeof(EnvList)));
        EnvList___init__(list_, arena_);
    }

    std::uintptr_t used() const { return arena_->bump - start_; }

    alignas(32) std::array<unsigned char, 4096> buffer_ = {};
    Arena* arena_ = reinterpret_cast<Arena*>(buffer_.data());
    std::uintptr_t start_ = reinterpret_cast<std::uintptr_t>(buffer_.data()) + 64;
    EnvList* list_ = nullptr;
    std::array<EnvObject, 5> items_ = {
        {{note, 44}, {note, 12}, {note, 64}, {note, 24}, {note, 32}}};
};

static_assert(sizeof(EnvList) == (sizeof(void*) == 4 ? 12 : 24));

TEST_F(List, BeginsAsAHeadWithoutItem) {
    EXPECT_EQ(nullptr, list_->item);
    EXPECT_EQ(nullptr, list_->next);
    EXPECT_EQ(arena_, list_->arena);
    EXPECT_EQ(list_, EnvList___init__(list_, arena_));
}

TEST_F(List, TheFirstAddTakesNoMemoryAndEachFurtherOneANode) {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        EXPECT_EQ(&items_[i], EnvList_add(list_, &items_[i])) << i;
        EXPECT_EQ(32 * (i + 1), used()) << i;
    }
    const EnvList* node = list_;
    for (std::size_t i = 0; i < items_.size(); ++i, node = node->next) {
        ASSERT_NE(nullptr, node) << i;
        EXPECT_EQ(&items_[i], node->item) << i;
        EXPECT_EQ(arena_, node->arena) << i;
        EXPECT_EQ(start_ + 32 * i, reinterpret_cast<std::uintptr_t>(node)) << i;
    }
    EXPECT_EQ(nullptr, node);
}

TEST_F(List, CountsEveryAddInItsNeed) {
    for (std::int32_t count = -2; count < 100; ++count)
        EXPECT_EQ(32 * count, EnvList_add_mem(count));
    EXPECT_EQ(INT32_MIN, EnvList_add_mem(1 << 26));
}

TEST_F(List, GivesItemsByIndex) {
    EXPECT_EQ(nullptr, EnvList_get(list_, 0));
    EXPECT_EQ(nullptr, EnvList_get(list_, -1));
    for (EnvObject& item : items_) EnvList_add(list_, &item);
    for (std::size_t i = 0; i < items_.size(); ++i)
        EXPECT_EQ(&items_[i], EnvList_get(list_, static_cast<std::int32_t>(i))) << i;
}

// The index just behind the last is the one that may not be asked for.
TEST_F(List, GivesNullOffItsEnds) {
    for (EnvObject& item : items_) EnvList_add(list_, &item);
    for (const std::int32_t index : {-1, -2, INT32_MIN, 6, 7, 1000, INT32_MAX})
        EXPECT_EQ(nullptr, EnvList_get(list_, index)) << index;
}

TEST_F(List, DestroysAndReleasesItsItemsInOrderAndKeepsItsNodes) {
    std::uint32_t sizes = 0;
    for (EnvObject& item : items_) {
        qsvgArenaMalloc(arena_, static_cast<std::uint32_t>(item.size));
        sizes += qsvgAlignSize32Bytes(static_cast<std::uint32_t>(item.size));
        EnvList_add(list_, &item);
    }
    EXPECT_EQ(32 * items_.size() + sizes, used());
    EnvList_freeChildren(list_);
    ASSERT_EQ(items_.size(), destroyed().size());
    for (std::size_t i = 0; i < items_.size(); ++i) EXPECT_EQ(&items_[i], destroyed()[i]) << i;
    EXPECT_EQ(32 * items_.size(), used());
    EXPECT_EQ(&items_[4], EnvList_get(list_, 4));
}

TEST_F(List, SkipsNodesWithoutItemWhenItDestroys) {
    for (EnvObject& item : items_) EnvList_add(list_, &item);
    list_->item = nullptr;
    list_->next->next->item = nullptr;
    EnvList_freeChildren(list_);
    EXPECT_EQ((std::vector<EnvObject*>{&items_[1], &items_[3], &items_[4]}), destroyed());
}

TEST_F(List, AnEmptyListDestroysNothing) {
    EnvList_freeChildren(list_);
    EXPECT_TRUE(destroyed().empty());
    EXPECT_EQ(32u, used());
}

TEST_F(List, ReleasesTheNodesBehindItsHeadAndLeavesTheRest) {
    for (EnvObject& item : items_) EnvList_add(list_, &item);
    EnvList* const second = list_->next;
    EnvList___del__(list_);
    EXPECT_EQ(32u, used());
    EXPECT_EQ(second, list_->next);
    EXPECT_EQ(&items_[0], list_->item);
    EXPECT_TRUE(destroyed().empty());
}

TEST_F(List, OfOneNodeReleasesNothing) {
    EnvList_add(list_, &items_[0]);
    EnvList___del__(list_);
    EXPECT_EQ(32u, used());
}

}  // namespace
