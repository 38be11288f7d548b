#include "inp_ReferenceVisitor.h"

#include "inp_CellRewriter.h"
#include "inp_KeywordEnm.h"
#include "inp_ReferenceAnswers.h"

#include <utility>

namespace
{

/// Puts a value in place of another for as long as it lives.
template <class T>
class Meanwhile
{
public:
  Meanwhile(T& place, T value) : m_variable(place), m_before(std::exchange(place, value)) {}
  ~Meanwhile() { m_variable = m_before; }
  Meanwhile(Meanwhile const&) = delete;
  Meanwhile& operator=(Meanwhile const&) = delete;

private:
  T& m_variable;
  T m_before;
};

bool ChangesScope(inp_Keyword const& keyword)
{
  switch (keyword.keyword)
  {
  case inp_kwPart:
  case inp_kwEndPart:
  case inp_kwAssembly:
  case inp_kwEndAssembly:
  case inp_kwInstance:
  case inp_kwEndInstance:
  case inp_kwStep:
  case inp_kwEndStep:
  case inp_kwSubstructurePath:
    return true;
  default:
    return false;
  }
}

} // namespace

inp_ReferenceVisitor::inp_ReferenceVisitor() = default;
inp_ReferenceVisitor::~inp_ReferenceVisitor() = default;

void inp_ReferenceVisitor::VisitList(cow_List<inp_Keyword>& list)
{
  Meanwhile const isList(m_isList, true);
  m_sharedRows.clear();
  inp_Visitor::VisitList(list);
  m_sharedRows.clear();
}

// Answers hold for one scope. The keyword that begins one is asked about in it, the one that ends it too.
void inp_ReferenceVisitor::Visit(inp_Keyword& keyword)
{
  bool const changesScope = m_answers != nullptr && ChangesScope(keyword);
  if (changesScope)
  {
    m_answers->Clear();
  }
  Meanwhile const areRowsDone(m_areRowsDone, !HasRowsBehind(keyword));
  inp_Visitor::Visit(keyword);
  if (inp_ReferencePlace const* const places = inp_FurtherPlaces(keyword.keyword))
  {
    ReplacePlaces(keyword, places);
  }
  if (changesScope)
  {
    m_answers->Clear();
  }
}

/// Rows that another keyword of the list has too are rewritten when the walk comes to them first.
bool inp_ReferenceVisitor::HasRowsBehind(inp_Keyword const& keyword)
{
  return !m_isList || !keyword.data.IsShared() ||
         m_sharedRows.emplace(&keyword.data.Impl(), keyword.data).second;
}

void inp_ReferenceVisitor::ReplacePlaces(inp_Keyword& keyword, inp_ReferencePlace const* place)
{
  for (; place->what != inp_noReference; ++place)
  {
    if (Serves(place->what) && inp_PlaceCounts(*place, keyword))
    {
      Meanwhile const atPlace(m_place, place);
      ReplacePlace(keyword, *place);
    }
  }
}

/// What an operation of the family says of fields, within the place that it is called for.
inp_Fields inp_ReferenceVisitor::WithinPlace(inp_Keyword const& keyword, inp_Fields fields) const
{
  if (m_place == nullptr || !m_place->IsData())
  {
    return fields;
  }
  inp_Fields const place = inp_FieldsOf(*m_place, keyword, Model());
  fields.firstRow = std::max(fields.firstRow, place.firstRow);
  fields.endRow = std::min(fields.endRow, place.endRow);
  fields.fewest = std::max(fields.fewest, place.fewest);
  fields.isText = fields.isText || place.isText;
  fields.goesOn = place.goesOn;
  return fields;
}

void inp_ReferenceVisitor::RewriteFields(inp_Keyword& keyword, inp_Fields const& fields,
                                         Fix const& fix)
{
  inp_CellRewriter cells(keyword, NameMark());
  if (m_areRowsDone || cells.Rows() == nullptr)
  {
    return;
  }
  inp_Fields const meant = WithinPlace(keyword, fields);
  m_isKept = AnswersByName() && m_place != nullptr && !m_place->isId && !meant.isText;
  if (m_isKept && m_answers == nullptr)
  {
    m_answers = std::make_unique<inp_ReferenceAnswers>();
  }
  inp_ForEachRow(meant, *cells.Rows(),
                 [&](int row)
                 {
                   cells.Row(row, meant.columns,
                             [&](int column, char* cell)
                             {
                               m_at.row = row;
                               m_at.column = column;
                               return FixCell(cell, meant.isText, fix);
                             });
                 });
  m_at = {};
}

/// The text for the cell, or null when it stays.
cow_String const* inp_ReferenceVisitor::FixCell(char* cell, bool isText, Fix const& fix)
{
  if (RewriteInPlace(cell))
  {
    return nullptr;
  }
  while (*cell == ' ')
  {
    ++cell;
  }
  if (auto const* const known = m_isKept ? m_answers->Find(m_place->what, cell) : nullptr)
  {
    return known->isNew ? &known->text : nullptr;
  }
  if (!inp_MayBeName(cell, TakesNumbers() && !isText))
  {
    return nullptr;
  }
  m_at.cell = cell;
  m_hasFault = false;
  cow_String const text = m_at.Name();
  m_fixed = fix(text);
  bool const isNew = !(m_fixed == text);
  if (m_isKept && !m_hasFault)
  {
    m_answers->Keep(m_place->what, cell, m_fixed, isNew);
  }
  return isNew ? &m_fixed : nullptr;
}

void inp_ReferenceVisitor::RewriteParameter(inp_Keyword& keyword, cow_String const& name,
                                            Fix const& fix)
{
  inp_Item const* const item = keyword.parameters.ConstFind(name);
  if (item == nullptr || !inp_MayBeName(*item, TakesNumbers()))
  {
    return;
  }
  m_at.parameter = name;
  cow_String const text = item->AsString();
  cow_String const fixed = fix(text);
  m_at = {};
  if (!(fixed == text))
  {
    inp_Item const told(fixed);
    keyword.parameters.Insert(name,
                              told.Type() != inp_Types::inp_NONE ? told : inp_Item::Text(fixed));
  }
}

inp_Reference inp_ReferenceVisitor::AtWork(inp_Keyword const& keyword, inp_referenceEnm what) const
{
  inp_Reference reference = m_at;
  reference.what = what != inp_noReference ? what
                   : m_place != nullptr    ? m_place->what
                                           : inp_noReference;
  reference.keyword = &keyword;
  reference.scope = &Scope();
  return reference;
}

cow_String inp_ReferenceVisitor::Fixed(inp_Reference const& reference, cow_String const& name)
{
  try
  {
    return FixupReference(reference, name);
  }
  catch (inp_MemoryException const&)
  {
    throw;
  }
  catch (inp_ElementUndefinedNodesError const&)
  {
    throw;
  }
  catch (nex_AtrException const& fault)
  {
    m_hasFault = true;
    atr_String message = FaultMessage(reference, name, fault.Value());
    atr_Origin origin = message.Origin() != nullptr ? *message.Origin() : atr_Origin();
    origin.subject = name;
    message.SetOrigin(origin);
    m_errorList.Append(message);
  }
  return name;
}

atr_String inp_ReferenceVisitor::FaultMessage(inp_Reference const& reference,
                                              cow_String const& /*name*/,
                                              atr_String const& fault) const
{
  return inp_Utils::MessageInKeyword(*reference.keyword, fault);
}
