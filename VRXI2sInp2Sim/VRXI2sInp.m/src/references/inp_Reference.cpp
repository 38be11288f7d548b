#include "inp_Reference.h"

#include "inp_Keyword.h"
#include "inp_RawDataArrayImpl.h"

cow_String inp_Reference::Name() const
{
  return IsField() ? inp_RawDataArrayImpl::TextOfCell(cell)
                   : keyword->GetParameterAsString(parameter, "");
}

cow_String inp_Reference::PlaceWords() const
{
  if (IsField())
  {
    return "field " + cow_String(column + 1) + " of data line " + cow_String(row + 1);
  }
  return cow_String(parameter).ToUpper();
}
