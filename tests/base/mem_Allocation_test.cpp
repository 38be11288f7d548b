#include "mem_Allocation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <new>
#include <random>
#include <set>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace
{

struct Block
{
  unsigned char* bytes;
  std::size_t size;
  unsigned char mark;
};

bool HoldsItsMark(Block const& block)
{
  return std::all_of(block.bytes, block.bytes + block.size,
                     [&](unsigned char byte) { return byte == block.mark; });
}

using Taking = void* (*)(std::size_t);

Block Take(std::size_t size, unsigned char mark, Taking taking = mem_Malloc)
{
  Block const block{static_cast<unsigned char*>(taking(size)), size, mark};
  std::memset(block.bytes, mark, size);
  return block;
}

// Mostly rows and cells, at times a block of list items, at times one beyond every size class.
std::size_t RandomSize(std::mt19937& random)
{
  std::size_t const limits[] = {24, 120, 120, 520, 2000, 30000, 200000};
  return random() % limits[random() % 7];
}

// More than a slab of many sizes, some in order, and some of these too long for it.
std::vector<Block> TakeMany()
{
  std::vector<Block> blocks;
  for (std::size_t i = 0; i < 5000; ++i)
    blocks.push_back(Take(i % 50 == 0   ? 21000
                          : i % 40 == 0 ? 5000
                                        : 1 + 37 * i % 700,
                          static_cast<unsigned char>(i),
                          i % 3 == 0 ? mem_Malloc : mem_MallocInOrder));
  return blocks;
}

bool HoldTheirMarks(std::vector<Block> const& blocks)
{
  return std::all_of(blocks.begin(), blocks.end(), HoldsItsMark);
}

void GiveBack(std::vector<Block> const& blocks, bool atOnce)
{
  std::vector<void*> all;
  for (Block const& block : blocks)
    all.insert(all.end(), {block.bytes, nullptr});
  if (atOnce)
    mem_FreeAll(all.data(), all.size());
  else
    std::for_each(all.begin(), all.end(), mem_Free);
}

} // namespace

TEST(mem_Allocation, RandomBlocksKeepTheirContent)
{
  std::mt19937 random(20240501);
  std::vector<Block> blocks;
  for (int step = 0; step < 20000; ++step)
  {
    std::size_t const choice = random() % 8;
    std::size_t const at = blocks.empty() ? 0 : random() % blocks.size();
    if (blocks.empty() || (choice < 4 && blocks.size() < 600))
      blocks.push_back(Take(RandomSize(random), static_cast<unsigned char>(step)));
    else if (choice < 6)
    {
      Block& block = blocks[at];
      std::size_t const size = RandomSize(random);
      block.bytes = static_cast<unsigned char*>(mem_Realloc(block.bytes, size));
      block.size = std::min(block.size, size);
      ASSERT_TRUE(HoldsItsMark(block)) << "after resizing to " << size;
      block.size = size;
      std::memset(block.bytes, block.mark, size);
    }
    else
    {
      ASSERT_TRUE(HoldsItsMark(blocks[at])) << "of size " << blocks[at].size;
      mem_Free(blocks[at].bytes);
      std::swap(blocks[at], blocks.back());
      blocks.pop_back();
    }
  }
  EXPECT_TRUE(HoldTheirMarks(blocks));
  GiveBack(blocks, true);
}

TEST(mem_Allocation, BlocksAreAlignedAndAsLargeAsTheySay)
{
  for (std::size_t size = 0; size < 70000; size += size < 600 ? 1 : 977)
  {
    void* const block = mem_Malloc(size);
    std::size_t const usable = mem_UsableSize(block);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 16, 0U) << size;
    EXPECT_EQ(usable, mem_RoundedSize(size)) << size;
    EXPECT_GE(usable, size);
    EXPECT_EQ(usable % 16, 0U) << size;
    EXPECT_LE(usable, size + std::max<std::size_t>(16, size / 2)) << size;
    std::memset(block, 0xa5, usable);
    mem_Free(block);
  }
  for (std::size_t size : {1U, 4U, 8U, 9U, 16U})
  {
    void* const cell = mem_OperatorNewTinyThrow(size);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(cell) % 8, 0U) << size;
    std::memset(cell, 0xa5, size);
    mem_Free(cell);
  }
}

TEST(mem_Allocation, ThreadsFreeEachOthersBlocksWhichNeverOverlap)
{
  for (bool const atOnce : {false, true})
  {
    std::vector<Block> const mine = TakeMany();
    std::vector<Block> others;
    bool intact = false;
    std::thread(
      [&]
      {
        intact = HoldTheirMarks(mine);
        GiveBack(mine, atOnce);
        others = TakeMany();
      })
      .join();
    EXPECT_TRUE(intact);
    EXPECT_TRUE(HoldTheirMarks(others));
    GiveBack(others, atOnce);
  }
  mem_FreeAll(nullptr, 0);
}

#if !MEM_PLAIN_ALLOCATION
TEST(mem_Allocation, ASlabInOrderServesAgainWhenItsLastBlockIsBack)
{
  for (bool const threadEnds : {false, true})
  {
    std::vector<void*> blocks;
    auto const take = [&]
    {
      for (int i = 0; i < 500; ++i)
        blocks.push_back(mem_MallocInOrder(1000));
    };
    if (threadEnds)
      std::thread(take).join();
    else
      take();
    std::set<mem_Slab*> slabs;
    for (void* const block : blocks)
      slabs.insert(mem_SlabOf(block));
    ASSERT_GE(slabs.size(), 8U);
    void* const kept = std::exchange(blocks.front(), nullptr);
    mem_FreeAll(blocks.data(), blocks.size());
    slabs.erase(mem_SlabOf(kept));
    if (!threadEnds)
      slabs.erase(mem_SlabOf(blocks.back())); // still being carved
    std::set<mem_Slab*> again;
    std::vector<void*> wide;
    for (std::size_t i = 0; i < slabs.size(); ++i)
    {
      wide.push_back(mem_Malloc(60000));
      again.insert(mem_SlabOf(wide.back()));
    }
    EXPECT_EQ(again, slabs) << threadEnds;
    mem_Free(kept);
    mem_FreeAll(wide.data(), wide.size());
  }
}

TEST(mem_Allocation, WhatEndedThreadsFreedIsUsedAgain)
{
  constexpr std::size_t size = 400;
  constexpr int count = 500; // three slabs and a bit for each of two threads
  std::set<void*> freed;
  std::set<void*> slabs;
  auto const takeAndFree = [&](auto const& meanwhile)
  {
    std::vector<void*> blocks;
    for (int i = 0; i < count; ++i)
      blocks.push_back(mem_Malloc(size));
    meanwhile();
    for (void* const block : blocks)
    {
      freed.insert(block);
      slabs.insert(mem_SlabOf(block));
      mem_Free(block);
    }
  };
  std::thread(takeAndFree, [&] { std::thread(takeAndFree, [] {}).join(); }).join();
  ASSERT_EQ(freed.size(), 2U * count);

  std::thread(
    [&]
    {
      std::vector<void*> blocks;
      for (int i = 0; i < 2 * count; ++i)
      {
        blocks.push_back(mem_Malloc(size));
        ASSERT_EQ(freed.count(blocks.back()), 1U) << "block " << i << " of the free lists";
      }
      for (int i = 0; i < 200; ++i)
      {
        blocks.push_back(mem_Malloc(size));
        ASSERT_EQ(slabs.count(mem_SlabOf(blocks.back())), 1U) << "rest " << i << " of their slabs";
      }
      for (void* const block : blocks)
        mem_Free(block);
    })
    .join();
}

namespace
{
// Frees and allocates when its thread's lists have already been handed over.
struct LateUser
{
  void* block = nullptr;
  void** again = nullptr;
  ~LateUser()
  {
    mem_Free(block);
    *again = mem_Malloc(80);
    std::memset(*again, 1, 80);
    mem_Free(*again);
  }
};
} // namespace

// What comes back so late goes to the others at once, and is the first that they take.
TEST(mem_Allocation, ServesDestructorsThatRunAfterTheHandOver)
{
  void* block = nullptr;
  void* again = nullptr;
  std::thread(
    [&]
    {
      static thread_local LateUser user; // made before the allocator's own, so destroyed after it
      user.again = &again;
      user.block = block = mem_Malloc(80);
    })
    .join();
  EXPECT_EQ(again, block);
  void* next = nullptr;
  std::thread([&] { mem_Free(next = mem_Malloc(80)); }).join();
  EXPECT_EQ(next, block);
}

namespace
{
std::size_t AddressSpace()
{
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

void LimitAddressSpace(std::size_t size)
{
  rlimit limit{};
  ::getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = size;
  ::setrlimit(RLIMIT_AS, &limit);
}

// Blocks until there are no more.
std::vector<void*>& Drain(std::vector<void*>& blocks, std::size_t size, Taking taking)
{
  while (void* const block = taking(size))
    blocks.push_back(block);
  return blocks;
}

// Without memory of its own.
bool Holds(bool condition, char const* words)
{
  if (!condition)
    std::fputs(words, stderr);
  return condition;
}

// To be called in a process of its own, which is left with no memory.
bool StandsExhaustion()
{
  constexpr std::size_t room = std::size_t{3} << 20;
  std::vector<void*> blocks;
  blocks.reserve(1000000);
  std::vector<void*> inOrder;
  inOrder.reserve(100000);
  std::vector<void*> many; // as many as make the next chunk as large as chunks become
  many.reserve(100000);
  for (int i = 0; i < 100000; ++i)
    many.push_back(mem_Malloc(1000));
  std::size_t const size = AddressSpace();
  LimitAddressSpace(size);
  Drain(blocks, 1000, mem_Malloc);
  LimitAddressSpace(size + room);
  std::size_t const before = blocks.size();
  bool holds = Holds(Drain(blocks, 1000, mem_Malloc).size() - before > room * 2 / 3 / 1024,
                     "what is too small for a chunk is used\n");
  Block const block{static_cast<unsigned char*>(blocks.back()), 1000, 5};
  std::memset(block.bytes, 5, 1000);
  holds &= Holds(Drain(inOrder, 1000, mem_MallocInOrder).size() < 100, "none in order is left\n");
  for (std::size_t const wide : {30000, 60000, 5000000})
    holds &= Holds(mem_Malloc(wide) == nullptr, "no wide block is left\n");
  holds &= Holds(mem_Realloc(block.bytes, 5000) == nullptr && HoldsItsMark(block),
                 "a block that cannot grow is left alone\n");
  try
  {
    mem_OperatorNewThrow(1000);
    holds = Holds(false, "something is raised\n");
  }
  catch (std::bad_alloc const&)
  {
  }
  mem_Free(block.bytes);
  return holds & Holds(mem_Malloc(1000) == block.bytes, "a block that came back serves again\n");
}
} // namespace

TEST(mem_Allocation, AnExhaustedPoolGivesNullUntilSomethingComesBack)
{
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(std::_Exit(StandsExhaustion() ? 0 : 1), testing::ExitedWithCode(0), "");
}
#endif

TEST(mem_Allocation, ExhaustionIsNullOrAnException)
{
  std::size_t const huge = std::numeric_limits<std::size_t>::max() - 100;
  EXPECT_EQ(mem_Malloc(huge), nullptr);
  EXPECT_THROW(mem_OperatorNewThrow(huge), std::bad_alloc);
  EXPECT_THROW(mem_OperatorNewTinyThrow(huge), std::bad_alloc);
  EXPECT_THROW(mem_OperatorNewThrowBuiltin(huge), std::bad_alloc);
  Block block = Take(100, 7);
  EXPECT_EQ(mem_Realloc(block.bytes, huge), nullptr);
  EXPECT_TRUE(HoldsItsMark(block));
  mem_Free(block.bytes);
  mem_Free(nullptr);
}
