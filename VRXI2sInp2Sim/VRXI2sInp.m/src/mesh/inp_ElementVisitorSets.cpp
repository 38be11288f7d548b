#include "inp_ElementMessages.h"
#include "inp_ElementVisitor.h"
#include "inp_MeshMessages.h"

inpM_SetHandle inp_ElementVisitor::ReadAssyElsetIdsAndSetNames(inp_Keyword const& keyword,
                                                               cow_String const& name,
                                                               bool internal, bool unsorted)
{
  return ReadAssemblyIdsAndSetNamesAccumulate(sets, keyword, name, internal, unsorted);
}

// *ELSET rows: ids and names of sets; with GENERATE first, last[, step].
void inp_ElementVisitor::VisitElset(inp_Keyword& keyword)
{
  cow_String const name = keyword.NameIn("elset");
  if (name.Empty())
  {
    Say(inp_msgElsetNameRequired, keyword);
    return;
  }
  if (!CheckSetName(keyword, name))
  {
    return;
  }
  ProcessInstanceParameter(keyword);
  bool const internal = keyword.HasParameter("internal");
  bool const unsorted = keyword.HasParameter("unsorted");
  bool const generates = keyword.HasParameter("generate");
  if (SetScope().Empty())
  {
    ReplaceSet(keyword, name,
               generates ? GenerateAssemblySetAccumulate(sets, keyword, name, internal, unsorted)
                         : ReadAssyElsetIdsAndSetNames(keyword, name, internal, unsorted));
    return;
  }
  ReplaceSet(keyword, name,
             generates
               ? GenerateSetAccumulate(keyword, name, internal, unsorted)
               : ReadIdsAndSetNamesAccumulate(keyword, name, internal, unsorted, hasAssemblySets));
}

void inp_ElementVisitor::VisitUserElement(inp_Keyword& keyword)
{
  cow_String type = keyword.NameIn("type");
  if (type.Empty())
  {
    Say(inp_msgUserElementTypeRequired, keyword);
    return;
  }
  if (!keyword.HasParameter("nodes"))
  {
    Say(inp_msgUserElementNodesRequired, keyword);
    return;
  }
  int const nodes = keyword.GetParameterAsInt("nodes", 0);
  if (nodes < 1)
  {
    Say(inp_msgUserElementNodesNotPositive, keyword);
    return;
  }
  type.LeftTrim(" \t").RightTrim(" \t").ToUpper();
  userElementNodes.Insert(type, nodes);
}

/// The set that the elements of a fastener are to go into exists from then on, so that what stands below
/// may name it.
void inp_ElementVisitor::VisitFastener(inp_Keyword& keyword)
{
  cow_List<cow_String> pieces = inp_Utils::SplitScopedSet(keyword.NameIn("elset"));
  cow_String const name = pieces.Pop();
  if (name.Empty())
  {
    return;
  }
  if (pieces.Empty())
  {
    MergeSet(keyword, name, CreateSet());
    return;
  }
  cow_String const instanceName = pieces.Pop();
  if (!IsInstance(instanceName) && !elements.IsMember(instanceName))
  {
    Say(inp_msgFastenerInstanceUnknown, keyword, instanceName);
    return;
  }
  if (CheckSetName(keyword, name))
  {
    sets.AddToNestedSet(instanceName, name, *CreateSet());
  }
}

// *PARTICLE GENERATOR MIXTURE rows: names of sets that the generator will fill, among other things.
void inp_ElementVisitor::VisitParticleGeneratorMixture(inp_Keyword& keyword)
{
  MakeMixtureSets(keyword);
}
