#include "inp_ScopedField.h"

#include "inpM_LabelRange.h"
#include "inp_Numbers.h"
#include "inp_Types.h"
#include "inp_Utils.h"

inp_ScopedField::inp_ScopedField(cow_String const& text, cow_String assemblyName)
{
  cow_List<cow_String> pieces = inp_Utils::SplitScopedSet(text);
  last = pieces.Pop();
  if (pieces.Length() == 2)
  {
    cow_String first = pieces.ConstGet(0);
    fits = assemblyName.Length() > 0 && first.ToUpper() == assemblyName.ToUpper();
    pieces.RemoveIndex(0);
  }
  else
  {
    fits = pieces.Length() < 2;
  }
  if (fits && pieces.Length() == 1)
  {
    instanceName = pieces.ConstGet(0);
    fits = instanceName.Length() > 0;
  }
}

bool inp_ScopedField::GetId(int& id) const
{
  if (last.Length() > inpM_longestLabel || !inp_Types::IsInteger(last.View()))
  {
    return false;
  }
  id = inp_TextToInt(last.CStr());
  return true;
}
