#pragma once

#include "cow_Btree.h"
#include "cow_List.h"
#include "inp_Keyword.h"
#include "inp_LevelMaps.h"

/// The largest labels that instances use for nodes, asked for by part before the parts are complete: so
/// that what is made in a part beside its keywords does not meet what the keywords of its instances make.
///
///     inp_InstanceLabels labels(keywords, instanceParts);
///     labels.LargestOf("GASKET", parts);     // 1017, when an instance of GASKET says *NODE / 1017
///
/// The first question costs a walk over the instances that gives labels alone, and is not told what is
/// wrong in them; nothing, where no instance holds keywords. Keywords stay as they are.
class inp_InstanceLabels
{
public:
  /// A list that is organized, and the part of each instance; both must outlive the object.
  inp_InstanceLabels(cow_List<inp_Keyword> const& keywords,
                     inpM_InstanceMap<cow_String> const& instanceParts)
    : m_keywords(keywords), m_instanceParts(instanceParts)
  {
  }

  /// 0 for a part whose instances hold no keywords. `parts` are to be the same for all questions.
  int LargestOf(cow_String const& partName, inp_PartMaps const& parts);

private:
  cow_List<cow_String> InstancesWithKeywords() const;
  void FindLabels(inp_PartMaps const& parts);

  cow_List<inp_Keyword> const& m_keywords;
  inpM_InstanceMap<cow_String> const& m_instanceParts;
  cow_Btree<cow_String, int> m_largest; ///< by part
  bool m_isFound = false;
};
