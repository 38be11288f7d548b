#pragma once

#include "cow_Map.h"
#include "inpM_InstanceMap.h"
#include "inp_ElementFamily.h"
#include "inp_MapInt2Element.h"
#include "inp_SetVisitor.h"

#include <cstdint>

class inp_ElementRows;

/// Turns the element keywords of a level into elements and element sets.
///
/// Handles *ELEMENT, *ELGEN, *ELCOPY, *ELSET, *USER ELEMENT, *FASTENER and *PARTICLE GENERATOR MIXTURE
/// in deck order; a generator sees only what stands above it. Elements belong to the part or, outside of
/// parts, to the instance; with neither they belong to the top level, the assembly.
///
///     inp_ElementVisitor visitor(true);
///     visitor.VisitListAndReport(keywords);
///     visitor.GetElements().ConstGet("WHEEL").ConstGet(7).topology()[0];
///
/// Produces: elements by label, with their type in upper case, and element sets. A repeated label
///           replaces the element.
/// Changes:  a keyword whose elements were completed by OFFSET loses the parameter, and its rows become
///           those of the complete elements. Other holders of the rows keep theirs.
/// Reports:  each fault with its keyword's place. What is wrong with an element leaves it out, but for
///           a wrong number of nodes; the walk goes on.
///
/// Labels are 1 to 999999999. Nothing that a generator makes leaves that range, or is more than memory
/// may hold. O(connectivity), an allocation an element.
class inp_ElementVisitor : public inp_SetVisitor
{
public:
  /// Without `computesConnectivity`, generators make labels with empty elements, and a master that does
  /// not exist is no error.
  explicit inp_ElementVisitor(bool computesConnectivity);
  /// Begins with sets that exist. When there are any, the old set of *ELCOPY, and the names in *ELSET
  /// in a part, are searched in the whole model.
  inp_ElementVisitor(inpM_SetMap const& workingSets, bool computesConnectivity);

  /// Keeps the places of optional nodes that are left blank: see inp_ElementRows::c_blankMark.
  void setAllowBlankMidNodes(bool allows) { allowBlankMidNodes = allows; }
  /// Retired types by name, in upper case; the entry of one tells what replaces it.
  void setObsoleteTypes(cow_Map<cow_String, inpM_InstanceMap<cow_String>> const& types)
  {
    obsoleteTypes = types;
  }

  /// The number of nodes of user types by name, in upper case.
  cow_Map<cow_String, int> const& GetUserElements() const { return userElementNodes; }

  /// By part or instance. A copy shares the elements.
  inpM_InstanceMap<inp_MapInt2Element> const& GetElements() const { return elements; }

  void VisitElcopy(inp_Keyword& keyword) override;
  void VisitElement(inp_Keyword& keyword) override;
  void VisitElgen(inp_Keyword& keyword) override;
  void VisitElset(inp_Keyword& keyword) override;
  void VisitFastener(inp_Keyword& keyword) override;
  void VisitParticleGeneratorMixture(inp_Keyword& keyword) override;
  void VisitUserElement(inp_Keyword& keyword) override;

protected:
  /// What the parameters of an *ELEMENT say.
  struct Definition
  {
    cow_String type;        ///< upper case; all elements share it
    cow_String typeAsGiven; ///< for messages
    inp_ElementFamily family;
    cow_String file; ///< of a substructure
    int offset = 0;  ///< 0 when the parameter is missing or no integer
    bool hasOffset = false;
    bool hasMidsideNodes = false; ///< of a gasket
    int solidNumbering = 0;       ///< 0 when the parameter is missing
  };

  cow_String KeywordName() const override { return "*ELEMENT"; }
  bool IsValidInstanceName(cow_String const& name) const override { return name == MeshScope(); }

  /// The elements of the scope, for writing; made when there are none. Good until `elements` is
  /// copied or changed otherwise. Who shares the table so far keeps it as it is.
  inp_MapInt2Element& CurrentElements();

  /// Reads TYPE, FILE, OFFSET and SOLID ELEMENT NUMBERING. False, with a message, when the keyword
  /// cannot be used.
  bool ReadDefinition(inp_Keyword const& keyword, Definition& definition);

  /// Enters labels into a sorted set of that name, in the scope of the walk.
  void AddElementSet(inp_Keyword const& keyword, cow_String const& name,
                     cow_List<int> const& labels);

  /// The set of an *ELSET of the assembly, grown where it is.
  inpM_SetHandle ReadAssyElsetIdsAndSetNames(inp_Keyword const& keyword, cow_String const& name,
                                             bool internal, bool unsorted);

  inpM_InstanceMap<inp_MapInt2Element> elements;
  cow_Map<cow_String, inpM_InstanceMap<cow_String>> obsoleteTypes;
  cow_Map<cow_String, int> userElementNodes; ///< by type in upper case
  bool hasAssemblySets = false;
  bool computeConnectivity = true;
  bool allowBlankMidNodes = false;

private:
  struct Found;
  class ElementGenerator;
  bool ReadUserType(inp_Keyword const& keyword, Definition& definition);
  bool ReadOffset(inp_Keyword const& keyword, Definition& definition);
  bool ReadSolidNumbering(inp_Keyword const& keyword, Definition& definition);
  void ReadElement(inp_Keyword const& keyword, Definition const& definition, inp_ElementRows& rows,
                   Found& found);
  bool CheckLabel(inp_Keyword const& keyword, Definition const& definition,
                  inp_ElementRows const& rows);
  bool CheckFields(inp_Keyword const& keyword, inp_ElementRows& rows);
  bool CheckNodes(inp_Keyword const& keyword, Definition const& definition, inp_ElementRows& rows);
  bool CompleteNodes(inp_Keyword const& keyword, Definition const& definition,
                     inp_ElementRows& rows, Found& found);
  bool FillLayers(inp_Keyword const& keyword, Definition const& definition, inp_ElementRows& rows,
                  Found& found);
  void FinishElements(inp_Keyword& keyword, Definition const& definition, Found& found);

  bool CheckCount(inp_Keyword const& keyword, std::int64_t count, int nodesOfElement);
  inpM_BaseSet const* CheckExistenceOfOldSet(inp_Keyword const& keyword, cow_String const& name);
  bool CopyElement(inp_Keyword const& keyword, inp_MapInt2Element& target, int label, int newLabel,
                   int nodeShift, cow_List<int>& labels);

  std::int64_t m_generated = 0; ///< elements so far, those included that replace others
};
