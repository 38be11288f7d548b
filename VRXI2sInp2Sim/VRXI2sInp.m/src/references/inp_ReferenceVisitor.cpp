#include "inp_ReferenceVisitor.h"

#include "inp_CellRewriter.h"
#include "inp_PlaceRules.h"

namespace
{

bool IsReal(std::string_view text)
{
  return inp_Types::IsDouble(text) || inp_Types::IsDoubleD(text);
}

} // namespace

void inp_ReferenceVisitor::Visit(inp_Keyword& keyword)
{
  inp_Visitor::Visit(keyword);
  if (inp_ReferencePlace const* const places = inp_FurtherPlaces(keyword.keyword))
  {
    ReplacePlaces(keyword, places);
  }
}

void inp_ReferenceVisitor::ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place)
{
  for (; place->what != inp_noReference; ++place)
  {
    if (Serves(place->what) && inp_PlaceCounts(*place, keyword))
    {
      ReplacePlace(keyword, *place);
    }
  }
}

bool inp_ReferenceVisitor::MayBeName(inp_Item const& item) const
{
  return item.Type() == inp_Types::inp_STRING ||
         (item.Type() == inp_Types::inp_INTEGER && TakesNumbers());
}

bool inp_ReferenceVisitor::MayBeName(char const* cell, bool isText) const
{
  inp_Types::typeEnm const type = inp_RawDataArrayImpl::TypeOfCell(cell);
  if (type == inp_Types::inp_STRING || type == inp_Types::inp_NONE)
  {
    return type == inp_Types::inp_STRING;
  }
  return TakesNumbers() && !isText && !IsReal(cell);
}

void inp_ReferenceVisitor::RewriteFields(inp_Keyword& keyword, Fields const& fields, Fix const& fix)
{
  inp_CellRewriter cells(keyword, NameMark());
  auto const wants = [&](char* cell)
  { return !RewriteInPlace(cell) && MayBeName(cell, fields.isText); };
  auto const fixAt = [&](cow_String const& text)
  {
    m_place = {{}, cells.CurrentRow() + 1, cells.CurrentColumn() + 1};
    return fix(text);
  };
  int const end = std::min(fields.endRow, cells.Rows());
  bool const areRows = fields.firstRow >= 0 && fields.rowStep > 0;
  for (long long next = fields.firstRow; areRows && next < end; next += fields.rowStep)
  {
    int const row = static_cast<int>(next);
    if (cells.Cols(row) >= fields.fewest)
    {
      cells.Row(row, fields.columns, wants, fixAt);
    }
    next += fields.goesOn != nullptr && fields.goesOn(cells, row) ? 1 : 0;
  }
  m_place = {};
}

void inp_ReferenceVisitor::RewriteParameter(inp_Keyword& keyword, cow_String const& name,
                                            Fix const& fix)
{
  inp_Item const* const item = keyword.parameters.ConstFind(name);
  if (item == nullptr || !MayBeName(*item))
  {
    return;
  }
  m_place = {name, 0, 0};
  cow_String const text = item->AsString();
  cow_String const fixed = fix(text);
  m_place = {};
  if (!(fixed == text))
  {
    inp_Item const told(fixed);
    keyword.parameters.Insert(name,
                              told.Type() != inp_Types::inp_NONE ? told : inp_Item::Text(fixed));
  }
}

cow_String inp_ReferenceVisitor::PlaceAtWork() const
{
  if (m_place.field > 0)
  {
    return "field " + cow_String(m_place.field) + " of data line " + cow_String(m_place.line);
  }
  return cow_String(m_place.parameter).ToUpper();
}

void inp_ReferenceVisitor::ReportFault(atr_String message, cow_String const& name)
{
  atr_Origin origin = message.Origin() != nullptr ? *message.Origin() : atr_Origin();
  origin.subject = name;
  message.SetOrigin(origin);
  m_errorList.Append(message);
}
