#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// Eight characters at a time: a keyword may have a million names. A mask has the high bit of each
// character that it means.

using inp_CharacterWord = std::uint64_t;

constexpr std::size_t c_charactersOfWord = sizeof(inp_CharacterWord);

/// The same in each character, 0 to 255.
constexpr inp_CharacterWord inp_Each(int c)
{
  return static_cast<inp_CharacterWord>(c) * 0x0101010101010101;
}

inline inp_CharacterWord inp_LoadWord(char const* from)
{
  inp_CharacterWord word;
  std::memcpy(&word, from, c_charactersOfWord);
  return word;
}

/// The characters that are NUL.
constexpr inp_CharacterWord inp_Zeros(inp_CharacterWord word)
{
  return ~(((word & inp_Each(0x7f)) + inp_Each(0x7f)) | word | inp_Each(0x7f));
}

/// How many characters a mask has.
constexpr int inp_CountOf(inp_CharacterWord mask)
{
  return static_cast<int>(((mask >> 7) * inp_Each(1)) >> 56);
}
