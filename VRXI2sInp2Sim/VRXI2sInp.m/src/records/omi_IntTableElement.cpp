#include "omi_IntTableElement.h"

// Delegates to the default constructor, so that the table counts as built: when memory gives out half way,
// its destructor deletes what has been copied.
omi_IntTableElement::omi_IntTableElement(omi_IntTableElement const& other) : omi_IntTableElement()
{
  for (omi_IntTableIterator<void*> it(other); !it.IsDone(); it.Next())
  {
    if (it.CurrentValue() != nullptr)
    {
      Insert(it.CurrentKey(), nullptr);
      Get(it.CurrentKey()) = inp_Element::Make(*other.GetElement(it.CurrentKey()));
    }
  }
}

omi_IntTableElement::~omi_IntTableElement() { DeleteElements(); }

void omi_IntTableElement::DeleteElements()
{
  for (omi_IntTableIterator<void*> it(*this); !it.IsDone(); it.Next())
  {
    delete static_cast<inp_Element*>(it.CurrentValue());
  }
  Clear();
}
