#include "inp_Label.h"

#include "inp_Numbers.h"
#include "inp_Types.h"
#include "inp_Utils.h"

namespace
{

cow_String Unquoted(cow_String const& text)
{
  int const length = text.Length();
  return length >= 3 && text[0] == '"' && text[length - 1] == '"' ? text.Substr(1, length - 2)
                                                                  : text;
}

} // namespace

bool inp_Label::IsScoped() const
{
  Evaluate();
  return m_scoped;
}

bool inp_Label::IsId() const
{
  Evaluate();
  return m_isId;
}

int inp_Label::GetId() const
{
  Evaluate();
  return m_id;
}

cow_String const& inp_Label::GetAssemblyName() const
{
  Evaluate();
  return m_assemblyName;
}

cow_String const& inp_Label::GetInstanceName() const
{
  Evaluate();
  return m_instanceName;
}

cow_String const& inp_Label::GetSetName() const
{
  Evaluate();
  return m_setName;
}

void inp_Label::Evaluate() const
{
  if (m_evaluated)
  {
    return;
  }
  m_evaluated = true;
  cow_List<cow_String> const pieces = inp_Utils::SplitScopedSet(m_label);
  int const last = pieces.Length() - 1;
  if (last == 0)
  {
    m_isId = inp_Types::IsInteger(m_label.View());
    if (!m_isId)
    {
      m_setName = Unquoted(m_label);
    }
    return;
  }
  m_scoped = true;
  m_isId = inp_Types::IsInteger(pieces.ConstGet(last).View());
  m_id = m_isId ? inp_TextToInt(pieces.ConstGet(last).CStr()) : 0;
  m_setName = Unquoted(pieces.ConstGet(last));
  m_instanceName = Unquoted(pieces.ConstGet(last - 1));
  if (last >= 2)
  {
    m_assemblyName = Unquoted(pieces.ConstGet(last - 2));
  }
}
