#pragma once

#include "cow_Btree.h"
#include "cow_COW.h"
#include "cow_IntTableInt.h"
#include "cow_List.h"
#include "cow_String.h"
#include "gsl_Matrix.h"
#include "inpM_IdMap.h"
#include "inp_Coord.h"
#include "inp_MapInt2Coord.h"

class aio_ostream;

/// The nodes of a part or of the assembly, and by instance name those of the levels below.
///
///     label --localIds--> stored label --nodes--> record --transformation--> what is read
///
/// Both positioning and renumbering are lazy. `Transform` composes a matrix that is applied to what is
/// read, `Renumber` makes a table from new numbers to the labels under which the nodes are kept; neither
/// touches a node. A new map has the identity and an empty table, which leaves labels as they are.
///
///     map.Insert(5, inp_Coord(1.0, 0.0, 0.0));
///     map.Transform(twoAlongX);
///     map.ConstGet(5).x;                          // 3.0; the stored record still holds 1.0
///     map.Renumber(100, false);
///     map.ConstGet(100).x;                        // the same node
///
/// After a renumbering an old label remains readable until a new number shadows it. A copy shares
/// everything and costs O(1), whatever its position; the first to write to the nodes copies them.
/// Names of instances are compared byte by byte, and walks go in ascending order.
class inp_CoordMap
{
public:
  inp_CoordMap();

  /// Stores a node under its label, or over the one there. It is stored as it is; the position of the map is
  /// applied when it is read. True when the label is new.
  bool Insert(int label, inp_Coord const& coord);
  /// Adds a child, or replaces the one of that name.
  void Insert(cow_String const& instanceName, inp_CoordMap const& coords);

  /// The node in its position. The label must be present, or else `fallback` is the answer.
  inp_Coord ConstGet(int label) const;
  inp_Coord ConstGet(int label, inp_Coord const& fallback) const;

  /// All own nodes in position, by label. Shares the nodes where the map has neither a position nor a
  /// numbering; otherwise a new map is built: call this once ahead of a loop.
  inp_MapInt2Coord ConstGet() const;

  /// A child that is known to be present: raises VRXBasAssertException otherwise. The one for writing is
  /// good until this map is copied or changed in another way.
  inp_CoordMap const& ConstGet(cow_String const& instanceName) const;
  inp_CoordMap& Get(cow_String const& instanceName);

  bool IsMember(int label) const { return nodes->IsMember(LocalID(label)); } ///< own nodes only
  bool IsMember(cow_String const& instanceName) const { return instances.IsMember(instanceName); }
  bool Remove(int label); ///< true when the label was present

  int Count() const; ///< nodes, with those of all children
  cow_List<cow_String> Instances() const;

  /// Renames a child, over one that has the new name. An unknown old name changes nothing.
  void ChangeInstanceName(cow_String const& from, cow_String const& to);

  /// Lets a motion follow those before, here and in all children. O(levels).
  void Transform(gsl_Matrix const& matrix);
  gsl_Matrix const& GetTransformation() const { return transformation; }

  /// Numbers the nodes anew from `first` up in ascending order of the stored labels, own ones first and
  /// then each instance's in name order, and returns both directions. With `keepIds` every label stays
  /// and is mapped to itself. O(nodes).
  inpM_IdMap Renumber(int first, bool keepIds);

  /// As above for the own nodes alone. A label that is a key of `assigned` takes the number there; any
  /// other takes `next`, which then advances.
  inpM_IdMap Renumber(int& next, bool keepIds, omi_IntTable<int> const& assigned);

  /// A line for each own label, then for each instance its name and its lines.
  void Print(aio_ostream& stream) const;

  /// The stored nodes as they are kept: by stored label, without position.
  inp_MapInt2Coord const& ConstGetStored() const { return *nodes; }

private:
  using Handle = cow_COW<inp_CoordMap, cow_Direct<inp_CoordMap>>;

  int LocalID(int label) const
  {
    localIds.ConstGetValue(label, label);
    return label;
  }
  inp_Coord Positioned(inp_Coord const& stored) const;
  template <class Numbering>
  inpM_IdMap RenumberOwn(Numbering const& numberOf);
  inpM_IdMap OwnIds() const;

  cow_COW<inp_MapInt2Coord, cow_Direct<inp_MapInt2Coord>> nodes;
  gsl_Matrix transformation;
  cow_IntTableInt localIds;
  cow_Btree<cow_String, Handle> instances;
};
