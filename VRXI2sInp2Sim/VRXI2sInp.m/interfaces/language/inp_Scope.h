#pragma once

#include "cow_String.h"

/// Where a walk over keywords stands.
///
///     *PART, NAME=WHEEL               in the part WHEEL
///     *ASSEMBLY, NAME=CAR             in the assembly CAR
///     *INSTANCE, NAME=W-1, PART=WHEEL in the instance W-1 of CAR
///     *STEP, NAME=LOAD                in the step LOAD of the model
///
/// Names keep the case and the quotes of the deck; one is empty where the walk is in nothing of its kind.
/// inp_Visitor keeps the scope of its walk up to date; everybody else reads it.
struct inp_Scope
{
  bool IsInPart() const { return m_partName.Length() > 0; }
  bool IsInInstance() const { return !IsInPart() && m_instanceName.Length() > 0; }
  /// Neither in a part nor in an instance, whether an assembly is open or not.
  bool IsAtAssemblyLevel() const { return m_partName.Empty() && m_instanceName.Empty(); }
  /// In no part, instance, assembly or substructure: names here are the model's.
  bool IsOutsideScopes() const
  {
    return IsAtAssemblyLevel() && m_assemblyName.Empty() && m_substructurePathDepth < 1;
  }

  // The part or instance that definitions belong to; empty at assembly level. In a part that a deck does
  // not close in front of its instances both names are known: nodes and elements go by the part then, sets
  // and surfaces by the instance.
  cow_String const& MeshScope() const { return IsInPart() ? m_partName : m_instanceName; }
  cow_String const& SetScope() const
  {
    return m_instanceName.Length() > 0 ? m_instanceName : m_partName;
  }

  cow_String m_partName;
  cow_String m_assemblyName;
  cow_String m_instanceName;
  cow_String m_stepName;
  int m_substructurePathDepth = 0; ///< levels entered by *SUBSTRUCTURE PATH
  cow_String m_instancePart;       ///< the part that the instance is one of
};
