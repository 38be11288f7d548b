#pragma once

#include "CapturingSink.h"
#include "MeshDeck.h"
#include "inp_AssemblyElementVisitor.h"
#include "inp_AssemblyNodeVisitor.h"
#include "inp_AssemblySurfaceVisitor.h"
#include "inp_NodeNumbers.h"
#include "inp_OrganizerVisitor.h"
#include "inp_PartElementVisitor.h"
#include "inp_PartNodeVisitor.h"
#include "inp_PartSurfaceVisitor.h"

#include <optional>

/// "S1: 3 7, SPOS: 2" or "3=1.0 7=2.5": a piece of a surface, ascending by face or node.
inline std::string PieceText(inpM_PartInstanceSurface const& piece)
{
  std::string text;
  for (inpM_NodeAreaListIT it(piece.ConstGetNodeAreaList()); !it.IsDone(); it.Next())
    text += (text.empty() ? "" : " ") + std::to_string(it.CurrentKey()) + "=" +
            NumberText(it.CurrentValue());
  inpM_PartInstanceSurface::FaceMap const faces = piece.ConstGetFaceIdElementIdsMap();
  cow_BtreeIterator<cow_String, cow_List<int>> it(faces);
  for (it.First(); !it.IsDone(); it.Next())
  {
    text += (text.empty() ? "" : ", ") + std::string(it.CurrentKey().View()) + ":";
    for (int const element : it.CurrentValue())
      text += " " + std::to_string(element);
  }
  return text;
}

/// The surfaces of a part or an instance: "A {S1: 3} B {1=1.0}".
inline std::string SurfacesText(inpM_PartInstanceSurfaceMap const& surfaces)
{
  std::string text;
  for (inpM_PartInstanceSurfaceMapSIT it(surfaces); !it.IsDone(); it.Next())
    text += (text.empty() ? "" : " ") + std::string(it.CurrentKey().View()) + " {" +
            PieceText(it.CurrentValue()) + "}";
  return text;
}

/// The surfaces of the assembly, a line each: "A: I-1 {S1: 3} own {7=1.0}". "internal" stands in front.
inline std::string SurfacesText(inpM_AssemblyInstanceSurfaceMap const& surfaces)
{
  std::string text;
  inpM_AssemblyInstanceSurfaceMapSIT it(surfaces);
  for (it.First(); !it.IsDone(); it.Next())
  {
    inpM_AssemblyInstanceSurface const& surface = it.CurrentValue();
    text += std::string(it.CurrentKey().View()) + ":" + (surface.IsInternal() ? " internal" : "");
    std::string const pieces = SurfacesText(surface.ConstGetInstance2PartInstanceSurfaceMap());
    text += (pieces.empty() ? "" : " ") + pieces;
    if (!surface.ConstGetNodeSurface().IsEmpty())
      text += " own {" + PieceText(surface.ConstGetNodeSurface()) + "}";
    text += "\n";
  }
  return text;
}

/// The walks over the levels of a deck, one behind the other, and all that they say.
class LevelDeck
{
public:
  explicit LevelDeck(std::string_view deck)
    : m_expansion(deck,
                  [](inp_KeywordExpansionVisitor& visitor) { visitor.SetBulkConversion(false); }),
      m_deckFile(m_expansion.list.ConstGet(0).fileName)
  {
    CapturingSink const sink;
    list = Organized();
    WalkParts();
    WalkAssembly();
    messages = m_expansion.messages;
    for (wip_Message const& message : sink.Messages())
      messages +=
        MessageText(CapturingSink::Severity(message).c_str(), message.text, m_deckFile) + "\n";
  }

  cow_List<inp_Keyword> list; ///< organized
  std::string messages;       ///< a line each, in order: "line severity: words"
  inp_PartElementVisitor partElements{true};
  std::optional<inp_PartNodeVisitor> partNodes;
  std::optional<inp_PartSurfaceVisitor> partSurfaces;
  std::optional<inp_AssemblyElementVisitor> elements;
  std::optional<inp_AssemblyNodeVisitor> nodes;
  std::optional<inp_AssemblySurfaceVisitor> surfaces;

  /// The surfaces of a part, of an instance, and of the assembly; see SurfacesText.
  std::string PartSurfaces(char const* part) const
  {
    return SurfacesText(partSurfaces->GetSurfaces().ConstGetPartInstanceSurfaceMap(part));
  }
  std::string InstanceSurfaces(char const* instance) const
  {
    return SurfacesText(surfaces->GetSurfaces().ConstGetPartInstanceSurfaceMap(instance));
  }
  std::string AssemblySurfaces() const
  {
    return SurfacesText(surfaces->GetSurfaces().ConstGetAssemblyInstanceSurfaceMap());
  }

  inp_PartMaps parts;

private:
  cow_List<inp_Keyword> Organized()
  {
    inp_OrganizerVisitor organizer(true);
    organizer.VisitListAndReport(m_expansion.list);
    return organizer.Keywords();
  }

  void WalkParts()
  {
    partElements.VisitListAndReport(list);
    parts.elements = partElements.GetElements();
    parts.elsets = partElements.GetSets();
    parts.userElements = partElements.GetUserElements();
    partNodes.emplace(parts, true);
    partNodes->VisitListAndReport(list);
    parts.nodes = partNodes->GetCoordMap();
    parts.nsets = partNodes->GetSets();
    partSurfaces.emplace(parts);
    partSurfaces->VisitListAndReport(list);
    parts.surfaces = partSurfaces->GetSurfaces();
  }

  void WalkAssembly()
  {
    inpM_InstanceMap<cow_String> const& names = m_expansion.visitor.ConstGetInstancePartNames();
    elements.emplace(parts, true);
    elements->setInstanceNames(names.Instances());
    elements->VisitListAndReport(list);
    nodes.emplace(inp_LevelMaps{{}, elements->GetElements(), {}, elements->GetSets(), {}}, parts,
                  true);
    nodes->setInstanceNames(names.Instances());
    nodes->VisitListAndReport(list);
    inp_NodeNumbers numbers(nodes->GetCoordMap());
    elements->PutNumbers(numbers);
    surfaces.emplace(
      inp_LevelMaps{
        nodes->GetCoordMap(), elements->GetElements(), nodes->GetSets(), elements->GetSets(), {}},
      parts);
    surfaces->setInstancePartNames(names);
    surfaces->VisitListAndReport(list);
  }

  DeckExpansion m_expansion;
  cow_String m_deckFile;
};
