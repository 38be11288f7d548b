#include "inp_NameRules.h"

#include "inp_CharacterWord.h"
#include "inp_Types.h"
#include "inp_Utils.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace
{

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool IsReal(std::string_view text)
{
  return inp_Types::IsDouble(text) || inp_Types::IsDoubleD(text);
}

/// What stands between blanks in a cell; `end` is where the cell ends.
std::string_view Trimmed(char const* cell, char const* end)
{
  while (IsBlank(*cell))
  {
    ++cell;
  }
  while (end != cell && IsBlank(end[-1]))
  {
    --end;
  }
  return {cell, static_cast<std::size_t>(end - cell)};
}

using Word = inp_CharacterWord;
constexpr std::size_t c_word = c_charactersOfWord;
constexpr Word c_highBits = inp_Each(0x80);

void Store(char* to, Word word) { std::memcpy(to, &word, c_word); }

/// ASCII from '-' on: no blank, quote, comma or line feed.
bool IsPlain(Word word) { return (((word - inp_Each('-')) | word) & c_highBits) == 0; }

// These two take plain characters; a mask has the high bit of each character that it means.

Word Upper(Word word)
{
  Word const small =
    (word + inp_Each(0x80 - 'a')) & ~(word + inp_Each(0x80 - 'z' - 1)) & c_highBits;
  return word ^ (small >> 2);
}

Word WithUnderscores(Word word)
{
  Word const periods = inp_Zeros(word ^ inp_Each('.'));
  return word ^ ((periods >> 7) * ('.' ^ '_'));
}

/// Puts the text, which stands in the cell, at the cell's beginning, as AsString gives it but for
/// what `change` does to each word; blanks follow. False, and nothing is done, for a text that is
/// not plain or longer than a name may be.
template <class Change>
bool MoveToFront(char* cell, std::string_view text, Change change)
{
  constexpr std::size_t longest = 254;
  char shortText[c_word] = {'-', '-', '-', '-', '-', '-', '-', '-'};
  std::size_t const size = text.size();
  bool const isShort = size < c_word;
  if (isShort)
  {
    std::copy(text.begin(), text.end(), shortText);
  }
  // The last word may overlap the one before it, and is read before anything is written.
  std::size_t const lastAt = isShort ? 0 : size - c_word;
  Word const last = inp_LoadWord(isShort ? shortText : text.data() + lastAt);
  bool isPlain = IsPlain(last) && size <= longest;
  for (std::size_t at = 0; isPlain && at < lastAt; at += c_word)
  {
    isPlain = IsPlain(inp_LoadWord(text.data() + at));
  }
  if (!isPlain)
  {
    return false;
  }
  for (std::size_t at = 0; at < lastAt; at += c_word)
  {
    Store(cell + at, change(Upper(inp_LoadWord(text.data() + at))));
  }
  Store(isShort ? shortText : cell + lastAt, change(Upper(last)));
  if (isShort)
  {
    std::copy(shortText, shortText + size, cell);
  }
  std::fill(cell + size, cell + size + (text.data() - cell), ' ');
  return true;
}

} // namespace

cow_String inp_WithoutPeriods(cow_String const& name)
{
  return IsReal(name.View()) ? name : inp_Utils::ReplaceUnquotedPeriodWithUnderscore(name);
}

bool inp_RemovePeriodsInPlace(char* cell)
{
  std::size_t const length = std::strlen(cell);
  if (std::memchr(cell, '.', length) == nullptr)
  {
    return true;
  }
  std::string_view const text = Trimmed(cell, cell + length);
  bool const mayBeNumber = text[0] <= '9';
  return mayBeNumber ? IsReal(text) : MoveToFront(cell, text, WithUnderscores);
}

cow_String inp_WithoutAssembly(cow_String const& name, cow_String const& assembly)
{
  std::string_view const text = name.View();
  std::size_t const period = text.find('.');
  bool const isScoped = period != text.npos && text.substr(0, period) == assembly.View();
  return isScoped ? name.Substr(static_cast<int>(period) + 1) : name;
}

// Most cells differ at once. What stands in quotes is compared as a text.
bool inp_RemoveAssemblyInPlace(char* cell, cow_String const& assembly)
{
  std::string_view const wanted = assembly.View();
  std::size_t matched = 0;
  char const* at = cell;
  for (; *at != '.'; ++at)
  {
    if (*at == '"')
    {
      return false;
    }
    if (!IsBlank(*at) && (matched == wanted.size() || Upper(*at) != wanted[matched++]))
    {
      return true;
    }
  }
  return matched < wanted.size() ||
         MoveToFront(cell, Trimmed(at + 1, at + std::strlen(at)), [](Word word) { return word; });
}
