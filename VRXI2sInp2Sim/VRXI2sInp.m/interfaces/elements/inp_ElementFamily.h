#pragma once

#include "inp_ElementInfo.h"

#include <climits>

/// What is special in how the elements of a keyword list their nodes.
///
/// Layered elements may be given by their bottom nodes alone. The labels of the layers above then follow
/// from OFFSET, which is added once for each layer, and the element lists its nodes layer by layer:
///
///     *ELEMENT, TYPE=CAXA42, OFFSET=100        four bottom nodes, two layers above
///     1, 11, 12, 13, 14
///                       211 212 213 214        second layer
///                       111 112 113 114        first layer
///                        11  12  13  14        bottom
struct inp_ElementFamily
{
  enum kindEnm
  {
    c_other,
    c_asymmetric,   ///< asymmetric axisymmetric: layered, with or without OFFSET
    c_midface,      ///< nodes on the faces are optional
    c_connector,    ///< a node number may be 0
    c_gasket,       ///< layered when OFFSET is given
    c_cohesive,     ///< layered when OFFSET is given
    c_pipePore,     ///< layered, with or without OFFSET
    c_substructure, ///< any number of nodes
    c_user          ///< as many nodes as *USER ELEMENT says
  };

  kindEnm kind = c_other;
  int minNodes = 0;
  int maxNodes = INT_MAX; ///< that a row may give
  int bottomNodes = 0;    ///< 0 unless layered
  int layers = 0;         ///< above the bottom; 0 unless layered

  bool IsLayered() const { return layers > 0; }
  /// Nodes of a layered element with all its layers.
  int LayeredNodes() const { return bottomNodes * (layers + 1); }
};

/// The family of a type of the table. SOLID ELEMENT NUMBERING lets the larger gaskets take the nodes of
/// a solid element.
inp_ElementFamily inp_FamilyOf(inp_ElementInfo const& type, bool hasOffset,
                               bool hasSolidNumbering = false);

/// The types whose midside nodes 17 and 18 may be left to the program.
bool inp_IsGasketWithMidsideNodes(cow_String const& type);
