#include "inp_NameFixupVisitor.h"

#include "inp_CellRewriter.h"
#include "inp_ParserExceptions.h"
#include "inp_PlaceRules.h"
#include "inp_ReferenceMessages.h"

cow_String inp_NameFixupVisitor::ReplaceData(inp_Keyword& keyword, cow_String const& value)
{
  try
  {
    return FixupName(value);
  }
  catch (inp_MemoryException const&)
  {
    throw;
  }
  catch (nex_AtrException const& fault)
  {
    atr_String message = atr_Say(inp_msgReferenceDataLines, keyword.Name());
    message.Append(fault.Value());
    m_errorList.Append(inp_Utils::PlacedAt(keyword, message));
  }
  return value;
}

void inp_NameFixupVisitor::ReplaceParameter(inp_Keyword& keyword, cow_String const& name)
{
  inp_RewriteParameter(keyword, name,
                       [&](cow_String const& text) { return ReplaceData(keyword, text); });
}

void inp_NameFixupVisitor::ReplaceFields(inp_Keyword& keyword, inp_Columns const& columns,
                                         int firstLine, int lastLine)
{
  auto const wants = [this](char const* cell)
  { return MayChange(cell) && inp_RawDataArrayImpl::TypeOfCell(cell) == inp_Types::inp_STRING; };
  inp_CellRewriter cells(keyword);
  cells.EveryRow(firstLine - 1, lastLine > 0 ? lastLine : cells.Rows(), 1, columns, wants,
                 [&](cow_String const& text) { return ReplaceData(keyword, text); });
}

void inp_NameFixupVisitor::ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place)
{
  for (; place->what != inp_noReference; ++place)
  {
    if (!inp_PlaceCounts(*place, keyword))
    {
      continue;
    }
    if (place->parameter != nullptr)
    {
      ReplaceParameter(keyword, place->parameter);
    }
    else
    {
      ReplaceFields(keyword, place->columns, place->firstLine, place->lastLine);
    }
  }
}
