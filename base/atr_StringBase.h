#pragma once

#include "omn_FixedString.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string_view>

/// The shared part of a text: one block that holds this header and the bytes with a closing NUL.
///
/// The count is a plain integer: a text and all its copies belong to one thread at a time.
struct atr_StringRep
{
  int count;
  int length;
  int capacity; // bytes that fit, the closing NUL not counted

  char* Text() noexcept { return reinterpret_cast<char*>(this + 1); }

  /// A block with count 1, length 0 and room for `capacity` bytes; raises std::bad_alloc.
  static atr_StringRep* Make(int capacity);
  static void Release(atr_StringRep* rep) noexcept;
};

/// Shared text: what cow_String and atr_String have in common.
///
///     text ──────────────┐
///     rep ──► │ count length capacity │ bytes ... NUL │
///
/// A text is any run of bytes, NUL included, of at most 2^31 - 16 of them. A copy is constant time
/// and allocates nothing; the first write of a holder that shares the block gives it a block of its
/// own. A default-made text has neither pointer and reads as the empty text. Positions and counts
/// are bytes; no operation decodes a multi-byte sequence, and case changes touch ASCII letters only.
class atr_StringBase
{
public:
  /// A count that means "all that is left".
  static constexpr int All = 0x7fffffff;

  int Length() const noexcept { return m_rep != nullptr ? m_rep->length : 0; }
  bool Empty() const noexcept { return Length() == 0; }
  /// Closed by a NUL, never null; good until the next write to this text.
  char const* CStr() const noexcept { return m_text != nullptr ? m_text : ""; }
  std::string_view View() const noexcept { return {CStr(), static_cast<std::size_t>(Length())}; }

  /// The byte at an index, or NUL for an index outside the text.
  char operator[](int index) const noexcept { return ReadAt(index); }

  /// Index of the first match at or after `from` (below 0 counts as 0); Length() when absent.
  int Find(std::string_view needle, int from = 0) const noexcept;
  int Find(atr_StringBase const& needle, int from = 0) const noexcept;
  int Find(char const* needle, int from = 0) const noexcept;
  int Find(char needle, int from = 0) const noexcept;

  /// Index of the last match that begins at or before `from`; Length() when absent.
  int RFind(std::string_view needle, int from = All) const noexcept;
  int RFind(atr_StringBase const& needle, int from = All) const noexcept;
  int RFind(char const* needle, int from = All) const noexcept;
  int RFind(char needle, int from = All) const noexcept;

  /// Byte-wise order: below, equal to or above 0.
  int Compare(atr_StringBase const& other) const noexcept;
  int Compare(char const* other) const noexcept;
  int Compare(omn_FixedString other) const noexcept { return Compare(other.CStr()); }

  friend bool operator==(atr_StringBase const& a, atr_StringBase const& b) noexcept
  {
    return a.m_text == b.m_text || a.View() == b.View();
  }
  friend bool operator==(atr_StringBase const& a, char const* b) noexcept
  {
    return a.Compare(b) == 0;
  }
  friend bool operator==(atr_StringBase const& a, omn_FixedString b) noexcept
  {
    return a.Compare(b) == 0;
  }
  friend std::strong_ordering operator<=>(atr_StringBase const& a, atr_StringBase const& b) noexcept
  {
    return a.Compare(b) <=> 0;
  }
  friend std::strong_ordering operator<=>(atr_StringBase const& a, char const* b) noexcept
  {
    return a.Compare(b) <=> 0;
  }

protected:
  atr_StringBase() noexcept = default;
  explicit atr_StringBase(std::string_view text);
  explicit atr_StringBase(int value);
  explicit atr_StringBase(double value);
  atr_StringBase(atr_StringBase const& other) noexcept : m_text(other.m_text), m_rep(other.m_rep)
  {
    if (m_rep != nullptr)
      ++m_rep->count;
  }
  atr_StringBase(atr_StringBase&& other) noexcept : m_text(other.m_text), m_rep(other.m_rep)
  {
    other.m_text = nullptr;
    other.m_rep = nullptr;
  }
  atr_StringBase& operator=(atr_StringBase const& other) noexcept;
  atr_StringBase& operator=(atr_StringBase&& other) noexcept;
  ~atr_StringBase() { Drop(); }

  char ReadAt(int index) const noexcept
  {
    return index >= 0 && index < Length() ? m_text[index] : '\0';
  }
  /// A text of its own of `length` bytes for the caller to fill.
  char* MakeRoom(int length);
  void Assign(std::string_view text);
  void AppendText(std::string_view text);
  /// Replaces `count` bytes from `start` on; both must lie within the text.
  void Splice(int start, int count, std::string_view by);
  void MakeEmpty() noexcept;
  /// The writable bytes, no longer shared; null for a text without a block.
  char* Own();
  /// A writable byte, no longer shared; an index outside the text is a broken invariant.
  char& WritableAt(int index);
  void RemoveSet(std::string_view set, bool left, bool right, bool inside);
  void ChangeCase(bool upper);
  void SubstituteText(std::string_view from, std::string_view to, int count);

private:
  void Drop() noexcept;

  char* m_text = nullptr;
  atr_StringRep* m_rep = nullptr;
};

std::ostream& operator<<(std::ostream& stream, atr_StringBase const& text);

/// Bytes enough for any number that atr_FormatNumber writes.
inline constexpr int atr_numberSize = 40;

/// Writes a number as text without a closing NUL and returns the text's length.
///
/// A real is the shortest text that reads back as the same value, and never looks like an integer:
/// 1500 is "1500.". Infinity is "1e999".
int atr_FormatNumber(int value, char (&buffer)[atr_numberSize]) noexcept;
int atr_FormatNumber(double value, char (&buffer)[atr_numberSize]) noexcept;

/// A view of a C string; null reads as empty.
inline std::string_view atr_ViewOf(char const* text) noexcept
{
  return text != nullptr ? std::string_view(text) : std::string_view();
}
