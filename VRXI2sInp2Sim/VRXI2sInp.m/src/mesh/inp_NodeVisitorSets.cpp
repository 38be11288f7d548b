#include "inp_MeshMessages.h"
#include "inp_NodeVisitor.h"

namespace
{

/// Adds the node places of the elements of a list as they stand. Labels without an element come back.
cow_List<int> AddTopology(inpM_InstanceMap<inp_MapInt2Element> const& elements,
                          cow_String const& instanceName, cow_List<int> const& labels,
                          inpM_BaseSet& nodes, cow_String const& nodesOf)
{
  bool const isOwn = instanceName.Empty();
  bool const hasElements = isOwn ? elements.HasValue() : elements.IsMember(instanceName);
  inp_MapInt2Element const none;
  inp_MapInt2Element const& table = !hasElements ? none
                                    : isOwn      ? elements.ConstGet()
                                                 : elements.ConstGet(instanceName);
  cow_List<int> places;
  cow_List<int> missing;
  for (int const label : labels)
  {
    inp_Element const* const element = table.GetEltPtr(label);
    if (element == nullptr)
    {
      missing.Append(label);
      continue;
    }
    for (int i = 0; i < element->numNodesPerElement(); ++i)
    {
      places.Append(element->topology()[i]);
    }
  }
  nodes.Add(nodesOf, places);
  return missing;
}

} // namespace

// *NSET rows: ids and set names; with GENERATE start, end[, step]; with ELSET none.
void inp_NodeVisitor::VisitNset(inp_Keyword& keyword)
{
  bool const generates = keyword.HasParameter("generate");
  bool const unsorted = keyword.HasParameter("unsorted");
  bool const internal = keyword.HasParameter("internal");
  bool const hasElset = keyword.HasParameter("elset");
  cow_String const name = keyword.NameIn("nset");
  if (generates && hasElset)
  {
    Say(inp_msgElsetAndGenerate, keyword);
    return;
  }
  if (name.Empty())
  {
    Say(inp_msgNsetNameRequired, keyword);
    return;
  }
  ProcessInstanceParameter(keyword);
  if (hasElset && unsorted)
  {
    Say(inp_msgUnsortedWithElset, keyword);
  }
  else if (hasElset)
  {
    AddNodesOfElements(keyword, name, internal);
  }
  else if (CurrentName().Length() > 0)
  {
    AddPartSet(keyword, name,
               generates
                 ? GenerateSetAccumulate(keyword, name, internal, unsorted)
                 : ReadIdsAndSetNamesAccumulate(keyword, name, internal, unsorted, hasAssemblySets),
               true);
  }
  else
  {
    AddAssySet(keyword, name,
               generates
                 ? GenerateAssemblySetAccumulate(sets, keyword, name, internal, unsorted)
                 : ReadAssemblyIdsAndSetNamesAccumulate(sets, keyword, name, internal, unsorted),
               true);
  }
}

void inp_NodeVisitor::AddNodesOfElements(inp_Keyword& keyword, cow_String const& name,
                                         bool internal)
{
  cow_String const elset = keyword.NameIn("elset");
  if (elset.Empty())
  {
    return; // which the expansion has said
  }
  cow_List<cow_String> const pieces = inp_Utils::SplitScopedSet(elset);
  cow_String const& current = CurrentName();
  inpM_SetHandle nodes = CreateSet(internal, false);
  if (current.Length() > 0)
  {
    if (AddNodesOfScope(keyword, elset, current, *nodes.Get()))
    {
      AddPartSet(keyword, name, nodes, false);
    }
    return;
  }
  bool const isAdded =
    pieces.Length() > 1
      ? AddNodesOfScope(keyword, elset, pieces.ConstGet(pieces.Length() - 2), *nodes.Get())
      : AddNodesOfAssembly(keyword, elset, *nodes.Get());
  if (isAdded)
  {
    AddAssySet(keyword, name, nodes, false);
  }
}

bool inp_NodeVisitor::IsImportedWithoutElements(inp_Keyword const& keyword,
                                                cow_String const& instanceName)
{
  bool const isImported = IsImportedInstance(instanceName) && !elements.IsMember(instanceName);
  if (isImported)
  {
    Say(inp_msgNsetOfImportedInstance, keyword, instanceName);
  }
  return isImported;
}

/// The nodes of an element set of a part or an instance: own ones of that part, or in assembly scope
/// ids of the instance. Elements that do not exist have none.
bool inp_NodeVisitor::AddNodesOfScope(inp_Keyword const& keyword, cow_String const& elset,
                                      cow_String const& scope, inpM_BaseSet& nodes)
{
  if (IsImportedWithoutElements(keyword, scope))
  {
    return false;
  }
  cow_List<cow_String> const pieces = inp_Utils::SplitScopedSet(elset);
  bool const isOfScope = pieces.Length() < 2 || pieces.ConstGet(pieces.Length() - 2) == scope;
  inpM_BaseSet const* const set =
    isOfScope ? elementSets.ConstFindNestedSet(scope, pieces.Last()) : nullptr;
  if (set == nullptr)
  {
    Say(inp_msgElementSetMissing, keyword, elset);
    return false;
  }
  if (!CheckListed(keyword, *set))
  {
    return false;
  }
  AddTopology(elements, scope, set->ConstGetIds(), nodes,
              CurrentName().Empty() ? scope : cow_String());
  return true;
}

/// The nodes of an element set of the assembly, which may reach into instances.
bool inp_NodeVisitor::AddNodesOfAssembly(inp_Keyword const& keyword, cow_String const& elset,
                                         inpM_BaseSet& nodes)
{
  inpM_BaseSet const* const set = elementSets.ConstGetMap().ConstFind(elset);
  if (set == nullptr)
  {
    Say(inp_msgElementSetMissing, keyword, elset);
    return false;
  }
  if (!CheckListed(keyword, *set))
  {
    return false;
  }
  cow_List<int> const missing =
    AddTopology(elements, cow_String(), set->ConstGetIds(), nodes, cow_String());
  if (missing.Length() > 0)
  {
    SayItems(inp_msgElementsNotInAssembly, keyword, missing, elset);
  }
  inpM_BaseSet::InstanceTree const instances = set->ConstGetInstanceTree();
  cow_BtreeIterator<cow_String, inpM_OmiSet> it(instances);
  for (it.First(); !it.IsDone(); it.Next())
  {
    cow_String const& instanceName = it.CurrentKey();
    if (IsImportedWithoutElements(keyword, instanceName))
    {
      return false;
    }
    if (!elements.IsMember(instanceName))
    {
      Say(inp_msgElsetInstanceMissing, keyword, instanceName, elset);
      continue;
    }
    cow_List<int> const absent = AddTopology(
      elements, instanceName, it.CurrentValue().ConstGetArrayCounterpart(), nodes, instanceName);
    if (absent.Length() > 0)
    {
      SayItems(inp_msgElementsNotInInstance, keyword, absent, elset, instanceName);
      return false;
    }
  }
  return true;
}

// *PARTICLE GENERATOR MIXTURE rows: names of sets that the generator will fill.
void inp_NodeVisitor::VisitParticleGeneratorMixture(inp_Keyword& keyword)
{
  MakeMixtureSets(keyword);
}
