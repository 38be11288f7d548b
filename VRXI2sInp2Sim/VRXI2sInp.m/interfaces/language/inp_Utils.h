#pragma once

#include "atr_Message.h"
#include "atr_String.h"
#include "cow_List.h"
#include "cow_String.h"
#include "inpM_OmiSet.h"
#include "inp_ScopedRange.h"

#include <string_view>
#include <vector>

class inp_DataArray;
class inp_Keyword;

/// Names, generated numbers and the form of messages: what every reader of keywords shares.
///
/// A scoped name is written instance.set or assembly.instance.set; periods within double quotes do
/// not separate, and a quoted piece keeps its quotes here (inp_Label drops them).
class inp_Utils
{
public:
  /// a_b; when a or b stands in double quotes, the whole does: "a_b".
  static cow_String CreateFlattenedName(cow_String const& a, cow_String const& b);
  static cow_String CreateFlattenedName(cow_String const& a, cow_String const& b,
                                        cow_String const& c);
  /// The pieces between unquoted periods; an empty name is one empty piece.
  static cow_List<cow_String> SplitScopedSet(cow_String const& name);
  static bool HasNameUnquotedPeriod(cow_String const& name);
  /// The first character is a digit.
  static bool IsId(cow_String const& name);
  static bool IsSetName(cow_String const& name);
  static bool IsScopedSetName(cow_List<cow_String> const& pieces);
  static bool IsScopedSetId(cow_List<cow_String> const& pieces);
  /// Types of *SURFACE that are described by lines and arcs, not by elements or nodes.
  static bool IsAnalyticalSurfaceType(cow_String const& type);

  /// Every period becomes "_", quoted or not; a name that begins with a digit stays.
  static cow_String RemovePeriod(cow_String const& name);
  /// At most 255 characters come back from these two when there is something to change.
  static cow_String RemoveUnquotedPeriod(cow_String const& name);
  static cow_String ReplaceUnquotedPeriodWithUnderscore(cow_String const& name);

  /// Tabs, carriage returns and blanks outside double quotes go. Stops behind the first line feed.
  /// The result has at most 255 characters; a longer one is a broken invariant, since no item that
  /// the reader lets pass is longer.
  static cow_String TakeOutSpacesOutsideQuoted(cow_String const& text);
  /// The same, in upper case outside the quotes.
  static cow_String TakeOutSpacesAndUpperOutsideQuoted(cow_String const& text);
  /// The same, of a text that is no cow_String.
  static cow_String CleanedText(std::string_view text);
  /// Characters that the two functions above would keep of the text, up to its first line feed.
  static int LengthWithoutSpaces(char const* text);
  /// A file's name as it is looked for: without the quotes around it.
  static cow_String WithoutQuotes(cow_String const& fileName);

  /// "in keyword *NAME, file "f.inp", line 12: "; file and line as far as the keyword has them.
  static atr_String FormTitleForMessage(inp_Keyword const& keyword);
  /// Title and message, with the keyword's place as the message's origin.
  static atr_String MessageInKeyword(inp_Keyword const& keyword, atr_String const& message);
  /// The keyword's name, file and line, for messages that speak of it later.
  static atr_Origin PlaceOf(inp_Keyword const& keyword);
  /// The message alone, with the keyword's place as its origin: for texts that stand without title.
  static atr_String PlacedAt(inp_Keyword const& keyword, atr_String const& message);
  static atr_String MessageInKeyword(inp_Keyword const& keyword, atr_String const& message,
                                     cow_List<int> const& items);
  static atr_String MessageInKeyword(inp_Keyword const& keyword, atr_String const& message,
                                     cow_List<cow_String> const& items);
  /// Message and items on the line below; nothing for no items. The form for numbers writes the
  /// first of them twice, and is meant to.
  static atr_String MessageWithItems(atr_String const& message, cow_List<int> const& items);
  static atr_String MessageWithItems(atr_String const& message, cow_List<cow_String> const& items);

  /// The numbers of a row start, end[, increment]: all rows that cannot be generated are reported to
  /// `errors`, each once, and give nothing. An absent increment, or one of 0, is 1.
  static inpM_OmiSet GenerateSetRow(cow_List<int> const& row, cow_String const& keywordName,
                                    cow_List<atr_String>& errors);
  static inpM_OmiSet GenerateSetIds(inp_DataArray const& data, cow_String const& keywordName,
                                    cow_List<atr_String>& errors);
  /// The same for rows whose start and end may be scoped by an instance; in ascending order a row. A row
  /// of one field gives nothing, unsaid; ranges that are more than memory may hold are left out.
  static cow_List<cow_String> GenerateScopedIds(inp_DataArray const& data,
                                                cow_String const& keywordName,
                                                cow_List<atr_String>& errors);

  /// The same three, in the order of generation and with repeats kept.
  static cow_List<int> GenerateUnsortedSetRow(cow_List<int> const& row,
                                              cow_String const& keywordName,
                                              cow_List<atr_String>& errors);
  static cow_List<int> GenerateUnsortedSetIds(inp_DataArray const& data,
                                              cow_String const& keywordName,
                                              cow_List<atr_String>& errors);
  static cow_List<cow_String> GenerateUnsortedScopedIds(inp_DataArray const& data,
                                                        cow_String const& keywordName,
                                                        cow_List<atr_String>& errors);

  /// The ranges of rows whose start and end may be scoped, ascending, without a text for each number.
  /// Whatever is wrong in a row is reported; blank rows are passed over.
  static std::vector<inp_ScopedRange> ReadScopedRanges(inp_DataArray const& data,
                                                       cow_String const& keywordName,
                                                       cow_List<atr_String>& errors);
  /// Says that a range is more than can be listed.
  static atr_String RangeTooLarge(inp_ScopedRange const& range, cow_String const& keywordName);
};
