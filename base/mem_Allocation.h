#pragma once

// The library's own allocator: many small blocks, cheap to take and cheap to give back.
//
//   slab, 64 KiB, aligned to 64 KiB
//   +--------+-------+-------+-------+-----
//   | header | block | block | block | ...      all blocks of a slab have one size
//   +--------+-------+-------+-------+-----
//   0        64
//
// The size class of a block stands in the header of its slab, which is found by masking the block's
// address, so a block has no header of its own. Classes are 8 bytes (counts and the like), every
// multiple of 16 up to 512, and wider steps up to a third of a slab. A larger block is a slab of its
// own, with the same header.
//
// Blocks that are taken and given back one after the other, as those of data lines are, may be taken "in
// order" instead: side by side in a slab, whatever their sizes. Such a slab counts its blocks, and is free
// for any use when the last one is given back. So the records that are made of the lines reuse the memory
// of the lines, whose pages the system has handed out already.
//
// Every thread has its own free lists, without locks or atomics. A block that another thread frees
// joins that thread's list. A thread that ends leaves its lists to a common store, from which others
// refill. Slabs are kept until the process ends. Counts of slabs in order are atomic.
//
// Under the address, memory and thread sanitizers every block comes from the C library, so that they
// see each one by itself.

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define MEM_PLAIN_ALLOCATION 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(memory_sanitizer) ||                         \
  __has_feature(thread_sanitizer)
#define MEM_PLAIN_ALLOCATION 1
#endif
#endif
#ifndef MEM_PLAIN_ALLOCATION
#define MEM_PLAIN_ALLOCATION 0
#endif

/// Takes at least `size` bytes, aligned to 16; null when memory is exhausted. A size of 0 gives a
/// block too. The block may be used up to mem_RoundedSize(size).
void* mem_Malloc(std::size_t size) noexcept;

/// Resizes a block, keeping its content up to the smaller of both sizes. Null, with the old block
/// untouched, when memory is exhausted. A null block is allocated.
void* mem_Realloc(void* block, std::size_t size) noexcept;

/// Gives back a block of any function in this header; null is allowed.
void mem_Free(void* block) noexcept;

/// As mem_Malloc, from a slab in order. Not for mem_Realloc and mem_UsableSize.
void* mem_MallocInOrder(std::size_t size) noexcept;

/// Gives back many blocks, nulls among them: those in order that lie side by side cost next to nothing.
void mem_FreeAll(void* const* blocks, std::size_t count) noexcept;

/// The bytes that a block of mem_Malloc(size) really has: a multiple of 16, not less than `size`.
std::size_t mem_RoundedSize(std::size_t size) noexcept;

/// The bytes that the given block really has.
std::size_t mem_UsableSize(void const* block) noexcept;

/// As mem_Malloc, but raises std::bad_alloc when memory is exhausted.
void* mem_OperatorNewThrow(std::size_t size);

/// As mem_MallocInOrder, but raises std::bad_alloc when memory is exhausted.
void* mem_OperatorNewInOrderThrow(std::size_t size);

/// As mem_OperatorNewThrow, for cells of a few bytes: up to 8 bytes are aligned to 8 only.
void* mem_OperatorNewTinyThrow(std::size_t size);

/// As mem_OperatorNewThrow, for arrays of built-in types.
void* mem_OperatorNewThrowBuiltin(std::size_t size);

/// Base of classes whose objects come from mem_OperatorNewThrow.
class mem_AllocationOperators
{
public:
  static void* operator new(std::size_t size) { return mem_OperatorNewThrow(size); }
  static void* operator new[](std::size_t size) { return mem_OperatorNewThrow(size); }
  static void* operator new(std::size_t, void* memory) noexcept { return memory; }
  static void operator delete(void* block) noexcept { mem_Free(block); }
  static void operator delete[](void* block) noexcept { mem_Free(block); }
  static void operator delete(void*, void*) noexcept {}
};

/// Base of classes of a few bytes, whose objects come from mem_OperatorNewTinyThrow.
class mem_AllocationOperatorsTiny
{
public:
  static void* operator new(std::size_t size) { return mem_OperatorNewTinyThrow(size); }
  static void* operator new(std::size_t, void* memory) noexcept { return memory; }
  static void operator delete(void* block) noexcept { mem_Free(block); }
  static void operator delete(void*, void*) noexcept {}
};

// ------------------------------------------------------------------ what the inline parts stand on

[[noreturn]] void mem_RaiseExhausted();

#if MEM_PLAIN_ALLOCATION

inline std::size_t mem_RoundedSize(std::size_t size) noexcept
{
  return size == 0 ? 16 : (size + 15) & ~std::size_t{15};
}

void* mem_MallocTiny(std::size_t size) noexcept;

#else

inline constexpr std::size_t mem_slabSize = 65536;
inline constexpr std::size_t mem_slabHeader = 64;

/// Blocks up to this size have a class for each multiple of 16.
inline constexpr std::size_t mem_fineLimit = 512;

/// The wider classes, as the number of blocks that share a slab.
inline constexpr std::array<std::size_t, 21> mem_blocksPerSlab{
  112, 96, 80, 64, 56, 48, 40, 32, 28, 24, 20, 16, 14, 12, 10, 8, 7, 6, 5, 4, 3};

inline constexpr std::size_t mem_fineClasses = 1 + mem_fineLimit / 16;
inline constexpr std::size_t mem_classCount = mem_fineClasses + mem_blocksPerSlab.size();

/// Class of a block that is a slab of its own, allocated in its own size.
inline constexpr std::uint32_t mem_ownSlab = mem_classCount;
/// Class of a block that fills a slab of the usual size.
inline constexpr std::uint32_t mem_wholeSlab = mem_classCount + 1;
/// Class of blocks in order.
inline constexpr std::uint32_t mem_inOrderSlab = mem_classCount + 2;

/// Above the widest class, a block of this size or more takes a whole slab of the usual size; a smaller one
/// is allocated in its own size.
inline constexpr std::size_t mem_worthWholeSlab = mem_slabSize * 3 / 4;

/// Block size by class. Class 0 serves tiny cells, class n the multiple 16 * n, then the wider ones.
inline constexpr std::array<std::size_t, mem_classCount> mem_classSizes = []
{
  std::array<std::size_t, mem_classCount> sizes{8};
  for (std::size_t fine = 1; fine < mem_fineClasses; ++fine)
    sizes[fine] = 16 * fine;
  for (std::size_t wide = 0; wide < mem_blocksPerSlab.size(); ++wide)
  {
    std::size_t const share = (mem_slabSize - mem_slabHeader) / mem_blocksPerSlab[wide];
    sizes[mem_fineClasses + wide] = share & ~std::size_t{15};
  }
  return sizes;
}();

struct mem_Slab
{
  std::uint32_t sizeClass;
  std::size_t ownSize; // usable bytes of a block that is a slab of its own
  mem_Slab*
    nextPartial;     // chain of half-carved slabs that ended threads left behind, or of free ones
  char* partialNext; // their first block not yet handed out
  std::atomic<std::uint32_t>
    blocksInOrder; // not given back; many more while blocks are still taken from it
};
static_assert(sizeof(mem_Slab) <= mem_slabHeader);

/// What a thread holds of one size class: blocks given back, and the uncarved rest of a slab.
struct mem_ThreadClass
{
  void* freeBlocks;
  char* next;
  char* end;
};

/// The slab that a thread takes blocks in order from.
struct mem_ThreadRun
{
  char* next;
  char* end;
  mem_Slab* slab;
  std::uint32_t taken;
};

struct mem_ThreadPool
{
  mem_ThreadClass classes[mem_classCount];
  mem_ThreadRun run;
  bool attached; // the end of this thread will hand its lists over
};

extern constinit thread_local mem_ThreadPool mem_threadPool;

void* mem_MallocSlow(std::size_t stride, std::size_t sizeClass) noexcept;
void* mem_MallocWide(std::size_t size) noexcept;
void* mem_MallocInOrderSlow(std::size_t size) noexcept;
void mem_FreeSlow(void* block) noexcept;

inline mem_Slab* mem_SlabOf(void const* block) noexcept
{
  return reinterpret_cast<mem_Slab*>(reinterpret_cast<std::uintptr_t>(block) &
                                     ~std::uintptr_t{mem_slabSize - 1});
}

// A free block's first word links to the next one. memcpy, because the block holds an object of
// another type before and after.
inline void* mem_LinkOf(void const* block) noexcept
{
  void* link;
  std::memcpy(&link, block, sizeof link);
  return link;
}

inline void mem_SetLink(void* block, void* link) noexcept
{
  std::memcpy(block, &link, sizeof link);
}

inline void* mem_TakeBlock(std::size_t sizeClass, std::size_t stride) noexcept
{
  mem_ThreadClass& own = mem_threadPool.classes[sizeClass];
  if (void* const block = own.freeBlocks)
  {
    own.freeBlocks = mem_LinkOf(block);
    return block;
  }
  if (own.next != own.end) [[likely]]
  {
    char* const block = own.next;
    own.next = block + stride;
    return block;
  }
  return mem_MallocSlow(stride, sizeClass);
}

inline void* mem_Malloc(std::size_t size) noexcept
{
  if (size > mem_fineLimit) [[unlikely]]
    return mem_MallocWide(size);
  std::size_t const sizeClass = (size + 15 + (size == 0)) / 16;
  return mem_TakeBlock(sizeClass, sizeClass * 16);
}

inline void* mem_MallocInOrder(std::size_t size) noexcept
{
  std::size_t const rounded = (size + 15 + (size == 0)) & ~std::size_t{15};
  mem_ThreadRun& run = mem_threadPool.run;
  if (rounded > static_cast<std::size_t>(run.end - run.next)) [[unlikely]]
    return mem_MallocInOrderSlow(size);
  char* const block = run.next;
  run.next += rounded;
  ++run.taken;
  return block;
}

inline void* mem_MallocTiny(std::size_t size) noexcept
{
  return size <= 8 ? mem_TakeBlock(0, 8) : mem_Malloc(size);
}

inline void mem_Free(void* block) noexcept
{
  if (block == nullptr)
    return;
  std::uint32_t const sizeClass = mem_SlabOf(block)->sizeClass;
  mem_ThreadPool& pool = mem_threadPool;
  if (sizeClass >= mem_classCount || !pool.attached) [[unlikely]]
    return mem_FreeSlow(block);
  mem_SetLink(block, pool.classes[sizeClass].freeBlocks);
  pool.classes[sizeClass].freeBlocks = block;
}

inline std::size_t mem_UsableSize(void const* block) noexcept
{
  mem_Slab const* const slab = mem_SlabOf(block);
  return slab->sizeClass >= mem_classCount ? slab->ownSize : mem_classSizes[slab->sizeClass];
}

#endif

inline void* mem_OperatorNewThrow(std::size_t size)
{
  void* const block = mem_Malloc(size);
  if (block == nullptr) [[unlikely]]
    mem_RaiseExhausted();
  return block;
}

inline void* mem_OperatorNewInOrderThrow(std::size_t size)
{
  void* const block = mem_MallocInOrder(size);
  if (block == nullptr) [[unlikely]]
    mem_RaiseExhausted();
  return block;
}

inline void* mem_OperatorNewTinyThrow(std::size_t size)
{
  void* const block = mem_MallocTiny(size);
  if (block == nullptr) [[unlikely]]
    mem_RaiseExhausted();
  return block;
}

inline void* mem_OperatorNewThrowBuiltin(std::size_t size) { return mem_OperatorNewThrow(size); }
