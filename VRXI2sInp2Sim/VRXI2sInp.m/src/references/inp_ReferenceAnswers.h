#pragma once

#include "cow_String.h"
#include "inp_ReferencePlace.h"

#include <array>
#include <cstdint>
#include <cstring>

/// What has been answered for the fields of a scope, by the text of the field as it is stored.
///
/// Rows name few things many times over, mostly one behind the other. Each text has one slot that its
/// characters choose, and takes it from whatever stood there: no memory grows, and a deck whose names all
/// differ pays a comparison and a copy a field.
class inp_ReferenceAnswers
{
public:
  struct Answer
  {
    cow_String text;
    bool isNew = false; ///< differs from the name
  };

  /// Null when there is none.
  Answer const* Find(inp_referenceEnm what, char const* cell)
  {
    if (m_last != nullptr && m_last->what == what && m_last->Is(cell))
    {
      return &m_last->answer;
    }
    m_length = std::strlen(cell);
    m_slot = m_length < c_longest ? &m_slots[SlotOf(what, cell)] : nullptr;
    m_last = m_slot != nullptr && m_slot->what == what && m_slot->Is(cell) ? m_slot : nullptr;
    return m_last != nullptr ? &m_last->answer : nullptr;
  }

  /// Of the field that was looked for last.
  void Keep(inp_referenceEnm what, char const* cell, cow_String const& text, bool isNew)
  {
    if (m_slot != nullptr)
    {
      m_slot->what = what;
      std::memcpy(m_slot->cell.data(), cell, m_length + 1);
      m_slot->answer = {text, isNew};
      m_last = m_slot;
    }
  }

  void Clear()
  {
    for (Slot& slot : m_slots)
    {
      slot.what = inp_noReference;
    }
    m_last = nullptr;
  }

private:
  static constexpr std::size_t c_longest = 40;
  static constexpr std::size_t c_slots = 256;

  struct Slot
  {
    inp_referenceEnm what = inp_noReference;
    std::array<char, c_longest> cell; ///< closed by NUL
    Answer answer;

    // Names are short and begin alike: character by character is soon done.
    bool Is(char const* other) const
    {
      char const* own = cell.data();
      while (*own == *other && *own != '\0')
      {
        ++own;
        ++other;
      }
      return *own == *other;
    }
  };

  std::size_t SlotOf(inp_referenceEnm what, char const* cell) const
  {
    auto hash = static_cast<std::uint32_t>(what);
    for (std::size_t i = 0; i < m_length; ++i)
    {
      hash = hash * 31 + static_cast<unsigned char>(cell[i]);
    }
    return (hash ^ (hash >> 8)) % c_slots;
  }

  std::array<Slot, c_slots> m_slots;
  Slot* m_slot = nullptr; ///< for the field that was looked for last
  Slot* m_last = nullptr; ///< that held the last answer
  std::size_t m_length = 0;
};
