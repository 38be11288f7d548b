#include "inp_Keyword.h"

#include "aio_ostream.h"
#include "eli_eostream.h"
#include "inp_KeywordEnm.h"
#include "inp_KeywordTable.h"
#include "inp_RawDataArrayImpl.h"
#include "inp_Visitor.h"

namespace
{

constexpr int c_lineBudget = 256;
constexpr int c_streamWidth = 1024;

/// What tells the parameter lines of the two printed forms apart.
struct ParameterForm
{
  char const* wrap;  ///< between parameters, where the line is broken
  char const* joint; ///< between name and value
  int charge;        ///< characters that a parameter counts for beside its name and value
  int chargeAfterWrap;
};

constexpr ParameterForm c_textForm = {", \n", " = ", 3, 1};
constexpr ParameterForm c_deckForm = {",\n", "=", 5, 3};

bool HasPrintedValue(inp_Item const& item)
{
  return item.Type() != inp_Types::inp_BOOLEAN && item.Type() != inp_Types::inp_NONE;
}

/// "*name" and the parameters in map order, broken where the running length reaches the budget.
cow_String KeywordLine(inp_Keyword const& keyword, ParameterForm const& form)
{
  cow_String line = cow_String("*").Append(keyword.Name());
  int length = keyword.Name().Length() + 1;
  cow_ConstMapIterator<cow_String, inp_Item> parameter(keyword.parameters);
  for (parameter.First(); !parameter.IsDone(); parameter.Next())
  {
    cow_String const& name = parameter.CurrentKey();
    cow_String const value = parameter.CurrentValue().AsString();
    int const size = name.Length() + value.Length();
    length += size + form.charge;
    if (length >= c_lineBudget)
    {
      length = size + form.chargeAfterWrap;
      line.Append(form.wrap);
    }
    else
    {
      line.Append(", ");
    }
    line.Append(name);
    if (HasPrintedValue(parameter.CurrentValue()))
    {
      line.Append(form.joint).Append(value);
    }
  }
  return line.Append("\n");
}

/// Keywords whose cells may be names with blanks, which must come back quoted.
bool QuotesCells(inp_KeywordEnm keyword)
{
  switch (keyword)
  {
  case inp_kwNset:
  case inp_kwElset:
  case inp_kwImport:
  case inp_kwImportElset:
  case inp_kwImportNset:
    return true;
  default:
    return false;
  }
}

/// Rows of numbers keep a blank cell as 0. It is printed blank: a 0 would be read as a wrong label.
cow_String CellText(inp_DataArray const& data, int row, int column)
{
  cow_String const text = data.AsString(row, column);
  return text == "0" && data.IsNone(row, column) ? cow_String() : text;
}

/// Node rows that are numbers keep a blank line as label 0. It is printed blank, for the same reason.
bool IsBlankNode(inp_Keyword const& keyword, int row)
{
  return keyword.Is(inp_kwNode) &&
         dynamic_cast<inp_RawDataArrayImpl const*>(&keyword.data.Impl()) == nullptr &&
         keyword.data.AsInt(row, 0) == 0;
}

int PrintedCols(inp_Keyword const& keyword, int row)
{
  return IsBlankNode(keyword, row) ? 0 : keyword.data.Cols(row);
}

cow_String DeckCell(inp_DataArray const& data, int row, int column, bool quotesCells)
{
  if (quotesCells)
  {
    cow_String const text = data.AsStringVerbatim(row, column);
    if (text.Length() > 0 && text.CStr()[0] != '"' && text.Find(" ") < text.Length())
    {
      return "\"" + text + "\"";
    }
  }
  return CellText(data, row, column);
}

} // namespace

inp_Keyword::inp_Keyword(cow_String const& name)
  : keyword(thr_ThreadSingleton<inp_KeywordTable>::Instance().Enum(name))
{
}

void inp_Keyword::Accept(inp_Visitor& visitor) { visitor.Visit(*this); }

cow_String const& inp_Keyword::Name() const
{
  return thr_ThreadSingleton<inp_KeywordTable>::Instance().Name(keyword);
}

int inp_Keyword::GetParameterAsInt(cow_String const& name, int defaultValue) const
{
  inp_Item const* const item = parameters.ConstFind(name);
  return item != nullptr && item->Type() == inp_Types::inp_INTEGER ? item->AsInt() : defaultValue;
}

double inp_Keyword::GetParameterAsDouble(cow_String const& name, double defaultValue) const
{
  inp_Item const* const item = parameters.ConstFind(name);
  bool const isNumber = item != nullptr && (item->Type() == inp_Types::inp_INTEGER ||
                                            item->Type() == inp_Types::inp_REAL);
  return isNumber ? item->AsDouble() : defaultValue;
}

cow_String inp_Keyword::GetParameterAsString(cow_String const& name,
                                             cow_String const& defaultValue) const
{
  inp_Item const* const item = parameters.ConstFind(name);
  return item != nullptr && item->Type() == inp_Types::inp_STRING ? item->AsString() : defaultValue;
}

inp_NameParameter inp_Keyword::ReadName(cow_String const& parameter) const
{
  inp_NameParameter name;
  inp_Item const* const item = parameters.ConstFind(parameter);
  if (item == nullptr)
  {
    return name;
  }
  if (item->HasNoValue())
  {
    bool const isSwitch = item->Type() == inp_Types::inp_BOOLEAN;
    name.state = isSwitch ? inp_NameParameter::c_switch : inp_NameParameter::c_notName;
    return name;
  }
  name.text = item->AsString();
  name.state = name.text.Empty() ? inp_NameParameter::c_empty : inp_NameParameter::c_given;
  return name;
}

bool inp_Keyword::hasSuboption(inp_KeywordEnm const& other) const
{
  for (inp_Keyword const& suboption : suboptions)
  {
    if (suboption.Is(other))
    {
      return true;
    }
  }
  return false;
}

inp_Keyword inp_Keyword::DeepCopy() const
{
  inp_Keyword copy(keyword, fileName);
  copy.reserved = reserved;
  copy.parameters = parameters;
  copy.lineNumber = lineNumber;
  copy.encrypted = encrypted;
  copy.data = data.Copy();
  for (inp_Keyword const& suboption : suboptions)
  {
    copy.suboptions.Append(suboption.DeepCopy());
  }
  return copy;
}

cow_String inp_Keyword::Print(bool withSuboptions) const
{
  cow_String text = KeywordLine(*this, c_textForm);
  for (int row = 0; row < data.Rows(); ++row)
  {
    int const columns = PrintedCols(*this, row);
    for (int column = 0; column < columns; ++column)
    {
      text.Append(column > 0 ? ", " : "").Append(CellText(data, row, column));
    }
    text.Append("\n");
  }
  if (withSuboptions)
  {
    for (inp_Keyword const& suboption : suboptions)
    {
      text.Append(suboption.Print(true));
    }
  }
  return text;
}

void inp_Keyword::Print(aio_ostream& stream, bool withSuboptions) const
{
  eli_eostream lines(stream, c_streamWidth);
  Print(lines, withSuboptions);
}

void inp_Keyword::Print(eli_eostream& stream, bool withSuboptions) const
{
  stream << KeywordLine(*this, c_deckForm);
  bool const quotesCells = QuotesCells(keyword);
  for (int row = 0; row < data.Rows(); ++row)
  {
    int const columns = PrintedCols(*this, row);
    for (int column = 0; column < columns; ++column)
    {
      stream << (column > 0 ? ", " : "") << DeckCell(data, row, column, quotesCells);
    }
    stream << '\n';
  }
  if (withSuboptions)
  {
    for (inp_Keyword const& suboption : suboptions)
    {
      suboption.Print(stream, true);
    }
  }
}
