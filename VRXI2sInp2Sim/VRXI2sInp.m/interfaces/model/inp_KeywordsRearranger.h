#pragma once

#include "cow_Btree.h"
#include "cow_List.h"
#include "inp_Keyword.h"
#include "inp_RigidKeywordPositions.h"

/// Puts the definition of each analytical surface above the *RIGID BODY that uses it.
///
///     *RIGID BODY, ANALYTICAL SURFACE=A                 *SURFACE, TYPE=CYLINDER, NAME=A
///     *SURFACE, TYPE=CYLINDER, NAME=A            ->     *RIGID BODY, ANALYTICAL SURFACE=A
///
/// The two change places; nothing else moves. Names are compared byte by byte. Serves one list.
class inp_KeywordsRearranger
{
public:
  /// Works on the top level of an expanded list. A second body or definition for a surface stays
  /// where it is, and is a fatal error at the message sink.
  void Rearrange(cow_List<inp_Keyword>& keywords);

private:
  void RecordPositionOfRigidKeyword(cow_String const& name, inp_Keyword const& keyword, int index);

  cow_Btree<cow_String, inp_RigidKeywordPositions> m_positions; ///< by name of the surface
};
