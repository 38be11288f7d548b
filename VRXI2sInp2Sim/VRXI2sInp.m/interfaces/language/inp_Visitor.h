#pragma once

#include "VRXBasPair.h"
#include "VRXBasVector.h"
#include "atr_Message.h"
#include "cow_List.h"
#include "inp_Keyword.h"
#include "inp_Utils.h"
#include "mem_Allocation.h"

/// Base of all walks over keywords: one operation a keyword, dispatch to it, the place of the walk
/// (part, assembly, instance, step), and three lists of diagnostics.
///
/// A derived class gives DefaultAction, which all keywords reach that it has no interest in, and
/// overrides the operations of the keywords that matter to it. A parent is visited before its
/// suboptions. The walk changes the list in place and belongs to one thread.
class inp_Visitor : public mem_AllocationOperators
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
  void ClearInstanceName() { m_instanceName.Erase(); }
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
  /// Appends a message about a keyword to the list that its row's severity names.
  template <int Places, class... Arguments>
  void Say(atr_MessageRow<Places> const& row, inp_Keyword const& keyword,
           Arguments const&... arguments)
  {
    ListOf(row.severity).Append(inp_Utils::MessageInKeyword(keyword, atr_Say(row, arguments...)));
  }

  cow_List<atr_String>& ListOf(atr_severityEnm severity);

  /// The walk stands in no part, instance, assembly or substructure: names here are the model's.
  bool IsOutsideScopes() const
  {
    return m_substructurePathDepth < 1 && m_partName.Empty() && m_instanceName.Empty() &&
           m_assemblyName.Empty();
  }

  cow_String m_partName;
  cow_String m_assemblyName;
  cow_String m_instanceName;
  cow_String m_stepName;
  int m_substructurePathDepth = 0; ///< levels entered by *SUBSTRUCTURE PATH
  cow_List<atr_String> m_errorList;
  cow_List<atr_String> m_warningList;
  cow_List<atr_String> m_fatalErrorList;
};
