#include "cow_List.h"

#include <atomic>
#include <bit>
#include <cstdint>
#include <cstdlib>

namespace
{
std::atomic<void (*)(int index, int length)> outOfRangeHook = nullptr;
}

void cow_SetOutOfRangeHook(void (*hook)(int index, int length)) noexcept { outOfRangeHook = hook; }

[[noreturn]] void cow_RaiseOutOfRange(int index, int length) noexcept
{
  if (auto* const hook = outOfRangeHook.load())
    hook(index, length);
  std::abort();
}

// Where 2^e is the highest power of two in the hint, blocks hold 2^(e-3) items, so that 8 to 16 of them hold
// all. Their number is read from the hint in single precision: 8, and its fraction in eighths, rounded up.
cow_ListShape cow_ShapeForHint(int hint) noexcept
{
  constexpr int largestHint = 1 << 28; // the slots of a full directory still fit an int
  cow_ListShape shape{4, 0};
  if (hint <= 0)
    return shape;
  hint = std::min(hint, largestHint);
  int const exponent = static_cast<int>(std::bit_width(static_cast<std::uint32_t>(hint))) - 1;
  if (exponent - 3 > 4)
  {
    std::uint32_t const single = std::bit_cast<std::uint32_t>(static_cast<float>(hint));
    std::uint32_t const fraction = single & 0x7fffff;
    shape.blockShift = exponent - 3;
    shape.directorySize = static_cast<int>((fraction + 0x8fffff) >> 20);
  }
  shape.directorySize += 16;
  return shape;
}

cow_ListDirectoryHead* cow_AllocateDirectory(int* old, int capacity)
{
  std::size_t const slots = sizeof(void*) * static_cast<std::size_t>(capacity);
  void* const memory = mem_Realloc(old, cow_listDirectoryHeadSize + slots);
  if (memory == nullptr)
    mem_RaiseExhausted();
  auto* const head = static_cast<cow_ListDirectoryHead*>(memory);
  if (old == nullptr)
    head->count = 1;
  head->capacity = capacity;
  return head;
}
