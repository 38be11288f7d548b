#pragma once

#include "cow_String.h"

/// Splits a name that may be scoped: [[assembly.]instance.]set, or a number in place of the set.
///
/// Periods within double quotes do not separate; quotes around a piece are dropped. Of more than
/// three pieces the last three count. The work is done once, at the first question.
class inp_Label
{
public:
  inp_Label() = default;
  explicit inp_Label(cow_String const& label) : m_label(label) {}

  bool IsScoped() const;
  /// The last piece is an integer.
  bool IsId() const;
  /// The integer of a scoped label. 0 for a plain one, scoped labels alone carry their number.
  int GetId() const;
  cow_String const& GetAssemblyName() const;
  cow_String const& GetInstanceName() const;
  cow_String const& GetSetName() const;

private:
  void Evaluate() const;

  mutable bool m_evaluated = false;
  mutable bool m_scoped = false;
  mutable bool m_isId = false;
  mutable int m_id = 0;
  cow_String m_label;
  mutable cow_String m_assemblyName;
  mutable cow_String m_instanceName;
  mutable cow_String m_setName;
};
