#include "atr_String.h"

#include "VRXString.h"
#include "atr_Message.h"
#include "mem_Allocation.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

// What a message holds beside its text; made only for messages that need it.
struct atr_StringDetail : mem_AllocationOperators
{
  // An unfilled placeholder of the text, with its name or else its number.
  struct Placeholder
  {
    int start;
    int length;
    int number;
    cow_String name;
  };

  int count = 1;
  bool hasOrigin = false;
  bool isParsed = false;
  atr_Origin origin;
  std::vector<Placeholder> placeholders;

  void Shift(int from, int by)
  {
    for (Placeholder& placeholder : placeholders)
      if (placeholder.start >= from)
        placeholder.start += by;
  }

  // Placeholders are found once, in the text as it was before the first of them was filled.
  void Parse(std::string_view text)
  {
    if (isParsed)
      return;
    isParsed = true;
    int unnumbered = 0;
    for (atr_Placeholder placeholder = atr_NextPlaceholder(text, 0); placeholder.length > 0;
         placeholder = atr_NextPlaceholder(text, placeholder.start + placeholder.length))
    {
      int const number =
        placeholder.isNumbered || !placeholder.name.empty() ? placeholder.number : ++unnumbered;
      placeholders.push_back({static_cast<int>(placeholder.start),
                              static_cast<int>(placeholder.length), number,
                              cow_String(placeholder.name)});
    }
  }
};

atr_String::atr_String(char const* text, int length) : atr_StringBase(cow_String(text, length)) {}

atr_String::atr_String(atr_String const& other) noexcept
  : atr_StringBase(other), m_detail(other.m_detail)
{
  if (m_detail != nullptr)
    ++m_detail->count;
}

atr_String::atr_String(atr_String&& other) noexcept
  : atr_StringBase(std::move(other)), m_detail(std::exchange(other.m_detail, nullptr))
{
}

atr_String& atr_String::operator=(atr_String const& other) noexcept
{
  atr_String copy(other);
  return *this = std::move(copy);
}

atr_String& atr_String::operator=(atr_String&& other) noexcept
{
  atr_StringBase::operator=(std::move(other));
  std::swap(m_detail, other.m_detail);
  return *this;
}

atr_String::~atr_String() { DropDetail(); }

void atr_String::DropDetail() noexcept
{
  if (m_detail != nullptr && --m_detail->count == 0)
    delete m_detail;
  m_detail = nullptr;
}

atr_StringDetail& atr_String::OwnDetail()
{
  if (m_detail == nullptr)
  {
    m_detail = new atr_StringDetail;
  }
  else if (m_detail->count > 1)
  {
    auto* const own = new atr_StringDetail(*m_detail);
    own->count = 1;
    DropDetail();
    m_detail = own;
  }
  return *m_detail;
}

atr_Origin const* atr_String::Origin() const noexcept
{
  return m_detail != nullptr && m_detail->hasOrigin ? &m_detail->origin : nullptr;
}

void atr_String::SetOrigin(atr_Origin const& origin)
{
  // Copied first, since the argument may be this message's own origin.
  atr_Origin const kept = origin;
  atr_StringDetail& detail = OwnDetail();
  detail.origin = kept;
  detail.hasOrigin = true;
}

void atr_String::TakeOriginOf(atr_String const& other)
{
  if (Origin() == nullptr && other.Origin() != nullptr)
    SetOrigin(*other.Origin());
}

atr_String& atr_String::Append(atr_String const& text)
{
  TakeOriginOf(text);
  AppendText(text.View());
  return *this;
}

atr_String& atr_String::Append(atr_StringBase const& text)
{
  AppendText(text.View());
  return *this;
}

atr_String& atr_String::Append(char const* text)
{
  AppendText(atr_ViewOf(text));
  return *this;
}

atr_String& atr_String::AppendNewLine()
{
  AppendText("\n");
  return *this;
}

void atr_String::InsertText(int index, std::string_view text)
{
  int const at = std::clamp(index, 0, Length());
  if (m_detail != nullptr && !m_detail->placeholders.empty())
    OwnDetail().Shift(at, static_cast<int>(text.size()));
  Splice(at, 0, text);
}

atr_String& atr_String::Insert(int index, atr_String const& text)
{
  TakeOriginOf(text);
  cow_String const kept(text);
  InsertText(index, kept.View());
  return *this;
}

atr_String& atr_String::Insert(int index, atr_StringBase const& text)
{
  cow_String const kept(text);
  InsertText(index, kept.View());
  return *this;
}

atr_String& atr_String::Insert(int index, char const* text)
{
  InsertText(index, atr_ViewOf(text));
  return *this;
}

atr_String& atr_String::LocaleToUTF8()
{
  if (!VRXString::BuildFromUTF8(*this).IsBAD())
    return *this;
  std::string utf8;
  for (char const c : View())
  {
    unsigned const code = static_cast<unsigned char>(c);
    if (code < 0x80)
    {
      utf8 += c;
    }
    else
    {
      utf8 += static_cast<char>(0xC0 | (code >> 6));
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  Assign(utf8);
  if (m_detail != nullptr && m_detail->isParsed)
  {
    // The placeholders have moved: they are looked for again.
    atr_StringDetail& detail = OwnDetail();
    detail.placeholders.clear();
    detail.isParsed = false;
  }
  return *this;
}

template <class IsMeant>
void atr_String::FillPlaceholders(IsMeant const& isMeant, std::string_view value)
{
  atr_StringDetail& detail = OwnDetail();
  detail.Parse(View());
  std::vector<atr_StringDetail::Placeholder> const placeholders =
    std::exchange(detail.placeholders, {});
  int grown = 0;
  for (atr_StringDetail::Placeholder placeholder : placeholders)
  {
    placeholder.start += grown;
    if (isMeant(placeholder))
    {
      Splice(placeholder.start, placeholder.length, value);
      grown += static_cast<int>(value.size()) - placeholder.length;
    }
    else
    {
      detail.placeholders.push_back(std::move(placeholder));
    }
  }
}

atr_String& atr_String::ReplaceNonTranslated(int index, int value)
{
  return ReplaceNonTranslated(index, cow_String(value));
}

atr_String& atr_String::ReplaceNonTranslated(int index, char const* value)
{
  return ReplaceNonTranslated(index, cow_String(value));
}

atr_String& atr_String::ReplaceNonTranslated(int index, atr_StringBase const& value)
{
  cow_String const kept(value);
  FillPlaceholders([index](auto const& placeholder)
                   { return placeholder.name.Empty() && placeholder.number == index; },
                   kept.View());
  return *this;
}

atr_String& atr_String::ReplaceNonTranslated(char const* name, atr_StringBase const& value)
{
  cow_String const kept(value);
  cow_String const wanted(name);
  FillPlaceholders([&wanted](auto const& placeholder)
                   { return !placeholder.name.Empty() && placeholder.name == wanted; },
                   kept.View());
  return *this;
}

atr_String operator+(atr_String a, atr_StringBase const& b)
{
  a.Append(b);
  return a;
}

atr_String operator+(atr_String a, atr_String const& b)
{
  a.Append(b);
  return a;
}

atr_String operator+(atr_String a, char const* b)
{
  a.Append(b);
  return a;
}

atr_String operator+(char const* a, atr_String const& b)
{
  atr_String result(a);
  result.Append(b);
  return result;
}
