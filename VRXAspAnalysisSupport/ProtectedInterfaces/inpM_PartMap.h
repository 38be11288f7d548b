#pragma once

#include "VRXBasSharedPtr.h"
#include "inpM_IdMap.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"

class inpM_SurfaceMap;

/// What an earlier job leaves to one that continues it: sets, surfaces, the parts of the instances and
/// the id maps. The driver fills it from its store and hands it to the stages, which only read it, but for
/// the sets that `RemoveRedundantInternalSets` drops.
///
/// A copy shares everything and costs O(1).
class inpM_PartMap
{
public:
  inpM_SetMap const& ConstGetNsets() const { return m_nsets; }
  inpM_SetMap const& ConstGetElsets() const { return m_elsets; }
  bool HasSurfaceMap() const { return static_cast<bool>(m_surfaces); }
  /// Must have been set: raises VRXBasAssertException otherwise.
  inpM_SurfaceMap const& ConstGetSurfaceMap() const;
  /// Instance name to part name.
  inpM_InstanceMap<cow_String> const& ConstGetInstancePartNames() const { return m_partNames; }
  /// User ids to those of the analysis.
  inpM_IdMap const& ConstGetNodeIdMap() const { return m_nodeIds; }
  inpM_IdMap const& ConstGetElemIdMap() const { return m_elementIds; }

  /// Whether the earlier deck was an assembly of parts.
  bool FeatureEnhanced() const { return m_isFeatureEnhanced; }
  /// Whether the analysis numbered nodes and elements anew.
  bool IsRenumbered() const { return m_isRenumbered; }

  /// Drops, at every level, the internal sets whose members are those of another set of that level, a
  /// plain one or an internal one earlier by name. Linear in the members.
  void RemoveRedundantInternalSets();

  void SetNsets(inpM_SetMap const& nsets) { m_nsets = nsets; }
  void SetElsets(inpM_SetMap const& elsets) { m_elsets = elsets; }
  void SetSurfaceMap(VRXBasSharedPtr<inpM_SurfaceMap const> const& surfaces)
  {
    m_surfaces = surfaces;
  }
  void SetInstancePartNames(inpM_InstanceMap<cow_String> const& names) { m_partNames = names; }
  void SetNodeIdMap(inpM_IdMap const& ids) { m_nodeIds = ids; }
  void SetElemIdMap(inpM_IdMap const& ids) { m_elementIds = ids; }
  void SetFeatureEnhanced(bool is) { m_isFeatureEnhanced = is; }
  void SetRenumbered(bool is) { m_isRenumbered = is; }

private:
  inpM_SetMap m_nsets;
  inpM_SetMap m_elsets;
  VRXBasSharedPtr<inpM_SurfaceMap const> m_surfaces;
  inpM_InstanceMap<cow_String> m_partNames;
  inpM_IdMap m_nodeIds;
  inpM_IdMap m_elementIds;
  bool m_isFeatureEnhanced{false};
  bool m_isRenumbered{false};
};
