#include "inp_MeshMessages.h"
#include "inp_NodeVisitor.h"
#include "inp_ScopedField.h"

#include <map>

namespace
{

inp_MapInt2Element ElementsOf(inpM_InstanceMap<inp_MapInt2Element> const& elements,
                              cow_String const& level)
{
  if (level.Empty())
  {
    return elements.HasValue() ? elements.ConstGet() : inp_MapInt2Element();
  }
  return elements.IsMember(level) ? elements.ConstGet(level) : inp_MapInt2Element();
}

} // namespace

/// What the elements of a set give a set of nodes. Ids of an empty instance name are those of the level of
/// the set.
struct inp_NodeVisitor::NodesOfElements
{
  inpM_InstanceMap<inp_MapInt2Element> const& elements;
  inpM_SetHandle nodes;
  inpM_OmiSet known = inpM_OmiSet();       ///< nodes to be left out
  inpM_SetHandle unfinished = CreateSet(); ///< elements with places that have no node yet

  /// Adds the nodes of the elements of a level under an instance name. Labels without an element come back.
  cow_List<int> Add(cow_String const& level, cow_List<int> const& labels,
                    cow_String const& instanceName)
  {
    inp_MapInt2Element const table = ElementsOf(elements, level);
    cow_List<int> ids;
    cow_List<int> incomplete;
    cow_List<int> missing;
    for (int const label : labels)
    {
      inp_Element const* const element = table.GetEltPtr(label);
      if (element == nullptr)
      {
        missing.Append(label);
      }
      else if (!AppendNodes(*element, ids))
      {
        incomplete.Append(label);
      }
    }
    nodes.Get()->Add(instanceName, ids);
    unfinished.Get()->Add(instanceName, incomplete);
    return missing;
  }

private:
  /// False when a place holds no node, or when the element waits for all of them.
  bool AppendNodes(inp_Element const& element, cow_List<int>& ids) const
  {
    bool isComplete = element.numNodesPerElement() > 0;
    for (int i = 0; i < element.numNodesPerElement(); ++i)
    {
      int const node = element.topology()[i];
      isComplete = isComplete && node > 0;
      if (node > 0 && !known.IsMember(node))
      {
        ids.Append(node);
      }
    }
    return isComplete;
  }
};

/// The nodes that a set has, by instance name, so that an unsorted one does not get them twice.
class inp_NodeVisitor::KnownNodes
{
public:
  explicit KnownNodes(inpM_BaseSet const& set)
    : m_own(set.ConstGetOwnIds()), m_ofInstances(set.ConstGetInstanceTree())
  {
  }

  inpM_OmiSet Of(cow_String const& instanceName) const
  {
    inpM_OmiSet const* const ids =
      instanceName.Empty() ? &m_own : m_ofInstances.ConstFind(instanceName);
    return ids != nullptr ? *ids : inpM_OmiSet();
  }

  /// A list without them.
  cow_List<int> Without(cow_String const& instanceName, cow_List<int> const& labels) const
  {
    inpM_OmiSet const known = Of(instanceName);
    cow_List<int> others;
    for (int const label : labels)
    {
      if (!known.IsMember(label))
      {
        others.Append(label);
      }
    }
    return others;
  }

private:
  inpM_OmiSet m_own;
  inpM_BaseSet::InstanceTree m_ofInstances;
};

// *NSET rows: ids and set names; with GENERATE start, end[, step]; with ELSET none.
void inp_NodeVisitor::VisitNset(inp_Keyword& keyword)
{
  bool const hasElset = keyword.HasParameter("elset");
  cow_String const name = keyword.NameIn("nset");
  if (hasElset && keyword.HasParameter("generate"))
  {
    Say(inp_msgElsetAndGenerate, keyword);
    return;
  }
  if (name.Empty())
  {
    Say(inp_msgNsetNameRequired, keyword);
    return;
  }
  if (!CheckSetName(keyword, name))
  {
    return;
  }
  if (!hasElset)
  {
    ProcessInstanceParameter(keyword);
    ReadNodeSet(keyword, name);
  }
  else if (keyword.HasParameter("unsorted"))
  {
    Say(inp_msgUnsortedWithElset, keyword);
  }
  else
  {
    AddNodesOfElements(keyword, name);
  }
}

void inp_NodeVisitor::ReadNodeSet(inp_Keyword const& keyword, cow_String const& name)
{
  bool const unsorted = keyword.HasParameter("unsorted");
  bool const internal = keyword.HasParameter("internal");
  bool const inAssembly = MeshScope().Empty();
  if (keyword.HasParameter("generate"))
  {
    ReplaceSet(keyword, name,
               inAssembly ? GenerateAssemblySetAccumulate(sets, keyword, name, internal, unsorted)
                          : GenerateSetAccumulate(keyword, name, internal, unsorted));
    return;
  }
  ReplaceSet(keyword, name,
             inAssembly
               ? ReadAssemblyIdsAndSetNamesAccumulate(sets, keyword, name, internal, unsorted)
               : ReadIdsAndSetNamesAccumulate(keyword, name, internal, unsorted, hasAssemblySets));
  InheritUnfinished(keyword, name);
}

void inp_NodeVisitor::AddNodesOfElements(inp_Keyword const& keyword, cow_String const& name)
{
  cow_String elset = keyword.NameIn("elset");
  if (elset.Empty())
  {
    return; // which the expansion has said
  }
  if (MeshScope().Empty())
  {
    cow_String const instanceName = keyword.NameIn("instance");
    elset = instanceName.Empty() ? elset : instanceName + "." + elset;
    if (!inp_ScopedField(elset, m_assemblyName).fits)
    {
      Say(inp_msgElementSetMissing, keyword, elset);
      return;
    }
  }
  bool const internal = keyword.HasParameter("internal");
  NodesOfElements found{elements,
                        CreateSet(cow_List<int>(), internal ? inpM_internalSet : inpM_plainSet)};
  cow_List<cow_String> const pieces = inp_Utils::SplitScopedSet(elset);
  cow_String const scope =
    MeshScope().Empty() && pieces.Length() > 1 ? pieces.ConstGet(pieces.Length() - 2) : MeshScope();
  bool const isAdded = scope.Empty() ? AddNodesOfAssembly(keyword, elset, found)
                                     : AddNodesOfScope(keyword, elset, scope, found);
  if (!isAdded)
  {
    return;
  }
  MergeSet(keyword, name, found.nodes);
  if (!found.unfinished->IsEmpty())
  {
    m_unfinished.AddToNestedSet(SetScope(), name, *found.unfinished);
  }
}

/// A set that takes in another one lacks the same nodes.
void inp_NodeVisitor::InheritUnfinished(inp_Keyword const& keyword, cow_String const& name)
{
  if (m_unfinished.IsEmpty())
  {
    return;
  }
  for (int row = 0; row < keyword.data.Rows(); ++row)
  {
    for (int column = 0; column < keyword.data.Cols(row); ++column)
    {
      if (keyword.data.Type(row, column) == inp_Types::inp_STRING)
      {
        InheritUnfinishedOf(keyword.data.AsString(row, column), name);
      }
    }
  }
}

void inp_NodeVisitor::InheritUnfinishedOf(cow_String const& field, cow_String const& name)
{
  cow_String const scope = SetScope();
  cow_String place = scope;
  cow_String setName = field;
  if (scope.Length() > 0 && hasAssemblySets)
  {
    sets.SearchAssemblyAndInstancesForSet(field, place);
  }
  else if (scope.Empty())
  {
    inp_ScopedField const scoped(field, m_assemblyName);
    place = scoped.instanceName;
    setName = scoped.last;
  }
  inpM_BaseSet const* const known = m_unfinished.ConstFindNestedSet(place, setName);
  if (known == nullptr)
  {
    return;
  }
  inpM_SetHandle lacking = CreateSet();
  scope.Empty() && place.Length() > 0 ? lacking.Get()->Add(place, known->ConstGetOwnIds())
                                      : lacking.Get()->Add(*known);
  m_unfinished.AddToNestedSet(scope, name, *lacking);
}

void inp_NodeVisitor::FinishNodeSets()
{
  FinishNodeSets(cow_String(), m_unfinished.ConstGetMap());
  for (cow_String const& scope : m_unfinished.Instances())
  {
    FinishNodeSets(scope, m_unfinished.ConstGetNestedSetMap(scope));
  }
  m_unfinished = inpM_SetMap();
}

void inp_NodeVisitor::FinishNodeSets(cow_String const& scope, inpM_BaseSetMap const& unfinished)
{
  for (inpM_BaseSetMapSIT set(unfinished); !set.IsDone(); set.Next())
  {
    KnownNodes const known(sets.ConstGetNestedSet(scope, set.CurrentKey()));
    NodesOfElements found{elements, CreateSet(), known.Of(cow_String())};
    if (scope.Empty())
    {
      AddNodesOfOwnElements(set.CurrentValue(), known, *found.nodes.Get());
    }
    else
    {
      found.Add(scope, set.CurrentValue().ConstGetIds(), cow_String());
    }
    inpM_BaseSet::InstanceTree const instances = set.CurrentValue().ConstGetInstanceTree();
    cow_BtreeIterator<cow_String, inpM_OmiSet> it(instances);
    for (it.First(); !it.IsDone(); it.Next())
    {
      found.known = known.Of(it.CurrentKey());
      found.Add(it.CurrentKey(), it.CurrentValue().ConstGetArrayCounterpart(), it.CurrentKey());
    }
    sets.AddToNestedSet(scope, set.CurrentKey(), *found.nodes);
  }
}

/// Adds the nodes of elements of the assembly itself that are not known yet.
void inp_NodeVisitor::AddNodesOfOwnElements(inpM_BaseSet const& set, KnownNodes const& known,
                                            inpM_BaseSet& nodes)
{
  inp_MapInt2Element const table = ElementsOf(elements, cow_String());
  std::map<cow_String, cow_List<int>> labels; ///< by instance
  for (int const id : set.ConstGetIds())
  {
    inp_Element const* const element = table.GetEltPtr(id); // null: left out, which has been said
    int const count = element != nullptr ? element->numNodesPerElement() : 0;
    for (int i = 0; i < count; ++i)
    {
      if (element->topology()[i] > 0)
      {
        NodePlace const place = PlaceOfAssemblyNode(element->topology()[i]);
        labels[place.instanceName].Append(place.label);
      }
    }
  }
  for (auto const& [instanceName, found] : labels)
  {
    nodes.Add(instanceName, known.Without(instanceName, found));
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
                                      cow_String const& scope, NodesOfElements& found)
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
  found.Add(scope, set->ConstGetIds(), MeshScope().Empty() ? scope : cow_String());
  return true;
}

/// The nodes of an element set of the assembly, which may reach into instances. The walk ends with the first
/// instance that lacks an element; what it has found counts.
bool inp_NodeVisitor::AddNodesOfAssembly(inp_Keyword const& keyword, cow_String const& elset,
                                         NodesOfElements& found)
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
  cow_List<int> const missing = found.Add(cow_String(), set->ConstGetIds(), cow_String());
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
    cow_List<int> const absent =
      found.Add(instanceName, it.CurrentValue().ConstGetArrayCounterpart(), instanceName);
    if (absent.Length() > 0)
    {
      SayItems(inp_msgElementsNotInInstance, keyword, absent, elset, instanceName);
      break;
    }
  }
  return true;
}

// *PARTICLE GENERATOR MIXTURE rows: names of sets that the generator will fill.
void inp_NodeVisitor::VisitParticleGeneratorMixture(inp_Keyword& keyword)
{
  MakeMixtureSets(keyword);
}
