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
    m_length = std::strlen(cell);
    m_slot = m_length < c_longest ? &m_slots[SlotOf(what, cell)] : nullptr;
    bool const isKnown = m_slot != nullptr && m_slot->what == what && m_slot->length == m_length &&
                         std::memcmp(m_slot->cell.data(), cell, m_length) == 0;
    return isKnown ? &m_slot->answer : nullptr;
  }

  /// Of the field that was looked for last.
  void Keep(inp_referenceEnm what, char const* cell, cow_String const& text, bool isNew)
  {
    if (m_slot != nullptr)
    {
      m_slot->what = what;
      m_slot->length = m_length;
      std::memcpy(m_slot->cell.data(), cell, m_length);
      m_slot->answer = {text, isNew};
    }
  }

  void Clear()
  {
    for (Slot& slot : m_slots)
    {
      slot.what = inp_noReference;
    }
  }

private:
  static constexpr std::size_t c_longest = 40;
  static constexpr std::size_t c_slots = 256;

  struct Slot
  {
    inp_referenceEnm what = inp_noReference;
    std::size_t length = 0;
    std::array<char, c_longest> cell;
    Answer answer;
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
  Slot* m_slot = nullptr;
  std::size_t m_length = 0;
};
