#include "omi_IntTableElement.h"

// The constructor that it goes through leaves a whole table, whose destructor deletes what is copied so
// far when the memory gives out.
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
