#pragma once

#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inp_DataArray.h"
#include "inp_Item.h"
#include "inp_KeywordEnmFwd.h"
#include "inp_NameParameter.h"

class aio_ostream;
class eli_eostream;
class inp_Visitor;

/// One keyword of a deck: its identity, parameters, data lines, the keywords nested below it, and
/// where it came from.
///
/// A plain record: whoever holds it may read and write its fields. A copy shares everything and
/// copies on write, but for the data lines, which stay shared: DeepCopy gives an independent one. A
/// default-made keyword is the "undefined keyword"; assigning one blanks a keyword for removal.
class inp_Keyword
{
public:
  inp_Keyword() = default;
  explicit inp_Keyword(inp_KeywordEnm const& itsKeyword) : keyword(itsKeyword) {}
  inp_Keyword(inp_KeywordEnm const& itsKeyword, cow_String const& itsFile)
    : keyword(itsKeyword), fileName(itsFile)
  {
  }
  /// By name or abbreviation, lower case; "undefined keyword" when the name resolves to none.
  explicit inp_Keyword(cow_String const& name);

  /// Calls the visitor's Visit on this keyword.
  void Accept(inp_Visitor& visitor);
  bool Is(inp_KeywordEnm other) const { return keyword == other; }
  /// The full name, lower case.
  cow_String const& Name() const;

  // Parameter names are lower case without blanks.
  bool HasParameter(cow_String const& name) const { return parameters.IsMember(name); }
  /// The default stands in for a parameter that is absent or of another type.
  int GetParameterAsInt(cow_String const& name, int defaultValue) const;
  /// Takes integers too.
  double GetParameterAsDouble(cow_String const& name, double defaultValue) const;
  cow_String GetParameterAsString(cow_String const& name, cow_String const& defaultValue) const;
  /// A parameter that names something, whatever the type of its value.
  inp_NameParameter ReadName(cow_String const& parameter) const;
  /// The name alone; empty where there is none.
  cow_String NameIn(cow_String const& parameter) const { return ReadName(parameter).text; }
  /// Some keyword directly below is `other`.
  bool hasSuboption(inp_KeywordEnm const& other) const;

  /// A keyword that shares nothing that can change. Comments and rawSource are left behind.
  inp_Keyword DeepCopy() const;

  /// The keyword as text for people: "*name, parameter = value", data rows below. A parameter line
  /// is broken before it reaches 256 characters; data rows are not.
  cow_String Print(bool withSuboptions) const;
  /// The keyword as deck lines. They read back as the same keyword, unless a row that was near the
  /// longest line of a deck becomes too long by the blanks put behind its commas.
  void Print(aio_ostream& stream, bool withSuboptions) const;
  void Print(eli_eostream& stream, bool withSuboptions) const;

  inp_KeywordEnm keyword = inp_KeywordEnm(0); ///< inp_kwUndefined
  int reserved = 0; ///< the enumerator of the keyword that this one is nested below, once organized
  cow_Map<cow_String, inp_Item> parameters; ///< by lower-case name
  inp_DataArray data;
  cow_List<inp_Keyword> suboptions;
  cow_String fileName;           ///< empty for a generated keyword
  int lineNumber = 0;            ///< the keyword's first line, from 1; 0 for a generated keyword
  bool encrypted = false;        ///< it, or some of its data, came from an encrypted file
  cow_List<cow_String> comments; ///< comment lines right above, without their leading "**"
  bool rawSource = false;        ///< read for a host that shows sources, not for an analysis
};
