#include "atr_StringBase.h"

#include "VRXBasException.h"
#include "mem_Allocation.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <new>
#include <ostream>
#include <utility>

namespace
{

constexpr std::size_t longestText = 0x7ffffff0;

int CheckedLength(std::size_t length)
{
  if (length > longestText)
    throw std::bad_alloc();
  return static_cast<int>(length);
}

// A set of bytes, as a table of flags.
class ByteSet
{
public:
  explicit ByteSet(std::string_view set) noexcept
  {
    for (char c : set)
      m_has[static_cast<unsigned char>(c)] = true;
  }
  bool Has(char c) const noexcept { return m_has[static_cast<unsigned char>(c)]; }

private:
  bool m_has[256] = {};
};

char ToUpperByte(char c) noexcept
{
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

char ToLowerByte(char c) noexcept
{
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

atr_StringRep* atr_StringRep::Make(int capacity)
{
  std::size_t const size = sizeof(atr_StringRep) + static_cast<std::size_t>(capacity) + 1;
  auto* const rep = new (mem_OperatorNewThrow(size)) atr_StringRep{1, 0, capacity};
  rep->Text()[0] = '\0';
  return rep;
}

void atr_StringRep::Release(atr_StringRep* rep) noexcept
{
  if (--rep->count == 0)
    mem_Free(rep);
}

atr_StringBase::atr_StringBase(std::string_view text) { Assign(text); }

atr_StringBase::atr_StringBase(int value)
{
  char buffer[atr_numberSize];
  int const length = atr_FormatNumber(value, buffer);
  Assign({buffer, static_cast<std::size_t>(length)});
}

atr_StringBase::atr_StringBase(double value)
{
  char buffer[atr_numberSize];
  int const length = atr_FormatNumber(value, buffer);
  Assign({buffer, static_cast<std::size_t>(length)});
}

atr_StringBase& atr_StringBase::operator=(atr_StringBase const& other) noexcept
{
  if (other.m_rep != nullptr)
    ++other.m_rep->count;
  char* const text = other.m_text;
  atr_StringRep* const rep = other.m_rep;
  Drop();
  m_text = text;
  m_rep = rep;
  return *this;
}

atr_StringBase& atr_StringBase::operator=(atr_StringBase&& other) noexcept
{
  std::swap(m_text, other.m_text);
  std::swap(m_rep, other.m_rep);
  return *this;
}

void atr_StringBase::Drop() noexcept
{
  if (m_rep != nullptr)
    atr_StringRep::Release(m_rep);
  m_text = nullptr;
  m_rep = nullptr;
}

void atr_StringBase::MakeEmpty() noexcept { Drop(); }

char* atr_StringBase::MakeRoom(int length)
{
  atr_StringRep* const rep = atr_StringRep::Make(length);
  Drop();
  rep->length = length;
  rep->Text()[length] = '\0';
  m_rep = rep;
  m_text = rep->Text();
  return m_text;
}

void atr_StringBase::Assign(std::string_view text)
{
  int const length = CheckedLength(text.size());
  if (length == 0)
  {
    Drop();
    return;
  }
  // The new block is filled before the old one is freed: the text may lie in the old one.
  atr_StringRep* const rep = atr_StringRep::Make(length);
  std::memcpy(rep->Text(), text.data(), text.size());
  rep->Text()[length] = '\0';
  rep->length = length;
  Drop();
  m_rep = rep;
  m_text = rep->Text();
}

void atr_StringBase::AppendText(std::string_view text)
{
  if (!text.empty())
    Splice(Length(), 0, text);
}

void atr_StringBase::Splice(int start, int count, std::string_view by)
{
  int const oldLength = Length();
  int const newLength = CheckedLength(static_cast<std::size_t>(oldLength - count) + by.size());
  std::size_t const tail = static_cast<std::size_t>(oldLength - start - count);
  bool const atEnd = tail == 0;
  bool const sole = m_rep != nullptr && m_rep->count == 1;
  if (sole && atEnd && newLength <= m_rep->capacity)
  {
    if (!by.empty())
      std::memmove(m_text + start, by.data(), by.size());
  }
  else
  {
    // A text that is appended to gets room to spare, so that building one in pieces takes linear time.
    // Any other text is stored without spare room.
    int capacity = newLength;
    if (sole && atEnd && by.size() > 0)
      capacity += std::min(newLength / 2, static_cast<int>(longestText) - newLength);
    atr_StringRep* const rep = atr_StringRep::Make(capacity);
    char* const to = rep->Text();
    if (start > 0)
      std::memcpy(to, m_text, static_cast<std::size_t>(start));
    if (!by.empty())
      std::memcpy(to + start, by.data(), by.size());
    if (tail > 0)
      std::memcpy(to + start + by.size(), m_text + start + count, tail);
    Drop();
    m_rep = rep;
    m_text = to;
  }
  m_rep->length = newLength;
  m_text[newLength] = '\0';
}

char* atr_StringBase::Own()
{
  if (m_rep != nullptr && m_rep->count > 1)
    Assign(View());
  return m_text;
}

char& atr_StringBase::WritableAt(int index)
{
  VRXBasAssert(index >= 0 && index < Length(), "index >= 0 && index < Length()");
  return Own()[index];
}

int atr_StringBase::Find(std::string_view needle, int from) const noexcept
{
  std::size_t const at = View().find(needle, static_cast<std::size_t>(std::max(from, 0)));
  return at == std::string_view::npos ? Length() : static_cast<int>(at);
}

int atr_StringBase::Find(atr_StringBase const& needle, int from) const noexcept
{
  return Find(needle.View(), from);
}

int atr_StringBase::Find(char const* needle, int from) const noexcept
{
  return Find(atr_ViewOf(needle), from);
}

int atr_StringBase::Find(char needle, int from) const noexcept
{
  return Find(std::string_view(&needle, 1), from);
}

int atr_StringBase::RFind(std::string_view needle, int from) const noexcept
{
  if (from < 0)
    return Length();
  std::size_t const at = View().rfind(needle, static_cast<std::size_t>(from));
  return at == std::string_view::npos ? Length() : static_cast<int>(at);
}

int atr_StringBase::RFind(atr_StringBase const& needle, int from) const noexcept
{
  return RFind(needle.View(), from);
}

int atr_StringBase::RFind(char const* needle, int from) const noexcept
{
  return RFind(atr_ViewOf(needle), from);
}

int atr_StringBase::RFind(char needle, int from) const noexcept
{
  return RFind(std::string_view(&needle, 1), from);
}

int atr_StringBase::Compare(atr_StringBase const& other) const noexcept
{
  return View().compare(other.View());
}

int atr_StringBase::Compare(char const* other) const noexcept
{
  return View().compare(atr_ViewOf(other));
}

void atr_StringBase::RemoveSet(std::string_view set, bool left, bool right, bool inside)
{
  ByteSet const bytes(set);
  std::string_view const text = View();
  std::size_t first = 0;
  std::size_t last = text.size();
  if (left)
    while (first < last && bytes.Has(text[first]))
      ++first;
  if (right)
    while (first < last && bytes.Has(text[last - 1]))
      --last;
  auto const isMember = [&bytes](char c) { return bytes.Has(c); };
  bool const trims = first > 0 || last < text.size();
  if (!inside || std::none_of(text.begin() + first, text.begin() + last, isMember))
  {
    if (trims)
      Assign(text.substr(first, last - first));
    return;
  }
  Assign(text.substr(first, last - first));
  char* const begin = m_text;
  char* const end = std::remove_if(begin, begin + Length(), isMember);
  m_rep->length = static_cast<int>(end - begin);
  *end = '\0';
}

void atr_StringBase::ChangeCase(bool upper)
{
  auto* const change = upper ? ToUpperByte : ToLowerByte;
  std::string_view const text = View();
  auto const first =
    std::find_if(text.begin(), text.end(), [change](char c) { return change(c) != c; });
  if (first == text.end())
    return;
  std::ptrdiff_t const start = first - text.begin();
  char* const own = Own();
  std::transform(own + start, own + Length(), own + start, change);
}

void atr_StringBase::SubstituteText(std::string_view from, std::string_view to, int count)
{
  std::string_view const text = View();
  if (from.empty() || count <= 0)
    return;
  std::size_t found = 0;
  for (std::size_t at = text.find(from);
       at != std::string_view::npos && found < static_cast<std::size_t>(count);
       at = text.find(from, at + from.size()))
    ++found;
  if (found == 0)
    return;
  // The sizes are added up first, so that there is one block and each byte is copied once.
  atr_StringBase result;
  char* out = result.MakeRoom(CheckedLength(text.size() - found * from.size() + found * to.size()));
  std::size_t done = 0;
  for (; found > 0; --found)
  {
    std::size_t const at = text.find(from, done);
    out = std::copy(text.begin() + done, text.begin() + at, out);
    out = std::copy(to.begin(), to.end(), out);
    done = at + from.size();
  }
  std::copy(text.begin() + done, text.end(), out);
  *this = std::move(result);
}

std::ostream& operator<<(std::ostream& stream, atr_StringBase const& text)
{
  return stream << text.View();
}

int atr_FormatNumber(int value, char (&buffer)[atr_numberSize]) noexcept
{
  return static_cast<int>(std::to_chars(buffer, buffer + atr_numberSize, value).ptr - buffer);
}

int atr_FormatNumber(double value, char (&buffer)[atr_numberSize]) noexcept
{
  if (std::isinf(value))
  {
    std::string_view const text = value > 0 ? "1e999" : "-1e999";
    text.copy(buffer, text.size());
    return static_cast<int>(text.size());
  }
  char* end = std::to_chars(buffer, buffer + atr_numberSize - 1, value).ptr;
  std::string_view const text(buffer, static_cast<std::size_t>(end - buffer));
  if (!std::isnan(value) && text.find_first_of(".e") == std::string_view::npos)
    *end++ = '.';
  return static_cast<int>(end - buffer);
}
