#include "inp_DataArray.h"

#include "inp_RawDataArrayImpl.h"
#include "inp_Utils.h"

inp_DataArray::inp_DataArray() : inp_DataArray(new inp_RawDataArrayImpl) {}

inp_DataArray::inp_DataArray(inp_DataArrayImpl* impl) : cow_CountedHld<inp_DataArrayImpl>(impl) {}

void inp_DataArray::Set(inp_DataArrayImpl* impl)
{
  cow_CountedHld<inp_DataArrayImpl>::operator=(impl);
}

cow_String inp_DataArray::AsString(int i, int j, cow_String const& defaultText) const
{
  return i < Rows() && j < Cols(i) ? AsString(i, j)
                                   : inp_Utils::TakeOutSpacesAndUpperOutsideQuoted(defaultText);
}

void inp_DataArray::Append(cow_List<cow_String> const& texts)
{
  cow_String line;
  for (int i = 0; i < texts.Length(); ++i)
  {
    if (i > 0)
    {
      line.Append(",");
    }
    line.Append(texts.ConstGet(i));
  }
  Append(line.CStr());
}

inp_DataArray inp_DataArray::Copy() const { return inp_DataArray(Impl().Copy()); }
