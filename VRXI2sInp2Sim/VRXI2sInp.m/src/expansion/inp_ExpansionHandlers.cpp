// Handlers that do more than their keyword's row says. Those of files and of parts, instances and steps have
// sources of their own.

#include "inp_ElementDataArrayImpl.h"
#include "inp_ExpansionMessages.h"
#include "inp_KeywordExpansionVisitor.h"
#include "inp_NodeDataArrayImpl.h"
#include "inp_ParserExceptions.h"

#include <memory>

namespace
{

constexpr int c_itemsOfSetRow = 16;
constexpr int c_itemsOfTimePointsRow = 8;
constexpr int c_mostBackstresses = 10;

bool IsWord(inp_Keyword const& keyword, cow_String const& parameter, char const* word)
{
  return keyword.GetParameterAsString(parameter, cow_String()) == word;
}

} // namespace

// ---- keywords that are useless without a name or a file ----

void inp_KeywordExpansionVisitor::VisitNset(inp_Keyword& keyword)
{
  Expand(keyword);
  if (!MeetsRequirements(keyword))
  {
    keyword = inp_Keyword();
    return;
  }
  TruncateEachDataLineBeyondItemN(keyword, c_itemsOfSetRow);
}

void inp_KeywordExpansionVisitor::VisitElset(inp_Keyword& keyword)
{
  Expand(keyword);
  if (!MeetsRequirements(keyword))
  {
    keyword = inp_Keyword();
    return;
  }
  TruncateEachDataLineBeyondItemN(keyword, c_itemsOfSetRow);
}

void inp_KeywordExpansionVisitor::VisitInclude(inp_Keyword& keyword)
{
  Expand(keyword);
  if (!MeetsRequirements(keyword))
  {
    keyword = inp_Keyword();
  }
}

// ---- more about parameters and rows ----

void inp_KeywordExpansionVisitor::VisitImport(inp_Keyword& keyword)
{
  Expand(keyword);
  MeetsRequirements(keyword);
  if (keyword.HasParameter("hourglass"))
  {
    Say(inp_msgImportHourglass, keyword);
  }
}

void inp_KeywordExpansionVisitor::VisitTimePoints(inp_Keyword& keyword)
{
  Expand(keyword);
  ProcessInputParameter(keyword);
  TruncateEachDataLineBeyondItemN(keyword, c_itemsOfTimePointsRow);
}

// ---- mesh rows ----

/// Turns the rows into numbers. A fault in them is raised with the keyword's file and line.
void inp_KeywordExpansionVisitor::VisitNode(inp_Keyword& keyword)
{
  Expand(keyword);
  ProcessInputParameter(keyword);
  auto rows = std::make_unique<inp_NodeDataArrayImpl>();
  try
  {
    rows->SetRaw(keyword.data);
  }
  catch (nex_AtrException const& fault)
  {
    if (bulkConversion)
    {
      atr_String message = fault.UserReport();
      atr_Origin origin = message.Origin() != nullptr ? *message.Origin() : atr_Origin();
      origin.file = keyword.fileName;
      origin.line = keyword.lineNumber;
      origin.keyword = keyword.Name();
      message.SetOrigin(origin);
      throw nex_AtrException(message);
    }
    return;
  }
  keyword.data = inp_DataArray(rows.release());
}

void inp_KeywordExpansionVisitor::VisitElement(inp_Keyword& keyword)
{
  Expand(keyword);
  ProcessInputParameter(keyword);
  if (keyword.HasParameter("file"))
  {
    elementFileParameter = true;
  }
  if (m_partName.Length() > 0 || m_instanceName.Length() > 0)
  {
    // Rows with a fault that numbers would hide stay text, so that the reader of elements can report it.
    auto rows = std::make_unique<inp_ElementDataArrayImpl>(keyword.data);
    if (rows->IsExact())
    {
      keyword.data = inp_DataArray(rows.release());
    }
  }
}

void inp_KeywordExpansionVisitor::VisitNmap(inp_Keyword& keyword)
{
  Expand(keyword);
  MeetsRequirements(keyword);
  if (IsWord(keyword, "type", "BLENDED"))
  {
    nmapBlended = true;
  }
}

// ---- what an assembly of parts does not take ----

void inp_KeywordExpansionVisitor::VisitElastic(inp_Keyword& keyword)
{
  Expand(keyword);
  if (IsWord(keyword, "type", "SHORTFIBER"))
  {
    Refuse(inp_msgRefusedShortFiber, keyword);
  }
}

void inp_KeywordExpansionVisitor::VisitExpansion(inp_Keyword& keyword)
{
  Expand(keyword);
  if (IsWord(keyword, "type", "SHORTFIBER"))
  {
    Refuse(inp_msgRefusedShortFiber, keyword);
  }
}

void inp_KeywordExpansionVisitor::VisitInitialConditions(inp_Keyword& keyword)
{
  Expand(keyword);
  ProcessInputParameter(keyword);
  if (keyword.HasParameter("file"))
  {
    Refuse(inp_msgRefusedInitialConditions, keyword,
           keyword.GetParameterAsString("type", cow_String()));
  }
  if (keyword.HasParameter("numberbackstresses"))
  {
    CheckBackstresses(keyword);
    if (!IsWord(keyword, "type", "HARDENING"))
    {
      Say(inp_msgBackstressesNeedHardening, keyword);
    }
  }
}

// ---- tests of values ----

void inp_KeywordExpansionVisitor::CheckBackstresses(inp_Keyword const& keyword)
{
  inp_Item const* const item = keyword.parameters.ConstFind("numberbackstresses");
  if (item == nullptr)
  {
    return;
  }
  int const number = keyword.GetParameterAsInt("numberbackstresses", 0);
  if (number <= 0 || number > c_mostBackstresses)
  {
    Say(inp_msgBackstressesOutOfRange, keyword, item->AsString());
  }
}

void inp_KeywordExpansionVisitor::VisitPlastic(inp_Keyword& keyword)
{
  Expand(keyword);
  CheckBackstresses(keyword);
  if (IsWord(keyword, "hardening", "USER") && keyword.GetParameterAsDouble("properties", 0.) > 0.)
  {
    checkRequiredDataline(keyword);
  }
}

/// A name that is a text begins with a letter, or stands in quotes.
template <int Placeholders>
void inp_KeywordExpansionVisitor::CheckBeginsWithLetter(inp_Keyword const& keyword,
                                                        atr_MessageRow<Placeholders> const& row)
{
  inp_Item const* const item = keyword.parameters.ConstFind("name");
  if (item == nullptr || item->Type() != inp_Types::inp_STRING || IsReference(item->AsString()))
  {
    return;
  }
  char const first = item->AsString().CStr()[0];
  bool const isLetter = (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z');
  if (first != '"' && !isLetter)
  {
    Say(row, keyword);
  }
}

void inp_KeywordExpansionVisitor::VisitMaterial(inp_Keyword& keyword)
{
  Expand(keyword);
  MeetsRequirements(keyword);
  CheckBeginsWithLetter(keyword, inp_msgMaterialNameInvalid);
}

void inp_KeywordExpansionVisitor::VisitBoundary(inp_Keyword& keyword)
{
  Expand(keyword);
  CheckBeginsWithLetter(keyword, inp_msgBoundaryNameInvalid);
}

void inp_KeywordExpansionVisitor::VisitMatrixInput(inp_Keyword& keyword)
{
  Expand(keyword);
  ProcessInputParameter(keyword);
  MeetsRequirements(keyword);
  CheckBeginsWithLetter(keyword, inp_msgMatrixNameInvalid);
}

void inp_KeywordExpansionVisitor::VisitSurface(inp_Keyword& keyword)
{
  Expand(keyword);
  MeetsRequirements(keyword);
  if (keyword.HasParameter("refnode"))
  {
    Say(inp_msgSurfaceRefNodeDeprecated, keyword);
  }
}

/// The table holds "all ", with a blank, so that the abbreviation ALL of ALL EXTERIOR has an entry of its own
/// and can be told from the whole name.
void inp_KeywordExpansionVisitor::VisitContactInclusions(inp_Keyword& keyword)
{
  Expand(keyword);
  if (keyword.HasParameter("all "))
  {
    Say(inp_msgAllExteriorAbbreviated, keyword);
  }
}

void inp_KeywordExpansionVisitor::VisitDynamic(inp_Keyword& keyword)
{
  Expand(keyword);
  if (keyword.HasParameter("explicit"))
  {
    explicitJob = true;
  }
}

void inp_KeywordExpansionVisitor::VisitRigidSurface(inp_Keyword& keyword)
{
  Expand(keyword);
  rigidSurfaceKeyword = true;
}

// ---- handlers that no keyword reaches ----

#define UNREACHED(stem)                                                                            \
  void inp_KeywordExpansionVisitor::Visit##stem(inp_Keyword& keyword)                              \
  {                                                                                                \
    ExpandByRule(keyword, *inp_ExpansionRuleNamed("Visit" #stem));                                 \
  }

UNREACHED(SloadCase)
UNREACHED(UserGasketBehavior)
UNREACHED(WavefrontMinimization)
UNREACHED(Xxxautocont)

#undef UNREACHED

void inp_KeywordExpansionVisitor::VisitReactiveAcousticSurface(inp_Keyword& keyword)
{
  ExpandByRule(keyword, *inp_ExpansionRuleNamed("VisitReactiveAcousticSurface"));
  ProcessInputParameter(keyword);
  Refuse(inp_msgRefusedReactiveSurface, keyword);
}

void inp_KeywordExpansionVisitor::VisitSurfaceImpedance(inp_Keyword& keyword)
{
  ExpandByRule(keyword, *inp_ExpansionRuleNamed("VisitSurfaceImpedance"));
  Refuse(inp_msgRefusedSurfaceImpedance, keyword);
}
