#include "typ_DebugFlags.h"

#include <atomic>

namespace
{

std::atomic<int> levels[typ_DebugFlags::Flags];

bool IsFlag(int flag) noexcept { return flag >= 0 && flag < typ_DebugFlags::Flags; }

} // namespace

int typ_DebugFlags::GetDebugFlags(int flag) noexcept
{
  return IsFlag(flag) ? levels[flag].load(std::memory_order_relaxed) : 0;
}

void typ_DebugFlags::SetDebugFlags(int flag, int level) noexcept
{
  if (IsFlag(flag))
    levels[flag].store(level, std::memory_order_relaxed);
}
