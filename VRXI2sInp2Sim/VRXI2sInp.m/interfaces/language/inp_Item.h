#pragma once

#include "cow_String.h"
#include "inp_Types.h"

/// The value of a parameter: a number, a truth value, a text, or none.
///
/// A text from the deck is told apart in this order: integer, name (also scoped or quoted), scoped
/// number, real, real with exponent letter "D", file name; what fits none of these is no value.
/// So TRUE is a text, 1e5 a real, 2abc a text, and a lone "-" is no value. Quotes stay.
class inp_Item
{
public:
  inp_Item() = default;
  explicit inp_Item(int value) : m_type(inp_Types::inp_INTEGER), m_integer(value) {}
  explicit inp_Item(double value) : m_type(inp_Types::inp_REAL), m_real(value) {}
  explicit inp_Item(bool value) : m_type(inp_Types::inp_BOOLEAN), m_boolean(value) {}
  /// Tells the type by the rules above; blanks and tabs at both ends are dropped.
  explicit inp_Item(cow_String const& text);
  /// A parameter with "=" and nothing behind it: true like one that stands alone, and told apart from it.
  static inp_Item Empty();
  /// A text as it stands, whatever it looks like.
  static inp_Item Text(cow_String const& text);

  inp_Types::typeEnm Type() const { return m_type; }
  /// A parameter that stands alone, or whose text is no value.
  bool HasNoValue() const
  {
    return m_type == inp_Types::inp_BOOLEAN || m_type == inp_Types::inp_NONE;
  }

  bool IsEmptyValue() const { return m_isEmpty; }
  /// An integer, or the text of one that is too large.
  bool ReadsAsInteger() const;

  /// Raises inp_KeywordException unless the item is an integer.
  int AsInt() const;
  /// Raises inp_KeywordException unless the item is a number.
  double AsDouble() const;
  /// Numbers are true unless 0, texts unless empty; no value is false.
  bool AsBool() const;
  /// "TRUE" or "FALSE" for a truth value, "None" for no value.
  cow_String AsString() const;

private:
  inp_Types::typeEnm m_type = inp_Types::inp_NONE;
  int m_integer = 0;
  bool m_boolean = false;
  bool m_isEmpty = false;
  double m_real = 0.0;
  cow_String m_text;
};
