#pragma once

#include "omn_FixedString.h"

#include <string_view>

/// The types of values in a deck, and the patterns by which texts are told apart.
///
/// Each pattern stands twice: as a regular expression for the general engine, and as a matcher
/// (`IsXxx`) that answers in one pass over the text, for use on every parameter and cell. All
/// patterns cover the whole text, blanks and tabs at both ends included.
class inp_Types
{
public:
  enum typeEnm
  {
    inp_INTEGER = 0,
    inp_BOOLEAN = 1,
    inp_REAL = 2,
    inp_STRING = 3,
    inp_NONE = 4
  };

  static omn_FixedString integerPat();
  static omn_FixedString doublePat();   ///< exponent letter "e" or "E"
  static omn_FixedString doublePatD();  ///< exponent letter "d" or "D"
  static omn_FixedString stringPat();   ///< a name, or a text in double quotes
  static omn_FixedString paramPat();    ///< the name of a parameter
  static omn_FixedString setNamePat();  ///< names and quoted texts joined by periods
  static omn_FixedString scopedIDPat(); ///< a number, or one behind names and periods
  static omn_FixedString fileNamePat();
  static omn_FixedString superelementIDPat();
  static omn_FixedString userElementIDPat();

  /// "FAKE", the part under which the contents of a deck without parts are kept.
  static omn_FixedString fakeName();

  static bool IsInteger(std::string_view text);
  static bool IsDouble(std::string_view text);
  static bool IsDoubleD(std::string_view text);
  static bool IsString(std::string_view text);
  static bool IsParameter(std::string_view text);
  static bool IsSetName(std::string_view text);
  static bool IsScopedID(std::string_view text);
  static bool IsFileName(std::string_view text);
  static bool IsSuperelementID(std::string_view text);
  static bool IsUserElementID(std::string_view text);
};
