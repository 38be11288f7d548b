#pragma once

#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "cow_String.h"
#include "inpM_NodeAreaList.h"
#include "mem_Allocation.h"

class aio_ostream;
class inpM_IdMap;

/// Kinds of surface by what they are made of.
enum inpM_SurfaceTypes
{
  inpM_elementSurface = 0,
  inpM_nodeSurface = 1
};

/// A surface within one part or instance: faces of elements (inpM_ElementFaceIdSurface), or nodes with
/// areas (inpM_NodeAreaSurface).
///
/// The operations on two surfaces are for two of one kind: with one of the other kind, Add and
/// Difference change nothing and Intersection leaves nothing. Surfaces are held by
/// inpM_PartInstanceSurfaceHandle, whose copies share until one is written to.
class inpM_PartInstanceSurface : public mem_AllocationOperators
{
public:
  /// Element ids by face name, ascending. No list is empty.
  using FaceMap = cow_Btree<cow_String, cow_List<int>>;

  virtual ~inpM_PartInstanceSurface();

  /// Made of faces of elements, not of nodes.
  virtual bool IsElementSurface() const = 0;

  virtual void Add(inpM_PartInstanceSurface const& other) = 0;
  virtual void Difference(inpM_PartInstanceSurface const& other) = 0;
  virtual void Intersection(inpM_PartInstanceSurface const& other) = 0;

  /// A surface of the same kind and content, which is shared; the caller's to delete.
  virtual inpM_PartInstanceSurface* Copy() const = 0;

  /// A line for each face with its elements behind it, or for each node with its area.
  virtual void Print(aio_ostream& stream) const = 0;

  /// Replaces user ids by internal ones, or with `toUser` internal ids by those of the user. A map without
  /// pairs changes nothing; otherwise what has no entry is dropped.
  virtual void Renumber(inpM_IdMap const& idMap, bool toUser) = 0;

  /// Drops what is no user id of the map. A map without a pair changes nothing.
  virtual void Cleanup(inpM_IdMap const& idMap) = 0;

  virtual inpM_NodeAreaList ConstGetNodeAreaList() const = 0; ///< empty for faces of elements
  virtual FaceMap ConstGetFaceIdElementIdsMap() const = 0;    ///< empty for nodes
  virtual bool IsEmpty() const = 0;

  /// The number of facets or nodes, repeats included.
  virtual int Count() const = 0;

  /// Of each facet that was added several times, keeps the first one.
  virtual void DropRepeats() = 0;

protected:
  inpM_PartInstanceSurface() = default;
  inpM_PartInstanceSurface(inpM_PartInstanceSurface const&) = default;
  inpM_PartInstanceSurface& operator=(inpM_PartInstanceSurface const&) = default;
};

/// How surfaces are held: copies share, and the first to write gets a copy.
using inpM_PartInstanceSurfaceHandle =
  cow_COW<inpM_PartInstanceSurface, cow_Virtual<inpM_PartInstanceSurface>>;

/// An empty surface of a kind.
inpM_PartInstanceSurfaceHandle CreateSurface(inpM_SurfaceTypes type);
