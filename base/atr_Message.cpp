#include "atr_Message.h"

atr_translate::atr_translate(char const* format, VRXBasStringMode)
  : m_format(format != nullptr ? format : "")
{
}

void atr_translate::Set(int index, cow_String const& value)
{
  if (index < 1)
    return;
  auto const wanted = static_cast<std::size_t>(index);
  if (m_arguments.size() < wanted)
    m_arguments.resize(wanted);
  m_arguments[wanted - 1] = {true, value};
}

void atr_translate::Set(int index, atr_String const& value)
{
  m_originHolder.TakeOriginOf(value);
  Set(index, cow_String(value));
}

atr_translate::Argument const* atr_translate::Find(int index) const noexcept
{
  auto const at = static_cast<std::size_t>(index - 1);
  return at < m_arguments.size() && m_arguments[at].isSet ? &m_arguments[at] : nullptr;
}

atr_String atr_translate::Result(VRXBasStringMode) const
{
  std::string_view const format(m_format);
  cow_String text;
  std::size_t done = 0;
  int unnumbered = 0;
  for (atr_Placeholder placeholder = atr_NextPlaceholder(format, 0); placeholder.length > 0;
       placeholder = atr_NextPlaceholder(format, placeholder.start + placeholder.length))
  {
    if (!placeholder.name.empty())
      continue;
    Argument const* const argument =
      Find(placeholder.isNumbered ? placeholder.number : ++unnumbered);
    if (argument == nullptr)
      continue;
    text.Append(format.substr(done, placeholder.start - done));
    text.Append(argument->text.View());
    done = placeholder.start + placeholder.length;
  }
  text.Append(format.substr(done));
  atr_String message(text);
  message.TakeOriginOf(m_originHolder);
  return message;
}

void atr_SubstituteFormat(atr_translate& translator, int index, int value, VRXBasStringMode)
{
  translator.Set(index, cow_String(value));
}

void atr_SubstituteFormat(atr_translate& translator, int index, char const* value, VRXBasStringMode)
{
  translator.Set(index, cow_String(value));
}

void atr_SubstituteFormat(atr_translate& translator, int index, atr_StringBase const& value,
                          VRXBasStringMode)
{
  translator.Set(index, cow_String(value));
}

void atr_SubstituteFormat(atr_translate& translator, int index, atr_String const& value,
                          VRXBasStringMode)
{
  translator.Set(index, value);
}

atr_String atr_raw(char const* text, VRXBasStringMode) { return atr_String(text); }
