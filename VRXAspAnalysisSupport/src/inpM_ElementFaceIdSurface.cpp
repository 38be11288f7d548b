#include "inpM_ElementFaceIdSurface.h"

#include "aio_ostream.h"
#include "inpM_IdMap.h"
#include "inpM_OmiSet.h"

#include <climits>

namespace
{
using FaceIterator = cow_BtreeIterator<cow_String, cow_List<int>>;

/// The elements that are in the set, or that are not, in the order of the list.
cow_List<int> Kept(cow_List<int> const& elements, inpM_OmiSet const& set, bool inSet)
{
  cow_List<int> kept;
  for (int const element : elements)
  {
    if (set.IsMember(element) == inSet)
    {
      kept.Append(element);
    }
  }
  return kept;
}

bool IsAscending(cow_List<int> const& elements)
{
  int before = INT_MIN;
  for (int const element : elements)
  {
    if (element <= before)
    {
      return false;
    }
    before = element;
  }
  return true;
}

/// The list with each element once, where it occurs first. A list without repeats is returned unchanged.
cow_List<int> WithoutRepeats(cow_List<int> const& elements)
{
  if (IsAscending(elements) || inpM_OmiSet(elements).Size() == elements.Length())
  {
    return elements;
  }
  omi_Set known;
  cow_List<int> once;
  for (int const element : elements)
  {
    if (known.Insert(element))
    {
      once.Append(element);
    }
  }
  return once;
}
} // namespace

inpM_ElementFaceIdSurface::inpM_ElementFaceIdSurface(cow_String const& faceId,
                                                     cow_List<int> const& elements)
{
  Add(faceId, elements);
}

inpM_ElementFaceIdSurface::~inpM_ElementFaceIdSurface() = default;

void inpM_ElementFaceIdSurface::Add(cow_String const& faceId, cow_List<int> const& elements)
{
  if (elements.Empty())
  {
    return;
  }
  int const count = elements.Length(); // the list may be one of this surface's own
  if (!m_faces.InsertUnlessMember(faceId, elements))
  {
    m_faces.Find(faceId)->Concatenate(cow_List<int>(elements));
    m_mayRepeat = true;
  }
  m_count += count;
}

/// Replaces the elements of each face by change(face, elements). Faces that are then empty are dropped.
template <class Change>
void inpM_ElementFaceIdSurface::ChangeFaces(Change const& change)
{
  inpM_ElementFaceIdSurface changed;
  FaceIterator it(m_faces);
  for (it.First(); !it.IsDone(); it.Next())
  {
    changed.Add(it.CurrentKey(), change(it.CurrentKey(), it.CurrentValue()));
  }
  *this = changed;
}

void inpM_ElementFaceIdSurface::DropRepeats()
{
  if (m_mayRepeat)
  {
    ChangeFaces([](cow_String const&, cow_List<int> const& elements)
                { return WithoutRepeats(elements); });
  }
}

void inpM_ElementFaceIdSurface::Difference(cow_String const& faceId, cow_List<int> const& elements)
{
  cow_List<int>* const own = m_faces.Find(faceId);
  if (own == nullptr || elements.Empty())
  {
    return;
  }
  cow_List<int> const kept = Kept(*own, inpM_OmiSet(elements), false);
  m_count -= own->Length() - kept.Length();
  *own = kept;
  if (kept.Empty())
  {
    ChangeFaces([](cow_String const&, cow_List<int> const& left) { return left; });
  }
}

void inpM_ElementFaceIdSurface::Add(inpM_PartInstanceSurface const& other)
{
  FaceMap const faces = other.ConstGetFaceIdElementIdsMap();
  if (IsEmpty() && other.IsElementSurface())
  {
    *this = static_cast<inpM_ElementFaceIdSurface const&>(other);
    return;
  }
  FaceIterator it(faces);
  for (it.First(); !it.IsDone(); it.Next())
  {
    Add(it.CurrentKey(), it.CurrentValue());
  }
}

void inpM_ElementFaceIdSurface::Difference(inpM_PartInstanceSurface const& other)
{
  FaceMap const faces = other.ConstGetFaceIdElementIdsMap();
  ChangeFaces(
    [&faces](cow_String const& faceId, cow_List<int> const& elements)
    {
      cow_List<int> const* const taken = faces.ConstFind(faceId);
      return taken == nullptr ? elements : Kept(elements, inpM_OmiSet(*taken), false);
    });
}

void inpM_ElementFaceIdSurface::Intersection(inpM_PartInstanceSurface const& other)
{
  FaceMap const faces = other.ConstGetFaceIdElementIdsMap();
  ChangeFaces(
    [&faces](cow_String const& faceId, cow_List<int> const& elements)
    {
      cow_List<int> const* const common = faces.ConstFind(faceId);
      return common == nullptr ? cow_List<int>() : Kept(elements, inpM_OmiSet(*common), true);
    });
}

void inpM_ElementFaceIdSurface::Print(aio_ostream& stream) const
{
  FaceIterator it(m_faces);
  for (it.First(); !it.IsDone(); it.Next())
  {
    stream << it.CurrentKey().View();
    for (int const element : it.CurrentValue())
    {
      stream << ' ' << element;
    }
    stream << '\n';
  }
}

void inpM_ElementFaceIdSurface::Renumber(inpM_IdMap const& idMap, bool toUser)
{
  if (!idMap.HasIds())
  {
    return;
  }
  cow_IntTableInt const& numbers = toUser ? idMap.ConstGetToUser() : idMap.ConstGetToNew();
  ChangeFaces(
    [&numbers](cow_String const&, cow_List<int> const& elements)
    {
      cow_List<int> renumbered;
      for (int const element : elements)
      {
        int number = 0;
        if (numbers.ConstGetValue(element, number))
        {
          renumbered.Append(number);
        }
      }
      return renumbered;
    });
}

void inpM_ElementFaceIdSurface::Cleanup(inpM_IdMap const& idMap)
{
  if (!idMap.HasIds())
  {
    return;
  }
  ChangeFaces(
    [&idMap](cow_String const&, cow_List<int> const& elements)
    {
      cow_List<int> known;
      for (int const element : elements)
      {
        if (idMap.IsMember(element))
        {
          known.Append(element);
        }
      }
      return known;
    });
}

inpM_SurfaceFacetIT::inpM_SurfaceFacetIT(inpM_PartInstanceSurface const& surface)
  : m_faces(surface.ConstGetFaceIdElementIdsMap())
{
  m_faces.First();
}

void inpM_SurfaceFacetIT::Next()
{
  if (++m_place == m_faces.CurrentValue().Length())
  {
    m_faces.Next();
    m_place = 0;
  }
}
