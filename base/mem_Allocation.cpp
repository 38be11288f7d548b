#include "mem_Allocation.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <new>
#include <utility>

#if MEM_PLAIN_ALLOCATION
#include <malloc.h>
#elif defined(__linux__)
#include <sys/mman.h>
#endif

[[noreturn]] void mem_RaiseExhausted() { throw std::bad_alloc(); }

#if MEM_PLAIN_ALLOCATION

void* mem_Malloc(std::size_t size) noexcept
{
  return size > std::numeric_limits<std::ptrdiff_t>::max() ? nullptr
                                                           : std::malloc(mem_RoundedSize(size));
}

void* mem_MallocTiny(std::size_t size) noexcept
{
  return size <= 8 ? std::malloc(size) : mem_Malloc(size);
}

void* mem_MallocInOrder(std::size_t size) noexcept { return mem_Malloc(size); }

void mem_FreeAll(void* const* blocks, std::size_t count) noexcept
{
  std::for_each(blocks, blocks + count, mem_Free);
}

void* mem_Realloc(void* block, std::size_t size) noexcept
{
  return size > std::numeric_limits<std::ptrdiff_t>::max()
           ? nullptr
           : std::realloc(block, mem_RoundedSize(size));
}

void mem_Free(void* block) noexcept { std::free(block); }

std::size_t mem_UsableSize(void const* block) noexcept
{
  return malloc_usable_size(const_cast<void*>(block));
}

#else

constinit thread_local mem_ThreadPool mem_threadPool{};

namespace
{

// What ended threads left behind, and the memory from which slabs are cut.
struct CommonStore
{
  std::mutex mutex;
  void* freeBlocks[mem_classCount] = {};
  mem_Slab* partial[mem_classCount] = {};
  mem_Slab* freeSlabs = nullptr;
  char* chunkNext = nullptr;
  char* chunkEnd = nullptr;
  std::size_t chunkSize = std::size_t{1} << 20;
};

// Never destroyed: destructors of other statics still allocate and free.
constinit CommonStore store;

constexpr std::size_t largestChunk = std::size_t{32} << 20;
constexpr std::size_t hugePage = std::size_t{2} << 20;
// From this size on a slab of its own takes whole huge pages, which wastes at most a third of them.
constexpr std::size_t worthHugePages = 2 * hugePage;

// Asks the system for huge pages where a chunk consists of them: with small pages, the reading of a large
// deck would spend most of its time on page faults.
void* AllocateChunk(std::size_t size)
{
#if defined(__linux__)
  if (size % hugePage == 0)
  {
    void* const chunk = std::aligned_alloc(hugePage, size);
    if (chunk != nullptr)
      madvise(chunk, size, MADV_HUGEPAGE);
    return chunk;
  }
#endif
  return std::aligned_alloc(mem_slabSize, size);
}

// Takes a chunk from which slabs are cut; a smaller one when memory is short.
bool TakeChunk()
{
  std::size_t size = store.chunkSize;
  void* chunk = AllocateChunk(size);
  while (chunk == nullptr && size > mem_slabSize)
  {
    size /= 2;
    chunk = AllocateChunk(size);
  }
  if (chunk == nullptr)
    return false;
  store.chunkNext = static_cast<char*>(chunk);
  store.chunkEnd = store.chunkNext + size;
  store.chunkSize = std::min(largestChunk, store.chunkSize * 2);
  return true;
}

char* EndOfBlocks(mem_Slab* slab, std::size_t sizeClass)
{
  std::size_t const size = mem_classSizes[sizeClass];
  std::size_t const count = (mem_slabSize - mem_slabHeader) / size;
  return reinterpret_cast<char*>(slab) + mem_slabHeader + count * size;
}

// A slab that was given back, or a new one. The caller holds the lock of the store.
mem_Slab* CutSlab(std::size_t sizeClass)
{
  void* memory = store.freeSlabs;
  if (memory != nullptr)
    store.freeSlabs = store.freeSlabs->nextPartial;
  else
  {
    if (store.chunkNext == store.chunkEnd && !TakeChunk())
      return nullptr;
    memory = std::exchange(store.chunkNext, store.chunkNext + mem_slabSize);
  }
  mem_Slab* const slab = ::new (memory) mem_Slab{};
  slab->sizeClass = static_cast<std::uint32_t>(sizeClass);
  slab->ownSize = mem_slabSize - mem_slabHeader;
  slab->partialNext = static_cast<char*>(memory) + mem_slabHeader;
  return slab;
}

void GiveBackSlab(mem_Slab* slab)
{
  std::lock_guard<std::mutex> const lock(store.mutex);
  slab->nextPartial = std::exchange(store.freeSlabs, slab);
}

mem_Slab* TakeSlab(std::uint32_t sizeClass)
{
  std::lock_guard<std::mutex> const lock(store.mutex);
  return CutSlab(sizeClass);
}

// Added to a slab's count of blocks while blocks are still being taken from it, so that it is not given back.
constexpr std::uint32_t beingCarved = std::uint32_t{1} << 30;
// Longer blocks would leave too much of a slab unused.
constexpr std::size_t longestInOrder = mem_slabSize / 8;

void Discount(mem_Slab* slab, std::uint32_t blocks)
{
  if (slab->blocksInOrder.fetch_sub(blocks, std::memory_order_acq_rel) == blocks)
    GiveBackSlab(slab);
}

void EndRun()
{
  mem_ThreadRun const run = std::exchange(mem_threadPool.run, mem_ThreadRun{});
  if (run.slab != nullptr)
    Discount(run.slab, beingCarved - run.taken);
}

// Gives the calling thread blocks of a class that it has run out of.
bool Refill(std::size_t sizeClass)
{
  mem_ThreadClass& own = mem_threadPool.classes[sizeClass];
  std::lock_guard<std::mutex> const lock(store.mutex);
  if (store.freeBlocks[sizeClass] != nullptr)
  {
    own.freeBlocks = std::exchange(store.freeBlocks[sizeClass], nullptr);
    return true;
  }
  mem_Slab* slab = store.partial[sizeClass];
  if (slab != nullptr)
    store.partial[sizeClass] = slab->nextPartial;
  else
    slab = CutSlab(sizeClass);
  if (slab == nullptr)
    return false;
  own.next = slab->partialNext;
  own.end = EndOfBlocks(slab, sizeClass);
  return true;
}

// Moves what the calling thread holds of a class to the store.
void HandOver(std::size_t sizeClass)
{
  mem_ThreadClass& own = mem_threadPool.classes[sizeClass];
  if (void* const first = own.freeBlocks)
  {
    void* last = first;
    while (void* const next = mem_LinkOf(last))
      last = next;
    std::lock_guard<std::mutex> const lock(store.mutex);
    mem_SetLink(last, store.freeBlocks[sizeClass]);
    store.freeBlocks[sizeClass] = first;
  }
  if (own.next != own.end)
  {
    mem_Slab* const slab = mem_SlabOf(own.next);
    slab->partialNext = own.next;
    std::lock_guard<std::mutex> const lock(store.mutex);
    slab->nextPartial = std::exchange(store.partial[sizeClass], slab);
  }
  own = mem_ThreadClass{};
}

struct ThreadEnd
{
  ThreadEnd() noexcept { mem_threadPool.attached = true; }
  ~ThreadEnd()
  {
    mem_threadPool.attached = false;
    for (std::size_t sizeClass = 0; sizeClass < mem_classCount; ++sizeClass)
      HandOver(sizeClass);
    EndRun();
  }
};

// Registers this thread, so that its lists go to the store when it ends. False when it has handed them over
// already: blocks must then go to the store at once.
bool Attach()
{
  static thread_local ThreadEnd end;
  return mem_threadPool.attached;
}

void* MallocOwnSlab(std::size_t size)
{
  if (size > mem_worthWholeSlab && size <= mem_slabSize - mem_slabHeader)
  {
    mem_Slab* const slab = TakeSlab(mem_wholeSlab);
    return slab != nullptr ? slab->partialNext : nullptr;
  }
  if (size > std::numeric_limits<std::ptrdiff_t>::max())
    return nullptr;
  std::size_t whole = mem_slabHeader + mem_RoundedSize(size);
  if (whole >= worthHugePages)
    whole = (whole + hugePage - 1) & ~(hugePage - 1);
  void* const memory = AllocateChunk(whole);
  if (memory == nullptr)
    return nullptr;
  mem_Slab* const slab = ::new (memory) mem_Slab{};
  slab->sizeClass = mem_ownSlab;
  slab->ownSize = whole - mem_slabHeader;
  return static_cast<char*>(memory) + mem_slabHeader;
}

} // namespace

void* mem_MallocSlow(std::size_t stride, std::size_t sizeClass) noexcept
{
  bool const attached = Attach();
  if (!Refill(sizeClass))
    return nullptr;
  void* const block = mem_TakeBlock(sizeClass, stride);
  if (!attached)
    HandOver(sizeClass);
  return block;
}

void* mem_MallocWide(std::size_t size) noexcept
{
  if (size > mem_classSizes.back())
    return MallocOwnSlab(size);
  auto const found =
    std::lower_bound(mem_classSizes.begin() + mem_fineClasses, mem_classSizes.end(), size);
  return mem_TakeBlock(static_cast<std::size_t>(found - mem_classSizes.begin()), *found);
}

void* mem_MallocInOrderSlow(std::size_t size) noexcept
{
  if (size > longestInOrder || !Attach())
    return mem_Malloc(size);
  EndRun();
  mem_Slab* const slab = TakeSlab(mem_inOrderSlab);
  if (slab == nullptr)
    return nullptr;
  slab->blocksInOrder.store(beingCarved, std::memory_order_relaxed);
  char* const end = reinterpret_cast<char*>(slab) + mem_slabSize;
  mem_threadPool.run = {slab->partialNext, end, slab, 0};
  return mem_MallocInOrder(size);
}

void mem_FreeAll(void* const* blocks, std::size_t count) noexcept
{
  mem_Slab* slab = nullptr;
  std::uint32_t inOrder = 0;
  for (std::size_t i = 0; i < count; ++i)
  {
    if (blocks[i] == nullptr)
      continue;
    mem_Slab* const own = mem_SlabOf(blocks[i]);
    if (own != slab && inOrder > 0)
      Discount(slab, std::exchange(inOrder, 0));
    slab = own;
    if (slab->sizeClass == mem_inOrderSlab)
      ++inOrder;
    else
      mem_Free(blocks[i]);
  }
  if (inOrder > 0)
    Discount(slab, inOrder);
}

void mem_FreeSlow(void* block) noexcept
{
  mem_Slab* const slab = mem_SlabOf(block);
  if (slab->sizeClass == mem_inOrderSlab)
    return Discount(slab, 1);
  if (slab->sizeClass == mem_wholeSlab)
    return GiveBackSlab(slab);
  if (slab->sizeClass == mem_ownSlab)
    return std::free(slab);
  bool const attached = Attach();
  mem_ThreadClass& own = mem_threadPool.classes[slab->sizeClass];
  mem_SetLink(block, own.freeBlocks);
  own.freeBlocks = block;
  if (!attached)
    HandOver(slab->sizeClass);
}

std::size_t mem_RoundedSize(std::size_t size) noexcept
{
  if (size <= mem_fineLimit)
    return size == 0 ? 16 : (size + 15) & ~std::size_t{15};
  if (size > mem_worthWholeSlab && size <= mem_slabSize - mem_slabHeader)
    return mem_slabSize - mem_slabHeader;
  if (size > mem_classSizes.back()) // whole pages, header included
    return ((size + mem_slabHeader + 4095) & ~std::size_t{4095}) - mem_slabHeader;
  return *std::lower_bound(mem_classSizes.begin() + mem_fineClasses, mem_classSizes.end(), size);
}

void* mem_Realloc(void* block, std::size_t size) noexcept
{
  if (block == nullptr)
    return mem_Malloc(size);
  std::size_t const usable = mem_UsableSize(block);
  if (size <= usable && size >= usable / 2)
    return block;
  void* const moved = mem_Malloc(size);
  if (moved == nullptr)
    return nullptr;
  std::memcpy(moved, block, std::min(usable, size));
  mem_Free(block);
  return moved;
}

#endif
