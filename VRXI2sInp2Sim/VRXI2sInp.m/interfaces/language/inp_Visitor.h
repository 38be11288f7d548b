#pragma once

#include "VRXBasPair.h"
#include "VRXBasVector.h"
#include "atr_Message.h"
#include "cow_List.h"
#include "inp_Keyword.h"
#include "inp_Scope.h"
#include "inp_Utils.h"
#include "mem_Allocation.h"

/// Base of all walks over keywords: one operation a keyword, dispatch to it, the scope of the walk, and
/// three lists of diagnostics.
///
/// The walk visits a keyword, then its suboptions; it changes the list in place and belongs to one thread.
/// A derived class gives DefaultAction, which all keywords reach that it has no interest in, and overrides
/// the operations of the keywords that matter to it.
///
/// Nine operations have a body here, as they keep the scope: those of *PART, *ASSEMBLY, *INSTANCE and *STEP,
/// of what ends these, and of *SUBSTRUCTURE PATH. A name is set in front of DefaultAction at the beginning
/// and erased behind it at the end, so that DefaultAction sees it for both keywords. Whoever overrides one
/// calls the base's: first at a beginning, last at an end. Who does not want DefaultAction there calls
/// SetPartName or its like instead. Passing over a keyword in Visit passes over its name and over all that
/// it holds.
///
/// This walk finds parts whose elements have no section:
///
///     class inp_SectionVisitor : public inp_Visitor
///     {
///     public:
///       void DefaultAction(inp_Keyword&) override {}
///
///       // Sections stand in parts: nothing else is looked at.
///       void Visit(inp_Keyword& keyword) override
///       {
///         if (keyword.Is(inp_kwPart) || IsInPart())
///         {
///           inp_Visitor::Visit(keyword);
///         }
///       }
///
///       void VisitPart(inp_Keyword& keyword) override
///       {
///         inp_Visitor::VisitPart(keyword);      // first: from here on IsInPart() holds
///         m_hasSection = false;                 // of this part, whatever the last one had
///         m_elements = nullptr;
///       }
///
///       void VisitEndPart(inp_Keyword& keyword) override
///       {
///         if (m_elements != nullptr && !m_hasSection)
///         {
///           Say(inp_msgPartWithoutSection, *m_elements, m_partName);
///         }
///         inp_Visitor::VisitEndPart(keyword);   // last: the message needs the name
///       }
///
///       void VisitElement(inp_Keyword& keyword) override { m_elements = &keyword; }
///       void VisitSolidSection(inp_Keyword&) override { m_hasSection = true; }
///       void VisitShellSection(inp_Keyword&) override { m_hasSection = true; }
///
///     private:
///       inp_Keyword const* m_elements = nullptr; ///< the last *ELEMENT of the part
///       bool m_hasSection = false;
///     };
///
/// and this runs it, in a stage of the pipeline:
///
///     inp_SectionVisitor visitor;
///     visitor.VisitListAndReport(keywords);
///
/// What it says is a row of its floor's list of messages:
///
///     INP_MESSAGE(PartWithoutSection, Warning, "Part %s has elements without a section.")
class inp_Visitor : public mem_AllocationOperators, protected inp_Scope
{
public:
  inp_Visitor();
  virtual ~inp_Visitor();
  inp_Visitor(inp_Visitor const&) = default;
  inp_Visitor& operator=(inp_Visitor const&) = default;

  /// Visits every keyword that is in the list at the start. Detaches the list.
  virtual void VisitList(cow_List<inp_Keyword>& list);
  /// Sends warnings, errors (level 1) and fatal errors (level 2), in this order, to the sink.
  virtual void Report() const;
  virtual void VisitListAndReport(cow_List<inp_Keyword>& list);
  /// Calls the operation of the keyword, then visits its suboptions. The "undefined keyword" and
  /// the root are passed over; a keyword without an operation raises VRXBasAssertException.
  virtual void Visit(inp_Keyword& keyword);
  virtual void VisitSuboptions(inp_Keyword& keyword);
  virtual void DefaultAction(inp_Keyword& keyword) = 0;

  // One operation a keyword; each forwards to DefaultAction, and some track names before or after.
#define INP_VISITOR_SLOT(stem) virtual void Visit##stem(inp_Keyword& keyword);
#include "inp_VisitorSlots.def"

  // Names keep the case and quotes of the deck. These store the keyword's name without visiting it;
  // a keyword without the parameter changes nothing. An instance without "name" goes by "instance".
  void SetAssemblyName(inp_Keyword const& keyword);
  void SetInstanceName(inp_Keyword const& keyword);
  void SetPartName(inp_Keyword const& keyword);
  void SetStepName(inp_Keyword const& keyword);
  void ClearInstanceName();
  void ClearStepName() { m_stepName.Erase(); }

  cow_List<atr_String> const& GetErrorList() const { return m_errorList; }
  cow_List<atr_String> const& GetWarningList() const { return m_warningList; }
  cow_List<atr_String> const& GetFatalErrorList() const { return m_fatalErrorList; }
  /// There is an error or a fatal error.
  bool IsError() const;
  bool IsWarning() const { return m_warningList.Length() > 0; }
  /// The job writes its results in the simulation form, alone or beside another.
  static bool IsSimWorkFlow();
  /// All errors, then all fatal errors, each followed by a line feed.
  atr_String Errors() const;
  atr_String Warnings() const;
  /// Sorts pairs of code and message into the lists: 2 is an error, 3 a fatal error, all else a
  /// warning.
  void AddDiagnostics(VRXBasVector<VRXBasPair<int, atr_String>>& diagnostics);

protected:
  inp_Scope const& Scope() const { return *this; }

  // A message goes to the list of its row's severity, with the keyword's file and line as its origin. Its text
  // begins with these, too, except for SayAt.
  template <int Placeholders, class... Arguments>
  void Say(atr_MessageRow<Placeholders> const& row, inp_Keyword const& keyword,
           Arguments const&... arguments)
  {
    ListOf(row.severity).Append(inp_Utils::MessageInKeyword(keyword, atr_Say(row, arguments...)));
  }
  /// With a list of items behind the words.
  template <class T, int Placeholders, class... Arguments>
  void SayItems(atr_MessageRow<Placeholders> const& row, inp_Keyword const& keyword,
                cow_List<T> const& items, Arguments const&... arguments)
  {
    ListOf(row.severity)
      .Append(inp_Utils::MessageInKeyword(keyword, atr_Say(row, arguments...), items));
  }
  /// With the items on a line below; nothing when there are none.
  template <int Placeholders, class... Arguments>
  void SayItemsBelow(atr_MessageRow<Placeholders> const& row, inp_Keyword const& keyword,
                     cow_List<cow_String> const& items, Arguments const&... arguments)
  {
    if (items.Length() > 0)
    {
      ListOf(row.severity)
        .Append(inp_Utils::MessageInKeyword(
          keyword, inp_Utils::MessageWithItems(atr_Say(row, arguments...), items)));
    }
  }
  /// About the keyword's parameter `subject`.
  template <int Placeholders, class... Arguments>
  void SayOf(cow_String const& subject, atr_MessageRow<Placeholders> const& row,
             inp_Keyword const& keyword, Arguments const&... arguments)
  {
    atr_String message = inp_Utils::MessageInKeyword(keyword, atr_Say(row, arguments...));
    atr_Origin origin = *message.Origin();
    origin.subject = subject;
    message.SetOrigin(origin);
    ListOf(row.severity).Append(message);
  }
  template <int Placeholders, class... Arguments>
  void SayAt(atr_Origin const& origin, atr_MessageRow<Placeholders> const& row,
             Arguments const&... arguments)
  {
    atr_String message = atr_Say(row, arguments...);
    atr_Origin known = origin;
    known.code = row.code;
    message.SetOrigin(known);
    ListOf(row.severity).Append(message);
  }
  template <int Placeholders, class... Arguments>
  void SayAt(inp_Keyword const& keyword, atr_MessageRow<Placeholders> const& row,
             Arguments const&... arguments)
  {
    SayAt(inp_Utils::PlaceOf(keyword), row, arguments...);
  }

  cow_List<atr_String>& ListOf(atr_severityEnm severity);

  cow_List<atr_String> m_errorList;
  cow_List<atr_String> m_warningList;
  cow_List<atr_String> m_fatalErrorList;
};
