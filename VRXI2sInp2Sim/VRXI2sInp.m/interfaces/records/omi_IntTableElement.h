#pragma once

#include "inp_Element.h"
#include "omi_IntTable.h"

/// A table from element labels to elements that it owns; a cell may be null.
///
/// A copy copies every element and leaves null cells out. Clear gives the elements up without deleting
/// them: whoever has taken the pointers owns them then.
class omi_IntTableElement : public omi_IntTable<void*, VRXBasOmiDefaultAllocator>
{
public:
  omi_IntTableElement() = default;
  omi_IntTableElement(omi_IntTableElement const& other);
  omi_IntTableElement& operator=(omi_IntTableElement const&) = delete;
  ~omi_IntTableElement() override;

  /// Deletes all elements and empties the table.
  void DeleteElements();

  /// The element under a label that is known to be present; may be null.
  inp_Element* GetElement(int label) const { return static_cast<inp_Element*>(ConstGet(label)); }
};
