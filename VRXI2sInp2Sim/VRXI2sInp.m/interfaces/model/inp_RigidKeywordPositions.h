#pragma once

#include "atr_String.h"
#include "cow_String.h"

/// Where in a list the rigid body and the definition of one analytical surface stand.
///
/// The first of each counts; a further one is a fatal error at the message sink, with the place
/// that is given.
class inp_RigidKeywordPositions
{
public:
  explicit inp_RigidKeywordPositions(cow_String const& itsName) : name(itsName) {}

  void InsertRigidBody(int index, atr_Origin const& place = {});
  void InsertRigidSurface(int index, atr_Origin const& place = {});

  /// Both are there, and the body stands before the surface.
  bool IsOrderReversed() const
  {
    return hasRigidBody && hasRigidSurface && rigidBodyIndex < rigidSurfaceIndex;
  }

  // Good only for what was inserted.
  int ConstGetRigidBodyIndex() const { return rigidBodyIndex; }
  int ConstGetRigidSurfaceIndex() const { return rigidSurfaceIndex; }

private:
  cow_String name; ///< of the surface
  bool hasRigidBody = false;
  bool hasRigidSurface = false;
  int rigidBodyIndex = 0;
  int rigidSurfaceIndex = 0;
};
