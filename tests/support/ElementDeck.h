#pragma once

#include "DeckExpansion.h"
#include "MeshDeck.h"
#include "inp_ElementVisitor.h"

#include <span>
#include <string>
#include <string_view>

/// How the element keywords of a deck are read.
struct ElementDeckSetting
{
  std::string scope = "P"; ///< the instance that the walk begins in; empty for the assembly
  bool inPart = true;      ///< the deck stands in *PART, NAME=<scope>, and its rows become numbers
  bool computesConnectivity = true;
  bool allowBlankMidNodes = false;
  inpM_SetMap sets{};
  cow_Map<cow_String, inpM_InstanceMap<cow_String>> obsoleteTypes{};
};

/// "1 C3D4: 11 12 13 14; 2 ..." with what is not as the deck gives it: "<3 given, offset 10, face 2>".
inline std::string ElementsText(inp_MapInt2Element const& elements)
{
  std::string text;
  for (inp_MapInt2ElementIT it(elements); !it.IsDone(); it.Next())
  {
    inp_Element const& element = it.CurrentValue();
    text += (text.empty() ? "" : "; ") + std::to_string(it.CurrentKey()) + " ";
    text += std::string(element.type().View()) + ":";
    for (int i = 0; i < element.numNodesPerElement(); ++i)
      text += " " + std::to_string(element.topology()[i]);
    if (element.numNodesDefined() != element.numNodesPerElement())
      text += " <" + std::to_string(element.numNodesDefined()) + " given>";
    if (element.nodeOffset() != 0)
      text += " <offset " + std::to_string(element.nodeOffset()) + ">";
    if (element.solidElementNumbering() != 0)
      text += " <face " + std::to_string(element.solidElementNumbering()) + ">";
    if (element.isSubstructure())
      text += " <" + std::string(element.file().View()) + ">";
  }
  return text;
}

/// The elements and element sets that a deck makes in one scope.
class ElementDeck
{
public:
  explicit ElementDeck(std::string_view deck, ElementDeckSetting const& setting = {})
    : m_expansion(setting.inPart
                    ? "*PART, NAME=" + setting.scope + "\n" + std::string(deck) + "*END PART\n"
                    : std::string(deck),
                  [](inp_KeywordExpansionVisitor& visitor) { visitor.SetBulkConversion(false); }),
      m_walk(setting)
  {
    cow_List<inp_Keyword>& list = m_expansion.list;
    cow_String const deckFile = list.Length() > 0 ? list.ConstGet(0).fileName : cow_String();
    m_walk.VisitList(list);
    messages = m_expansion.messages + MessagesText(m_walk, deckFile);
    elements = ElementsText(Map());
    sets = SetsText(m_walk.GetSets().ConstGet(setting.scope.c_str()));
  }

  std::string elements; ///< of the scope, see ElementsText
  std::string sets;     ///< of the scope, see SetsText
  std::string messages; ///< a line each: "line severity: words"; lines of a part count from 2

  /// The elements, and behind them the sets when there are any.
  std::string Made() const
  {
    return elements + (sets == "{}" ? "" : (elements.empty() ? "" : " ") + sets);
  }

  inp_MapInt2Element const& Map() const { return m_walk.Map(); }
  inp_Element const& Element(int label) const
  {
    static inp_Element const none;
    EXPECT_TRUE(Map().IsMember(label)) << "element " << label;
    return Map().IsMember(label) ? Map().ConstGet(label) : none;
  }
  inp_ElementVisitor& Visitor() { return m_walk; }
  cow_List<inp_Keyword>& List() { return m_expansion.list; }

private:
  class Walk : public inp_ElementVisitor
  {
  public:
    explicit Walk(ElementDeckSetting const& setting)
      : inp_ElementVisitor(setting.sets, setting.computesConnectivity),
        m_scope(setting.scope.c_str())
    {
      m_instanceName = setting.inPart ? "" : setting.scope.c_str();
      setAllowBlankMidNodes(setting.allowBlankMidNodes);
      setObsoleteTypes(setting.obsoleteTypes);
      hasAssemblySets = false;
    }

    inp_MapInt2Element const& Map() const
    {
      static inp_MapInt2Element const none;
      if (m_scope.Empty())
        return elements.HasValue() ? elements.ConstGet() : none;
      return elements.IsMember(m_scope) ? elements.ConstGet(m_scope) : none;
    }

  private:
    cow_String m_scope;
  };

  DeckExpansion m_expansion;
  Walk m_walk;
};

/// Holds each case against ElementDeck::Made and ElementDeck::messages.
inline void ExpectElements(std::span<DeckCase const> cases, ElementDeckSetting const& setting = {})
{
  for (DeckCase const& c : cases)
  {
    ElementDeck const deck(c.deck, setting);
    EXPECT_EQ(deck.Made(), c.made) << c.what;
    EXPECT_EQ(deck.messages, c.messages) << c.what;
  }
}
