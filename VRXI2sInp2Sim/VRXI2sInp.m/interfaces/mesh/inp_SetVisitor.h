#pragma once

#include "inpM_CreateSet.h"
#include "inpM_SetMap.h"
#include "inp_Visitor.h"
#include "mem_Budget.h"

#include <cstddef>

/// What the readers of nodes and of elements share: the scope of the walk, the map of sets that it
/// fills, and the reading of *NSET and *ELSET.
///
/// Sets live in a scope. The scope of sets is the instance or, outside of instances, the part; with
/// neither name it is the assembly. (Nodes and elements go by the part first.) The operations "of a
/// part" are for a scope with a name, those "of the assembly" for one without: the other use raises
/// VRXBasAssertException.
///
///     part scope       *NSET, NSET=A          ids, and names of sets of the scope
///                      1, 2, B
///     assembly scope   *NSET, NSET=A          own ids, ids of instances, names at either level
///                      7, WHEEL-1.1, WHEEL-1.B, C
///
/// A set must stand above its use. All that is wrong in a keyword is reported, each with the keyword's
/// place, and what is right in it counts.
///
/// A short row may stand for many ids: a range, or an unsorted set that names another many times over.
/// Such rows are refused where the sets of the walk would take more than mostBytes.
class inp_SetVisitor : public inp_Visitor
{
public:
  /// Keeps the results fit for the Lumen pre-processor.
  void setLumenCompatible(bool isCompatible) { lumenCompatible = isCompatible; }
  bool LumenCompatible() const { return lumenCompatible; }

  /// All instances of the model, and those whose mesh comes from an earlier run, in any order.
  void setInstanceNames(cow_List<cow_String> const& names);
  void setImportedInstances(cow_List<cow_String> const& names);

  inpM_SetMap const& GetSets() const { return sets; }
  inpM_SetMap const& GetAssemblySets() const { return assemblySets; }

  void DefaultAction(inp_Keyword&) override {}

protected:
  inp_SetVisitor() = default;
  explicit inp_SetVisitor(inpM_SetMap const& workingSets) : sets(workingSets) {}

  /// "*NODE" or "*ELEMENT": what the walk reads. Messages on its sets say "*NSET" or "*ELSET".
  virtual cow_String KeywordName() const = 0;
  /// Tells whether ids of an instance may stand in the rows of a set of the assembly.
  virtual bool IsValidInstanceName(cow_String const& name) const { return IsInstance(name); }

  bool IsInstance(cow_String const& name) const;
  bool IsImportedInstance(cow_String const& name) const;

  /// Tells whether the keyword may make or change a set of the scope, with a message when it may not.
  virtual bool MayChangeSet(inp_Keyword const&, cow_String const&) { return true; }

  /// The same of the name that the set is to have as well. To be asked before the rows of a keyword are
  /// read.
  bool CheckSetName(inp_Keyword const& keyword, cow_String const& name);

  // Enters a set into the scope, in `sets` or another map, unless its name is refused. MergeSet adds the
  // members to the set of that name, which keeps its kind and type; ReplaceSet puts the set in its place.
  void MergeSet(inpM_SetMap& setMap, inp_Keyword const& keyword, cow_String const& name,
                inpM_SetHandle const& set);
  void MergeSet(inp_Keyword const& keyword, cow_String const& name, inpM_SetHandle const& set)
  {
    MergeSet(sets, keyword, name, set);
  }
  void ReplaceSet(inpM_SetMap& setMap, inp_Keyword const& keyword, cow_String const& name,
                  inpM_SetHandle const& set);
  void ReplaceSet(inp_Keyword const& keyword, cow_String const& name, inpM_SetHandle const& set)
  {
    ReplaceSet(sets, keyword, name, set);
  }

  // The same by a flag, for a part and for the assembly. `accumulate` says that the set holds the members
  // of the old one already.
  void AddPartSet(inpM_SetMap& setMap, inp_Keyword const& keyword, cow_String const& name,
                  inpM_SetHandle const& set, bool accumulate)
  {
    accumulate ? ReplaceSet(setMap, keyword, name, set) : MergeSet(setMap, keyword, name, set);
  }
  void AddPartSet(inp_Keyword const& keyword, cow_String const& name, inpM_SetHandle const& set,
                  bool accumulate)
  {
    AddPartSet(sets, keyword, name, set, accumulate);
  }
  void AddAssySet(inpM_SetMap& setMap, inp_Keyword const& keyword, cow_String const& name,
                  inpM_SetHandle const& set, bool accumulate)
  {
    AddPartSet(setMap, keyword, name, set, accumulate);
  }
  void AddAssySet(inp_Keyword const& keyword, cow_String const& name, inpM_SetHandle const& set,
                  bool accumulate)
  {
    AddPartSet(sets, keyword, name, set, accumulate);
  }

  // New sets from the rows of a keyword. With `includeAll` a name is searched at the own level of
  // `sets`, then in each instance, and otherwise in the scope.
  inpM_SetHandle ReadIdsAndSetNames(inp_Keyword const& keyword, bool internal, bool includeAll);
  inpM_SetHandle ReadUnsortedIdsAndSetNames(inp_Keyword const& keyword, bool internal,
                                            bool includeAll);
  inpM_SetHandle ReadAssemblyIdsAndSetNames(inpM_SetMap const& setMap, inp_Keyword const& keyword,
                                            bool internal);
  inpM_SetHandle ReadUnsortedAssemblyIdsAndSetNames(inpM_SetMap const& setMap,
                                                    inp_Keyword const& keyword, bool internal);

  // New sets from rows start, end[, step]. A range that leaves the range of labels is refused.
  inpM_SetHandle GenerateSet(inp_Keyword const& keyword, bool internal, bool unsorted);
  inpM_SetHandle GenerateAssemblySet(inp_Keyword const& keyword, bool internal, bool unsorted);

  // The same with the members of the set that has this name already, for ReplaceSet. An old set keeps its
  // kind, but becomes sorted when the keyword is. It gains the members where it is, so that a set of many
  // keywords is not copied for each.
  inpM_SetHandle ReadIdsAndSetNamesAccumulate(inp_Keyword const& keyword, cow_String const& name,
                                              bool internal, bool unsorted, bool includeAll);
  inpM_SetHandle ReadAssemblyIdsAndSetNamesAccumulate(inpM_SetMap& setMap,
                                                      inp_Keyword const& keyword,
                                                      cow_String const& name, bool internal,
                                                      bool unsorted);
  inpM_SetHandle GenerateSetAccumulate(inp_Keyword const& keyword, cow_String const& name,
                                       bool internal, bool unsorted);
  inpM_SetHandle GenerateAssemblySetAccumulate(inpM_SetMap& setMap, inp_Keyword const& keyword,
                                               cow_String const& name, bool internal,
                                               bool unsorted);

  /// In assembly scope, puts the INSTANCE of a keyword before each field of its rows (with GENERATE,
  /// before the first two) and drops the parameter. The rows are made anew; other holders keep theirs.
  void ProcessInstanceParameter(inp_Keyword& keyword);

  /// Makes the sets that the rows of a *PARTICLE GENERATOR MIXTURE name, empty: what stands below may
  /// name them before the program fills them. Those that exist are reported.
  void MakeMixtureSets(inp_Keyword const& keyword);

  inpM_SetMap sets;                   ///< being filled
  inpM_SetMap assemblySets;           ///< the assembly's copy, for walks of a level that keep two
  cow_List<cow_String> instanceNames; ///< ascending
  cow_List<cow_String> importedInstances; ///< ascending
  bool lumenCompatible = false;
  std::size_t mostBytes =
    mem_Budget(std::size_t{3} << 30); ///< of the sets that rows of the walk make

private:
  struct Faults;
  class PartReader;
  class AssemblyReader;
  template <class Reader>
  inpM_SetHandle ReadRows(Reader& reader, inp_Keyword const& keyword, inpM_SetHandle const& set);
  template <class Read>
  inpM_SetHandle Accumulate(inpM_SetMap& setMap, cow_String const& name, bool internal,
                            bool unsorted, Read const& read);
  void PrintAdding(inpM_SetMap const& setMap, cow_String const& name) const;
  inpM_SetHandle ReadPart(inp_Keyword const& keyword, bool internal, bool unsorted,
                          bool includeAll);
  inpM_SetHandle ReadAssembly(inpM_SetMap const& setMap, inp_Keyword const& keyword, bool internal,
                              bool unsorted);
  void GenerateAssemblyRow(inp_Keyword const& keyword, int row, inpM_BaseSet& set,
                           std::size_t& bytes, Faults& faults);
  void GenerateRow(inp_Keyword const& keyword, cow_List<int> const& row,
                   cow_String const& instanceName, inpM_BaseSet& set, std::size_t& bytes);
  bool CheckRange(inp_Keyword const& keyword, cow_List<int> const& row, bool unsorted,
                  std::size_t& bytes);
  bool TakeRoom(std::size_t added, bool unsorted, std::size_t& bytes) const;
  bool TakeRoom(inpM_BaseSet const& added, bool unsorted, std::size_t& bytes) const;
  cow_String SetKeywordName() const;
  void SayFaults(inp_Keyword const& keyword, Faults const& faults);

  std::size_t m_bytesHeld = 0; ///< of mostBytes
};

/// A sorted set with the members of another, of the same type.
inpM_SetHandle ConvertToSorted(inpM_BaseSet const& set);
