#include "VRXString.h"

namespace
{

// The sequences of more than one byte, by the range of their first two bytes. What the ranges of
// the second byte leave out are overlong forms, surrogates and code points above U+10FFFF.
struct Sequence
{
  unsigned char firstLow, firstHigh;
  unsigned char secondLow, secondHigh;
  int length;
};

constexpr Sequence sequences[] = {
  {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
  {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
  {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

bool IsWithin(unsigned char byte, unsigned char low, unsigned char high)
{
  return byte >= low && byte <= high;
}

// Length of the well-formed sequence at the head of `text`; 0 when there is none.
int SequenceLength(std::string_view text)
{
  auto const byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (byte(0) < 0x80)
    return 1;
  for (Sequence const& sequence : sequences)
  {
    if (!IsWithin(byte(0), sequence.firstLow, sequence.firstHigh))
      continue;
    auto const length = static_cast<std::size_t>(sequence.length);
    if (text.size() < length || !IsWithin(byte(1), sequence.secondLow, sequence.secondHigh))
      return 0;
    for (std::size_t i = 2; i < length; ++i)
      if (!IsWithin(byte(i), 0x80, 0xBF))
        return 0;
    return sequence.length;
  }
  return 0;
}

bool IsWellFormed(std::string_view text)
{
  while (!text.empty())
  {
    int const length = SequenceLength(text);
    if (length == 0)
      return false;
    text.remove_prefix(static_cast<std::size_t>(length));
  }
  return true;
}

} // namespace

VRXString VRXString::BuildFromUTF8(atr_StringBase const& text)
{
  return VRXString(!IsWellFormed(text.View()));
}

VRXString VRXString::BuildFromUTF8(char const* text)
{
  return VRXString(!IsWellFormed(atr_ViewOf(text)));
}
